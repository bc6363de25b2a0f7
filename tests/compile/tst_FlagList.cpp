#include "compile/FlagFile.h"
#include "compile/ProjectDialog.h"
#include "compile/ui/FlagCombo.h"
#include "compile/ui/FormCSoundAV.h"
#include "compile/ui/FormWinsound.h"
#include "support/TestMain.h"

using namespace ardiphon;

/// The list of flags as its user has it, in a dialog.
class tst_FlagList : public QObject
{
    Q_OBJECT

private slots:
    void opening_noFile_defaultText();
    void opening_file_selectsTheFirst();
    void opening_fileWithoutFlags_keepsTheDefault();
    void add_text_isLastAndNotSelected();
    void add_empty_nothing();
    void add_again_isReportedAsTheDialogDoes();
    void add_otherCaseOrBlanks_isAnother();
    void remove_selected_keepsTheText();
    void remove_typedText_removesNothing();
    void typing_isNeitherCompletedNorSelected();
    void closing_added_isThereNextTime();
    void closing_typed_isNotKept();
    void closing_emptied_removesTheFile();
    void closing_flagsThatCannotBeWritten_saysWhy();
    void closing_twoKinds_neverMix();
    void help_noManual_saysSo();
    void help_manual_opensAtTheKeyword();
    void keys_enterInPlayerFlags_leadsToPlay();

private:
    static FlagCombo &flags(const ProjectDialog &dialog)
    {
        return *dialog.control<FlagCombo>("Flags");
    }
    static void type(const ProjectDialog &dialog, const QString &text)
    {
        auto *field = flags(dialog).lineEdit();
        field->selectAll();
        if (text.isEmpty())
            QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
};

void tst_FlagList::opening_noFile_defaultText()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-W"));
    QCOMPARE(flags(dialog).count(), 0);
    dialog.open<FormCSoundAVORC>();
    QCOMPARE(flags(dialog).currentText(), QString());
    QCOMPARE(flags(dialog).count(), 0);
}

void tst_FlagList::opening_file_selectsTheFirst()
{
    ProjectDialog dialog;
    QVERIFY(writeFlagFile(dialog.path("own/CSFlags.dat"), FlagLayout::Tagged, {"-A", "-d -m7"}));
    QVERIFY(writeFlagFile(dialog.path("own/DSFlags.dat"), FlagLayout::Padded, {"", "-a"}));
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).items(), QStringList({"-A", "-d -m7"}));
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-A"));
    dialog.open<FormCSoundAVORC>();
    QCOMPARE(flags(dialog).items(), QStringList({"", "-a"}));
    QCOMPARE(flags(dialog).currentText(), QString());
}

void tst_FlagList::opening_fileWithoutFlags_keepsTheDefault()
{
    ProjectDialog dialog;
    dialog.write(QStringLiteral("own/CSFlags.dat"), QByteArray(100, '\0'));
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-W"));
}

void tst_FlagList::add_text_isLastAndNotSelected()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    dialog.click("Command2");
    QCOMPARE(flags(dialog).items(), QStringList{"-W"});
    QCOMPARE(flags(dialog).currentIndex(), -1);
    dialog.click("Command3"); // nothing is selected
    QCOMPARE(flags(dialog).items(), QStringList{"-W"});
    type(dialog, QStringLiteral("-d"));
    dialog.click("Command2");
    QCOMPARE(flags(dialog).items(), QStringList({"-W", "-d"}));
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-d"));
}

void tst_FlagList::add_empty_nothing()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    type(dialog, QString());
    dialog.click("Command2");
    QCOMPARE(flags(dialog).count(), 0);
}

void tst_FlagList::add_again_isReportedAsTheDialogDoes()
{
    ProjectDialog dialog;
    const QString told = QStringLiteral("Flag already inserted!");
    dialog.open<FormWinsound>();
    dialog.click("Command2");
    dialog.dialogs.expect({told, ProgramTitle, MessageIcon::None});
    dialog.click("Command2");
    QCOMPARE(flags(dialog).count(), 1);
    dialog.open<FormCSoundAVORC>();
    type(dialog, QStringLiteral("-a"));
    dialog.click("Command2");
    dialog.dialogs.expect({told, QStringLiteral("Error"), MessageIcon::Information});
    dialog.click("Command2");
    QCOMPARE(flags(dialog).count(), 1);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FlagList::add_otherCaseOrBlanks_isAnother()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    dialog.click("Command2");
    for (const char *flag : {"-w", "-W ", " -W"}) {
        type(dialog, QLatin1String(flag));
        dialog.click("Command2");
    }
    QCOMPARE(flags(dialog).items(), QStringList({"-W", "-w", "-W ", " -W"}));
}

void tst_FlagList::remove_selected_keepsTheText()
{
    ProjectDialog dialog;
    QVERIFY(writeFlagFile(dialog.path("own/CSFlags.dat"), FlagLayout::Tagged, {"-A", "-B", "-C"}));
    dialog.open<FormWinsound>();
    QTest::keyClick(&flags(dialog), Qt::Key_Down);
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-B"));
    dialog.click("Command3");
    QCOMPARE(flags(dialog).items(), QStringList({"-A", "-C"}));
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-B"));
    QCOMPARE(flags(dialog).currentIndex(), -1);
    dialog.click("Command3");
    QCOMPARE(flags(dialog).items(), QStringList({"-A", "-C"}));
}

void tst_FlagList::remove_typedText_removesNothing()
{
    ProjectDialog dialog;
    QVERIFY(writeFlagFile(dialog.path("own/CSFlags.dat"), FlagLayout::Tagged, {"-A", "-B"}));
    dialog.open<FormWinsound>();
    type(dialog, QStringLiteral("-B"));
    QTest::keyClick(flags(dialog).lineEdit(), Qt::Key_Return);
    dialog.click("Command3");
    QCOMPARE(flags(dialog).items(), QStringList({"-A", "-B"}));
}

void tst_FlagList::typing_isNeitherCompletedNorSelected()
{
    ProjectDialog dialog;
    QVERIFY(writeFlagFile(dialog.path("own/CSFlags.dat"), FlagLayout::Tagged, {"-Wave", "-x"}));
    dialog.open<FormWinsound>();
    type(dialog, QStringLiteral("-w"));
    QTest::keyClick(flags(dialog).lineEdit(), Qt::Key_Tab);
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-w"));
    QCOMPARE(flags(dialog).currentIndex(), -1);
    // In the middle of a text the caret stays where it is.
    type(dialog, QStringLiteral("-ac"));
    QTest::keyClick(flags(dialog).lineEdit(), Qt::Key_Left);
    QTest::keyClicks(flags(dialog).lineEdit(), QStringLiteral("b"));
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-abc"));
    QCOMPARE(flags(dialog).lineEdit()->cursorPosition(), 3);
}

void tst_FlagList::closing_added_isThereNextTime()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    dialog.click("Command2");
    dialog.click("Command1");
    QCOMPARE(dialog.read(QStringLiteral("own/CSFlags.dat")),
             QByteArray("\x08\x00\x02\x00-W", 6) + QByteArray(44, '\0'));
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).items(), QStringList{"-W"});
    QCOMPARE(flags(dialog).currentIndex(), 0);
}

void tst_FlagList::closing_typed_isNotKept()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    type(dialog, QStringLiteral("-d"));
    dialog.click("Command1");
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-W"));
    QVERIFY(QDir(dialog.config.ProgramFolder).isEmpty());
}

void tst_FlagList::closing_emptied_removesTheFile()
{
    ProjectDialog dialog;
    QVERIFY(writeFlagFile(dialog.path("own/CSFlags.dat"), FlagLayout::Tagged, {"-A"}));
    dialog.open<FormWinsound>();
    dialog.click("Command3");
    dialog.click("Command1");
    QVERIFY(QDir(dialog.config.ProgramFolder).isEmpty());
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).currentText(), QStringLiteral("-W"));
}

void tst_FlagList::closing_flagsThatCannotBeWritten_saysWhy()
{
    ProjectDialog dialog;
    dialog.open<FormWinsound>();
    dialog.click("Command2");
    QVERIFY(QDir(dialog.config.ProgramFolder).removeRecursively());
    dialog.dialogs.expect(
        {QStringLiteral("The file \"%1\" was not saved: its folder does not exist.")
             .arg(dialog.path("own/CSFlags.dat"))});
    dialog.click("Command1");
    QCOMPARE(dialog.dialogs.verify(), QString());
    QVERIFY(!dialog.form || !dialog.form->isVisible());
}

void tst_FlagList::closing_twoKinds_neverMix()
{
    ProjectDialog dialog;
    dialog.open<FormCSoundAVORC>();
    type(dialog, QStringLiteral("-a"));
    dialog.click("Command2");
    dialog.click("Command1");
    QCOMPARE(dialog.read(QStringLiteral("own/DSFlags.dat")), "-a" + QByteArray(48, ' '));
    dialog.open<FormWinsound>();
    QCOMPARE(flags(dialog).count(), 0);
    dialog.click("Command2");
    dialog.click("Command1");
    dialog.open<FormCSoundAVORC>();
    QCOMPARE(flags(dialog).items(), QStringList{"-a"});
}

void tst_FlagList::help_noManual_saysSo()
{
    ProjectDialog dialog;
    const QString told = QStringLiteral("No File defined for CSound Help\r\n"
                                        "Please set: File->Settings->CSound Help");
    dialog.open<FormWinsound>();
    dialog.expectWarning(told);
    dialog.click("CommandFlags");
    dialog.open<FormCSoundAVORC>();
    dialog.expectWarning(told);
    dialog.click("Command5");
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FlagList::help_manual_opensAtTheKeyword()
{
    ProjectDialog dialog;
    dialog.config.FileGuida =
        dialog.write(QStringLiteral("index.html"),
                     "<html><a href=\"CommandFlags.html\">Csound command line</a></html>");
    dialog.write(QStringLiteral("CommandFlags.html"), "<html></html>");
    dialog.open<FormWinsound>();
    dialog.click("CommandFlags");
    QCOMPARE(dialog.shownPages, QStringList{"CommandFlags.html"});
    dialog.open<FormCSoundAVORC>();
    dialog.click("Command5");
    QCOMPARE(dialog.shownPages, QStringList({"CommandFlags.html", "CommandFlags.html"}));
}

void tst_FlagList::keys_enterInPlayerFlags_leadsToPlay()
{
    ProjectDialog dialog;
    dialog.open<FormCSoundAVORC>();
    for (const auto enter : {Qt::Key_Return, Qt::Key_Enter}) {
        flags(dialog).setFocus();
        QTest::keyClick(flags(dialog).lineEdit(), enter);
        QVERIFY(dialog.control("Compila")->hasFocus());
        QVERIFY(dialog.form->isVisible());
    }
    // In the other dialogs it does nothing.
    dialog.open<FormWinsound>();
    flags(dialog).setFocus();
    QTest::keyClick(flags(dialog).lineEdit(), Qt::Key_Return);
    QVERIFY(flags(dialog).hasFocus());
    QVERIFY(dialog.form->isVisible());
}

ARDIPHON_TEST(tst_FlagList, QApplication)
#include "tst_FlagList.moc"
