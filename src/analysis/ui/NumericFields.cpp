#include "analysis/ui/NumericFields.h"

#include "app/Module1.h"

#include <QFocusEvent>
#include <QLineEdit>

namespace ardiphon {

namespace {

/// Whether the focus went to another control: a popup over the field, or another program, gives it
/// back.
bool leavesField(const QFocusEvent &event)
{
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

} // namespace

void NumericFields::watch(QLineEdit *field, const std::function<QString()> &initial)
{
    m_initials.insert(field, initial);
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, [this, field] { check(*field); });
}

bool NumericFields::eventFilter(QObject *watched, QEvent *event)
{
    auto *const field = static_cast<QLineEdit *>(watched);
    if (event->type() == QEvent::KeyPress)
        remember(*field);
    else if (event->type() == QEvent::FocusOut && field->text().isEmpty() &&
             leavesField(static_cast<QFocusEvent &>(*event)))
        field->setText(m_initials.value(field)());
    return false;
}

void NumericFields::remember(const QLineEdit &field)
{
    RememberedText = field.text();
    RememberedCaret = std::int16_t(field.cursorPosition()); // a field is never longer
}

void NumericFields::check(QLineEdit &field) const
{
    if (IsNumericText(field.text()))
        return;
    field.setText(RememberedText);
    field.setCursorPosition(RememberedCaret);
}

} // namespace ardiphon
