#pragma once

#include "platform/Dialogs.h"

#include <functional>

namespace ardiphon {

/// How the saving of a document ended: a Cancelled one was not wanted after all.
enum class SaveResult { Saved, Cancelled, Failed };

/// A question with \a firstLine above the words that ask for a save.
Message saveQuestion(const QString &title, const QString &firstLine);

/// Asks whether to save, as long as \a isModified. A Yes runs \a save, whose cancel does not stop
/// the operation; but a save that failed brings the question back: the user would lose the text
/// without having been told. Gives the last answer; Yes where nothing was to be asked.
Answer askToSave(Dialogs &dialogs, const Message &question, const std::function<bool()> &isModified,
                 const std::function<SaveResult()> &save);

} // namespace ardiphon
