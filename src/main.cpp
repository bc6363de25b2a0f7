#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "app/ui/Form1.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "platform/RunFolder.h"
#include "platform/ui/QtDialogs.h"
#include "preferences/ui/FormAbout.h"

#include <QApplication>
#include <QDir>

int main(int argc, char *argv[])
{
    using namespace ardiphon;

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ArdiphonPro"));
    QApplication::setApplicationVersion(QStringLiteral(ARDIPHON_VERSION));

    ConfigurationBlock config;
    SettingsStore settings(SettingsStore::userFilePath());
    QtDialogs dialogs;
    const RunFolder runFolder(QDir::tempPath());

    ProgramContext program{config, settings, dialogs, {}};
    program.windows.showFormCSD = [&program] { (new FormCSD(program))->show(); };
    program.windows.showFormORCSCO = [&program] { (new FormORCSCO(program))->show(); };

    Form1 start(config, settings, dialogs, program.windows);
    start.showAbout = [&config](QWidget *owner) {
        FormAbout(config.Words.OpcodeHelpVersion, owner).exec();
    };
    start.Load(QApplication::arguments().mid(1).join(u' '), QApplication::applicationDirPath(),
                runFolder.path());
    return QApplication::exec();
}
