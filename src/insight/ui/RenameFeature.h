#pragma once

#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QList>
#include <QObject>

#include <optional>

namespace ardiphon {

struct PieceSymbol;
struct RenameEdit;

/// Giving the word at the caret another name, wherever the piece has it.
class RenameFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    void rename();
    std::optional<QList<RenameEdit>> ask(const EditorView &view);
    EditorView caretView() const;
    std::optional<PieceSymbol> symbolIn(const EditorView &view) const;
    QString documentName(DocumentRole role) const;
    void carryOut(const QList<RenameEdit> &edits) const;

    FeatureHost *m_host = nullptr;
};

} // namespace ardiphon
