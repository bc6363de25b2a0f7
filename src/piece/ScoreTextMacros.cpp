// What the first pass of a score does at a # and at a $.

#include "piece/ScoreText.h"

namespace ardiphon {

namespace {

bool isMacroNameStart(int c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isMacroNameByte(int c) { return isMacroNameStart(c) || (c >= '0' && c <= '9') || c == '_'; }

constexpr qsizetype MostArgumentBytes = 1 << 16;
constexpr qsizetype MostDefinition = 1 << 22;

/// Begins the name of an argument within the text of its macro, and ends it.
constexpr char ArgumentBegin = '\1';
constexpr char ArgumentEnd = '\2';

/// The name under which the argument \a name of \a macro is defined while its text is read: no name
/// that is written, so that an argument that is handed on is that of the macro that hands it on.
QByteArray argumentName(const QByteArray &macro, QByteArrayView name)
{
    return ArgumentBegin + macro + ArgumentBegin + name.toByteArray() + ArgumentEnd;
}

/// \a text, the text of \a macro, with the names of its \a arguments as they are defined.
QByteArray withArguments(const QByteArray &text, const QByteArray &macro,
                         const QByteArrayList &arguments)
{
    QByteArray result;
    qsizetype done = 0;
    for (qsizetype at = text.indexOf('$'); at >= 0; at = text.indexOf('$', at + 1)) {
        qsizetype end = at + 1;
        while (end < text.size() && isMacroNameByte(text[end]))
            ++end;
        const QByteArrayView name = QByteArrayView(text).sliced(at + 1, end - at - 1);
        if (name.isEmpty() || !arguments.contains(name.toByteArray()))
            continue;
        result.append(text.constData() + done, at + 1 - done);
        result.append(argumentName(macro, name));
        done = end;
    }
    return result.append(text.constData() + done, text.size() - done);
}

bool isBlankOrEnd(int c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

} // namespace

/// #, after it.
void ScoreText::readDirective()
{
    m_input.skipBlanks();
    const QByteArray word = readName();
    if (word == "define") {
        readDefine();
    } else if (word == "undef") {
        m_input.skipBlanks();
        m_macros.undefine(readName());
    } else if (word == "include" || word == "includestr") {
        readInclude();
    } else if (word == "ifdef" || word == "ifndef") {
        m_input.skipBlanks();
        const bool isDefined = m_macros.find(readName()) != nullptr;
        m_input.skipLine();
        if (isDefined != (word == "ifdef")) {
            m_skippedDepth = 0;
            m_mode = Mode::Skipped;
        }
    } else if (word == "else") {
        m_input.skipLine();
        m_skippedDepth = 0;
        m_mode = Mode::Skipped;
    } else if (word == "end" || word == "endif") {
        m_input.skipLine();
    } else {
        put('#'); // which is no beginning of a statement, nor of a field
    }
}

/// #define, after it.
void ScoreText::readDefine()
{
    m_input.skipBlanks();
    m_definedName = readName();
    m_defined = {};
    m_defined.place = m_input.placeNumber();
    if (m_input.peek() == '(') {
        m_input.get();
        while (m_input.peek() != ')' && m_input.peek() != ScoreInput::End &&
               m_defined.arguments.size() < 100) {
            m_defined.arguments.append(readName());
            while (isBlankOrEnd(m_input.peek()) || m_input.peek() == '\'')
                m_input.get();
            if (m_input.peek() != ')' && m_defined.arguments.last().isEmpty())
                m_input.get();
        }
        if (m_defined.arguments.isEmpty())
            m_defined.arguments.append(QByteArray());
        m_input.get();
    }
    if (!m_definedName.isEmpty() && goToDefinition())
        m_mode = Mode::Definition;
}

/// Whether the # that begins the text of a macro comes, which is passed over then.
bool ScoreText::goToDefinition()
{
    for (int c = m_input.peek(); c != ScoreInput::End; c = m_input.peek()) {
        if (c == '#') {
            m_input.get();
            return true;
        }
        if (c == ';' || m_input.rest().startsWith("//")) {
            m_input.skipLine();
        } else if (m_input.rest().startsWith("/*")) {
            const qsizetype end = m_input.rest().indexOf("*/", 2);
            m_input.skip(end < 0 ? m_input.rest().size() : end + 2);
        } else if (isBlankOrEnd(c)) {
            m_input.get();
        } else {
            return false;
        }
    }
    return false;
}

/// Reads the text of a macro up to its # or to the end of a line.
void ScoreText::readDefinition()
{
    const QByteArrayView rest = m_input.rest();
    qsizetype end = rest.indexOf('#');
    while (end > 0 && rest[end - 1] == '\\')
        end = rest.indexOf('#', end + 1);
    m_defined.text.append(end < 0 ? rest : rest.first(end));
    if (m_defined.text.size() > MostDefinition) {
        m_isTruncated = true;
        m_defined.text.clear();
    }
    if (end < 0) {
        m_input.skip(rest.size());
        if (m_input.get() == ScoreInput::End)
            m_mode = Mode::Code;
        m_defined.text.append('\n');
        return;
    }
    m_input.skip(end + 1);
    m_mode = Mode::Code;
    m_defined.text = withArguments(m_defined.text, m_definedName, m_defined.arguments);
    for (QByteArray &argument : m_defined.arguments)
        argument = argumentName(m_definedName, argument);
    if (!m_macros.define(m_definedName, m_defined))
        giveUp();
    m_defined = {};
}

/// #include, after it: a name between any two equal signs.
void ScoreText::readInclude()
{
    m_input.skipBlanks();
    const QByteArrayView rest = m_input.rest();
    const qsizetype end = rest.isEmpty() ? -1 : rest.indexOf(rest.front(), 1);
    if (end < 0) {
        m_input.skipLine();
        return;
    }
    const QByteArray name = rest.sliced(1, end - 1).toByteArray();
    m_input.skip(end + 1);
    const std::optional<QByteArray> text = m_includes ? m_includes(name) : std::nullopt;
    m_input.refresh(); // whoever read the file may have asked for a line
    if (text && !m_input.put(*text))
        m_isTruncated = true;
}

/// $, after it.
void ScoreText::expand()
{
    const QByteArray name = m_input.peekHere() == ArgumentBegin ? readArgumentName() : readName();
    const ScoreMacro *const found = m_macros.find(name);
    if (!found) {
        put('$'); // what is no field: the rest of the line does not count
        return;
    }
    const ScoreMacro macro = *found;
    if (m_input.peekHere() == '.')
        m_input.get();
    QByteArrayList values;
    if (!macro.arguments.isEmpty() ? m_input.peek() == '(' : m_input.peekHere() == '(') {
        m_input.get();
        if (!macro.arguments.isEmpty())
            values = readArguments(macro.arguments.size());
    }
    if (!m_input.put(macro.text, macro.arguments, values))
        m_isTruncated = true;
}

/// As withArguments() wrote it.
QByteArray ScoreText::readArgumentName()
{
    const QByteArrayView rest = m_input.rest();
    const qsizetype length = rest.indexOf(ArgumentEnd) + 1;
    const QByteArray name = rest.first(length).toByteArray();
    m_input.skip(length);
    return name;
}

/// The name of a macro that comes next; empty where there is none.
QByteArray ScoreText::readName()
{
    QByteArray name;
    if (!isMacroNameStart(m_input.peekHere()))
        return name;
    const QByteArrayView rest = m_input.rest();
    qsizetype length = 0;
    while (length < rest.size() && isMacroNameByte(rest[length]))
        ++length;
    name = rest.first(length).toByteArray();
    m_input.skip(length);
    return name;
}

/// Up to the ) that ends them; the last of \a count takes what is left.
QByteArrayList ScoreText::readArguments(qsizetype count)
{
    QByteArrayList arguments(1);
    qsizetype bytes = 0;
    int depth = 0;
    for (int c = m_input.get(); c != ScoreInput::End; c = m_input.get()) {
        if (c == '\\' && m_input.peek() != ScoreInput::End)
            c = m_input.get();
        else if (c == ')' && --depth < 0)
            break;
        else if (c == '(')
            ++depth;
        else if (c == '\'' && depth == 0 && arguments.size() < count) {
            arguments.append(QByteArray());
            continue;
        }
        if (++bytes > MostArgumentBytes)
            break;
        arguments.last().append(char(c));
    }
    return arguments;
}

} // namespace ardiphon
