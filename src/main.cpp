#include "app/ConfigurationBlock.h"
#include "app/OpenedLine.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "app/ui/Icons.h"
#include "associations/ui/FormAssociate.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "help/ui/FormAbout.h"
#include "insight/ui/GoToPlace.h"
#include "language/WordTables.h"
#include "piece/Piece.h"
#include "platform/FileName.h"
#include "platform/RunFolder.h"
#include "platform/StartDetached.h"
#include "platform/ui/QtDialogs.h"
#include "platform/ui/WheelGuard.h"
#include "start/StartRules.h"
#include "start/ui/Form1.h"

#include <QApplication>
#include <QDir>
#include <QFile>

namespace {

/// The arguments of the command line as one text. There are no options: a word that begins with a
/// "-" is part of a name.
QByteArray commandText(int argc, char *argv[])
{
    QByteArrayList words;
    for (int i = 1; i < argc; ++i)
        words.append(argv[i]);
    return words.join(' ');
}

/// Another run of this program with the file at \a path.
bool openInAnotherRun(const QString &path, int line)
{
    return ardiphon::StartDetached(
        QApplication::applicationFilePath(), {path}, QString(),
        {{QLatin1String(ardiphon::OpenedLineVariable), QString::number(line)}});
}

/// Puts the caret into that line of the document that was opened from \a path.
void showLine(const QString &path, int line)
{
    for (QWidget *const widget : QApplication::topLevelWidgets()) {
        if (auto *const window = qobject_cast<ardiphon::EditorWindow *>(widget))
            ardiphon::goToPlace(*window, {ardiphon::roleOfPath(path), line, 0, 0});
    }
}

} // namespace

int main(int argc, char *argv[])
{
    using namespace ardiphon;

    const QByteArray command = commandText(argc, argv);
    int nameAlone = 1; // the toolkit would read words as its own options
    QApplication application(nameAlone, argv);
    QApplication::setApplicationName(QStringLiteral("ArdiphonPro"));
    QApplication::setApplicationVersion(QStringLiteral(ARDIPHON_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("ardiphon")); // the entry of an installed copy
    QApplication::setWindowIcon(programIcon(QStringLiteral("ardiphon")));

    WheelGuard wheelGuard;
    application.installEventFilter(&wheelGuard);

    const int openedLine = takeOpenedLine();
    ConfigurationBlock config;
    config.Words = std::make_shared<WordTables>();
    SettingsStore settings(SettingsStore::userFilePath());
    QtDialogs dialogs;
    const RunFolder runFolder(QDir::tempPath());

    ProgramContext program{config, settings, dialogs, {}};
    program.windows.showFormCSD = [&program] { (new FormCSD(program))->show(); };
    program.windows.showFormORCSCO = [&program] { (new FormORCSCO(program))->show(); };
    program.windows.openFile = openInAnotherRun;

    Form1 start(config, settings, dialogs, program.windows);
    start.loadWords = [&config](const QString &folder) { config.Words->LoadWordTables(folder); };
    start.closeWords = [&config] { config.Words->CloseOpcodeFile(); };
    start.showAbout = [&config](QWidget *owner) {
        FormAbout(config.Words->OpcodeHelpVersion, owner).exec();
    };
    start.showAssociate = [&program](QWidget *owner) {
        FormAssociate(program.settings, program.dialogs, owner).exec();
    };
    QString named = QFile::decodeName(command);
    if (!command.isEmpty() && !isNamable(command)) {
        dialogs.message({brokenNameText(named)});
        named.clear();
    }
    start.Load(named, QApplication::applicationDirPath(), runFolder.path());
    if (openedLine > 0)
        showLine(named, openedLine);
    return QApplication::exec();
}
