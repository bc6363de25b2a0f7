#include "language/ui/Gutter.h"

#include "language/GutterNumbers.h"
#include "language/editor/FontFamily.h"
#include "language/editor/LEditOCX.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

namespace ardiphon {

namespace {

constexpr int RightMargin = 4; // pixels between a number and the text

} // namespace

Gutter::Gutter(LEditOCX &editor, QWidget *parent) : QWidget(parent), m_editor(editor)
{
    connect(&editor, &LEditOCX::Repaint, this, &Gutter::takeFont);
    takeFont();
}

void Gutter::takeFont()
{
    QFont font(familyToDraw(m_editor.FontName()));
    font.setPointSizeF(m_editor.FontSize() > 0 ? m_editor.FontSize() : font.pointSizeF());
    setFont(font);
    update();
}

int Gutter::textWidth() const
{
    return QFontMetrics(font()).horizontalAdvance(QStringLiteral("000000"));
}

void Gutter::paintEvent(QPaintEvent *)
{
    const int lineHeight = m_editor.LineHeight();
    const int topLine = m_editor.TopLine();
    const GutterNumbers numbers = gutterNumbers(topLine, height(), lineHeight);
    const int top = m_editor.PositionToPixels(topLine, 0).y();

    QPainter painter(this);
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(0.55F);
    painter.setPen(color);
    for (int line = numbers.first; line <= numbers.last; ++line) {
        const QRect row(0, top + (line - topLine) * lineHeight, width() - RightMargin, lineHeight);
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, QString::number(line));
    }
}

void Gutter::mousePressEvent(QMouseEvent *event)
{
    selectLine(gutterLineAt(m_editor.TopLine(), int(event->position().y()), m_editor.LineHeight()));
}

void Gutter::selectLine(int line)
{
    m_editor.SelStartLine = m_editor.SelEndLine = line;
    m_editor.SelStartColumn = 0;
    m_editor.SelEndColumn = m_editor.LineLength(line);
    m_editor.SetSelection();
    m_editor.setFocus();
}

} // namespace ardiphon
