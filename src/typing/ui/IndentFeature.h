#pragma once

#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>
#include <QString>

#include <optional>

namespace ardiphon {

class LEditOCX;
class PieceText;
struct TextChange;
struct TypedWord;

/// Lines that stand by their blocks: as Enter or the end of a block is typed, where the user wants
/// that, and by a command for the lines that something is selected of, or for the whole text.
class IndentFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    /// A line on which a word that ends or parts a block has been typed.
    struct ClosedLine
    {
        const LEditOCX *editor = nullptr;
        int line = 0;
        QString before; ///< the blanks that it had
        QString after;  ///< those that it got; the same where nothing was moved
    };

    void follow(const EditorView &view);
    std::optional<QString> blanksWith(const EditorView &view, int line, const TypedWord &typed);
    void textChanged(const EditorView &view, const TextChange &change);
    void copyBlanks(const EditorView &view, int line) const;
    bool isClosed(const EditorView &view, int line) const;
    /// The text of the view as the piece has it; null where the view is ahead of that.
    const PieceText *textOf(const EditorView &view, int line) const;
    void reindent();

    FeatureHost *m_host = nullptr;
    ClosedLine m_closed;
    bool m_movesBlanks = false; ///< with the next change of the text
};

} // namespace ardiphon
