#pragma once

#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>

namespace ardiphon {

/// Folding what belongs together: by marks in the gutter and by commands.
class FoldFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    void markBlocks();
    void toggleAtCaret();
    void foldAll();
    void unfoldAll();
    /// The view that has the focus, or else the first one.
    EditorView view() const;

    FeatureHost *m_host = nullptr;
};

} // namespace ardiphon
