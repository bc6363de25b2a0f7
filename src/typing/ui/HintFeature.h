#pragma once

#include "typing/ArgumentHint.h"
#include "typing/OpcodeSignatures.h"
#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>
#include <QPoint>
#include <QPointer>

#include <memory>
#include <optional>

class QTimer;

namespace ardiphon {

class LabelOfHint;
struct EditorKey;

/// Shows the signature of the call that the caret is in, and the p-fields of a note: LabelHint, a
/// frame beside the caret's line. It takes no key but Esc, which puts it away until the caret
/// leaves the call.
class HintFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(const EditorView &view);
    void noteCaret(const LEditOCX &editor);
    void noteRepaint(const LEditOCX &editor);
    void takeEscape(EditorKey &key);
    void update();
    std::optional<ArgumentHint> hintAt(const EditorView &view) const;
    void show(const LEditOCX &editor, const ArgumentHint &hint);
    void place();
    void hide();
    QWidget *list() const;

    FeatureHost *m_host = nullptr;
    std::unique_ptr<OpcodeSignatures> m_opcodes;
    QPointer<LabelOfHint> m_label; ///< a child of the window, which may be gone before
    QTimer *m_pause = nullptr;
    const LEditOCX *m_editor = nullptr; ///< beside whose caret it stands
    ArgumentHint m_hint;
    QPoint m_caret; ///< in the editor, where it was shown
    std::optional<PiecePlace> m_dismissed;
};

} // namespace ardiphon
