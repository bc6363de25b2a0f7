#include "piece/ScoreExpression.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ardiphon {

namespace {

constexpr bool isExpressionDigit(char c) { return c >= '0' && c <= '9'; }

/// The whole number that is nearest, the even one of two, as the operators on bits take it.
qint64 bits(double value)
{
    constexpr double Most = 9.2e18;
    return std::isfinite(value) ? std::llrint(std::clamp(value, -Most, Most)) : 0;
}

double combined(char sign, double left, double right)
{
    switch (sign) {
    case '+':
        return left + right;
    case '-':
        return left - right;
    case '*':
        return left * right;
    case '/':
        return right == 0 ? 0 : left / right;
    case '%':
        return right == 0 ? 0 : std::fmod(left, right);
    case '^':
        return std::pow(left, right);
    case '&':
        return double(bits(left) & bits(right));
    case '|':
        return double(bits(left) | bits(right));
    default:
        return double(bits(left) ^ bits(right));
    }
}

/// The kinds of operators: those of one kind are worked out from left to right (but powers).
int kindOf(char sign)
{
    switch (sign) {
    case '+':
    case '-':
        return 1;
    case '*':
    case '/':
    case '%':
        return 2;
    case '&':
    case '|':
    case '#':
        return 3;
    case '^':
        return 4;
    default:
        return 0;
    }
}

/// Whether \a before is worked out before \a next, which stands behind it. Only a sum waits for
/// all others: between products, bits and powers the one on the right comes first.
bool comesFirst(char before, char next)
{
    return kindOf(next) == 1 || (kindOf(before) == kindOf(next) && next != '^');
}

class ExpressionReader
{
public:
    ExpressionReader(QByteArrayView text, qsizetype at) : m_text(text), m_at(at) {}

    double read();
    qsizetype at() const { return m_at; }

private:
    bool isAtEnd() const { return m_at >= m_text.size(); }
    void readOperand();
    double readPowerOfTwo();
    void readSign(char sign);
    void close();
    void combineLast();

    const QByteArrayView m_text;
    qsizetype m_at;
    bool m_wantsOperand = true;
    QVarLengthArray<double, 16> m_values;
    QVarLengthArray<char, 16> m_signs; ///< operators, and '(' for each bracket that is open
};

double ExpressionReader::read()
{
    while (!isAtEnd()) {
        const char c = m_text[m_at];
        if (c == '\n')
            break;
        if (c == ' ' || c == '\t') {
            ++m_at;
        } else if (c == '(' || c == '[') {
            m_signs.append('(');
            m_wantsOperand = true;
            ++m_at;
        } else if (c == ')' || c == ']') {
            ++m_at;
            close();
            if (m_signs.isEmpty())
                break;
        } else if (m_wantsOperand) {
            readOperand();
        } else {
            readSign(c);
        }
    }
    while (!m_signs.isEmpty())
        close();
    return m_values.isEmpty() ? 0 : m_values.last();
}

void ExpressionReader::readOperand()
{
    m_wantsOperand = false;
    const qsizetype start = m_at++;
    const char c = m_text[start];
    if (c == '~') {
        m_values.append(0.5);
        return;
    }
    if (c == '@') {
        m_values.append(readPowerOfTwo());
        return;
    }
    for (; !isAtEnd(); ++m_at) {
        const char next = m_text[m_at];
        const char last = m_text[m_at - 1];
        const bool isInNumber = isExpressionDigit(next) || next == '.' || next == 'e' ||
                                next == 'E' || next == 'z' ||
                                ((next == '+' || next == '-') && (last == 'e' || last == 'E'));
        if (!isInNumber)
            break;
    }
    m_values.append(scoreNumber(m_text.sliced(start, m_at - start)));
}

/// @n: the power of two above n; @@n: that from n on, and one.
double ExpressionReader::readPowerOfTwo()
{
    const bool isWithOneMore = !isAtEnd() && m_text[m_at] == '@';
    if (isWithOneMore)
        ++m_at;
    const qsizetype start = m_at;
    while (!isAtEnd() && isExpressionDigit(m_text[m_at]))
        ++m_at;
    const double number = scoreNumber(m_text.sliced(start, m_at - start));
    double value = 1;
    while (value < number || (!isWithOneMore && value <= number && number > 0)) {
        if (value > 1e300)
            break;
        value *= 2;
    }
    return isWithOneMore ? value + 1 : value;
}

void ExpressionReader::readSign(char sign)
{
    ++m_at;
    if (kindOf(sign) == 0)
        return;
    // Only the operator just before is looked at, so that 9-2*3-1 is 9-(2*3-1).
    if (!m_signs.isEmpty() && m_signs.last() != '(' && comesFirst(m_signs.last(), sign))
        combineLast();
    m_signs.append(sign);
    m_wantsOperand = true;
}

/// Works out what stands in the innermost bracket.
void ExpressionReader::close()
{
    while (!m_signs.isEmpty() && m_signs.last() != '(')
        combineLast();
    if (!m_signs.isEmpty())
        m_signs.removeLast();
    m_wantsOperand = false;
}

void ExpressionReader::combineLast()
{
    const char sign = m_signs.last();
    m_signs.removeLast();
    if (m_values.size() < 2)
        return;
    const double right = m_values.last();
    m_values.removeLast();
    m_values.last() = combined(sign, m_values.last(), right);
}

} // namespace

double scoreNumber(QByteArrayView token)
{
    if (token.contains('z'))
        return ScoreEternity;
    if (token.startsWith('+')) {
        token = token.sliced(1);
        if (token.startsWith('-'))
            return 0;
    }
    double value = 0;
    const auto read = std::from_chars(token.begin(), token.end(), value);
    const bool isNumber = read.ptr == token.end() && read.ec == std::errc() &&
                          (token.startsWith('.') || token.startsWith('-') ||
                           (!token.isEmpty() && isExpressionDigit(token.front())));
    return isNumber ? value : 0;
}

double scoreExpression(QByteArrayView text, qsizetype &at)
{
    ExpressionReader reader(text, at);
    const double value = reader.read();
    at = reader.at();
    return std::isfinite(value) ? value : 0;
}

} // namespace ardiphon
