#pragma once

#include "language/LineRun.h"
#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>

#include <vector>

namespace ardiphon {

struct EditorEdit;
struct LineBlock;
struct LineSpan;
enum class LetterCase;

/// The commands of the menu "Text" for the line of the caret, or for the lines that something is
/// selected of, each one step of history. What is hidden under such a line goes along with it.
class LineFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    using Edits = std::vector<EditorEdit>;

    void comment();
    void duplicate();
    void moveUp();
    void moveDown();
    void deleteToLineEnd();
    void join();
    void changeCase(LetterCase letters);
    void selectNextOccurrence();

    /// The view that has the focus, or else the first one.
    EditorView view() const;
    static LineSpan selectionOf(LEditOCX &editor);
    static LineBlock blockOf(const LEditOCX &editor, int first, int last);
    static LineBlock selectedBlock(LEditOCX &editor);
    static void bringIntoView(LEditOCX &editor);
    /// In both views of a split, as each keeps its own caret. What is hidden of \a kept is hidden
    /// again so many lines below afterwards.
    void carryOut(const EditorView &at, const Edits &edits, const LineRun &kept = {},
                  int shift = 0) const;

    FeatureHost *m_host = nullptr;
};

} // namespace ardiphon
