#include "documents/ui/SplitMirror.h"

#include "language/editor/LEditOCX.h"

namespace ardiphon {

namespace {

constexpr int CopyInterval = 10; // milliseconds

bool isPrintable(int character) { return character >= 32 && character <= 126; }

/// Copies a whole text; the other view keeps its scroll position.
void copyText(const LEditOCX &from, LEditOCX &to)
{
    const int SavedFirstLine = to.TopLine();
    to.SetTextOf(from);
    to.SetTopLine(SavedFirstLine);
}

} // namespace

SplitMirror::SplitMirror(LEditOCX &first, LEditOCX &second, QObject *parent)
    : QObject(parent), m_first(first), m_second(second)
{
    TimerAggiorna.setObjectName(QStringLiteral("TimerAggiorna"));
    TimerAggiorna.setInterval(CopyInterval);
    connect(&TimerAggiorna, &QTimer::timeout, this, &SplitMirror::copyChanged);
    follow(m_first, m_second, View1Changed);
    follow(m_second, m_first, View2Changed);
}

void SplitMirror::follow(LEditOCX &typed, LEditOCX &other, bool &changed)
{
    connect(&typed, &LEditOCX::KeyDown, this, [this, &changed](const EditorKey &key) {
        if (key.Shift > 0)
            markChanged(changed);
    });
    connect(&typed, &LEditOCX::KeyPress, this,
            [this, &typed, &other, &changed](const int &character) {
                if (!isPrintable(character) || typed.HasFurtherCarets())
                    markChanged(changed);
                else if (m_split)
                    mirrorKey(typed, other, character);
            });
}

/// Types the character into the other view, at the place where the typed view is about to type it.
void SplitMirror::mirrorKey(LEditOCX &typed, LEditOCX &other, int character) const
{
    const int SavedFirstLine = other.TopLine();
    typed.GetSelection();
    other.SelStartLine = typed.SelStartLine;
    other.SelStartColumn = typed.SelStartColumn;
    other.SelEndLine = typed.SelEndLine;
    other.SelEndColumn = typed.SelEndColumn;
    other.SetSelection();
    other.SetSelText(QChar(character));
    other.SetTopLine(SavedFirstLine);
}

void SplitMirror::setView1Changed() { markChanged(View1Changed); }

void SplitMirror::setView2Changed() { markChanged(View2Changed); }

/// A mark that is set while the second view is hidden stays until it is shown.
void SplitMirror::markChanged(bool &changed)
{
    changed = true;
    if (m_split)
        TimerAggiorna.start();
}

void SplitMirror::setSplit(bool on)
{
    m_split = on;
    if (on)
        TimerAggiorna.start();
    else
        TimerAggiorna.stop();
}

void SplitMirror::copyFirstToSecond()
{
    if (m_split)
        copyText(m_first, m_second);
}

void SplitMirror::copyChanged()
{
    TimerAggiorna.stop();
    if (std::exchange(View1Changed, false))
        copyText(m_first, m_second);
    if (std::exchange(View2Changed, false))
        copyText(m_second, m_first);
}

} // namespace ardiphon
