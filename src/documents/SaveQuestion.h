#pragma once

#include "platform/Dialogs.h"

#include <functional>

namespace ardiphon {

/// How saving a document ended. Cancelled: the user did not want it after all. Refused: the user
/// wanted it, but not in place of the file that is there.
enum class SaveResult { Saved, Cancelled, Refused, Failed };

/// A question with \a firstLine above the words that ask whether to save.
Message saveQuestion(const QString &title, const QString &firstLine);

/// Asks whether to save, as long as \a isModified. Yes calls \a save. A save that was cancelled
/// does not stop the operation; after one that failed or was refused the question is asked again,
/// as the user wanted the text saved and would lose it. Returns the last answer; Yes when there was
/// nothing to ask.
Answer askToSave(Dialogs &dialogs, const Message &question, const std::function<bool()> &isModified,
                 const std::function<SaveResult()> &save);

} // namespace ardiphon
