#include "piece/ScorePreprocessor.h"

namespace ardiphon {

namespace {

bool isMacroNameStart(int c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isMacroNameByte(int c) { return isMacroNameStart(c) || (c >= '0' && c <= '9') || c == '_'; }

constexpr qsizetype MostArgumentBytes = 1 << 16;
constexpr qsizetype MostDefinition = 1 << 22;
constexpr int MostRefused =
    10'000; ///< texts too deep within each other, before nothing comes of it

/// In the text of a macro, in place of the name of an argument: between these its macro's number
/// and its own. So an argument that is handed on is that of the macro that hands it on.
constexpr char ArgumentBegin = '\1';
constexpr char ArgumentEnd = '\2';

/// \a text, that of the macro of \a number, with its \a arguments replaced by their numbers.
QByteArray withArguments(const QByteArray &text, int number, const QByteArrayList &arguments)
{
    QByteArray result;
    qsizetype done = 0;
    for (qsizetype at = text.indexOf('$'); at >= 0; at = text.indexOf('$', at + 1)) {
        qsizetype end = at + 1;
        while (end < text.size() && isMacroNameByte(text[end]))
            ++end;
        const qsizetype index = arguments.indexOf(text.sliced(at + 1, end - at - 1));
        if (index < 0)
            continue;
        result.append(text.constData() + done, at + 1 - done).append(ArgumentBegin);
        result.append(QByteArray::number(number)).append(',').append(QByteArray::number(index));
        result.append(ArgumentEnd);
        done = end;
    }
    return result.append(text.constData() + done, text.size() - done);
}

bool isBlankOrEnd(int c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

} // namespace

void ScorePreprocessor::restart()
{
    m_macros.clear();
    m_mode = Mode::Code;
    m_skippedDepth = 0;
    m_defined = {};
    m_definedArguments.clear();
    m_macroNumber = 0;
    m_refused = 0;
    m_isTruncated = false;
    m_isFull = false;
}

bool ScorePreprocessor::readDirective()
{
    m_input.skipBlanks();
    const QByteArrayView word = readName();
    if (word == "define") {
        readDefine();
    } else if (word == "undef") {
        m_input.skipBlanks();
        m_macros.undefine(readName());
    } else if (word == "include" || word == "includestr") {
        readInclude();
    } else if (word == "ifdef" || word == "ifndef") {
        const bool isWanted = word == "ifdef";
        m_input.skipBlanks();
        const bool isDefined = m_macros.find(readName()) != nullptr;
        m_input.skipLine();
        if (isDefined != isWanted)
            skipBranch();
    } else if (word == "else") {
        m_input.skipLine();
        skipBranch();
    } else if (word == "end" || word == "endif") {
        m_input.skipLine();
    } else {
        return false;
    }
    return true;
}

void ScorePreprocessor::readLine()
{
    if (m_mode == Mode::MacroText)
        readDefinition();
    else if (m_mode == Mode::Skipped)
        readSkipped();
}

void ScorePreprocessor::skipBranch()
{
    m_skippedDepth = 0;
    m_mode = Mode::Skipped;
}

/// Passes over one line of a branch that does not count.
void ScorePreprocessor::readSkipped()
{
    QByteArrayView line = m_input.rest().trimmed();
    if (line.startsWith('#')) {
        line = line.sliced(1).trimmed();
        if (line.startsWith("ifdef") || line.startsWith("ifndef"))
            ++m_skippedDepth;
        else if (line.startsWith("end") && --m_skippedDepth < 0)
            m_mode = Mode::Code;
        else if (line.startsWith("else") && m_skippedDepth == 0)
            m_mode = Mode::Code;
    }
    m_input.skipLine();
    if (m_mode == Mode::Skipped && m_input.get() == ScoreInput::End)
        m_mode = Mode::Code;
}

/// #define, after it.
void ScorePreprocessor::readDefine()
{
    m_input.skipBlanks();
    m_definedName = readName().toByteArray();
    m_defined = {};
    m_definedArguments.clear();
    m_defined.place = m_input.placeNumber();
    if (m_input.peek() == '(')
        readArgumentNames();
    if (!m_definedName.isEmpty() && goToDefinition())
        m_mode = Mode::MacroText;
}

/// From the ( on, to behind the ).
void ScorePreprocessor::readArgumentNames()
{
    m_input.get();
    while (m_input.peek() != ')' && m_input.peek() != ScoreInput::End &&
           m_definedArguments.size() < 100) {
        m_definedArguments.append(readName().toByteArray());
        while (isBlankOrEnd(m_input.peek()) || m_input.peek() == '\'')
            m_input.get();
        if (m_input.peek() != ')' && m_definedArguments.last().isEmpty())
            m_input.get();
    }
    if (m_definedArguments.isEmpty())
        m_definedArguments.append(QByteArray());
    m_input.get();
}

/// Whether the # that begins the text of a macro comes, which is passed over then.
bool ScorePreprocessor::goToDefinition()
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
void ScorePreprocessor::readDefinition()
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
    if (!m_definedArguments.isEmpty()) {
        m_defined.number = ++m_macroNumber;
        m_defined.argumentCount = int(m_definedArguments.size());
        m_defined.text = withArguments(m_defined.text, m_defined.number, m_definedArguments);
    }
    define(m_definedName, m_defined);
    m_defined = {};
}

void ScorePreprocessor::define(const QByteArray &name, const ScoreMacro &macro)
{
    if (!m_macros.define(name, macro))
        m_isTruncated = m_isFull = true;
}

void ScorePreprocessor::beginCount(const QByteArray &name)
{
    if (!name.isEmpty())
        define(name, {"0", 0, 0, m_input.placeNumber()});
}

void ScorePreprocessor::setCount(const QByteArray &name, int turn)
{
    m_macros.setText(name, QByteArray::number(turn));
}

void ScorePreprocessor::put(const QByteArray &text, int macro, const QByteArrayList &arguments)
{
    if (m_input.put(text, macro, arguments))
        return;
    m_isTruncated = true;
    m_isFull = m_isFull || ++m_refused >= MostRefused;
}

/// #include, after it: a name between any two equal signs.
void ScorePreprocessor::readInclude()
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
    if (text)
        put(*text);
}

bool ScorePreprocessor::expand()
{
    if (m_input.peekHere() == ArgumentBegin) {
        expandArgument();
        return true;
    }
    const ScoreMacro *const found = m_macros.find(readName());
    if (!found)
        return false;
    if (m_input.peekHere() == '.')
        m_input.get();
    QByteArrayList arguments;
    if (found->argumentCount > 0 ? m_input.peek() == '(' : m_input.peekHere() == '(') {
        m_input.get();
        if (found->argumentCount > 0)
            arguments = readArguments(found->argumentCount);
    }
    put(found->text, found->number, arguments);
    return true;
}

/// As withArguments() wrote it.
void ScorePreprocessor::expandArgument()
{
    const QByteArrayView rest = m_input.rest();
    const qsizetype length = rest.indexOf(ArgumentEnd) + 1;
    const qsizetype comma = rest.indexOf(',');
    if (comma < 1 || comma > length) { // such bytes in the source
        m_input.get();
        return;
    }
    const int macro = rest.sliced(1, comma - 1).toInt();
    const int index = rest.sliced(comma + 1, length - comma - 2).toInt();
    m_input.skip(length);
    if (m_input.peekHere() == '.')
        m_input.get();
    put(m_input.argument(macro, index));
}

QByteArrayView ScorePreprocessor::readName()
{
    if (!isMacroNameStart(m_input.peekHere()))
        return {};
    const QByteArrayView rest = m_input.rest();
    qsizetype length = 0;
    while (length < rest.size() && isMacroNameByte(rest[length]))
        ++length;
    m_input.skip(length);
    return rest.first(length);
}

/// Up to the ) that ends them; the last of \a count takes what is left.
QByteArrayList ScorePreprocessor::readArguments(qsizetype count)
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
