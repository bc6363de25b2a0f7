#include "documents/SaveQuestion.h"

namespace ardiphon {

Message saveQuestion(const QString &title, const QString &firstLine)
{
    return {firstLine + QStringLiteral("\r\nDo you want to save it?"), title,
            MessageIcon::Exclamation, MessageButtons::YesNoCancel};
}

Answer askToSave(Dialogs &dialogs, const Message &question, const std::function<bool()> &isModified,
                 const std::function<SaveResult()> &save)
{
    while (isModified()) {
        const Answer answer = dialogs.message(question);
        if (answer != Answer::Yes)
            return answer;
        const SaveResult result = save();
        if (result == SaveResult::Saved || result == SaveResult::Cancelled)
            return answer;
    }
    return Answer::Yes;
}

} // namespace ardiphon
