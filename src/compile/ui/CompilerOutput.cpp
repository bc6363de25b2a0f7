#include "compile/ui/CompilerOutput.h"

#include "compile/CompileRules.h"

#include <QFontDatabase>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>

namespace ardiphon {

namespace {

constexpr QColor BannerColor(0, 150, 0);
constexpr QColor HeadingColor(200, 0, 0);

// A slice takes some hundredths of a second.
constexpr int SliceLines = 5000;
constexpr qsizetype SliceLength = 250'000;

/// The layout of a plain text view, which is fast but has no alignment, with centred lines.
class CentringLayout : public QPlainTextDocumentLayout
{
public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    QRectF blockBoundingRect(const QTextBlock &block) const override
    {
        const QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
        if (block.blockFormat().alignment() == Qt::AlignHCenter)
            centre(*block.layout());
        return rect;
    }

private:
    static void centre(const QTextLayout &layout)
    {
        for (int i = 0; i < layout.lineCount(); ++i) {
            QTextLine line = layout.lineAt(i);
            const qreal room = line.width() - line.naturalTextWidth();
            line.setPosition({qMax(0.0, room / 2), line.y()});
        }
    }
};

void insert(QTextCursor &caret, const QString &text, const QColor &color, Qt::Alignment alignment)
{
    QTextCharFormat letters;
    letters.setForeground(color);
    QTextBlockFormat paragraph;
    paragraph.setAlignment(alignment);
    caret.setBlockFormat(paragraph);
    caret.insertText(text, letters);
}

/// The position after the line that begins at \a start.
qsizetype lineEnd(const QString &text, qsizetype start)
{
    const qsizetype end = text.indexOf(u'\n', start);
    return end < 0 ? text.size() : end + 1;
}

QFont consoleFont()
{
    QFont font(QStringLiteral("Courier New"), 10);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return font;
}

} // namespace

CompilerOutput::CompilerOutput(QWidget *parent) : QPlainTextEdit(parent)
{
    document()->setDocumentLayout(new CentringLayout(document()));
    document()->setDefaultFont(consoleFont());
    setFont(consoleFont());
    setTabStopDistance(8 * fontMetrics().horizontalAdvance(u' '));
    setUndoRedoEnabled(false);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::Text, Qt::black);
    setPalette(colors);
    m_slices.setInterval(0);
    connect(&m_slices, &QTimer::timeout, this, &CompilerOutput::showNextSlice);
}

void CompilerOutput::setText(const QString &text)
{
    m_text = text;
    m_shown = 0;
    m_wantedStart = -1;
    clear();
    showNextSlice();
    moveCursor(QTextCursor::Start);
}

/// Returns the next slice of the text, whole lines, and starts the timer for the one after it.
QString CompilerOutput::nextSlice()
{
    qsizetype end = m_shown;
    for (int line = 0; line < SliceLines && end - m_shown < SliceLength && end < m_text.size();
         ++line)
        end = lineEnd(m_text, end);
    QString slice = m_text.mid(m_shown, end - m_shown);
    m_shown = end;
    if (m_shown < m_text.size())
        m_slices.start();
    else
        m_slices.stop();
    return slice;
}

void CompilerOutput::showNextSlice()
{
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(nextSlice(), QTextCharFormat()); // not in the colour of the text before
    selectWhenShown();
}

void CompilerOutput::select(qsizetype start, qsizetype length)
{
    m_wantedStart = start;
    m_wantedEnd = start + length;
    selectWhenShown();
}

void CompilerOutput::selectWhenShown()
{
    if (m_wantedStart < 0 || m_wantedEnd > m_shown)
        return;
    QTextCursor part(document());
    part.setPosition(documentPosition(m_wantedStart));
    part.setPosition(documentPosition(m_wantedEnd), QTextCursor::KeepAnchor);
    m_wantedStart = -1;
    setTextCursor(part);
    showLinesAround();
}

/// The explanation of an error is below it, and often above it.
void CompilerOutput::showLinesAround()
{
    constexpr int lines = 3;
    const QRect caret = cursorRect();
    const int room = lines * caret.height();
    if (caret.top() < room || caret.bottom() > viewport()->height() - room)
        centerCursor();
}

/// The document counts a line end as one character, the text has two.
int CompilerOutput::documentPosition(qsizetype index) const
{
    return int(index - QStringView(m_text).first(index).count(QLatin1String("\r\n")));
}

void CompilerOutput::insertBanner(qint64 milliseconds)
{
    const QString banner = bannerText(milliseconds);
    QTextCursor caret(document());
    caret.beginEditBlock();
    insert(caret, banner, BannerColor, Qt::AlignHCenter);
    insert(caret, logHeading(), HeadingColor, Qt::AlignLeft);
    caret.endEditBlock();
    m_text.prepend(banner + logHeading());
    m_shown += banner.size() + logHeading().size();
    moveCursor(QTextCursor::Start);
}

} // namespace ardiphon
