#include "preferences/ui/FontSample.h"

#include "language/editor/FontFamily.h"

namespace ardiphon {

namespace {

constexpr int SampleSize = 10; // points

} // namespace

FontSample::FontSample(QWidget *parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setTabChangesFocus(true);
    setPlainText(QStringLiteral("instr 1  ; ABCDEFGHIJKLM nopqrstuvwxyz\n"
                                "  aTone oscili 0.5, cpspch(8.09), 1\n"
                                "  outs aTone, aTone * 0.25\n"
                                "endin    ; 0123456789 ()[]{} <> \"$&#\""));
    setFixedHeight(6 * fontMetrics().lineSpacing());
}

void FontSample::showIn(const QString &fontName)
{
    setFont(QFont(familyToDraw(fontName), SampleSize));
}

} // namespace ardiphon
