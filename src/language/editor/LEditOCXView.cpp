// Scroll position, colours, fonts, tab stops and bookmarks.

#include "language/editor/LEditOCXPrivate.h"

namespace ardiphon {

using Sci = QsciScintillaBase;

void LEditOCX::SetGetTokenColors(TokenColorsCallback callback)
{
    d->styling.setTokenColors(std::move(callback));
}

int LEditOCX::TopLine() const { return LineInRow(0); }

void LEditOCX::SetTopLine(int line)
{
    const int row = d->folded.rowOf(d->folded.headerOf(std::max(line, 1)));
    d->view.SendScintilla(Sci::SCI_SETFIRSTVISIBLELINE, row);
}

int LEditOCX::LineHeight() const { return int(d->view.SendScintilla(Sci::SCI_TEXTHEIGHT)); }

QPoint LEditOCX::PositionToPixels(int line, int column) const
{
    const int header = d->folded.headerOf(line);
    const auto offset =
        long(header == line ? d->text.offsetOf({line, column}) : d->text.lineEnd(header));
    const QPoint inView(int(d->view.SendScintilla(Sci::SCI_POINTXFROMPOSITION, 0UL, offset)),
                        int(d->view.SendScintilla(Sci::SCI_POINTYFROMPOSITION, 0UL, offset)));
    return d->view.viewport()->mapTo(this, inView);
}

void LEditOCX::SetBackColor(Color color)
{
    d->styling.setBack(color);
    d->marks.setBack(color);
}

void LEditOCX::SetForeColor(Color color) { d->styling.setCommentFore(color); }

void LEditOCX::SetSelectionBackColor(Color color) { d->styling.setSelectionBack(color); }

void LEditOCX::SetSelectionForeColor(Color color) { d->styling.setSelectionFore(color); }

void LEditOCX::Redraw() { d->styling.redraw(); }

void LEditOCX::Private::changeFont(const std::function<void(QFont &)> &change)
{
    QFont font = styling.font();
    change(font);
    if (font == styling.font())
        return;
    styling.setFont(font);
    emit control.Repaint();
}

QString LEditOCX::FontName() const { return d->styling.font().family(); }

void LEditOCX::SetFontName(const QString &name)
{
    if (!name.isEmpty())
        d->changeFont([&](QFont &font) { font.setFamilies({name}); });
}

double LEditOCX::FontSize() const { return d->styling.font().pointSizeF(); }

void LEditOCX::SetFontSize(double points)
{
    if (points >= 1 && points <= 1000)
        d->changeFont([=](QFont &font) { font.setPointSizeF(points); });
}

void LEditOCX::SetFontBold(bool on)
{
    d->changeFont([=](QFont &font) { font.setBold(on); });
}

void LEditOCX::SetFontItalic(bool on)
{
    d->changeFont([=](QFont &font) { font.setItalic(on); });
}

void LEditOCX::SetFontUnderline(bool on)
{
    d->changeFont([=](QFont &font) { font.setUnderline(on); });
}

void LEditOCX::SetFontStrikethrough(bool on)
{
    d->changeFont([=](QFont &font) { font.setStrikeOut(on); });
}

int LEditOCX::TabSize() const { return int(d->view.SendScintilla(Sci::SCI_GETTABWIDTH)); }

void LEditOCX::SetTabSize(int characters)
{
    if (characters >= 1 && characters <= 1000)
        d->view.SendScintilla(Sci::SCI_SETTABWIDTH, characters);
}

void LEditOCX::SetAutoIndent(bool on) { d->view.setAutoIndent(on); }

void LEditOCX::SetBookmarkLine(int index, int line) { d->bookmarks.setLine(index, line); }

int LEditOCX::GetBookmarkLine(int index) const { return d->bookmarks.line(index); }

void LEditOCX::SetBookmarkBackColor(int index, Color color)
{
    d->bookmarks.setColors(index, {color, d->bookmarks.colors(index).fore});
}

void LEditOCX::SetBookmarkForeColor(int index, Color color)
{
    d->bookmarks.setColors(index, {d->bookmarks.colors(index).back, color});
}

void LEditOCX::ClearBookmarkBackColor(int index)
{
    d->bookmarks.setColors(index, {std::nullopt, d->bookmarks.colors(index).fore});
}

void LEditOCX::ClearBookmarkForeColor(int index)
{
    d->bookmarks.setColors(index, {d->bookmarks.colors(index).back, std::nullopt});
}

} // namespace ardiphon
