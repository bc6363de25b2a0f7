#include "language/WordTables.h"

#include "app/Blanks.h"
#include "platform/RegularFile.h"

#include <tuple>

namespace ardiphon {

namespace {

/// Reads a text file item by item. Items end at a comma or a line end and may be in quotes.
class ItemReader
{
public:
    explicit ItemReader(const QByteArray &bytes) : m_text(QString::fromLatin1(bytes)) {}

    bool atEnd() const { return m_at >= m_text.size(); }

    QString next()
    {
        while (at(u' ') || at(u'\t'))
            ++m_at;
        QString item = at(u'"') ? quotedItem() : plainItem();
        skipSeparator();
        return item;
    }

private:
    bool at(char16_t c) const { return !atEnd() && m_text[m_at] == c; }
    bool atSeparator() const { return at(u',') || at(u'\r') || at(u'\n'); }

    QString plainItem()
    {
        const qsizetype start = m_at;
        while (!atEnd() && !atSeparator())
            ++m_at;
        return m_text.mid(start, m_at - start).trimmed();
    }

    QString quotedItem()
    {
        const qsizetype start = ++m_at;
        while (!atEnd() && !at(u'"'))
            ++m_at;
        QString item = m_text.mid(start, m_at - start);
        plainItem(); // the closing quote and what may follow it
        return item;
    }

    void skipSeparator()
    {
        const bool carriageReturn = at(u'\r');
        if (!atEnd())
            ++m_at;
        if (carriageReturn && at(u'\n'))
            ++m_at;
    }

    QString m_text;
    qsizetype m_at = 0;
};

ItemReader itemsOf(const QString &path)
{
    QFile file(path);
    return ItemReader(openRegularFile(file) ? file.readAll() : QByteArray());
}

/// Returns every item of the file, or one empty item when it has none.
QStringList readCsdWords(const QString &path)
{
    QStringList words{QString()};
    ItemReader items = itemsOf(path);
    do
        words.append(items.next());
    while (!items.atEnd());
    return words;
}

/// Leaves out the last item of the file, which is not one of its words.
QStringList readScoreWords(const QString &path)
{
    QStringList words;
    ItemReader items = itemsOf(path);
    while (!items.atEnd()) {
        const QString word = items.next();
        if (items.atEnd())
            break;
        if (words.isEmpty())
            words.append(QString());
        words.append(word);
    }
    return words;
}

/// The single-byte code of a character; one that has none counts as a question mark.
int codeOf(QChar c) { return c.unicode() < 256 ? c.unicode() : '?'; }

} // namespace

void WordTables::LoadWordTables(const QString &folder)
{
    CsdWords = readCsdWords(folder + QStringLiteral("/csd.txt"));
    ScoreWords = readScoreWords(folder + QStringLiteral("/score.txt"));

    m_opcodeFile.close();
    m_opcodeFile.setFileName(folder + QStringLiteral("/opcode.txt"));
    if (!m_opcodeFile.exists() && m_opcodeFile.open(QIODevice::WriteOnly))
        m_opcodeFile.close();
    std::ignore = openRegularFile(m_opcodeFile); // without the file every word is unknown
    readOpcodeNames();
    buildFirstLetterIndex();
}

void WordTables::readOpcodeNames()
{
    OpcodeNames.clear();
    m_recordsByName.clear();
    OpcodeHelpVersion.clear();

    const QByteArray bytes = m_opcodeFile.isOpen() ? m_opcodeFile.readAll() : QByteArray();
    OpcodeCount = int(bytes.size() / RecordLength); // an incomplete record does not count
    if (OpcodeCount == 0)
        return;
    OpcodeNames.append(QString());
    for (int i = 1; i <= OpcodeCount; ++i) {
        const char *record = bytes.constData() + qsizetype(i - 1) * RecordLength;
        OpcodeNames.append(withoutTrailingBlanks(QString::fromLatin1(record, NameLength)));
        m_recordsByName[OpcodeNames.last()].append(i);
    }
    if (ReadOpcodeRecord(OpcodeCount))
        OpcodeHelpVersion = OpcodeRecord.Parameters;
}

void WordTables::buildFirstLetterIndex()
{
    FirstLetterIndex.fill(0);
    int previous = 0;
    for (int i = 1; i <= OpcodeCount; ++i) {
        if (OpcodeNames[i].isEmpty())
            continue;
        const int code = codeOf(OpcodeNames[i].front());
        if (code != previous)
            FirstLetterIndex[std::size_t(code)] = i;
        previous = code;
    }
}

void WordTables::FindOpcodeRange(QStringView word)
{
    if (word.isEmpty())
        return;
    const auto code = std::size_t(codeOf(word.front()));
    LookupFirst = FirstLetterIndex[code];
    LookupLast = FirstLetterIndex[code + 1] - 1;
    if (LookupLast < 1)
        LookupLast = OpcodeCount;
}

int WordTables::firstRecordNamed(const QString &word, int first, int last) const
{
    if (word.isEmpty())
        return 0;
    for (const int record : m_recordsByName.value(word))
        if (record >= first && record <= last)
            return record;
    return 0;
}

int WordTables::FindInRange(const QString &word) const
{
    return firstRecordNamed(word, LookupFirst, LookupLast);
}

int WordTables::FindInTable(const QString &word) const
{
    return firstRecordNamed(word, 1, OpcodeCount);
}

bool WordTables::ReadOpcodeRecord(int number)
{
    if (number < 1 || !m_opcodeFile.isOpen() ||
        !m_opcodeFile.seek(qint64(number - 1) * RecordLength))
        return false;
    const QByteArray record = m_opcodeFile.read(RecordLength);
    if (record.size() != RecordLength)
        return false;
    const QString text = QString::fromLatin1(record);
    OpcodeRecord = {text.left(NameLength), text.mid(NameLength, DescriptionLength),
                    text.right(ParametersLength)};
    return true;
}

} // namespace ardiphon
