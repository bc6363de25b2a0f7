#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

class QLineEdit;

namespace ardiphon {

/// Restricts the fields of a form to texts that may be numbers. A change to any other text is
/// refused as a whole, without a message, whether it was typed, pasted or dropped: text, caret and
/// undo history stay. A field that is left empty gets its default.
class NumericFields : public QObject
{
public:
    explicit NumericFields(QObject *parent) : QObject(parent) {}

    void watch(QLineEdit *field, const std::function<QString()> &initial);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QHash<QObject *, std::function<QString()>> m_initials;
};

} // namespace ardiphon
