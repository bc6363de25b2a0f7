// What each form of the analysis tools has of its own; PVLOOK has a test program to itself.

#include "analysis/ShownForm.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QAbstractItemView>

using namespace ardiphon;

namespace {

void choose(const ShownForm &form, int item)
{
    auto *const combo = form.control<QComboBox>(QStringLiteral("Combo1"));
    combo->setFocus();
    QTest::keyClick(combo, item ? Qt::Key_Down : Qt::Key_Up);
    require(combo->currentIndex() == item, "the item is not chosen");
}

/// Chooses the item that is chosen already.
void chooseAgain(const ShownForm &form)
{
    auto *const combo = form.control<QComboBox>(QStringLiteral("Combo1"));
    combo->showPopup();
    QTest::keyClick(combo->view(), Qt::Key_Return);
}

} // namespace

class tst_ToolForms : public QObject
{
    Q_OBJECT

private slots:
    void lpanal_comment_takesLetters();
    void lpanal_options_areWritten();
    void lpanal_revert();

    void pvanal_formats_chooseTheSuffix();
    void pvanal_formatClickedAgain_writesTheNameAgain();
    void pvanal_formatByArrowKey_writesTheName();
    void pvanal_comboWritesItsDefault();
    void combo_itemChosenAgain_writesItsDefault();
    void pvanal_text_isProposedAndKept();
    void pvanal_checks_enableTheirFields();
    void pvanal_revert_keepsFormatAndItem();

    void cvanal_odd_channels();
    void cvanal_hasNoMoreFlags();

    void dnoise_withoutFiles_startsAllTheSame();
    void dnoise_browseForNoise_leavesTheOutput();
    void dnoise_emptyField_staysEmpty();
    void dnoise_run_showsItsLine();
    void dnoise_line_isShownBeforeTheStart();
    void dnoise_line_isNotShownWithoutAStart();
    void dnoise_runWithMoreFlags_takesTheLineAlong();
    void dnoise_freeTexts_takeLetters();
    void dnoise_revertByKey_leavesTheFocus();
    void dnoise_revert_keepsMoreFlagsChecked();
    void dnoise_options_areWritten();
};

// LPANAL. -----------------------------------------------------------------------------------------

void tst_ToolForms::lpanal_comment_takesLetters()
{
    ShownForm form(LPAnal);
    form.browse(QStringLiteral("a.wav"));
    form.type(4, QStringLiteral("two words"));
    form.type(0, QStringLiteral("x1"));
    QCOMPARE(form.field(0)->text(), QStringLiteral("1"));
    QCOMPARE(form.analyze(), QStringLiteral("-U lpanal -b1 -d0.0 -p34 -h200 -c1 -P70 -Q200 -v0 "
                                            "-Ctwo words \"a.wav\" \"a.lp\""));
    form.type(4, QString());
    QTest::keyClick(form.field(4), Qt::Key_Tab);
    QCOMPARE(form.field(4)->text(), QString());
}

void tst_ToolForms::lpanal_options_areWritten()
{
    ShownForm form(LPAnal);
    form.browse(QStringLiteral("a.wav"));
    form.tick("CheckGraphic");
    form.tick("CheckPoles");
    choose(form, 1);
    form.type(6, QStringLiteral("0"));
    QCOMPARE(form.analyze(), QStringLiteral("-U lpanal -b0.0 -d0.0 -p34 -h200 -c1 -P0 -Q200 -v1 "
                                            "-g -a \"a.wav\" \"a.lp\""));
}

void tst_ToolForms::lpanal_revert()
{
    ShownForm form(LPAnal);
    form.browse(QStringLiteral("a.wav"));
    const QString before = form.analyze();
    choose(form, 1);
    form.type(4, QStringLiteral("c"));
    form.tick("CheckGraphic");
    form.tick("CheckPoles");
    form.click("CommandRevert");
    QCOMPARE(form.analyze(), before);
}

// PVANAL. -----------------------------------------------------------------------------------------

void tst_ToolForms::pvanal_formats_chooseTheSuffix()
{
    ShownForm form(PVAnal);
    QVERIFY(form.button("OptionPV")->isChecked());
    form.type(form.text("TextOutput"), QStringLiteral("mine"));
    form.tick("OptionPVX");
    QCOMPARE(form.text("TextOutput")->text(), QStringLiteral("mine"));
    form.browse(QStringLiteral("/s/a.wav"));
    QCOMPARE(form.text("TextOutput")->text(), QStringLiteral("/s/a.pvx"));
    form.type(form.text("TextOutput"), QStringLiteral("mine"));
    form.tick("OptionPV");
    QCOMPARE(form.text("TextOutput")->text(), QStringLiteral("/s/a.pv"));
    QCOMPARE(form.analyze(), QStringLiteral("-U pvanal -b0.0 -d0.0 -c1 -n256 -w4 \"/s/a.wav\" "
                                            "\"/s/a.pv\""));
}

void tst_ToolForms::pvanal_formatClickedAgain_writesTheNameAgain()
{
    ShownForm form(PVAnal);
    form.browse(QStringLiteral("/s/a.wav"));
    form.type(form.text("TextOutput"), QStringLiteral("mine"));
    form.tick("OptionPV");
    QCOMPARE(form.text("TextOutput")->text(), QStringLiteral("/s/a.pv"));
}

void tst_ToolForms::pvanal_formatByArrowKey_writesTheName()
{
    ShownForm form(PVAnal);
    form.browse(QStringLiteral("/s/a.wav"));
    form.button("OptionPV")->setFocus();
    QTest::keyClick(form.button("OptionPV"), Qt::Key_Right);
    QVERIFY(form.button("OptionPVX")->isChecked());
    QCOMPARE(form.text("TextOutput")->text(), QStringLiteral("/s/a.pvx"));
}

void tst_ToolForms::combo_itemChosenAgain_writesItsDefault()
{
    for (const auto &[tool, field, text] : {std::tuple(&PVAnal, 4, "4"), {&DNoise, 1, "-1"}}) {
        ShownForm form(*tool);
        form.type(field, QStringLiteral("9"));
        chooseAgain(form);
        QCOMPARE(form.field(field)->text(), QLatin1String(text));
    }
}

void tst_ToolForms::pvanal_comboWritesItsDefault()
{
    ShownForm form(PVAnal);
    form.browse(QStringLiteral("a.wav"));
    choose(form, 1);
    QCOMPARE(form.field(4)->text(), QStringLiteral("200"));
    QVERIFY(form.analyze().contains(QStringLiteral(" -n256 -h200 \"")));
    form.type(4, QString());
    QTest::keyClick(form.field(4), Qt::Key_Tab);
    QCOMPARE(form.field(4)->text(), QStringLiteral("200"));
    form.type(4, QStringLiteral("99"));
    choose(form, 0);
    QCOMPARE(form.field(4)->text(), QStringLiteral("4"));
    form.type(4, QString());
    QTest::keyClick(form.field(4), Qt::Key_Tab);
    QCOMPARE(form.field(4)->text(), QStringLiteral("4"));
}

void tst_ToolForms::pvanal_text_isProposedAndKept()
{
    ShownForm form(PVAnal);
    form.tick("CheckText");
    form.browse(QStringLiteral("/s/a.wav"));
    QCOMPARE(form.field(7)->text(), QStringLiteral("/s/a.txt"));
    form.type(7, QStringLiteral("mine"));
    form.tick("OptionPVX");
    QCOMPARE(form.field(7)->text(), QStringLiteral("mine"));
    form.browse(QStringLiteral("/s/a.wav"));
    form.tick("CheckText");
    QVERIFY(!form.analyze().contains(QStringLiteral("-V")));
    form.tick("CheckText");
    QVERIFY(form.analyze().contains(QStringLiteral(" -w4 -V/s/a.txt \"")));
    form.type(7, QStringLiteral("any Text"));
    QCOMPARE(form.field(7)->text(), QStringLiteral("any Text"));
    form.type(7, QString());
    QVERIFY(!form.analyze().contains(QStringLiteral("-V")));
    QCOMPARE(form.field(7)->text(), QString());
}

void tst_ToolForms::pvanal_checks_enableTheirFields()
{
    ShownForm form(PVAnal);
    form.browse(QStringLiteral("a.wav"));
    for (const auto &[box, field] : {std::pair("CheckLatch", 6), std::pair("CheckText", 7)}) {
        QVERIFY(!form.field(field)->isEnabled());
        form.tick(box);
        QVERIFY(form.field(field)->isEnabled());
        form.tick(box);
        QVERIFY(!form.field(field)->isEnabled());
    }
    for (const char *box : {"CheckLatch", "CheckGraphic", "CheckVerbose"})
        form.tick(box);
    QVERIFY(form.analyze().contains(QStringLiteral(" -w4 -G200 -g -v \"")));
}

void tst_ToolForms::pvanal_revert_keepsFormatAndItem()
{
    ShownForm form(PVAnal);
    form.browse(QStringLiteral("a.wav"));
    form.tick("OptionPVX");
    choose(form, 1);
    form.type(4, QStringLiteral("99"));
    form.tick("CheckText");
    form.click("CommandRevert");
    QVERIFY(form.button("OptionPVX")->isChecked());
    QCOMPARE(form.control<QComboBox>("Combo1")->currentIndex(), 1);
    QCOMPARE(form.fieldTexts(8),
             QStringList({"0.0", "0.0", "1", "256", "200", "10000", "200", ""}));
    QVERIFY(!form.field(7)->isEnabled());
}

// CVANAL. -----------------------------------------------------------------------------------------

void tst_ToolForms::cvanal_odd_channels()
{
    ShownForm form(CVAnal);
    form.browse(QStringLiteral("a.wav"));
    const QString plain = QStringLiteral("-U cvanal -b0.0 -d0.0 \"a.wav\" \"a.cv\"");
    QCOMPARE(form.analyze(), plain);
    form.type(2, QStringLiteral("-"));
    QCOMPARE(form.analyze(), plain);
    form.type(2, QStringLiteral("-1"));
    QCOMPARE(form.analyze(), QStringLiteral("-U cvanal -b0.0 -d0.0 -c-1 \"a.wav\" \"a.cv\""));
}

void tst_ToolForms::cvanal_hasNoMoreFlags()
{
    for (const AnalysisTool *tool : {&CVAnal, &PVLook}) {
        const ShownForm form(*tool);
        QVERIFY(!form.form->findChild<QWidget *>(QStringLiteral("CheckMoreFlags")));
        QVERIFY(!form.form->findChild<QWidget *>(QStringLiteral("TextMoreFlags")));
    }
    QVERIFY(!ShownForm(PVLook).form->findChild<QWidget *>(QStringLiteral("TextOutput")));
}

// DNOISE. -----------------------------------------------------------------------------------------

void tst_ToolForms::dnoise_withoutFiles_startsAllTheSame()
{
    ShownForm form(DNoise);
    QCOMPARE(form.analyze(),
             QStringLiteral("-U dnoise -N1024 -L0 -D0 -b0.0 -B0 -e0.0 -E0 -t30 -S1 -n5 -m-40 -w-1 "
                            "-W -i\"\" -o\"\" \"\""));
    form.program.config.FileCSound.clear();
    form.program.dialogs.expect({.text = QStringLiteral("Cannot find CSound.exe!\r\nSelect "
                                                        "File->Settings->Csound.exe!")});
    QCOMPARE(form.analyze(), QString());
    QCOMPARE(form.program.dialogs.verify(), QString());
}

void tst_ToolForms::dnoise_browseForNoise_leavesTheOutput()
{
    ShownForm form(DNoise);
    form.browse(QStringLiteral("a.wav"));
    form.browse(QStringLiteral("n.wav"), "Command2");
    QCOMPARE(form.label("LabelInput"), QStringLiteral("a.wav"));
    QCOMPARE(form.label("LabelNoise"), QStringLiteral("n.wav"));
    QCOMPARE(form.text("TextOutput")->text(), QStringLiteral("a.den"));
    QVERIFY(form.analyze().endsWith(QStringLiteral(" -W -i\"n.wav\" -o\"a.den\" \"a.wav\"")));
    form.browse(std::nullopt, "Command2");
    QCOMPARE(form.label("LabelNoise"), QStringLiteral("n.wav"));
}

void tst_ToolForms::dnoise_emptyField_staysEmpty()
{
    ShownForm form(DNoise);
    form.type(8, QString());
    QTest::keyClick(form.field(8), Qt::Key_Tab);
    QCOMPARE(form.field(8)->text(), QString());
    QVERIFY(form.analyze().contains(QStringLiteral(" -E0 -t -S1 ")));
    form.type(8, QStringLiteral("a1"));
    QCOMPARE(form.field(8)->text(), QStringLiteral("1"));
}

void tst_ToolForms::dnoise_run_showsItsLine()
{
    ShownForm form(DNoise);
    form.browse(QStringLiteral("a.wav"));
    const QString parameters = form.analyze();
    QCOMPARE(form.text("TextMoreFlags")->text(), parameters);
    QVERIFY(!form.text("TextMoreFlags")->isEnabled());
    QCOMPARE(form.analyze(), parameters);
}

void tst_ToolForms::dnoise_line_isShownBeforeTheStart()
{
    ShownForm form(DNoise);
    QString shown;
    form.passOn = [&](auto...) { shown = form.text("TextMoreFlags")->text(); };
    QCOMPARE(form.analyze(), shown);
    QVERIFY(!shown.isEmpty());
}

void tst_ToolForms::dnoise_line_isNotShownWithoutAStart()
{
    ShownForm form(DNoise);
    form.program.config.FileCSound.clear();
    form.program.dialogs.expect({.text = QStringLiteral("Cannot find CSound.exe!\r\nSelect "
                                                        "File->Settings->Csound.exe!")});
    form.click("CommandAnalyze");
    QCOMPARE(form.text("TextMoreFlags")->text(), QString());
}

void tst_ToolForms::dnoise_freeTexts_takeLetters()
{
    ShownForm form(DNoise);
    form.tick("CheckHeartbeat");
    for (const char *name : {"TextHeartbeat", "TextSoundfileFlags"}) {
        form.type(form.text(name), QStringLiteral("+a b"));
        QCOMPARE(form.text(name)->text(), QStringLiteral("+a b"));
        form.type(form.text(name), QString());
        QTest::keyClick(form.text(name), Qt::Key_Tab);
        QCOMPARE(form.text(name)->text(), QString());
    }
}

void tst_ToolForms::dnoise_revertByKey_leavesTheFocus()
{
    ShownForm form(DNoise);
    form.tick("CheckMoreFlags");
    form.type(form.text("TextMoreFlags"), QStringLiteral("-x"));
    QTest::keyClick(form.text("TextMoreFlags"), Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(form.text("TextMoreFlags")->text(), QString());
    QVERIFY(form.text("TextMoreFlags")->hasFocus());
}

void tst_ToolForms::dnoise_runWithMoreFlags_takesTheLineAlong()
{
    ShownForm form(DNoise);
    form.tick("CheckMoreFlags");
    const QString first = form.analyze();
    const QString files = QStringLiteral(" -i\"\" -o\"\" \"\"");
    QCOMPARE(form.analyze(), first.chopped(files.size()) + u' ' + first + files);
}

void tst_ToolForms::dnoise_revert_keepsMoreFlagsChecked()
{
    ShownForm form(DNoise);
    const QString before = form.analyze();
    for (const char *box : {"CheckMoreFlags", "CheckRewrite", "CheckHeartbeat", "CheckVerbose"})
        form.tick(box);
    form.tick("OptionIRCAM");
    choose(form, 1);
    form.type(form.text("TextHeartbeat"), QStringLiteral("x"));
    form.type(form.text("TextSoundfileFlags"), QStringLiteral("-3"));
    form.click("CommandRevert");
    QVERIFY(form.button("CheckMoreFlags")->isChecked());
    QVERIFY(form.text("TextMoreFlags")->isEnabled());
    QCOMPARE(form.text("TextMoreFlags")->text(), QString());
    QCOMPARE(form.text("TextHeartbeat")->text(), QStringLiteral("1"));
    QVERIFY(!form.text("TextHeartbeat")->isEnabled());
    QCOMPARE(form.control<QComboBox>("Combo1")->currentIndex(), 0);
    QCOMPARE(form.analyze(), before);
}

void tst_ToolForms::dnoise_options_areWritten()
{
    ShownForm form(DNoise);
    choose(form, 1);
    QCOMPARE(form.field(1)->text(), QStringLiteral("0"));
    form.tick("OptionAIFF");
    for (const char *box : {"CheckRewrite", "CheckHeartbeat", "CheckVerbose"})
        form.tick(box);
    QVERIFY(form.text("TextHeartbeat")->isEnabled());
    form.type(form.text("TextSoundfileFlags"), QStringLiteral(" -3 "));
    QVERIFY(form.analyze().contains(QStringLiteral(" -m-40 -M0 -A -3 -R -H1 -V -i\"")));
    form.click("CommandRevert");
    form.tick("OptionIRCAM");
    QVERIFY(form.analyze().contains(QStringLiteral(" -w-1 -J -i\"")));
}

ARDIPHON_TEST(tst_ToolForms, QApplication)
#include "tst_ToolForms.moc"
