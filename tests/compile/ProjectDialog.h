#pragma once

#include "compile/CompileRules.h"
#include "compile/ui/CompileContext.h"
#include "language/editor/LEditOCX.h"
#include "platform/ui/MMControl.h"
#include "support/Controls.h"
#include "support/StandInCompiler.h"
#include "support/TestProgram.h"
#include "support/When.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

/// A dialog over a project in a folder of the test's own, with the stand-in as every compiler. The
/// orchestra's name chooses how it behaves.
struct ProjectDialog : TestProgram
{
    explicit ProjectDialog(const QString &piece = QStringLiteral("logged"))
    {
        QDir(folder.path()).mkdir(QStringLiteral("root"));
        QDir(folder.path()).mkdir(QStringLiteral("own"));
        config.RootPath = path(QStringLiteral("root/"));
        config.ProgramFolder = path(QStringLiteral("own"));
        config.FileCSound = StandInCompiler::path();
        config.FileWinsound = StandInCompiler::path();
        config.FileDirectCSound = StandInCompiler::path();
        choose(piece);
    }
    ~ProjectDialog() { form.reset(); }

    void choose(const QString &piece)
    {
        config.OrchestraFileName = path(piece + QStringLiteral(".orc"));
        config.ScoreFileName = path(piece + QStringLiteral(".sco"));
        config.CSDFileName = path(piece + QStringLiteral(".csd"));
    }

    ardiphon::CompileContext compileContext(QWidget *owner = nullptr)
    {
        const auto viewer = [this](QWidget *) {
            return ardiphon::HelpViewer{
                [this](const QUrl &page, const QString &) { shownPages.append(page.fileName()); },
                [this](const QString &file) { openedFiles.append(file); }};
        };
        return {config, dialogs, owner, viewer,
                ardiphon::RunSystem{[] { return qint64(5000); }, [this] { ++beeps; }}};
    }

    /// Opens a dialog of that class; FormCSound wants the editors too.
    template <typename Form, typename... Arguments>
    void open(Arguments &...arguments)
    {
        form = std::make_unique<Form>(compileContext(), arguments...);
        form->show();
        if (!QTest::qWaitForWindowActive(form.get()))
            qFatal("the dialog does not show");
    }

    template <typename Control = QPushButton>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*form, QLatin1String(name));
    }
    void click(const char *name) const
    {
        QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton);
    }
    QString field(const char *name) const { return control<QLineEdit>(name)->text(); }
    void setFlags(const QString &flags) const { control<QComboBox>("Flags")->setEditText(flags); }

    StandInCompiler::Pids pids() const { return StandInCompiler::pids(config.OrchestraFileName); }
    QString logFile() const { return ardiphon::CompileLogFile(config.RootPath); }
    /// How the stand-in was started, as its log says: see the behaviour without a name.
    QStringList argumentsIn(const QString &log) const
    {
        QStringList arguments;
        for (const QString &line : log.split(u'\n'))
            if (line.startsWith(QLatin1String("argument ")))
                arguments.append(line.mid(9).trimmed());
        return arguments;
    }

    /// Acts while a click on "&Compile" has not returned yet.
    void when(std::function<bool()> condition, std::function<void()> action)
    {
        ::when(form.get(), std::move(condition), std::move(action), [this] { form->reject(); });
    }
    void whenRunning(std::function<void()> action)
    {
        QFile::remove(config.OrchestraFileName + QStringLiteral(".pid")); // of a run before
        when([this] { return pids().leader != 0; }, std::move(action));
    }

    void expectWarning(const QString &text, const QString &title = ardiphon::ProgramTitle)
    {
        dialogs.expect({text, title});
    }
    void expectOverwriteQuestion(ardiphon::Answer answer)
    {
        dialogs.expect(
            {QStringLiteral("File Wave already exists!\r\n\r\nDo you want to overwrite it?"),
             QStringLiteral("CSound Compiler"), ardiphon::MessageIcon::Exclamation,
             ardiphon::MessageButtons::OkCancel},
            answer);
    }

    QStringList shownPages;
    QStringList openedFiles;
    int beeps = 0;
    std::unique_ptr<QDialog> form;
};
