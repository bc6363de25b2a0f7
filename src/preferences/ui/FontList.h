#pragma once

#include <QListView>

namespace ardiphon {

/// The fonts of the screen by name, in the order in which the system names them.
class FontList : public QListView
{
    Q_OBJECT

public:
    explicit FontList(QWidget *parent);

    /// Selects \a name, compared without the blanks at its ends; no entry when it is not there.
    void select(const QString &name);
    /// "" when no entry is selected.
    QString selectedName() const;

signals:
    /// An entry became the selection.
    void chosen(const QString &name);
};

} // namespace ardiphon
