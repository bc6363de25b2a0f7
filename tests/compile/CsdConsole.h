#pragma once

#include "app/ConfigurationBlock.h"
#include "compile/CompileRules.h"
#include "compile/ui/CompilerOutput.h"
#include "compile/ui/FormCSoundCSD.h"
#include "language/editor/LEditOCX.h"
#include "support/ScriptedDialogs.h"
#include "support/StandInCompiler.h"
#include "support/When.h"

#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

#include <functional>
#include <memory>

/// FormCSoundCSD over a folder of its own, with a beep and a clock that tests can look at.
struct CsdConsole
{
    explicit CsdConsole(const QString &piece)
    {
        QDir(folder.path()).mkdir(QStringLiteral("root"));
        config.RootPath = folder.filePath(QStringLiteral("root/"));
        config.FileCSound = StandInCompiler::path();
        choose(piece);
        form = std::make_unique<ardiphon::FormCSoundCSD>(
            config, dialogs, editor, nullptr,
            ardiphon::RunSystem{[this] { return clock(); }, [this] { ++beeps; }});
        form->show();
        output = form->findChild<ardiphon::CompilerOutput *>(QStringLiteral("TxtOutputs"));
    }

    void choose(const QString &piece)
    {
        config.CSDFileName = folder.filePath(piece + QStringLiteral(".csd"));
    }
    QPushButton *button(const char *name) const
    {
        return form->findChild<QPushButton *>(QLatin1String(name));
    }
    void click(const char *name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    QString text() const { return output->text(); }
    StandInCompiler::Pids pids(const QString &piece) const
    {
        return StandInCompiler::pids(folder.filePath(piece + QStringLiteral(".csd")));
    }
    QString logFile() const { return ardiphon::CompileLogFile(config.RootPath); }

    /// Does \a action once, from the event loop, as soon as \a condition holds: this is how a user
    /// acts while a click on "&Compile" has not returned yet.
    void when(std::function<bool()> condition, std::function<void()> action)
    {
        ::when(form.get(), std::move(condition), std::move(action), [this] { form->reject(); });
    }
    void whenRunning(const QString &piece, std::function<void()> action)
    {
        const auto running = [=, this] {
            return pids(piece).leader != 0 && text().startsWith(QLatin1String("Compiling"));
        };
        when(running, std::move(action));
    }

    /// How each line is drawn: its colour and where it is.
    QStringList look() const
    {
        output->grab(); // has it laid out
        QStringList lines;
        for (QTextBlock block = output->document()->begin(); block.isValid();
             block = block.next()) {
            const QBrush brush = block.begin().fragment().charFormat().foreground();
            const QString color =
                block.begin() == block.end() ? QStringLiteral("empty") : brush.color().name();
            const bool centred = block.layout()->lineAt(0).x() > 20;
            lines.append(color + (centred ? QStringLiteral(" centre") : QStringLiteral(" left")));
        }
        return lines;
    }

    /// Clicks twice on the line of the output that begins so.
    void doubleClick(const QString &beginning) const
    {
        QTextBlock block = output->document()->begin();
        while (block.isValid() && !block.text().startsWith(beginning))
            block = block.next();
        if (!block.isValid())
            qFatal("no line %s", qPrintable(beginning));
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 3);
        output->setTextCursor(cursor);
        QTest::mouseDClick(output->viewport(), Qt::LeftButton, {},
                           output->cursorRect(cursor).center());
    }

    /// Writes down each text that is shown from now on.
    void noteTexts(QStringList &seen)
    {
        QObject::connect(output, &QPlainTextEdit::textChanged, form.get(), [this, &seen] {
            if (seen.isEmpty() || seen.last() != text())
                seen.append(text());
        });
    }

    /// Without the usual dash, as options are searched for "-o".
    QTemporaryDir folder{QDir::tempPath() + QStringLiteral("/test_XXXXXX")};
    ardiphon::ConfigurationBlock config;
    ardiphon::LEditOCX editor;
    ScriptedDialogs dialogs;
    std::function<qint64()> clock = [] { return qint64(5000); };
    int beeps = 0;
    std::unique_ptr<ardiphon::FormCSoundCSD> form;
    ardiphon::CompilerOutput *output = nullptr;
};
