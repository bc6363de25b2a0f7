#pragma once

#include "hardening/Dice.h"
#include "support/ScriptedDialogs.h"

#include <functional>

/// Dialogs that a user answers without thinking.
class AnsweringDialogs : public ScriptedDialogs
{
public:
    /// \a openable, \a savable: give a path that a file dialog answers.
    AnsweringDialogs(Dice &dice, std::function<QString()> openable,
                     std::function<QString()> savable)
        : m_dice(dice), m_openable(std::move(openable)), m_savable(std::move(savable))
    {
    }

    /// From now on every question is answered so that the program comes to its end.
    void answerToEnd() { m_ending = true; }

    ardiphon::Answer message(const ardiphon::Message &message) override
    {
        using ardiphon::Answer;
        if (message.buttons == ardiphon::MessageButtons::Ok)
            return Answer::Ok;
        if (m_ending)
            return Answer::No;
        const int last = message.buttons == ardiphon::MessageButtons::YesNoCancel ? 3 : 2;
        constexpr Answer answers[] = {Answer::Yes, Answer::No, Answer::Cancel};
        return answers[m_dice.roll(last)];
    }
    std::optional<QString> openFile(const ardiphon::FileQuestion &) override
    {
        return answer(m_openable);
    }
    std::optional<QString> saveFile(const ardiphon::FileQuestion &) override
    {
        return answer(m_savable);
    }

private:
    std::optional<QString> answer(const std::function<QString()> &path)
    {
        if (m_ending || m_dice.chance(20))
            return std::nullopt;
        return path();
    }

    Dice &m_dice;
    std::function<QString()> m_openable;
    std::function<QString()> m_savable;
    bool m_ending = false;
};
