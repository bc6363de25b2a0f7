#include "app/ui/ToolTip.h"

#include <QTextDocument>

namespace ardiphon {

namespace {

constexpr qsizetype LongestLine = 120; // characters

} // namespace

// The toolkit guesses whether a tip is markup, and breaks lines only where it is.
QString plainToolTip(const QString &text)
{
    if (text.size() <= LongestLine && !Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

} // namespace ardiphon
