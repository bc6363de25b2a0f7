#pragma once

#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>

namespace ardiphon {

class PieceText;

/// Lines that stand by their blocks: as Enter is typed, where the user wants that, and by a command
/// for the lines that something is selected of, or for the whole text.
class IndentFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    /// The text of the view as the piece has it; null where the view is ahead of that.
    const PieceText *textOf(const EditorView &view, int line) const;
    void reindent();

    FeatureHost *m_host = nullptr;
};

} // namespace ardiphon
