#pragma once

#include "language/Tokenizer.h"
#include "language/editor/FoldedLines.h"
#include "language/editor/LEditOCX.h"
#include "language/editor/LineRanges.h"
#include "language/editor/LineStates.h"
#include "language/editor/TextBuffer.h"

#include <QFont>
#include <QHash>

#include <optional>
#include <vector>

namespace ardiphon {

/// The colours of a bookmarked line, which replace those of its tokens.
struct LineColors
{
    std::optional<Color> back;
    std::optional<Color> fore;
};

/// How the text is drawn: font, colours, and the styles of what comes into view.
///
/// Lines are coloured when they are about to be drawn and not before, so that the time depends on
/// what is visible, not on the size of the document. The view's own mark "styled up to", which
/// moves back at each change of the text, shows how far the text is still the one that was read.
class Styling
{
public:
    Styling(QsciScintillaBase &view, TextBuffer &text, const FoldedLines &folded);

    void setTokenColors(LEditOCX::TokenColorsCallback callback);
    void setLineColors(LineColorsCallback callback);
    void setBack(Color color);
    void setCommentFore(Color color);
    void setSelectionBack(Color color);
    void setSelectionFore(Color color);
    /// Draws everything in view again.
    void redraw();

    /// The font as it was asked for; where its family is missing another one is drawn.
    const QFont &font() const { return m_font; }
    void setFont(const QFont &font);

    /// Colours the lines in rows \a first to \a last, from the top of the text, and all that are
    /// visible when the text has changed since. \a lineColors gives the colours of a whole line.
    void prepare(int first, int last, const std::function<LineColors(int line)> &lineColors);

    /// Colours every very long line of a new document, which has to happen before the view measures
    /// it, as it does when the caret moves.
    void prepareLongLines();

    /// What an existing line begins in.
    LineState stateAt(int line);
    /// To be called before \a removed bytes at \a at are removed, or others are inserted there.
    void aboutToChange(qsizetype at, qsizetype removed) { m_states.aboutToChange(at, removed); }

private:
    void applyFont();
    void applyBaseColors();
    unsigned styleFor(Color back, Color fore);
    unsigned styleOfToken(const Token &token, QByteArrayView line, const LineColors &own);
    unsigned styleOfRange(const ColoredRange &range, const LineColors &own);
    TokenColors colorsOf(const ColoredRange &range, const LineColors &own) const;
    void colorLine(int line, LineState state, const LineColors &own);
    void applyStyles(qsizetype start, const QByteArray &styles);
    ColoredRanges farRanges(int line, qsizetype first, qsizetype last);
    void colorFarInView(int line, const LineColors &own);
    void colorFarIn(const std::vector<LineRun> &runs,
                    const std::function<LineColors(int line)> &lineColors);
    TextRange columnsInView(int line) const;
    void restyleFar(qsizetype first, qsizetype last);
    void mark(unsigned indicator, qsizetype start, qsizetype end, std::optional<Color> color);
    void markBack(qsizetype start, qsizetype end, std::optional<Color> color);

    QsciScintillaBase &m_view;
    TextBuffer &m_text;
    const FoldedLines &m_folded;
    LineStates m_states;
    LEditOCX::TokenColorsCallback m_tokenColors;
    LineRanges m_ranges;
    QFont m_font;
    Color m_back = Color::rgb(255, 255, 255);
    Color m_commentFore;
    QHash<quint64, unsigned> m_styles; ///< the style of each pair of colours
    unsigned m_nextStyle = 0;
    qsizetype m_readTo = 0;     ///< where the view's mark was left
    bool m_hasLongLine = false; ///< there has been one, so there may be indicators
};

} // namespace ardiphon
