#pragma once

#include "compile/ProjectParameters.h"
#include "compile/ui/CompilerDialog.h"

class QCheckBox;

namespace ardiphon {

class WavePlayer;

/// A dialog that compiles a project into a wave file, which the user can then play in it. It waits
/// for the compiler, and closing it ends the compiler.
class WaveCompileDialog : public CompilerDialog
{
    Q_OBJECT

protected:
    /// \a console: where the runs show their progress; null where they do not.
    WaveCompileDialog(const CompilerDialogKind &kind, const CompileContext &context,
                      RunConsole *console);

    /// Checks the flags and the wave, then calls run().
    void compile() override;
    /// Whether the flags may go to this compiler; otherwise a message has said why not.
    virtual bool flagsAreAllowed() = 0;
    /// Runs the compiler.
    virtual void run() = 0;

    /// Whether "-" and \a letter are among the flags; if so, a message says that it is not allowed.
    bool refuseFlag(QChar letter);
    ProjectFields fields() const;
    /// What both dialogs do when they close: saves the flags, closes the wave, stops the runs.
    void leave();
    bool hasLeft() const { return m_left; }

    RunOwner m_runs;
    WavePlayer *m_player = nullptr;

private:
    void addControls(const CompileContext &context);
    QString wavePath() const;
    /// Removes an existing wave file, after a question; false when the user wants to keep it.
    bool freeWave();
    void switchRealTime(bool on);

    QLineEdit *Orchestra = nullptr;
    QLineEdit *Score = nullptr;
    QLineEdit *Wave = nullptr;
    QCheckBox *CheckRealTime = nullptr;
    FlagList *m_flags = nullptr;
    QString SavedWaveName; ///< while the audio device is in the field
    bool m_left = false;
};

} // namespace ardiphon
