#pragma once

#include "language/LineRun.h"
#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QList>
#include <QObject>

namespace ardiphon {

/// Marks quietly, in the lines in view, where else the word at the caret stands, and the bracket or
/// the word that belongs to the one at the caret.
class MarksFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    void mark(const EditorView &view, const QList<LineRun> &lines) const;
    void markOccurrences(const EditorView &view, const QList<LineRun> &lines) const;
    void markBrackets(const EditorView &view) const;

    FeatureHost *m_host = nullptr;
};

} // namespace ardiphon
