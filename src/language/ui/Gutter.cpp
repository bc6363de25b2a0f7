#include "language/ui/Gutter.h"

#include "app/ConfigurationBlock.h"
#include "language/GutterNumbers.h"
#include "language/editor/FontFamily.h"
#include "language/editor/LEditOCX.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace ardiphon {

Gutter::Gutter(LEditOCX &editor, const ConfigurationBlock &config, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_config(config)
{
    stackUnder(&editor); // the editor covers it where the layout leaves no room
    connect(&editor, &LEditOCX::Repaint, this, &Gutter::followView);
    followView();
}

void Gutter::takeFont()
{
    m_fontName = m_editor.FontName();
    m_fontSize = m_editor.FontSize();
    QFont font(familyToDraw(m_fontName));
    font.setPointSizeF(m_fontSize > 0 ? m_fontSize : font.pointSizeF());
    setFont(font);
    update();
}

int Gutter::textWidth() const
{
    const int digits = gutterDigits(m_editor.LineCount());
    return QFontMetrics(font()).horizontalAdvance(QString(digits, u'0'));
}

/// Most of what changes in a view leaves the numbers as they are.
void Gutter::followView()
{
    if (m_editor.FontName() != m_fontName || m_editor.FontSize() != m_fontSize)
        takeFont();
    const int topLine = m_editor.TopLine();
    const int lineHeight = m_editor.LineHeight();
    if (topLine != m_topLine || lineHeight != m_lineHeight)
        update();
    m_topLine = topLine;
    m_lineHeight = lineHeight;
    const int digits = gutterDigits(m_editor.LineCount());
    if (std::exchange(m_digits, digits) != digits)
        emit textWidthChanged();
}

void Gutter::paintEvent(QPaintEvent *event)
{
    if (!m_config.LineNumbersVisible)
        return;
    const int lineHeight = m_editor.LineHeight();
    const int topLine = m_editor.TopLine();
    const int top = m_editor.PositionToPixels(topLine, 0).y();
    const GutterNumbers numbers = gutterNumbers(topLine, height(), lineHeight);
    QPainter painter(this);
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(0.55F);
    painter.setPen(color);
    for (int line = numbers.first; line <= numbers.last; ++line) {
        const QRect row(0, top + (line - topLine) * lineHeight, width(), lineHeight);
        if (row.intersects(event->rect()))
            painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                             QString::number(line));
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
