#include "app/ui/PathField.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QTextDocument>

namespace ardiphon {

namespace {

constexpr qsizetype LongestTipLine = 100; ///< of a tool tip, in characters
constexpr int SideGap = 2;                ///< the toolkit's own, beside the text of a field

/// How much of \a path goes into the first line of a tool tip: up to a separator if there is one.
qsizetype lineLength(QStringView path)
{
    const qsizetype separator = path.lastIndexOf(u'/', LongestTipLine - 1);
    return separator > 0 ? separator + 1 : LongestTipLine;
}

} // namespace

PathField::PathField(QWidget *parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString &path) { setToolTip(pathToolTip(path)); });
}

QRect PathField::textPlace() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .marginsRemoved(textMargins())
        .adjusted(SideGap, 0, -SideGap, 0);
}

bool PathField::textFits() const
{
    return fontMetrics().horizontalAdvance(text()) <= textPlace().width();
}

QString PathField::shownText() const
{
    if (hasFocus() && (!isReadOnly() || hasSelectedText())) // the user is working in it
        return text();
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, textPlace().width());
}

bool PathField::event(QEvent *event)
{
    return (event->type() == QEvent::ToolTip && textFits()) || QLineEdit::event(event);
}

void PathField::paintEvent(QPaintEvent *event)
{
    const QString shown = shownText();
    if (shown == text())
        return QLineEdit::paintEvent(event);
    QPainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(textPlace(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

QString pathToolTip(const QString &path)
{
    QStringList lines;
    QStringView rest = path;
    while (rest.size() > LongestTipLine) {
        const qsizetype length = lineLength(rest);
        lines.append(rest.first(length).toString());
        rest = rest.sliced(length);
    }
    lines.append(rest.toString());
    const QString tip = lines.join(u'\n');
    if (!Qt::mightBeRichText(tip))
        return tip;
    return QStringLiteral("<p style='white-space:pre'>") + tip.toHtmlEscaped() +
           QStringLiteral("</p>");
}

} // namespace ardiphon
