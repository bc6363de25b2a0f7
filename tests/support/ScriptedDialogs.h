#pragma once

#include "platform/Dialogs.h"

#include <QList>
#include <QStringList>

#include <functional>

/// Dialogs that answer by a script. A test names the questions that it expects, in their order,
/// each with its answer; verify() then fails on a question that was not expected and on an answer
/// that was not used.
class ScriptedDialogs : public ardiphon::Dialogs
{
public:
    /// Expects a message box with exactly this text, title, icon and buttons.
    void expect(const ardiphon::Message &message, ardiphon::Answer answer = ardiphon::Answer::Ok);
    /// Expects an open or save dialog with that title; an empty \a path is a cancel.
    void expectOpen(const QString &title, const std::optional<QString> &path);
    void expectSave(const QString &title, const std::optional<QString> &path);
    /// Expects a colour dialog that begins with \a first; an empty \a chosen is a cancel.
    void expectColor(ardiphon::Color first, std::optional<ardiphon::Color> chosen);
    /// Expects a print dialog that offers a selection or does not; an empty \a choice is a cancel.
    void expectPrinter(bool hasSelection, const std::optional<ardiphon::PrintChoice> &choice);
    /// Runs when the next expected question is asked, before it is answered.
    void beforeNextAnswer(std::function<void()> step) { m_beforeAnswer = std::move(step); }

    /// "" when everything that was expected was asked and nothing else; otherwise what went wrong.
    QString verify() const;

    /// The file dialogs that were shown, for tests of their filter and folder.
    QList<ardiphon::FileQuestion> fileQuestions;

    /// The print dialogs that were shown, for tests of the name.
    QList<ardiphon::PrintQuestion> printQuestions;

    ardiphon::Answer message(const ardiphon::Message &message) override;
    std::optional<QString> openFile(const ardiphon::FileQuestion &question) override;
    std::optional<QString> saveFile(const ardiphon::FileQuestion &question) override;
    std::optional<ardiphon::Color> color(ardiphon::Color first) override;
    std::optional<ardiphon::PrintChoice>
    choosePrinter(const ardiphon::PrintQuestion &question) override;

private:
    struct Step
    {
        QString question;
        ardiphon::Answer answer = ardiphon::Answer::Ok;
        std::optional<QString> path = {};
        std::optional<ardiphon::Color> color = {};
        std::optional<ardiphon::PrintChoice> printer = {};
    };
    Step *take(const QString &question);

    QList<Step> m_script;
    qsizetype m_next = 0;
    QStringList m_failures;
    std::function<void()> m_beforeAnswer;
};
