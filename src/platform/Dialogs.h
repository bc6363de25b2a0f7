#pragma once

#include "platform/Color.h"

#include <QString>

#include <memory>
#include <optional>

namespace ardiphon {

class Printer;

enum class MessageIcon { None, Information, Exclamation, Critical, Question };
enum class MessageButtons { Ok, YesNo, YesNoCancel, OkCancel, YesNoSaveAs };
enum class Answer { Ok, Yes, No, Cancel, SaveAs };

/// The title of a message box that has none of its own.
inline const QString ProgramTitle = QStringLiteral("ArdiphonPro");

/// A message box. Lines of `text` are separated by CR LF.
struct Message
{
    QString text;
    QString title = ProgramTitle;
    MessageIcon icon = MessageIcon::Exclamation;
    MessageButtons buttons = MessageButtons::Ok;
    bool defaultsToNo = false; ///< whether Enter means No; else it means the first button
    QString explanation = {};  ///< shown below the text, in smaller letters
};

/// What a file dialog shows.
struct FileQuestion
{
    QString title;
    QString filter;    ///< pairs "description|patterns", joined by "|", patterns joined by ";"
    QString directory; ///< the folder to begin in; "" leaves the choice to the platform
    QString proposedName = {}; ///< what the field of the file name holds at first; a path begins in
                               ///< its folder
    bool mustExist = true;     ///< whether openFile refuses a file that does not exist
};

/// What a print dialog shows.
struct PrintQuestion
{
    QString name;              ///< of the first document
    bool hasSelection = false; ///< whether "Selection" can be chosen; then it is chosen at first
};

/// What the user of a print dialog decided.
struct PrintChoice
{
    std::shared_ptr<Printer> printer;
    bool selectionOnly = false;
};

/// Everything that the program asks its user. The rules use this interface only, so they can be
/// tested with scripted answers; a cancelled dialog gives an empty optional.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    /// Shows the box over the active window and waits. A box that is closed without a choice gives
    /// Cancel where it has that button, else No, else Ok.
    virtual Answer message(const Message &message) = 0;

    /// Asks for a file to read, an existing one unless `mustExist` is false. Returns its absolute
    /// path. Its folder becomes the current directory, where a dialog without a folder of its own
    /// begins.
    virtual std::optional<QString> openFile(const FileQuestion &question) = 0;

    /// Asks for a file to write, and before an existing one is chosen whether to overwrite it.
    /// Returns the absolute path as it was typed: no extension is added. Its folder becomes the
    /// current directory too.
    virtual std::optional<QString> saveFile(const FileQuestion &question) = 0;

    /// Asks for a colour; \a first is the one that the dialog begins with.
    virtual std::optional<Color> color(Color first) = 0;
    /// Asks for a printer, at first the default one.
    virtual std::optional<PrintChoice> choosePrinter(const PrintQuestion &question) = 0;
};

} // namespace ardiphon
