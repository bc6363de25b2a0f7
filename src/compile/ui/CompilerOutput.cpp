#include "compile/ui/CompilerOutput.h"

#include "compile/CompileRules.h"

#include <QFontDatabase>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>

namespace ardiphon {

namespace {

constexpr QColor BannerColor(0, 150, 0);
constexpr QColor HeadingColor(200, 0, 0);

/// The layout of a plain text view, which is fast but knows no alignment, with centred lines.
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
}

QString CompilerOutput::text() const { return toPlainText().replace(u'\n', QLatin1String("\r\n")); }

void CompilerOutput::setText(const QString &text) { setPlainText(text); }

void CompilerOutput::insertBanner(qint64 milliseconds)
{
    QTextCursor caret(document());
    caret.beginEditBlock();
    insert(caret, bannerText(milliseconds), BannerColor, Qt::AlignHCenter);
    insert(caret, logHeading(), HeadingColor, Qt::AlignLeft);
    caret.endEditBlock();
    moveCursor(QTextCursor::Start);
}

} // namespace ardiphon
