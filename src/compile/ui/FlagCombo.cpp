#include "compile/ui/FlagCombo.h"

#include <QLineEdit>

namespace ardiphon {

FlagCombo::FlagCombo(QWidget *parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr); // it would change "-w" to "-W"
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    // Without this the box selects the item that is equal to the text.
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::textEdited, this,
            [this] { keepingText([this] { setCurrentIndex(-1); }); });
}

QStringList FlagCombo::items() const
{
    QStringList items;
    for (int i = 0; i < count(); ++i)
        items.append(itemText(i));
    return items;
}

void FlagCombo::append(const QString &item)
{
    keepingText([this, &item] {
        const int selected = currentIndex();
        addItem(item);
        setCurrentIndex(selected); // the box would select its first item
    });
}

void FlagCombo::removeSelected()
{
    keepingText([this] {
        const int selected = currentIndex();
        setCurrentIndex(-1);
        removeItem(selected);
        setCurrentIndex(-1);
    });
}

template <typename Change>
void FlagCombo::keepingText(Change change)
{
    const QString text = currentText();
    const int caret = lineEdit()->cursorPosition();
    change();
    if (currentText() == text)
        return;
    setEditText(text);
    lineEdit()->setCursorPosition(caret);
}

} // namespace ardiphon
