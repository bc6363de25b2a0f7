#pragma once

#include <QFrame>

class QLabel;
class QTreeWidget;
class QVBoxLayout;

namespace ardiphon {

/// The panel with the bookmarks of a project: a heading by which it is moved, and below it a framed
/// tree for each half.
class BookmarksPanel : public QFrame
{
    Q_OBJECT

public:
    explicit BookmarksPanel(QWidget *parent);

    /// Puts \a tree into a frame with that name and title.
    void add(const QString &name, const QString &title, QTreeWidget *tree);

    QWidget *grip() const;

private:
    QLabel *LabelBookmarks;
    QVBoxLayout *m_column;
};

} // namespace ardiphon
