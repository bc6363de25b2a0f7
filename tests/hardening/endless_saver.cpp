// Saves one document again and again through its real window, until it is killed:
//
//   endless_saver FOLDER
//
// FOLDER/piece.csd becomes, in turns, all letters "a" and all letters "b", each with a bookmark
// that comes and goes. "ready" on the standard output tells that it began.

#include "documents/ui/FormCSD.h"
#include "language/editor/LEditOCX.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QApplication>

#include <iostream>

using namespace ardiphon;

namespace {

struct QuietDialogs : ScriptedDialogs
{
    Answer message(const Message &) override { return Answer::Yes; }
};

[[noreturn]] int saveEndlessly(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString folder = QApplication::arguments().value(1);
    TestProgram program;
    QuietDialogs dialogs;
    ProgramContext context{program.config, program.settings, dialogs, {}};
    program.config.CSDFileName = folder + QStringLiteral("/piece.csd");
    FormCSD *window = new FormCSD(context);
    window->show();
    auto *editor = window->findChild<LEditOCX *>(QStringLiteral("LEDIT1"));
    auto *save = window->findChild<QAction *>(QStringLiteral("menuFileSalvaOrchestra"));
    auto *bookmark = window->findChild<QAction *>(QStringLiteral("menuToolsBookmark"));
    std::cout << "ready" << std::endl;
    // Never what is there already, so that every save changes the file.
    for (bool first = !editor->Text().startsWith(u'a');; first = !first) {
        editor->SetText(QString(QString(79, first ? u'a' : u'b') + u'\n').repeated(2500));
        bookmark->trigger();
        save->trigger();
        QApplication::processEvents();
    }
}

} // namespace

ARDIPHON_TEST_RUN_BY(endless_saver, saveEndlessly)
