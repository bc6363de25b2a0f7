#include "typing/Signature.h"

#include <algorithm>

namespace ardiphon {

namespace {

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'#' || c == u'.' || c == u':';
}

/// The parts of a signature: names with their array brackets, quoted texts, "..." and single
/// characters.
class SignatureParts
{
public:
    explicit SignatureParts(QStringView text) : m_text(text) { next(); }

    QStringView part() const { return m_text.sliced(m_start, m_end - m_start); }
    int start() const { return int(m_start); }
    bool atEnd() const { return m_start >= m_text.size(); }
    void next()
    {
        m_start = m_end;
        while (!atEnd() && m_text[m_start] == u' ')
            ++m_start;
        m_end = atEnd() ? m_start : endOfPart();
    }

private:
    qsizetype endOfPart() const
    {
        const QStringView rest = m_text.sliced(m_start);
        if (rest.startsWith(u"..."))
            return m_start + 3;
        if (rest[0] == u'"') {
            const qsizetype quote = rest.indexOf(u'"', 1);
            return quote < 0 ? m_text.size() : m_start + quote + 1;
        }
        qsizetype length = 0;
        while (length < rest.size() && isNameCharacter(rest[length]))
            ++length;
        while (length > 0 && rest.sliced(length).startsWith(u"[]"))
            length += 2;
        return m_start + std::max<qsizetype>(length, 1);
    }

    QStringView m_text;
    qsizetype m_start = 0;
    qsizetype m_end = 0;
};

/// Arguments one after the other, with the brackets of those that are optional.
class ArgumentReader
{
public:
    explicit ArgumentReader(SignatureParts &parts) : m_parts(parts) {}

    /// Up to \a end, to a remark in parentheses or to the end of the text.
    QList<SignatureArgument> read(QStringView end)
    {
        for (; !m_parts.atEnd() && (m_depth > 0 || m_parts.part() != end); m_parts.next()) {
            if (m_parts.part() == u"(")
                break;
            take(m_parts.part());
        }
        return m_arguments;
    }
    /// Whether there were nothing but arguments with commas between them.
    bool isList() const { return m_isList; }

private:
    void take(QStringView part)
    {
        if (part == u"[") {
            ++m_depth;
            m_groupStart = m_arguments.size();
        } else if (part == u"]") {
            m_depth = std::max(0, m_depth - 1);
        } else if (part == u"...") {
            repeat();
        } else if (part != u"," && part != u"=") {
            takeArgument(part);
            return;
        }
        m_isAfterDots = part == u"..." || (m_isAfterDots && part == u",");
        m_isAfterArgument = false;
    }

    void takeArgument(QStringView part)
    {
        m_isList &= !m_isAfterArgument && (part[0] == u'"' || part[0].isLetterOrNumber());
        m_arguments.append({part.toString(), m_parts.start(), m_depth > 0, false, m_isAfterDots});
        m_isAfterDots = false;
        m_isAfterArgument = true;
    }

    /// What stands before the dots comes again: all of their bracket, or of the one before them
    /// where they stand alone in theirs; the last one where there is none.
    void repeat()
    {
        qsizetype first = m_arguments.size() - 1;
        if (m_depth > 0 && m_groupStart < m_arguments.size())
            first = m_groupStart;
        for (qsizetype i = std::max<qsizetype>(first, 0); i < m_arguments.size(); ++i)
            m_arguments[i].isRepeated = true;
    }

    SignatureParts &m_parts;
    QList<SignatureArgument> m_arguments;
    qsizetype m_groupStart = 0; ///< the first argument in the last bracket
    int m_depth = 0;
    bool m_isAfterDots = false;
    bool m_isAfterArgument = false;
    bool m_isList = true;
};

/// The form of \a signature, and its inputs, by what \a parts has behind its name.
void readBehindName(Signature &signature, SignatureParts &parts)
{
    QStringView end;
    signature.form = SignatureForm::Statement;
    if (parts.part() == u"=")
        signature.form = SignatureForm::Setting;
    if (parts.part() == u"(") {
        signature.form = SignatureForm::Function;
        end = u")";
    }
    if (signature.form != SignatureForm::Statement)
        parts.next();
    ArgumentReader inputs(parts);
    signature.inputs = inputs.read(end);
    if (!inputs.isList()) {
        signature.form = SignatureForm::Words;
        signature.inputs.clear();
    }
}

Signature signatureOf(const QString &text, const QString &name)
{
    Signature result{text, name, SignatureForm::Words, {}, {}};
    SignatureParts parts(result.text);
    ArgumentReader outputs(parts);
    const QList<SignatureArgument> left = outputs.read(name);
    if (parts.atEnd() || parts.part() != name || !outputs.isList())
        return result;
    parts.next();
    readBehindName(result, parts);
    if (result.form != SignatureForm::Words)
        result.outputs = left;
    if (result.form == SignatureForm::Function && !parts.atEnd())
        result.text.truncate(parts.start() + 1);
    return result;
}

/// As "also for i-arrays".
bool isRemark(QStringView text) { return text.trimmed().startsWith(u"also "); }

bool beginsAsNumber(QStringView written)
{
    const QChar first = written.front();
    return first.isDigit() || first == u'.' || first == u'-' || first == u'+';
}

bool isNumber(QStringView written)
{
    bool isRead = false;
    const double value = written.toDouble(&isRead);
    return isRead && value == value;
}

constexpr QStringView TypeLetters = u"akiSfbx";

} // namespace

QList<Signature> signaturesOf(const QString &parameters, const QString &name)
{
    QList<Signature> result;
    for (const QString &text : parameters.trimmed().split(QStringLiteral(" / "))) {
        if (!text.trimmed().isEmpty() && !isRemark(text))
            result.append(signatureOf(text.trimmed(), name));
    }
    return result;
}

int argumentAt(const QList<SignatureArgument> &arguments, int index)
{
    QList<int> repeated;
    int single = 0; // before those that are repeated
    for (int i = 0; i < arguments.size(); ++i) {
        if (arguments[i].isRepeated)
            repeated.append(i);
        else if (repeated.isEmpty())
            ++single;
    }
    if (index < 0)
        return -1;
    if (index < single)
        return index;
    return repeated.isEmpty() ? -1 : repeated[(index - single) % repeated.size()];
}

int fewestArguments(const QList<SignatureArgument> &arguments)
{
    return int(std::count_if(arguments.begin(), arguments.end(), [](const auto &argument) {
        return !argument.isOptional && !argument.isLastOfMany;
    }));
}

ValueType typeOfArgument(const QString &name)
{
    const bool isArray = name.endsWith(QLatin1String("[]"));
    const bool isText = name.startsWith(u'"');
    const char letter = name.isEmpty() ? 0 : name.front().toLatin1();
    if (isText)
        return {'S', false};
    // The x of a function stands for whatever the function takes.
    const bool isAny = name == u"x" || !TypeLetters.contains(QLatin1Char(letter));
    return {isAny ? char(0) : letter, isArray};
}

ValueType typeOfValue(QStringView written)
{
    written = written.trimmed();
    if (written.isEmpty())
        return {};
    if (written.front() == u'"' || written.startsWith(u"{{"))
        return {'S', false};
    const bool isArray = written.endsWith(u"[]");
    if (isArray)
        written.chop(2);
    if (beginsAsNumber(written))
        return {isNumber(written) ? 'i' : char(0), false};
    if (!std::all_of(written.begin(), written.end(), isNameCharacter))
        return {};
    if (written.front() == u'p' && written.size() > 1 && written[1].isDigit())
        return {'i', isArray};
    if (written.front() == u'g' && written.size() > 1)
        written = written.sliced(1);
    const char letter = written.front().toLatin1();
    return {letter != 'x' && TypeLetters.contains(QLatin1Char(letter)) ? letter : char(0), isArray};
}

bool takesValue(ValueType wanted, ValueType given)
{
    if (wanted.letter == 0 || given.letter == 0)
        return true;
    if (wanted.isArray != given.isArray)
        return false;
    switch (wanted.letter) {
    case 'x':
        return given.letter == 'a' || given.letter == 'k' || given.letter == 'i';
    case 'k':
        return given.letter == 'k' || given.letter == 'i';
    default:
        return wanted.letter == given.letter;
    }
}

bool givesValue(ValueType offered, ValueType variable)
{
    if (offered.letter == 0 || variable.letter == 0)
        return true;
    if (offered.isArray != variable.isArray)
        return false;
    if (offered.letter == 'x')
        return variable.letter == 'a' || variable.letter == 'k' || variable.letter == 'i';
    return offered.letter == variable.letter;
}

} // namespace ardiphon
