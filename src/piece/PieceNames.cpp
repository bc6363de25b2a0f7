#include "piece/PieceNames.h"

#include <QSet>

#include <algorithm>

namespace ardiphon {

namespace {

bool isLocal(LandmarkKind kind, const QByteArray &name)
{
    if (kind == LandmarkKind::Variable || kind == LandmarkKind::Array)
        return !name.startsWith('g');
    return kind == LandmarkKind::Label || kind == LandmarkKind::PField;
}

bool isName(LandmarkKind kind)
{
    switch (kind) {
    case LandmarkKind::SectionBegin:
    case LandmarkKind::SectionEnd:
    case LandmarkKind::PField:
    case LandmarkKind::StringSet:
    case LandmarkKind::File:
        return false;
    default:
        return kind < LandmarkKind::ScoreSection;
    }
}

class NameReader
{
public:
    NameReader(const Piece &piece, int most) : m_piece(piece), m_most(most) {}

    QList<PieceName> read()
    {
        for (const PieceText &text : m_piece.texts()) {
            text.visit(1, text.lineCount(), [&](PlacedLandmark found) {
                readMark(text, found);
                return m_names.size() < m_most;
            });
        }
        return std::move(m_names);
    }

private:
    using Key = std::pair<int, NameTable::Id>;

    void readMark(const PieceText &text, PlacedLandmark found)
    {
        const Landmark &mark = *found.mark;
        followBody(mark);
        const QByteArray &name = m_piece.nameOf(mark);
        if (!isName(mark.kind))
            return;
        const bool local = isLocal(mark.kind, name);
        QSet<Key> &known = local ? m_knownHere : m_known;
        const Key key(int(mark.kind), mark.name);
        if (known.contains(key))
            return;
        known.insert(key);
        m_names.append({mark.kind, QString::fromUtf8(name), local ? m_body : QString(),
                        m_piece.placeOf(text, found)});
    }

    void followBody(const Landmark &mark)
    {
        if (mark.kind == LandmarkKind::Instrument && mark.detail == 0)
            enter(QStringLiteral("instr ") + m_piece.nameText(mark));
        else if (mark.kind == LandmarkKind::Opcode)
            enter(QStringLiteral("opcode ") + m_piece.nameText(mark));
        else if (mark.kind == LandmarkKind::InstrumentEnd || mark.kind == LandmarkKind::OpcodeEnd ||
                 mark.kind == LandmarkKind::SectionBegin)
            enter(QString());
    }

    void enter(const QString &body)
    {
        m_body = body;
        m_knownHere.clear();
    }

    const Piece &m_piece;
    const int m_most;
    QList<PieceName> m_names;
    QString m_body;
    QSet<Key> m_known;
    QSet<Key> m_knownHere; ///< in the present body
};

} // namespace

QList<PieceName> namesOf(const Piece &piece, int most) { return NameReader(piece, most).read(); }

QString kindText(LandmarkKind kind)
{
    switch (kind) {
    case LandmarkKind::Instrument:
        return QStringLiteral("instrument");
    case LandmarkKind::Opcode:
        return QStringLiteral("opcode");
    case LandmarkKind::Struct:
        return QStringLiteral("type");
    case LandmarkKind::Label:
        return QStringLiteral("label");
    case LandmarkKind::Macro:
        return QStringLiteral("macro");
    case LandmarkKind::Include:
        return QStringLiteral("included file");
    case LandmarkKind::Header:
        return QStringLiteral("header value");
    case LandmarkKind::Variable:
        return QStringLiteral("variable");
    case LandmarkKind::Array:
        return QStringLiteral("array");
    case LandmarkKind::Channel:
        return QStringLiteral("channel");
    case LandmarkKind::Table:
        return QStringLiteral("table");
    case LandmarkKind::Title:
        return QStringLiteral("title");
    case LandmarkKind::ScoreSection:
        return QStringLiteral("score section");
    case LandmarkKind::SectionBegin:
        return QStringLiteral("section");
    default:
        return QString();
    }
}

std::optional<PiecePlace> instrumentNamed(const Piece &piece, QByteArrayView name)
{
    std::optional<PiecePlace> place;
    const PieceText *const text = piece.orchestra();
    if (text == nullptr || name.isEmpty())
        return place;
    text->visit(1, text->lineCount(), [&](PlacedLandmark found) {
        if (found.mark->kind == LandmarkKind::Instrument && piece.nameOf(*found.mark) == name)
            place = piece.placeOf(*text, found);
        return !place;
    });
    return place;
}

} // namespace ardiphon
