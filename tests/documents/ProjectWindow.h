#pragma once

#include "documents/ui/FormORCSCO.h"
#include "language/editor/LEditOCX.h"
#include "start/ui/FormNew.h"
#include "support/Controls.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTimer>

/// A project's window over a program of the test's own.
struct ProjectWindow : TestProgram
{
    ProjectWindow()
    {
        context.windows.showFormCSD = [this] { ++csdWindows; };
        context.windows.showFormORCSCO = [] {};
    }
    ~ProjectWindow() { delete window; }

    /// Opens the window for the documents that the configuration names.
    void show()
    {
        window = new ardiphon::FormORCSCO(context);
        window->show();
        if (!QTest::qWaitForWindowExposed(window))
            qFatal("the window does not show");
        orchestra = control<ardiphon::LEditOCX>("LEDIT1");
        score = control<ardiphon::LEditOCX>("LEDIT2");
    }

    /// Writes a pair piece.orc and piece.sco and opens it.
    void showPair(const QByteArray &orchestraText = "instr 1\nendin\n",
                  const QByteArray &scoreText = "i1 0 1\ne\n")
    {
        config.OrchestraFileName = write(QStringLiteral("piece.orc"), orchestraText);
        write(QStringLiteral("piece.sco"), scoreText);
        show();
    }

    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*window, QLatin1String(name));
    }

    void trigger(const char *command) const { control<QAction>(command)->trigger(); }
    QString label(const char *name) const { return control<QLabel>(name)->text(); }

    static void type(ardiphon::LEditOCX *editor, const QString &text)
    {
        QTest::keyClicks(editor->focusProxy(), text);
    }

    /// Expects the save question under that title.
    void expectQuestion(const QString &title, const QString &firstLine, ardiphon::Answer answer)
    {
        dialogs.expect({firstLine + QStringLiteral("\r\nDo you want to save it?"), title,
                        ardiphon::MessageIcon::Exclamation, ardiphon::MessageButtons::YesNoCancel},
                       answer);
    }

    void expectMessage(const QString &text)
    {
        dialogs.expect({text, ardiphon::ProgramTitle, ardiphon::MessageIcon::Exclamation,
                        ardiphon::MessageButtons::Ok});
    }

    void chooseInFormNew(Qt::Key key) const
    {
        QTimer::singleShot(0, window, [key] {
            auto *chooser = qobject_cast<ardiphon::FormNew *>(QApplication::activeModalWidget());
            if (!chooser)
                qFatal("FormNew does not show");
            QTest::keyClick(chooser, key);
        });
    }

    QString recent(const char *value)
    {
        return ReadRegistryString(settings, ardiphon::registry::RecentFilesKey,
                                  QLatin1String(value));
    }

    QPointer<ardiphon::FormORCSCO> window;
    ardiphon::LEditOCX *orchestra = nullptr;
    ardiphon::LEditOCX *score = nullptr;
    int csdWindows = 0;
};
