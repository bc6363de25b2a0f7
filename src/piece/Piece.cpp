#include "piece/Piece.h"

#include <algorithm>

namespace ardiphon {

Piece::Piece(const std::vector<Source> &sources, IsOpcode isOpcode)
    : m_isOpcode(std::move(isOpcode))
{
    for (const Source &source : sources)
        m_texts.emplace_back(source.role, *source.lines, m_names, m_isOpcode);
}

void Piece::change(DocumentRole role, const TextChange &change)
{
    for (PieceText &text : m_texts) {
        if (text.role() == role)
            text.change(change);
    }
}

bool Piece::readOn(QDeadlineTimer deadline)
{
    return std::all_of(m_texts.begin(), m_texts.end(),
                       [&](PieceText &text) { return text.readOn(deadline); });
}

bool Piece::isRead() const
{
    return std::all_of(m_texts.begin(), m_texts.end(),
                       [](const PieceText &text) { return text.isRead(); });
}

const PieceText *Piece::text(DocumentRole role) const
{
    const auto found = std::find_if(m_texts.begin(), m_texts.end(),
                                    [=](const PieceText &text) { return text.role() == role; });
    return found == m_texts.end() ? nullptr : &*found;
}

const PieceText *Piece::orchestra() const
{
    const PieceText *const orchestra = text(DocumentRole::Orchestra);
    return orchestra != nullptr ? orchestra : text(DocumentRole::Csd);
}

const PieceText *Piece::score() const
{
    const PieceText *const score = text(DocumentRole::Score);
    return score != nullptr ? score : text(DocumentRole::Csd);
}

PiecePlace Piece::placeOf(const PieceText &text, PlacedLandmark found) const
{
    const QByteArrayView line = text.line(found.line);
    const int column = charactersOf(line, found.mark->column);
    return {text.role(), found.line, column,
            charactersOf(line, found.mark->column + found.mark->length) - column};
}

qsizetype Piece::memory() const
{
    qsizetype bytes = m_names.memory();
    for (const PieceText &text : m_texts)
        bytes += text.memory();
    return bytes;
}

int charactersOf(QByteArrayView line, qsizetype bytes)
{
    const QByteArrayView before = line.first(std::clamp<qsizetype>(bytes, 0, line.size()));
    const bool isAscii = std::none_of(before.begin(), before.end(),
                                      [](char c) { return static_cast<unsigned char>(c) > 127; });
    return isAscii ? int(before.size()) : int(QString::fromUtf8(before).size());
}

} // namespace ardiphon
