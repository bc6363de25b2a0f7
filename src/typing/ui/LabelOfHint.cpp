#include "typing/ui/LabelOfHint.h"

#include <QTextDocument>
#include <QToolTip>

#include <cmath>

namespace ardiphon {

namespace {

constexpr int FrameMargin = 4;

QString htmlOf(const HintLine &line)
{
    const int end = line.boldStart + line.boldLength;
    return QStringLiteral("<div style=\"white-space:pre-wrap\">%1<b>%2</b>%3</div>")
        .arg(line.text.left(line.boldStart).toHtmlEscaped(),
             line.text.mid(line.boldStart, line.boldLength).toHtmlEscaped(),
             line.text.mid(end).toHtmlEscaped());
}

} // namespace

LabelOfHint::LabelOfHint(QWidget *window)
    : QLabel(window, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                         Qt::BypassGraphicsProxyWidget)
{
    setObjectName(QStringLiteral("LabelHint"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setTextFormat(Qt::RichText);
    setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
    setMargin(FrameMargin);
    setWordWrap(true);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    setAutoFillBackground(true);
    setFont(QToolTip::font());
}

void LabelOfHint::setHint(const ArgumentHint &hint, int width)
{
    QString html;
    for (const HintLine &line : hint.lines)
        html += htmlOf(line);
    setText(html);
    QTextDocument document;
    document.setDefaultFont(font());
    document.setDocumentMargin(0);
    document.setHtml(html);
    const int around = 2 * (FrameMargin + frameWidth());
    document.setTextWidth(width - around);
    const QSizeF size(document.idealWidth(), document.size().height());
    resize(std::min(width, int(std::ceil(size.width())) + around + 1),
           int(std::ceil(size.height())) + around);
}

} // namespace ardiphon
