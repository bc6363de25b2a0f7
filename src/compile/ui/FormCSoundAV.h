#pragma once

#include "compile/ui/CompilerDialog.h"

namespace ardiphon {

/// The dialog that starts the real-time compiler to play a saved CSD. The compiler then runs
/// independently: the dialog closes as soon as it is started.
class FormCSoundAV : public CompilerDialog
{
    Q_OBJECT

public:
    explicit FormCSoundAV(const CompileContext &context);

    void done(int result) override;

private:
    /// Plays the document that the configuration names, whatever is in the field.
    void compile() override;

    const QString m_programFolder;
};

/// The same for a project, with flags.
class FormCSoundAVORC : public CompilerDialog
{
    Q_OBJECT

public:
    explicit FormCSoundAVORC(const CompileContext &context);

    void done(int result) override;

protected:
    /// Enter in the flags' field leads to `Compila`.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void compile() override;

    const QString m_programFolder;
    QLineEdit *Orchestra = nullptr;
    QLineEdit *Score = nullptr;
    FlagList *m_flags = nullptr;
};

} // namespace ardiphon
