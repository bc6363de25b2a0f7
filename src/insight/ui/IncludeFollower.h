#pragma once

#include "insight/IncludedFiles.h"

#include <QObject>

class QTimer;

namespace ardiphon {

class FeatureHost;

/// The files that the piece of a window includes, read when a feature wants to show them: in slices
/// while the program has nothing else to do.
class IncludeFollower : public QObject
{
    Q_OBJECT

public:
    /// The one of that window, made for the first who asks.
    static IncludeFollower &of(FeatureHost &host);

    const IncludedFiles &files() const { return m_files; }
    /// Looks whether the piece includes other files now, or whether one of them has changed;
    /// filesRead() tells the end.
    void refresh();
    /// The same at once, as far as it takes no longer than the user should wait.
    const IncludedFiles &refreshed();

signals:
    void filesRead();

private:
    explicit IncludeFollower(FeatureHost &host);

    IncludedFiles::Root root() const;
    void readSlice();

    FeatureHost &m_host;
    IncludedFiles m_files;
    QTimer *m_slices;
};

} // namespace ardiphon
