#pragma once

#include "compile/FlagFile.h"
#include "language/ui/KeywordHelp.h"
#include "platform/Dialogs.h"

#include <QObject>

class QPushButton;
class QWidget;

namespace ardiphon {

struct CompileContext;
class FlagCombo;

/// The settings in which the lists of flags of the dialogs differ.
struct FlagListKind
{
    QString fileName; ///< in the program's folder
    FlagLayout layout;
    QString firstText; ///< of the field, unless the file has another
    const char *removeButton;
    const char *helpButton;
    Message alreadyThere; ///< the message for a flag that is in the list already
    QString helpKeyword;
};

/// The list of flags that the console compiler and Winsound share.
const FlagListKind &compilerFlags();
/// The list of the real-time compiler.
const FlagListKind &playerFlags();

/// The flags of a compile dialog: a field whose text goes on the command line, the list of those
/// that the user has collected, kept in a file, and the three buttons that belong to it.
class FlagList : public QObject
{
    Q_OBJECT

public:
    /// The controls are made as children of \a dialog, which sees to their places.
    FlagList(const FlagListKind &kind, const CompileContext &context, QWidget *dialog);

    QString text() const;
    /// To be called when the dialog opens and when it closes.
    void load();
    void save() const;

    FlagCombo *const Flags;
    QPushButton *const add;
    QPushButton *const remove;
    QPushButton *const help;

private:
    void addFlag();

    const FlagListKind &m_kind;
    Dialogs &m_dialogs;
    const QString m_path;
    KeywordHelp m_help;
};

} // namespace ardiphon
