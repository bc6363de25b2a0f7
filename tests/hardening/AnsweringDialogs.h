#pragma once

#include "hardening/Dice.h"
#include "hardening/Playground.h"

#include "platform/Dialogs.h"

/// Dialogs that a user answers without thinking, with files of the playground.
class AnsweringDialogs : public ardiphon::Dialogs
{
public:
    AnsweringDialogs(Dice &dice, Playground &playground) : m_dice(dice), m_playground(playground) {}

    /// From now on every question is answered so that the program comes to its end.
    void answerToEnd() { m_ending = true; }

    ardiphon::Answer message(const ardiphon::Message &message) override;
    std::optional<QString> openFile(const ardiphon::FileQuestion &question) override;
    std::optional<QString> saveFile(const ardiphon::FileQuestion &question) override;
    std::optional<ardiphon::Color> color(ardiphon::Color first) override;
    /// The printer prints into a file.
    std::optional<ardiphon::PrintChoice>
    choosePrinter(const ardiphon::PrintQuestion &question) override;

private:
    bool cancels() { return m_ending || m_dice.chance(20); }

    Dice &m_dice;
    Playground &m_playground;
    bool m_ending = false;
};
