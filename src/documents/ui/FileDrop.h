#pragma once

#include <QObject>

class QWidget;

namespace ardiphon {

class Dialogs;

/// Lets a window take files that are dropped on it, the first of each drop.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    FileDrop(QWidget &window, Dialogs &dialogs);

signals:
    /// A file was dropped. \a path is absolute; a name that no text can hold was refused with a
    /// message before.
    void dropped(const QString &path);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;

private:
    void take(const QByteArray &nativePath, const QString &path);

    Dialogs &m_dialogs;
};

} // namespace ardiphon
