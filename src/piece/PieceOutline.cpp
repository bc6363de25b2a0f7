#include "piece/PieceOutline.h"

#include "piece/CodeTokens.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LinesToFirstComment = 30; ///< below an instrument's heading
constexpr int LongestNote = 120;        ///< characters

/// The text of the first comment of \a line, without what marks it.
QString commentOf(QByteArrayView line)
{
    CodeState state = CodeState::Code;
    for (const CodeToken &token :
         readCodeLine(line.first(std::min<qsizetype>(line.size(), 4096)), state)) {
        if (token.kind != CodeTokenKind::Comment)
            continue;
        QByteArrayView text = token.in(line);
        while (!text.isEmpty() && QByteArrayView(";/* \t=-").contains(text.front()))
            text = text.sliced(1);
        while (!text.isEmpty() && QByteArrayView("/* \t=-\r").contains(text.back()))
            text.chop(1);
        if (!text.isEmpty())
            return QString::fromUtf8(text).left(LongestNote);
    }
    return QString();
}

/// What a section of that tag is called.
QString sectionName(PieceSection section, const QString &tag)
{
    switch (section) {
    case PieceSection::Options:
        return QStringLiteral("Options");
    case PieceSection::Orchestra:
        return QStringLiteral("Orchestra");
    case PieceSection::Score:
        return QStringLiteral("Score");
    default:
        return tag;
    }
}

class OutlineReader
{
public:
    OutlineReader(const Piece &piece, int mostRows) : m_piece(piece), m_mostRows(mostRows) {}

    Outline read()
    {
        for (const PieceText &text : m_piece.texts())
            readText(text);
        return std::move(m_outline);
    }

private:
    void readText(const PieceText &text)
    {
        if (text.role() != DocumentRole::Csd)
            m_outline.rows.append({LandmarkKind::SectionBegin,
                                   text.role() == DocumentRole::Score ? QStringLiteral("Score")
                                                                      : QStringLiteral("Orchestra"),
                                   QString(),
                                   {text.role(), 1, 0, 0},
                                   0});
        m_scoreSection = 1;
        text.visit(1, text.lineCount(), [&](PlacedLandmark found) {
            readMark(text, found);
            m_outline.isWhole = m_outline.rows.size() < m_mostRows;
            return m_outline.isWhole;
        });
    }

    void readMark(const PieceText &text, PlacedLandmark found)
    {
        const Landmark &mark = *found.mark;
        const QString name = m_piece.nameText(mark);
        switch (mark.kind) {
        case LandmarkKind::SectionBegin:
            if (PieceSection(mark.detail) != PieceSection::Outside)
                add(text, found, sectionName(PieceSection(mark.detail), name), QString(), 0);
            m_scoreSection = 1;
            break;
        case LandmarkKind::Instrument:
            addInstrument(text, found, name);
            break;
        case LandmarkKind::Opcode:
            add(text, found, QStringLiteral("opcode ") + name, signature(text, found));
            break;
        case LandmarkKind::Struct:
            add(text, found, QStringLiteral("struct ") + name);
            break;
        case LandmarkKind::Macro:
            add(text, found, QLatin1Char('#') + name);
            break;
        case LandmarkKind::Include:
            add(text, found, QStringLiteral("include ") + name);
            break;
        case LandmarkKind::Table:
            add(text, found, QStringLiteral("table ") + name, commentOf(text.line(found.line)));
            break;
        case LandmarkKind::Title:
            add(text, found, name);
            break;
        case LandmarkKind::ScoreSection:
            add(text, found, QStringLiteral("section %1").arg(++m_scoreSection),
                commentOf(text.line(found.line)));
            break;
        default:
            break;
        }
    }

    void add(const PieceText &text, PlacedLandmark found, const QString &name,
             const QString &note = QString(), int level = 1)
    {
        m_outline.rows.append({found.mark->kind, name, note, m_piece.placeOf(text, found), level});
    }

    /// Several names of one instrument are one row.
    void addInstrument(const PieceText &text, PlacedLandmark found, const QString &name)
    {
        QList<OutlineRow> &rows = m_outline.rows;
        if (found.mark->detail > 0 && !rows.isEmpty() &&
            rows.last().kind == LandmarkKind::Instrument)
            rows.last().name += QStringLiteral(", ") + name;
        else
            add(text, found, QStringLiteral("instr ") + name, firstComment(text, found.line));
    }

    /// In the heading, or below it before the body ends.
    QString firstComment(const PieceText &text, int heading) const
    {
        const int last = std::min(text.lineCount(), heading + LinesToFirstComment);
        for (int line = heading; line <= last; ++line) {
            const QByteArrayView bytes = text.line(line);
            if (line > heading && bytes.trimmed().startsWith("endin"))
                break;
            if (const QString comment = commentOf(bytes); !comment.isEmpty())
                return comment;
        }
        return QString();
    }

    /// What an opcode's heading says behind its name.
    static QString signature(const PieceText &text, PlacedLandmark found)
    {
        QByteArrayView line = text.line(found.line);
        QByteArrayView rest =
            line.sliced(std::min<qsizetype>(line.size(), found.mark->column + found.mark->length));
        const qsizetype comment = rest.indexOf(';');
        rest = (comment < 0 ? rest : rest.first(comment)).trimmed();
        if (rest.startsWith(','))
            rest = rest.sliced(1).trimmed();
        return QString::fromUtf8(rest).left(LongestNote);
    }

    const Piece &m_piece;
    const int m_mostRows;
    Outline m_outline;
    int m_scoreSection = 1;
};

} // namespace

Outline outlineOf(const Piece &piece, int mostRows)
{
    return OutlineReader(piece, mostRows).read();
}

int outlineRowAt(const Outline &outline, DocumentRole role, int line)
{
    int row = -1;
    for (int i = 0; i < outline.rows.size(); ++i) {
        const PiecePlace &place = outline.rows[i].place;
        if (outline.rows[i].file.isEmpty() && place.role == role && place.line <= line)
            row = i;
    }
    return row;
}

bool hasLettersInOrder(QStringView name, QStringView typed)
{
    auto at = name.begin();
    for (const QChar letter : typed) {
        if (letter.isSpace())
            continue;
        at = std::find_if(at, name.end(),
                          [=](QChar c) { return c.toCaseFolded() == letter.toCaseFolded(); });
        if (at == name.end())
            return false;
        ++at;
    }
    return true;
}

} // namespace ardiphon
