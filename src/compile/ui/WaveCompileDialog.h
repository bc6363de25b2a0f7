#pragma once

#include "compile/ProjectParameters.h"
#include "compile/ui/CompilerDialog.h"

class QCheckBox;

namespace ardiphon {

class WavePlayer;

/// A dialog that has a project compiled into a wave file, which it then offers to play. It waits
/// for the compiler, and leaving it ends the compiler.
class WaveCompileDialog : public CompilerDialog
{
    Q_OBJECT

protected:
    /// \a console: where the runs show their progress; null where they don't.
    WaveCompileDialog(const CompilerDialogKind &kind, const CompileContext &context,
                      RunConsole *console);

    /// Checks the flags and the wave; then run() takes over.
    void compile() override;
    /// Whether the flags may go to this compiler; otherwise the user has been told.
    virtual bool flagsAreAllowed() = 0;
    /// Runs the compiler.
    virtual void run() = 0;

    /// Whether "-" and \a letter are among the flags, which the user is told then.
    bool refuseFlag(QChar letter);
    ProjectFields fields() const;
    /// What both dialogs do on their way out: keeps the flags, lets go of the wave, ends the runs.
    void leave();
    bool hasLeft() const { return m_left; }

    RunOwner m_runs;
    WavePlayer *m_player = nullptr;

private:
    void addControls(const CompileContext &context);
    QString wavePath() const;
    /// Makes way for the new wave; false when the user wants to keep the old one.
    bool freeWave();
    void switchRealTime(bool on);

    QLineEdit *Orchestra = nullptr;
    QLineEdit *Score = nullptr;
    QLineEdit *Wave = nullptr;
    QCheckBox *CheckRealTime = nullptr;
    FlagList *m_flags = nullptr;
    QString SavedWaveName; ///< while the audio device stands in the field
    bool m_left = false;
};

} // namespace ardiphon
