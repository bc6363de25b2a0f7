#include "support/ScriptedDialogs.h"

using namespace ardiphon;

namespace {

QString describe(const Message &message)
{
    static const char *const icons[] = {"none", "information", "exclamation", "critical",
                                        "question"};
    static const char *const buttons[] = {"Ok", "YesNo", "YesNoCancel", "OkCancel", "YesNoSaveAs"};
    const QString box =
        QStringLiteral("message [%1] \"%2\" icon %3 buttons %4%5")
            .arg(message.title, message.text, QLatin1String(icons[int(message.icon)]),
                 QLatin1String(buttons[int(message.buttons)]),
                 QLatin1String(message.defaultsToNo ? ", No by default" : ""));
    return message.explanation.isEmpty()
               ? box
               : box + QStringLiteral(" explanation \"%1\"").arg(message.explanation);
}

QString describe(const char *kind, const QString &title)
{
    return QLatin1String(kind) + QStringLiteral(" dialog [%1]").arg(title);
}

QString describe(Color first)
{
    return QStringLiteral("colour dialog that begins with %1").arg(first.value, 6, 16, QChar(u'0'));
}

QString describe(const PrintQuestion &question)
{
    return question.hasSelection ? QStringLiteral("print dialog with a selection")
                                 : QStringLiteral("print dialog");
}

} // namespace

void ScriptedDialogs::expect(const Message &message, Answer answer)
{
    m_script.append({describe(message), answer});
}

void ScriptedDialogs::expectOpen(const QString &title, const std::optional<QString> &path)
{
    m_script.append({describe("open", title), Answer::Ok, path});
}

void ScriptedDialogs::expectSave(const QString &title, const std::optional<QString> &path)
{
    m_script.append({describe("save", title), Answer::Ok, path});
}

void ScriptedDialogs::expectColor(Color first, std::optional<Color> chosen)
{
    m_script.append({describe(first), Answer::Ok, {}, chosen});
}

void ScriptedDialogs::expectPrinter(bool hasSelection, const std::optional<PrintChoice> &choice)
{
    m_script.append({describe(PrintQuestion{{}, hasSelection}), Answer::Ok, {}, {}, choice});
}

QString ScriptedDialogs::verify() const
{
    QStringList failures = m_failures;
    for (qsizetype i = m_next; i < m_script.size(); ++i)
        failures.append(QStringLiteral("never asked: ") + m_script[i].question);
    return failures.join(u'\n');
}

ScriptedDialogs::Step *ScriptedDialogs::take(const QString &question)
{
    if (const auto step = std::exchange(m_beforeAnswer, nullptr))
        step();
    if (m_next < m_script.size() && m_script[m_next].question == question)
        return &m_script[m_next++];
    m_failures.append(QStringLiteral("not expected: ") + question);
    return nullptr;
}

Answer ScriptedDialogs::message(const Message &message)
{
    const Step *step = take(describe(message));
    return step ? step->answer : Answer::Cancel;
}

std::optional<QString> ScriptedDialogs::openFile(const FileQuestion &question)
{
    fileQuestions.append(question);
    const Step *step = take(describe("open", question.title));
    return step ? step->path : std::nullopt;
}

std::optional<QString> ScriptedDialogs::saveFile(const FileQuestion &question)
{
    fileQuestions.append(question);
    const Step *step = take(describe("save", question.title));
    return step ? step->path : std::nullopt;
}

std::optional<Color> ScriptedDialogs::color(Color first)
{
    const Step *step = take(describe(first));
    return step ? step->color : std::nullopt;
}

std::optional<PrintChoice> ScriptedDialogs::choosePrinter(const PrintQuestion &question)
{
    printQuestions.append(question);
    Step *step = take(describe(question));
    return step ? std::exchange(step->printer, std::nullopt) : std::nullopt;
}
