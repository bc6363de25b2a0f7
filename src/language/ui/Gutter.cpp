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

namespace {

constexpr int EdgeWidth = 3; ///< of a mark at the left edge, in pixels

} // namespace

Gutter::Gutter(LEditOCX &editor, const ConfigurationBlock &config, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_config(config), m_foldMarks(editor)
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
    refreshMarks();
    const int digits = gutterDigits(m_editor.LineCount());
    if (std::exchange(m_digits, digits) != digits)
        emit textWidthChanged();
}

void Gutter::setFoldEnd(FoldEnd foldEnd)
{
    m_foldMarks.setFoldEnd(std::move(foldEnd));
    refreshMarks();
}

void Gutter::setLineMark(std::function<QColor(int line)> lineMark)
{
    m_lineMark = std::move(lineMark);
    refreshMarks();
}

QColor Gutter::edgeOf(int line) const { return m_lineMark ? m_lineMark(line) : QColor(); }

void Gutter::refreshMarks()
{
    Marks marks = marksInView();
    if (marks != m_marks)
        update();
    m_marks = std::move(marks);
}

Gutter::Marks Gutter::marksInView() const
{
    Marks marks;
    if (m_foldMarks.isNone() && !m_lineMark)
        return marks;
    const GutterNumbers rows = gutterNumbers(0, height(), m_editor.LineHeight());
    for (int row = rows.first; row <= rows.last; ++row) {
        const int line = m_editor.LineInRow(row);
        marks.push_back({line, m_foldMarks.markOf(line), edgeOf(line)});
    }
    return marks;
}

/// Whether the number of a line leaves no room in the gutter.
bool Gutter::isFull(int line) const
{
    return QString::number(line).size() >= gutterDigits(m_editor.LineCount());
}

QRect Gutter::markPlace(int line, const QRect &row) const
{
    return FoldMarks::place(row, fontMetrics().horizontalAdvance(u'0'), isFull(line));
}

void Gutter::drawMark(QPainter &painter, int line, const QRect &row) const
{
    if (const FoldMark mark = m_foldMarks.markOf(line); mark != FoldMark::None)
        FoldMarks::draw(painter, mark, markPlace(line, row), isFull(line), m_isNear);
}

void Gutter::paintEvent(QPaintEvent *event)
{
    if (!m_config.LineNumbersVisible)
        return;
    const GutterNumbers rows = gutterNumbers(0, height(), m_editor.LineHeight());
    const int lineHeight = m_editor.LineHeight();
    const int top = m_editor.PositionToPixels(m_editor.TopLine(), 0).y();
    QPainter painter(this);
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(0.55F);
    painter.setPen(color);
    for (int row = rows.first; row <= rows.last; ++row) {
        const QRect place(0, top + row * lineHeight, width(), lineHeight);
        if (!place.intersects(event->rect()))
            continue;
        const int line = m_editor.LineInRow(row);
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                         QString::number(line));
        if (!m_foldMarks.isNone())
            drawMark(painter, line, place);
        if (const QColor edge = edgeOf(line); edge.isValid())
            painter.fillRect(QRect(place.left(), place.top(), EdgeWidth, place.height()), edge);
    }
}

void Gutter::mousePressEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    const int line = m_editor.LineAt(at.y());
    if (event->button() == Qt::LeftButton && m_config.LineNumbersVisible &&
        markPlace(line, QRect(0, at.y(), width(), 1)).contains(at) && m_foldMarks.toggle(line))
        m_editor.setFocus();
    else
        selectLine(line);
}

void Gutter::enterEvent(QEnterEvent *event)
{
    QWidget::enterEvent(event);
    setNear(true);
}

void Gutter::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    setNear(false);
}

void Gutter::setNear(bool isNear)
{
    m_isNear = isNear;
    if (!m_foldMarks.isNone())
        update();
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
