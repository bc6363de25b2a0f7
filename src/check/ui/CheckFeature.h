#pragma once

#include "check/CheckRun.h"
#include "check/ProblemList.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QAction;
class QDockWidget;
class QTimer;

namespace ardiphon {

class LEditOCX;
class ProblemsPanel;
struct CheckedPiece;
struct EditorView;
struct OpcodeWords;

/// What is wrong with the piece while it is written: the compiler checks the text as it stands when
/// one pauses typing, and what it finds is marked in the text and beside it, and listed in
/// `DockProblems`. What it finds in a compile is shown the same way.
class CheckFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    void bindCommands();
    void buildDock();
    void followText();
    void followView(const EditorView &view);
    void takeChange(DocumentRole role, const TextChange &change);
    void turn(bool on);
    void check();
    void takeResult(const CheckInput &input, const CheckResult &result);
    void addOwn(QList<Problem> &problems) const;
    void readCompileLog(const QString &log);
    void show(const QList<Problem> &problems, const QString &status);
    void refresh();
    void mark(const EditorView &view, const QList<LineRun> &lines) const;
    void goTo(int index);
    void goToNext(bool back);
    void mend(const ProblemFix &fix);
    QString documentName(DocumentRole role) const;
    QString lineText(DocumentRole role, int line) const;
    OpcodeWords opcodeWords() const;

    FeatureHost *m_host = nullptr;
    QPointer<QDockWidget> m_dock;
    ProblemsPanel *m_panel = nullptr;
    QTimer *m_pause = nullptr; ///< from the last change to the check
    std::unique_ptr<CheckRun> m_run;
    ProblemList m_list;
};

} // namespace ardiphon
