#include "analysis/ui/NumericFields.h"

#include "app/Module1.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QValidator>

namespace ardiphon {

namespace {

class NumericText : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int &) const override
    {
        return IsNumericText(text) ? Acceptable : Invalid;
    }
};

/// Whether the focus went to another control; a popup over the field, or another program, returns
/// it.
bool leavesField(const QFocusEvent &event)
{
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

} // namespace

void NumericFields::watch(QLineEdit *field, const std::function<QString()> &initial)
{
    m_initials.insert(field, initial);
    field->installEventFilter(this);
    field->setValidator(new NumericText(field));
}

bool NumericFields::eventFilter(QObject *watched, QEvent *event)
{
    auto *const field = static_cast<QLineEdit *>(watched);
    if (event->type() == QEvent::FocusOut && field->text().isEmpty() &&
        leavesField(static_cast<QFocusEvent &>(*event)))
        field->setText(m_initials.value(field)());
    return false;
}

} // namespace ardiphon
