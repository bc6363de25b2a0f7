#include "piece/MeaningColours.h"

#include "app/ConfigurationBlock.h"
#include "piece/OrchestraColours.h"
#include "piece/PieceTags.h"
#include "piece/PieceText.h"
#include "piece/PlainLine.h"
#include "piece/ScoreColours.h"

namespace ardiphon {

namespace {

/// A text that is neither orchestra nor score: comments, quoted text and tags, from \a from on.
void paintPlainLine(QByteArrayView line, qsizetype from, CodeState &state,
                    const MeaningWords &words, MeaningPaint &paint)
{
    const QByteArrayView text = line.sliced(from);
    LineState open = plainLineState(state);
    for (const Token &token : tokenizeLine(text, open)) {
        const bool isTag = token.kind == TokenKind::Word && text[token.start] == '<' &&
                           words.isTag(text.sliced(token.start, token.length));
        if (token.comment)
            paint.paint(from + token.start, token.length, Meaning::Comment);
        else if (token.kind == TokenKind::Quoted)
            paint.paint(from + token.start, token.length, Meaning::Text);
        else if (isTag)
            paint.paint(from + token.start, token.length, Meaning::Tag);
    }
    state = codeState(open);
}

/// Up to the > of a tag that is at the line's beginning.
qsizetype paintTag(QByteArrayView line, const PieceTag &tag, MeaningPaint &paint)
{
    const qsizetype start = tag.start - (tag.ends ? 2 : 1);
    const qsizetype found = line.indexOf('>', start);
    const qsizetype end = found < 0 ? line.size() : found + 1;
    paint.paint(start, end - start, Meaning::Tag);
    return end;
}

} // namespace

MeaningRanges meaningsOf(QByteArrayView line, DocumentRole role, PieceState &state,
                         const MeaningWords &words)
{
    line = line.first(std::min<qsizetype>(line.size(), PieceText::LongestLine));
    MeaningPaint paint(line);
    const std::optional<PieceTag> tag =
        role == DocumentRole::Csd ? pieceTag(line) : std::optional<PieceTag>();
    if (tag) {
        CodeState rest = CodeState::Code;
        paintPlainLine(line, paintTag(line, *tag, paint), rest, words, paint);
        state = PieceState();
        state.section = tag->section;
        return paint.ranges();
    }
    switch (state.section) {
    case PieceSection::Orchestra:
        paintOrchestraLine(line, state, words.isOpcode, paint);
        break;
    case PieceSection::Score:
        paintScoreLine(line, state.code,
                       role == DocumentRole::Score ? Meaning::Plain : Meaning::Opcode, paint);
        break;
    case PieceSection::Outside:
    case PieceSection::Options:
        paintPlainLine(line, 0, state.code, words, paint);
        break;
    case PieceSection::File:
    case PieceSection::Licence:
    case PieceSection::Other:
        break;
    }
    return paint.ranges();
}

std::optional<TokenColors> colorsOf(const ConfigurationBlock &config, DocumentRole role,
                                    Meaning meaning)
{
    const auto colors = [](Color back, Color fore) { return TokenColors{back, fore}; };
    switch (meaning) {
    case Meaning::Comment:
        return std::nullopt;
    case Meaning::Text:
        return colors(config.ColorFilesBK, config.ColorFiles);
    case Meaning::Opcode:
        return colors(config.ColorOrchestraBK, config.ColorOrchestra);
    case Meaning::Assignment: // on the plain background, as everywhere
        return colors(config.ColorBackground, config.ColorOrchestra);
    case Meaning::BodyWord:
    case Meaning::Label:
        return colors(config.ColorInstrEndinBK, config.ColorInstrEndin);
    case Meaning::PField:
    case Meaning::Macro:
        return colors(config.ColorMacroBK, config.ColorMacro);
    case Meaning::Tag:
        return colors(config.ColorCSDBK, config.ColorCSD);
    case Meaning::Statement: // in a unified file it looks as an opcode does
        return role == DocumentRole::Score ? colors(config.ColorCSDBK, config.ColorCSD)
                                           : colors(config.ColorOrchestraBK, config.ColorOrchestra);
    case Meaning::Plain:
        break;
    }
    return colors(config.ColorBackground, config.ColorText);
}

} // namespace ardiphon
