#pragma once

#include <QList>
#include <QObject>

class QAction;

namespace ardiphon {

struct ProgramContext;

/// The four files opened last, at the end of a File menu.
class RecentMenu : public QObject
{
    Q_OBJECT

public:
    /// The entries, `menuLastFile(0)` to `menuLastFile(3)`, each with the caption "..." at first.
    RecentMenu(ProgramContext &program, QObject *parent);

    QList<QAction *> entries() const { return m_entries; }
    /// Shows what the configuration holds; an empty entry keeps its caption.
    void refresh();

protected:
    /// Shows the whole path of the entry under the mouse, as its tool tip; the other entries of a
    /// menu have none.
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// The user chose that file, which exists.
    void chosen(const QString &path);

private:
    void choose(int index);
    void watchMenusOf(const QAction &entry);

    ProgramContext &m_program;
    QList<QAction *> m_entries;
};

} // namespace ardiphon
