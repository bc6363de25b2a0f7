#pragma once

#include <QComboBox>

namespace ardiphon {

/// A drop-down list with a field to type in. The field does not depend on the list: what is typed
/// selects no item and is not completed, and adding and removing items leaves the field as it is.
class FlagCombo : public QComboBox
{
    Q_OBJECT

public:
    explicit FlagCombo(QWidget *parent = nullptr);

    QStringList items() const;
    /// Adds \a item at the end; the selection stays.
    void append(const QString &item);
    /// Removes the selected item; nothing is selected afterwards.
    void removeSelected();

private:
    /// Makes \a change to the list, and restores the field's text and caret.
    template <typename Change>
    void keepingText(Change change);
};

} // namespace ardiphon
