#pragma once

#include <QComboBox>

namespace ardiphon {

/// A drop-down list with a field to type in. The field is free of the list: what is typed selects
/// nothing and is completed to nothing, and adding and removing items leaves it as it is.
class FlagCombo : public QComboBox
{
    Q_OBJECT

public:
    explicit FlagCombo(QWidget *parent = nullptr);

    QStringList items() const;
    /// Behind the others; the selection stays.
    void append(const QString &item);
    /// Nothing is selected afterwards.
    void removeSelected();

private:
    /// Does \a change to the list and sees to it that the field keeps its text and caret.
    template <typename Change>
    void keepingText(Change change);
};

} // namespace ardiphon
