#include "printing/PrintPage.h"

#include "app/ConfigurationBlock.h"

namespace ardiphon {

namespace {

int toTwips(long millimetres) { return int(millimetres) * TwipsPerMillimetre; }

} // namespace

PrintMargins printMargins(const ConfigurationBlock &config)
{
    return {toTwips(config.MarginLeft), toTwips(config.MarginTop), toTwips(config.MarginRight),
            toTwips(config.MarginBottom)};
}

QRect textRectangle(const PrinterPage &page, const PrintMargins &margins)
{
    const int left = margins.left - page.offsetX;
    const int top = margins.top - page.offsetY + HeaderRoom;
    const int right = page.paperWidth - margins.right - page.offsetX;
    const int bottom = page.paperHeight - margins.bottom - page.offsetY;
    return {left, top, qMax(right - left, 0), qMax(bottom - top, 0)};
}

QLine headerRule(const PrinterPage &page, const PrintMargins &margins)
{
    return {0, margins.top, page.scaleWidth, margins.top};
}

QString printedName(const QString &path) { return path.mid(path.lastIndexOf(u'/') + 1); }

QString headerLine(const QString &name, int number)
{
    return name + QStringLiteral(" - Page ") + QString::number(number);
}

} // namespace ardiphon
