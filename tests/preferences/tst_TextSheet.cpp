#include "preferences/SettingsWindow.h"
#include "preferences/ui/FormDefaultFont.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QListView>
#include <QTimer>

using namespace ardiphon;

/// The sheet of the settings for tabs and the default font.
class tst_TextSheet : public QObject, private SettingsWindow
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QString()); }

    void tabSize_isChecked_data();
    void tabSize_isChecked();
    void fontSize_isChecked_data();
    void fontSize_isChecked();
    void fontSize_isShownAsANumber_data();
    void fontSize_isShownAsANumber();
    void default_writesTheSizesAlone();
    void browse_showsTheNewDefaultFont();
};

void tst_TextSheet::tabSize_isChecked_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("passes");

    for (const char *good : {"2", "30", "30.9", " 4 ", "1e1"})
        QTest::newRow(good) << good << true;
    for (const char *bad : {"1", "31", "", "  ", "eight", "-3", "4x", "99999999999999999999"})
        QTest::newRow(bad) << bad << false;
}

void tst_TextSheet::tabSize_isChecked()
{
    QFETCH(QString, text);
    QFETCH(bool, passes);
    m_program->config.TabSize = "5";
    open();
    QCOMPARE(control<QLineEdit>("textTabSize")->text(), "5");
    type("textTabSize", text);
    if (!passes)
        expectError("Tab stop size is invalid!");
    save();
    QCOMPARE(m_window->isVisible(), !passes);
    QCOMPARE(m_program->config.TabSize, passes ? text.trimmed() : QString("5"));
    QCOMPARE(stored(registry::SettingsKey, "TabSize"), passes ? text.trimmed() : QString("(none)"));
    if (!passes)
        QCOMPARE(control<QLineEdit>("textTabSize")->text(), "5");
}

void tst_TextSheet::fontSize_isChecked_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("passes");

    for (const char *good : {"6", "20", "20.5", "12 "})
        QTest::newRow(good) << good << true;
    for (const char *bad : {"5", "21", "5.9", "", "large", "1e9", "12pt"})
        QTest::newRow(bad) << bad << false;
}

void tst_TextSheet::fontSize_isChecked()
{
    QFETCH(QString, text);
    QFETCH(bool, passes);
    m_program->config.DefaultFontSize = "14";
    m_program->config.FontSize = 9;
    open();
    QCOMPARE(control<QLineEdit>("textFontSize")->text(), "14");
    type("textTabSize", "12");
    type("textFontSize", text);
    if (!passes)
        expectError("Font size is invalid!");
    save();
    QCOMPARE(m_window->isVisible(), !passes);
    QCOMPARE(m_program->config.DefaultFontSize, passes ? text.trimmed() : QString("14"));
    QCOMPARE(m_program->config.TabSize, passes ? "12" : "8");
    QCOMPARE(LEDIT1->TabSize(), passes ? 12 : 8);
    QCOMPARE(m_program->config.FontSize, 9); // of the windows that are open
    if (!passes)
        QCOMPARE(control<QLineEdit>("textFontSize")->text(), "14");
}

void tst_TextSheet::fontSize_isShownAsANumber_data()
{
    QTest::addColumn<QString>("setting"); // as the store may hold it
    QTest::addColumn<QString>("shown");

    QTest::newRow("with a unit") << "12pt"
                                 << "12";
    QTest::newRow("blanks") << "  9 "
                            << "9";
    QTest::newRow("part") << "10.5"
                          << "10.5";
    QTest::newRow("many digits") << "12345678"
                                 << "12345678";
    QTest::newRow("word") << "large"
                          << "0";
}

void tst_TextSheet::fontSize_isShownAsANumber()
{
    QFETCH(QString, setting);
    m_program->config.DefaultFontSize = setting;
    open();
    QTEST(control<QLineEdit>("textFontSize")->text(), "shown");
}

void tst_TextSheet::default_writesTheSizesAlone()
{
    m_program->config.DefaultFontName = "Some Font";
    open();
    type("textTabSize", "3");
    click("Command5");
    QCOMPARE(control<QLineEdit>("textTabSize")->text(), "8");
    QCOMPARE(control<QLineEdit>("textFontSize")->text(), "10");
    QCOMPARE(control<QLineEdit>("textFontName")->text(), "Some Font");
    QVERIFY(control<QLineEdit>("textFontName")->isReadOnly());
}

void tst_TextSheet::browse_showsTheNewDefaultFont()
{
    open();
    QString name;
    QTimer::singleShot(0, this, [&name] {
        auto *chooser = qobject_cast<FormDefaultFont *>(QApplication::activeModalWidget());
        require(chooser, "the window does not show");
        auto *list = chooser->findChild<QListView *>("List1");
        name = list->model()->index(0, 0).data().toString();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualRect(list->model()->index(0, 0)).center());
        QTest::mouseClick(chooser->findChild<QPushButton *>("Command2"), Qt::LeftButton);
    });
    click("Command6");
    QVERIFY(!name.isEmpty());
    QCOMPARE(control<QLineEdit>("textFontName")->text(), name);
    QCOMPARE(m_program->config.DefaultFontName, name);
    save();
    QCOMPARE(stored(registry::SettingsKey, "DefaultFontName"), name);
}

ARDIPHON_TEST(tst_TextSheet, QApplication)
#include "tst_TextSheet.moc"
