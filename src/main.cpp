#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "app/ui/Icons.h"
#include "associations/ui/FormAssociate.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "help/ui/FormAbout.h"
#include "language/WordTables.h"
#include "platform/FileName.h"
#include "platform/RunFolder.h"
#include "platform/ui/QtDialogs.h"
#include "platform/ui/WheelGuard.h"
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

    ConfigurationBlock config;
    config.Words = std::make_shared<WordTables>();
    SettingsStore settings(SettingsStore::userFilePath());
    QtDialogs dialogs;
    const RunFolder runFolder(QDir::tempPath());

    ProgramContext program{config, settings, dialogs, {}};
    program.windows.showFormCSD = [&program] { (new FormCSD(program))->show(); };
    program.windows.showFormORCSCO = [&program] { (new FormORCSCO(program))->show(); };

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
    return QApplication::exec();
}
