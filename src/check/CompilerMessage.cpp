#include "check/CompilerMessage.h"

#include "check/ScoreMessages.h"
#include "compile/CompilerLog.h"

#include <QRegularExpression>

#include <algorithm>

namespace ardiphon {

namespace {

/// Behind a message of the same text.
constexpr int LinesOfAMessage = 6;

QRegularExpression pattern(const char *text)
{
    return QRegularExpression(QString::fromLatin1(text));
}

/// What a name between the signs ' and ' means in a message, as an internal name of an operator.
bool isInternalName(const QString &name) { return name.startsWith(QLatin1String("##")); }

class MessageReader
{
public:
    MessageReader(const QStringList &lines, int most) : m_lines(lines), m_most(most) {}

    QList<CompilerMessage> read()
    {
        for (m_at = 0; m_at < m_lines.size() && m_messages.size() < m_most; ++m_at) {
            if (!readSyntax() && !readNoMatch() && !readUndefinedName() && !readUndefinedMacro() &&
                !readMissingFile() && !readUnterminatedText() && !readScore())
                readOther();
        }
        return m_messages;
    }

private:
    const QString &line(qsizetype behind = 0) const
    {
        static const QString none;
        const qsizetype index = m_at + behind;
        return index < m_lines.size() ? m_lines[index] : none;
    }

    bool readSyntax()
    {
        static const QRegularExpression syntax = pattern(
            "error: syntax error, unexpected (.*?)(?:, expecting (.*?))?  \\(token \"(.*)$");
        const QRegularExpressionMatch found = syntax.match(line());
        if (!found.hasMatch())
            return false;
        CompilerMessage message;
        const QString unexpected = found.captured(1);
        message.kind = unexpected == QLatin1String("end of file") ? MessageKind::UnexpectedEnd
                                                                  : MessageKind::Syntax;
        message.text = line();
        message.expected = found.captured(2).split(QStringLiteral(" or "), Qt::SkipEmptyParts);
        // The token of a line's end is that line end.
        message.token = found.captured(3).section(u'"', 0, 0).trimmed();
        readPlace(message);
        if (!followsFromLast())
            add(message);
        return true;
    }

    /// Behind these there is always a token that cannot stand where it stands.
    bool followsFromLast() const
    {
        return !m_messages.isEmpty() && (m_messages.last().kind == MessageKind::UndefinedMacro ||
                                         m_messages.last().kind == MessageKind::UnterminatedText);
    }

    /// The file, the line and the quoted text in the lines below.
    void readPlace(CompilerMessage &message) const
    {
        static const QRegularExpression place =
            pattern("^ ?from file (.*?) \\(\\d+\\),.* line (\\d+):");
        static const QRegularExpression quoted = pattern("^ >>> (.*?)(?: <<<|$)");
        for (int behind = 1; behind <= LinesOfAMessage; ++behind) {
            if (const auto found = place.match(line(behind)); found.hasMatch()) {
                readFile(message, line(behind));
                message.line = found.captured(2).toInt();
            } else if (const auto text = quoted.match(line(behind)); text.hasMatch()) {
                message.quoted = text.captured(1).trimmed();
                message.quotesToToken = true;
                return;
            }
        }
    }

    /// The innermost of the files that \a text names; true where it names one.
    static bool readFile(CompilerMessage &message, const QString &text)
    {
        static const QRegularExpression file = pattern("^ ?from file (.*?) \\(\\d+\\),");
        const QRegularExpressionMatch found = file.match(text);
        if (found.hasMatch())
            message.file = found.captured(1);
        return found.hasMatch();
    }

    bool readNoMatch()
    {
        static const QRegularExpression noMatch =
            pattern("Unable to find opcode entry for '(.*)' with matching argument types:");
        static const QRegularExpression types = pattern("^Found: (.*)$");
        const QRegularExpressionMatch found = noMatch.match(line());
        if (!found.hasMatch())
            return false;
        CompilerMessage message;
        message.kind = MessageKind::NoMatch;
        message.text = found.captured(0);
        message.token = found.captured(1);
        for (int behind = 1; behind <= LinesOfAMessage; ++behind) {
            const QString &below = line(behind);
            if (const auto match = types.match(below); match.hasMatch())
                readTypes(message, match.captured(1));
            else if (below.endsWith(QLatin1String(" ...")))
                message.quoted = below.chopped(4).trimmed();
            else if (!readLine(message, below) && readFile(message, below))
                break;
        }
        add(message);
        return true;
    }

    /// As "a oscili ccS"; no types are "(null)".
    static void readTypes(CompilerMessage &message, const QString &types)
    {
        const qsizetype name = types.indexOf(u' ' + message.token);
        if (name < 0)
            return;
        message.given = types.first(name).trimmed();
        message.taken = types.sliced(name + 1 + message.token.size()).trimmed();
        for (QString *each : {&message.given, &message.taken})
            each->remove(QLatin1String("(null)"));
    }

    /// As "Line: 12" or "Line 12".
    static bool readLine(CompilerMessage &message, const QString &text)
    {
        static const QRegularExpression number = pattern("^Line:? (\\d+)$");
        const QRegularExpressionMatch found = number.match(text);
        if (found.hasMatch())
            message.line = found.captured(1).toInt();
        return found.hasMatch();
    }

    bool readUndefinedName()
    {
        static const QRegularExpression variable = pattern("Variable '(.*)' used before defined");
        static const QRegularExpression follower =
            pattern("Variable type for (.*) could not be determined");
        if (const auto again = follower.match(line()); again.hasMatch()) {
            if (!isReported(MessageKind::UndefinedName, again.captured(1)))
                addNamed(MessageKind::UndefinedName, again);
            return true;
        }
        const QRegularExpressionMatch found = variable.match(line());
        if (!found.hasMatch())
            return false;
        addNamed(MessageKind::UndefinedName, found);
        for (int behind = 1; behind <= LinesOfAMessage; ++behind) {
            if (!readLine(m_messages.last(), line(behind)) &&
                readFile(m_messages.last(), line(behind)))
                break;
        }
        return true;
    }

    bool readUndefinedMacro()
    {
        static const QRegularExpression macro = pattern("Undefined macro: '\\$?([^']*)'");
        const QRegularExpressionMatch found = macro.match(line());
        if (found.hasMatch())
            addNamed(MessageKind::UndefinedMacro, found);
        return found.hasMatch();
    }

    bool readMissingFile()
    {
        static const QRegularExpression file = pattern("Cannot open #include'd file (.*)$");
        const QRegularExpressionMatch found = file.match(line());
        if (found.hasMatch())
            addNamed(MessageKind::MissingFile, found);
        return found.hasMatch();
    }

    bool readUnterminatedText()
    {
        static const QRegularExpression text =
            pattern("^unterminated string found on line (\\d+) >>(.*?)\"?<<$");
        const QRegularExpressionMatch found = text.match(line());
        if (!found.hasMatch())
            return false;
        CompilerMessage message;
        message.kind = MessageKind::UnterminatedText;
        message.text = line();
        message.line = found.captured(1).toInt();
        message.token = found.captured(2);
        message.quoted = message.token;
        message.quotesToToken = true;
        add(message);
        return true;
    }

    /// What is said of the score: the compiler goes on, unless it says no more than that.
    bool readScore()
    {
        if (!isScoreMessage(line()))
            return false;
        CompilerMessage message;
        message.kind = MessageKind::Score;
        message.isError = endsReading(line());
        message.text = line().simplified();
        add(message);
        return true;
    }

    void readOther()
    {
        static const QRegularExpression error = pattern("^(?:.*\\),)?error:\\s+(.*)$");
        static const QRegularExpression internal =
            pattern("Unable to verify arg types for expression '(.*)'");
        const QRegularExpressionMatch found = error.match(line());
        if (!found.hasMatch())
            return;
        // An operator whose operands have no type: what has none was reported before.
        const QRegularExpressionMatch operation = internal.match(line());
        if (operation.hasMatch() &&
            (isInternalName(operation.captured(1)) && !m_messages.isEmpty()))
            return;
        static const QRegularExpression repeated = pattern("^Multiple (xin|xout) statements");
        CompilerMessage message;
        message.text = found.captured(1).trimmed();
        message.token = repeated.match(message.text).captured(1);
        for (int behind = 1; behind <= 2; ++behind) {
            if (readLine(message, line(behind)))
                break;
        }
        add(message);
    }

    void addNamed(MessageKind kind, const QRegularExpressionMatch &found)
    {
        CompilerMessage message;
        message.kind = kind;
        message.text = found.captured(0);
        message.token = found.captured(1).trimmed();
        add(message);
    }

    bool isReported(MessageKind kind, const QString &token) const
    {
        return std::any_of(m_messages.begin(), m_messages.end(), [&](const CompilerMessage &each) {
            return each.kind == kind && each.token == token;
        });
    }

    void add(const CompilerMessage &message) { m_messages.append(message); }

    const QStringList &m_lines;
    const int m_most;
    qsizetype m_at = 0;
    QList<CompilerMessage> m_messages;
};

} // namespace

QList<CompilerMessage> readCompilerMessages(QByteArrayView printed, int most)
{
    return MessageReader(cleanLog(printed).split(QStringLiteral("\r\n")), most).read();
}

} // namespace ardiphon
