#pragma once

#include "platform/Dialogs.h"

#include <functional>

namespace ardiphon {

/// How the saving of a document ended: a Cancelled one was not wanted after all; a Refused one was,
/// but not in the place of the file that it met.
enum class SaveResult { Saved, Cancelled, Refused, Failed };

/// A question with \a firstLine above the words that ask for a save.
Message saveQuestion(const QString &title, const QString &firstLine);

/// Asks whether to save, as long as \a isModified. A Yes runs \a save, whose cancel does not stop
/// the operation; but a save that failed or was refused brings the question back: the user, who
/// wanted the text saved, would lose it. Gives the last answer; Yes where nothing was to be asked.
Answer askToSave(Dialogs &dialogs, const Message &question, const std::function<bool()> &isModified,
                 const std::function<SaveResult()> &save);

} // namespace ardiphon
