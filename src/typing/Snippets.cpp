#include "typing/Snippets.h"

#include "platform/ProgramFolder.h"
#include "platform/RegularFile.h"

#include <QHash>
#include <QRegularExpression>
#include <QStandardPaths>

#include <optional>
#include <utility>

namespace ardiphon {

namespace {

constexpr qint64 LongestSnippetFile = 1 << 20; // bytes
const QString SnippetFile = QStringLiteral("snippets.txt");

std::optional<SnippetLanguage> snippetLanguage(QStringView name)
{
    static constexpr struct
    {
        const char *name;
        SnippetLanguage language;
    } languages[] = {
        {"orchestra", SnippetLanguage::Orchestra},
        {"score", SnippetLanguage::Score},
        {"options", SnippetLanguage::Options},
        {"document", SnippetLanguage::Document},
    };
    for (const auto &row : languages) {
        if (name == QLatin1String(row.name))
            return row.language;
    }
    return std::nullopt;
}

/// What the line says that begins a snippet; none where it says less.
std::optional<Snippet> snippetHeading(const QString &line)
{
    static const QRegularExpression heading(
        QStringLiteral("^@snippet[ \t]+([A-Za-z][A-Za-z0-9_]*)[ \t]+([a-z]+)[ \t]+([^ \t].*)$"));
    const QRegularExpressionMatch match = heading.match(line);
    const auto language = snippetLanguage(match.capturedView(2));
    if (!match.hasMatch() || !language)
        return std::nullopt;
    return Snippet{match.captured(1), match.captured(3).trimmed(), *language, {}, {}};
}

/// The text of a snippet, with its marks of places, as what it is at first.
class PlaceReader
{
public:
    explicit PlaceReader(const QString &marked) : m_marked(marked) {}

    void readInto(Snippet &snippet)
    {
        static const QRegularExpression mark(
            QStringLiteral("\\$\\{([0-9]{1,2})(?::([^}\n]{0,200}))?\\}"));
        qsizetype behind = 0;
        for (auto found = mark.globalMatch(m_marked); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            snippet.text += QStringView(m_marked).sliced(behind, match.capturedStart() - behind);
            behind = match.capturedEnd();
            const int number = match.capturedView(1).toInt();
            const QString text = textOf(number, match);
            snippet.places.append({int(snippet.text.size()), int(text.size()), number});
            snippet.text += text;
        }
        snippet.text += QStringView(m_marked).sliced(behind);
    }

private:
    /// A place that is there again has the text that it had first.
    QString textOf(int number, const QRegularExpressionMatch &match)
    {
        const auto known = m_texts.constFind(number);
        return known == m_texts.cend() ? *m_texts.insert(number, match.captured(2)) : *known;
    }

    const QString &m_marked;
    QHash<int, QString> m_texts;
};

/// Reads files line by line; a snippet is complete at the heading behind it, or at the end.
class SnippetReader
{
public:
    void readFile(QByteArrayView file)
    {
        QString text = QString::fromUtf8(file);
        text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
        text.removeIf([](QChar c) { return c.unicode() < u' ' && c != u'\n' && c != u'\t'; });
        for (const QString &line : text.split(u'\n'))
            readLine(line);
        finish();
    }

    QList<Snippet> snippets() const { return m_snippets; }

private:
    void readLine(const QString &line)
    {
        if (!line.startsWith(u'@'))
            m_lines.append(line);
        else if (line.startsWith(QLatin1String("@@")))
            m_lines.append(line.sliced(1));
        else if (line.startsWith(QLatin1String("@snippet"))) {
            finish();
            m_open = snippetHeading(line);
        }
    }

    void finish()
    {
        while (!m_lines.isEmpty() && m_lines.constLast().trimmed().isEmpty())
            m_lines.removeLast();
        const QString marked = std::exchange(m_lines, {}).join(u'\n');
        if (!m_open || marked.isEmpty())
            return;
        PlaceReader(marked).readInto(*m_open);
        const auto known = m_places.constFind(m_open->word);
        if (known == m_places.cend()) {
            m_places.insert(m_open->word, m_snippets.size());
            m_snippets.append(*m_open);
        } else {
            m_snippets[*known] = *m_open;
        }
        m_open.reset();
    }

    QList<Snippet> m_snippets;
    QHash<QString, qsizetype> m_places; ///< of the words in it
    std::optional<Snippet> m_open;
    QStringList m_lines;
};

} // namespace

QList<Snippet> snippetsOf(QByteArrayView file)
{
    SnippetReader reader;
    reader.readFile(file);
    return reader.snippets();
}

QList<Snippet> readSnippets(const QStringList &files)
{
    SnippetReader reader;
    for (const QString &file : files) {
        // Nobody has to have snippets of one's own, so it is no failure when there are none.
        if (const auto bytes = readRegularFile(file, LongestSnippetFile))
            reader.readFile(*bytes);
    }
    return reader.snippets();
}

QStringList snippetFiles(const QString &programFolder)
{
    const QString ownFolder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
        QStringLiteral("/Ardiphon");
    return {programPath(programFolder, SnippetFile), programPath(ownFolder, SnippetFile)};
}

} // namespace ardiphon
