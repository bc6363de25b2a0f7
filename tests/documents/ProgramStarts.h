#pragma once

#include "support/TestProgram.h"

#include <QAction>
#include <QTest>
#include <QToolButton>

/// The ways from an editor window to the programs that it starts.
namespace ProgramStarts {

/// An entry of a menu, a button of the toolbar or a key, and what it leads to.
struct Way
{
    const char *name; ///< null for a key
    Qt::Key key;
    const char *end;
};

inline constexpr Way ToCompilers[] = {
    {"menuCSound", Qt::Key_unknown, "CSound compiler"},
    {"buttonCsound", Qt::Key_unknown, "CSound compiler"},
    {nullptr, Qt::Key_F3, "CSound compiler"},
    {"menuToolsWinsound", Qt::Key_unknown, "Winsound compiler"},
    {"buttonWinsound", Qt::Key_unknown, "Winsound compiler"},
    {"menuCSoundAV", Qt::Key_unknown, "CSoundAV"},
    {"buttonDirectCsound", Qt::Key_unknown, "CSoundAV"},
    {nullptr, Qt::Key_F4, "CSoundAV"},
};

/// The ends are terminal emulators and calculators.
inline constexpr Way ToTools[] = {
    {"menuCommandLine", Qt::Key_unknown, "xterm"},
    {"buttonCommand", Qt::Key_unknown, "xterm"},
    {"buttonCalculator", Qt::Key_unknown, "xcalc"},
};

/// Goes that way as a user does.
inline void go(QWidget &window, QWidget &editor, const Way &way)
{
    if (!way.name)
        QTest::keyClick(&editor, way.key);
    else if (auto *button = window.findChild<QToolButton *>(QLatin1String(way.name)))
        button->click();
    else
        window.findChild<QAction *>(QLatin1String(way.name))->trigger();
}

/// Goes every way to a compiler with a \a document, such as "File", that has no name: what
/// \a program shows then names the compiler.
inline void goToCompilers(TestProgram &program, QWidget &window, QWidget &editor,
                          const QString &document)
{
    for (const Way &way : ToCompilers) {
        program.dialogs.expect(
            {QStringLiteral("No name associated to %1!\r\nYou must save it with a valid name "
                            "before start %2 (CTRL+S)")
                 .arg(document, QLatin1String(way.end))});
        go(window, editor, way);
        QCOMPARE(program.dialogs.verify(), QString());
    }
}

/// Goes every way to a tool, in a search path that holds only these tools.
inline void goToTools(TestProgram &program, QWidget &window, QWidget &editor)
{
    const QByteArray path = qgetenv("PATH");
    const auto restore = qScopeGuard([&path] { qputenv("PATH", path); });
    qputenv("PATH", program.folder.path().toUtf8());
    const auto trace = [&program](const char *tool) {
        return program.path(QLatin1String(tool) + QStringLiteral(".ran"));
    };
    for (const char *tool : {"xterm", "xcalc"}) {
        QFile script(
            program.write(QLatin1String(tool), "#!/bin/sh\n: > '" + trace(tool).toUtf8() + "'\n"));
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    for (const Way &way : ToTools) {
        go(window, editor, way);
        QTRY_VERIFY2(QFile::exists(trace(way.end)), way.name);
        QVERIFY(QFile::remove(trace(way.end)));
    }
}

/// Asks for the real-time compiler's help while there is none.
inline void goToMissingHtmlHelp(TestProgram &program, QWidget &window, QWidget &editor)
{
    program.config.FileGuidaHtml.clear();
    program.dialogs.expect({QStringLiteral("No File defined for CSoundAV HTML Help\r\n"
                                           "Please set: File->Settings->CSoundAV Help")});
    go(window, editor, {"buttonDirectHtml", Qt::Key_unknown, nullptr});
    QCOMPARE(program.dialogs.verify(), QString());
}

} // namespace ProgramStarts
