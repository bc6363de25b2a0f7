#include "app/StudioSettings.h"
#include "preferences/SettingsWindow.h"
#include "support/TestMain.h"

#include <QGroupBox>
#include <QLabel>
#include <QWindow>

using namespace ardiphon;

/// The settings' sheet "Studio".
class tst_StudioSheet : public QObject, private SettingsWindow
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QString()); }

    void sheet_isTheLast_withItsTexts();
    void sheet_leavesTheWindowsSize();
    void check_showsTheSetting_data();
    void check_showsTheSetting();
    void checks_haveTheirOwnDefaults_data();
    void checks_haveTheirOwnDefaults();
    void check_click_countsAtOnceInBothViews_data();
    void check_click_countsAtOnceInBothViews();
    void check_space_countsToo();
    void save_writesIt();
    void escape_keepsItForTheRunAlone();

private:
    QCheckBox *check() const { return control<QCheckBox>("CheckColoursByMeaning"); }
    /// Draws all text on that back while the setting is on.
    void drawBySetting(LEditOCX &editor, Color back)
    {
        editor.SetLineColors([this, back](int) -> LineReader {
            if (!m_program->config.ColoursByMeaning)
                return nullptr;
            return [back](int, QByteArrayView text) {
                return ColoredRanges{{0, int(text.size()), TokenColors{back, {}}}};
            };
        });
    }
    bool storedNext()
    {
        ConfigurationBlock next;
        SettingsStore fresh(m_program->path("settings.ini"));
        LoadConfiguration(next, fresh);
        return next.ColoursByMeaning;
    }
};

namespace {

const Color SheetRed = Color::rgb(255, 0, 0);
const Color SheetBlue = Color::rgb(0, 0, 120);

} // namespace

void tst_StudioSheet::sheet_isTheLast_withItsTexts()
{
    open();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_U, Qt::AltModifier);
    QTRY_VERIFY(control<QGroupBox>("FrameStudio")->isVisible());
    QCOMPARE(control<QGroupBox>("FrameStudio")->title(), "Studio");
    QCOMPARE(control<QPushButton>("mostraStudio")->text(), "St&udio");
    QCOMPARE(check()->text(), "Colours by meaning");
    QCOMPARE(m_window->focusWidget(), check());
    const int before = control<QPushButton>("mostraDirectory")->geometry().right();
    QVERIFY(control<QPushButton>("mostraStudio")->x() > before);
    QStringList texts;
    for (const auto *label : control<QGroupBox>("FrameStudio")->findChildren<QLabel *>())
        texts.append(label->text());
    QCOMPARE(texts,
             QStringList({"Draws comments, texts of several lines, opcodes of your own, p-fields, "
                          "labels and macros as Csound reads them.",
                          "Tab takes what is proposed. Ctrl+Space asks for it at any time.",
                          "Shows what an opcode takes while you write its arguments.",
                          "Shows what a name is: an opcode, a variable, a table, an instrument.",
                          "Marks the places in view where the same name is meant.",
                          "Indents a new line in an instrument, a condition or a loop."}));
    QStringList captions;
    for (const auto *box : control<QGroupBox>("FrameStudio")->findChildren<QCheckBox *>())
        captions.append(box->text());
    QCOMPARE(captions,
             QStringList({"Colours by meaning", "Propose words while typing",
                          "Show the arguments at the caret", "Explain what the pointer rests on",
                          "Mark the name at the caret everywhere", "Indent by blocks"}));
}

/// The row of the sheets' buttons is as wide as before, and what is below it is where it was.
void tst_StudioSheet::sheet_leavesTheWindowsSize()
{
    open();
    QCOMPARE(m_window->width(), 620);
    QCOMPARE(control<QPushButton>("mostraGeneral")->x(), control<QGroupBox>("FrameDirectory")->x());
    QCOMPARE(control<QPushButton>("mostraStudio")->geometry().right(),
             control<QGroupBox>("FrameDirectory")->geometry().right());
    qInfo("%d %d", control<QGroupBox>("FrameStudio")->minimumSizeHint().height(),
          control<QGroupBox>("FrameColors")->minimumSizeHint().height());
    QCOMPARE_LE(control<QGroupBox>("FrameStudio")->minimumSizeHint().height(),
                control<QGroupBox>("FrameColors")->minimumSizeHint().height());
    for (const char *name : {"mostraGeneral", "mostraAssociation", "mostraText", "mostraColors",
                             "mostraDirectory", "mostraStudio"})
        QVERIFY2(control<QPushButton>(name)->width() >=
                     control<QPushButton>(name)->sizeHint().width(),
                 name);
}

void tst_StudioSheet::check_showsTheSetting_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("on");

    QTest::newRow("nothing") << "" << false;
    QTest::newRow("0") << "0" << false;
    QTest::newRow("1") << "1" << true;
    QTest::newRow("nonsense") << "yes" << false;
}

void tst_StudioSheet::check_showsTheSetting()
{
    QFETCH(QString, text);
    if (!text.isEmpty())
        WriteRegistryString(m_program->settings, registry::StudioKey, "coloursbymeaning", text);
    LoadConfiguration(m_program->config, m_program->settings);
    open();
    QTEST(check()->isChecked(), "on");
}

/// Each has its own value where the store says nothing, and else what it says.
void tst_StudioSheet::checks_haveTheirOwnDefaults_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("atFirst");

    for (const StudioSwitch &each : StudioSwitches) {
        if (QByteArrayView(each.name) == "CheckWhileTyping")
            continue; // a command switches it
        QTest::newRow(each.name) << QString::fromLatin1(each.name) << each.isOnAtFirst;
    }
}

void tst_StudioSheet::checks_haveTheirOwnDefaults()
{
    QFETCH(QString, name);
    QFETCH(bool, atFirst);
    for (const QString &text : {QString(), QStringLiteral("0"), QStringLiteral("1")}) {
        if (!text.isEmpty())
            WriteRegistryString(m_program->settings, registry::StudioKey, name, text);
        LoadConfiguration(m_program->config, m_program->settings);
        open();
        QCOMPARE(control<QCheckBox>(qPrintable("Check" + name))->isChecked(),
                 text.isEmpty() ? atFirst : text == u'1');
        m_window->close();
    }
}

void tst_StudioSheet::check_click_countsAtOnceInBothViews_data()
{
    QTest::addColumn<QString>("caller");

    QTest::newRow("csd") << CsdSettings;
    QTest::newRow("project") << ProjectSettings;
}

void tst_StudioSheet::check_click_countsAtOnceInBothViews()
{
    QFETCH(QString, caller);
    drawBySetting(*LEDIT1, SheetRed);
    drawBySetting(*LEDIT2, SheetBlue);
    open(caller);
    QVERIFY(!shows(*LEDIT1, SheetRed) && !shows(*LEDIT2, SheetBlue));
    click("CheckColoursByMeaning");
    QVERIFY(m_program->config.ColoursByMeaning);
    QVERIFY(shows(*LEDIT1, SheetRed) && shows(*LEDIT2, SheetBlue));
    click("CheckColoursByMeaning");
    QVERIFY(!m_program->config.ColoursByMeaning);
    QVERIFY(!shows(*LEDIT1, SheetRed) && !shows(*LEDIT2, SheetBlue));
    QCOMPARE(stored(registry::StudioKey, "ColoursByMeaning"), "(none)");
}

void tst_StudioSheet::check_space_countsToo()
{
    open();
    turnTo("mostraStudio");
    check()->setFocus();
    QTest::keyClick(check(), Qt::Key_Space);
    QVERIFY(m_program->config.ColoursByMeaning);
}

void tst_StudioSheet::save_writesIt()
{
    open();
    save();
    QCOMPARE(stored(registry::StudioKey, "ColoursByMeaning"), "0");
    open();
    click("CheckColoursByMeaning");
    QVERIFY(!storedNext());
    save();
    QVERIFY(!m_window->isVisible());
    QCOMPARE(stored(registry::StudioKey, "ColoursByMeaning"), "1");
    QVERIFY(storedNext());
}

void tst_StudioSheet::escape_keepsItForTheRunAlone()
{
    open();
    click("CheckColoursByMeaning");
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
    QVERIFY(m_program->config.ColoursByMeaning);
    QVERIFY(!storedNext());
    open();
    QVERIFY(check()->isChecked());
}

ARDIPHON_TEST(tst_StudioSheet, QApplication)
#include "tst_StudioSheet.moc"
