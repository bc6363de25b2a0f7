#pragma once

#include <QObject>
#include <QTimer>

namespace ardiphon {

class LEditOCX;
struct EditorKey;

/// Keeps the two views of a split document the same: two editors with copies of one text. A
/// printable key goes into the other view at once; anything else that may have changed a view marks
/// it, and the next tick copies its text. Nothing is copied while the second view is hidden.
class SplitMirror : public QObject
{
    Q_OBJECT

public:
    SplitMirror(LEditOCX &first, LEditOCX &second, QObject *parent);

    void setView1Changed();
    void setView2Changed();

    /// Copies the text of the first view to the second at once, if that is shown.
    void copyFirstToSecond();

    /// Starts copying, after the second view was shown, or stops it after it was hidden.
    void setSplit(bool on);

private:
    void follow(LEditOCX &typed, LEditOCX &other, bool &changed);
    void mirrorKey(LEditOCX &typed, LEditOCX &other, int character) const;
    void markChanged(bool &changed);
    void copyChanged();

    LEditOCX &m_first;
    LEditOCX &m_second;
    QTimer TimerAggiorna{this};
    bool View1Changed = false;
    bool View2Changed = false;
    bool m_split = false;
};

} // namespace ardiphon
