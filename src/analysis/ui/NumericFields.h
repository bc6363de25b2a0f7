#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

class QLineEdit;

namespace ardiphon {

/// Keeps the fields of a form to texts that may stand for numbers. What a field must not hold is
/// silently replaced by what was there at the last key press in any of them; a field that is left
/// empty gets its default.
class NumericFields : public QObject
{
public:
    explicit NumericFields(QObject *parent) : QObject(parent) {}

    void watch(QLineEdit *field, const std::function<QString()> &initial);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void remember(const QLineEdit &field);
    void check(QLineEdit &field) const;

    QHash<QObject *, std::function<QString()>> m_initials;
    QString RememberedText;
    std::int16_t RememberedCaret = 0;
};

} // namespace ardiphon
