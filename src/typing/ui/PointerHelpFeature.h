#pragma once

#include "typing/OpcodeSignatures.h"
#include "typing/PointerHelp.h"
#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <memory>
#include <optional>

class QTimer;

namespace ardiphon {

/// Shows what the name is that the pointer rests on, until it moves off.
class PointerHelpFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void notePointer(const EditorView &view, QPoint at);
    void noteRepaint(const LEditOCX &editor);
    std::optional<PointerHelp> helpAt(int line, int column) const;
    void show();
    void hide();

    FeatureHost *m_host = nullptr;
    std::unique_ptr<OpcodeSignatures> m_opcodes;
    QTimer *m_rest = nullptr;
    QList<EditorView> m_views;
    EditorView m_view;  ///< that the pointer is in
    QPoint m_pointer;   ///< in its editor
    QRect m_name;       ///< what is explained there; empty for nothing
    PiecePlace m_place; ///< the same in the text
    QString m_shown;
};

} // namespace ardiphon
