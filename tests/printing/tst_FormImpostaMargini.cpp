#include "printing/ui/FormImpostaMargini.h"

#include "app/ConfigurationBlock.h"
#include "support/ScriptedDialogs.h"
#include "support/TestMain.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace ardiphon;

/// The window of the print margins.
class tst_FormImpostaMargini : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void window_showsTheMargins();
    void ok_takesTheFields();
    void ok_roundsAndBounds_data();
    void ok_roundsAndBounds();
    void ok_reportsEveryFailedTest();
    void ok_failed_keepsTheTextsAndTheWindow();
    void cancel_setsTheMarginsBack_data();
    void cancel_setsTheMarginsBack();
    void default_setsTenAtOnceAndStays();
    void enter_isOk();

private:
    QLineEdit *field(const char *name) const
    {
        return m_form->findChild<QLineEdit *>(QLatin1String(name));
    }
    void type(const char *name, const QString &text)
    {
        field(name)->selectAll();
        QTest::keyClick(field(name), Qt::Key_Delete);
        QTest::keyClicks(field(name), text);
    }
    void click(const char *button)
    {
        QTest::mouseClick(m_form->findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
    }
    QString texts() const
    {
        return QStringLiteral("%1 %2 %3 %4")
            .arg(field("txtSinistro")->text(), field("txtDestro")->text(),
                 field("txtSuperiore")->text(), field("txtInferiore")->text());
    }
    QString margins() const
    {
        return QStringLiteral("%1 %2 %3 %4")
            .arg(m_config.MarginLeft)
            .arg(m_config.MarginRight)
            .arg(m_config.MarginTop)
            .arg(m_config.MarginBottom);
    }
    void expect(const char *which)
    {
        m_dialogs->expect({QStringLiteral("Invalid %1 margin!").arg(QLatin1String(which)),
                           QStringLiteral("Errore"), MessageIcon::Exclamation, MessageButtons::Ok});
    }

    ConfigurationBlock m_config;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    QPointer<FormImpostaMargini> m_form;
};

void tst_FormImpostaMargini::init()
{
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_config.MarginLeft = 1;
    m_config.MarginRight = 2;
    m_config.MarginTop = 3;
    m_config.MarginBottom = 4;
    m_form = new FormImpostaMargini(m_config, *m_dialogs, nullptr);
    m_form->show();
    QVERIFY(QTest::qWaitForWindowActive(m_form));
}

void tst_FormImpostaMargini::cleanup()
{
    delete m_form;
    QCOMPARE(m_dialogs->verify(), QString());
}

void tst_FormImpostaMargini::window_showsTheMargins()
{
    QCOMPARE(m_form->objectName(), QStringLiteral("FormImpostaMargini"));
    QCOMPARE(m_form->windowTitle(), QStringLiteral("Print margins"));
    QVERIFY(m_form->isModal());
    QCOMPARE(m_form->findChild<QGroupBox *>()->title(),
             QStringLiteral("Set Print Margins (mm - Min 0 / Max 100)"));
    QCOMPARE(texts(), QStringLiteral("1 2 3 4"));
    QStringList labels;
    for (const QLabel *label : m_form->findChildren<QLabel *>())
        labels.append(qobject_cast<QLineEdit *>(label->buddy())->objectName() + label->text());
    QCOMPARE(
        labels.join(u' '),
        QStringLiteral("txtSinistroLeft: txtDestroRight: txtSuperioreTop: txtInferioreBottom:"));
    const std::pair<const char *, const char *> captions[] = {
        {"Command1", "&OK"}, {"Command2", "C&ancel"}, {"Command3", "&Default"}};
    for (const auto &[name, caption] : captions)
        QCOMPARE(m_form->findChild<QPushButton *>(QLatin1String(name))->text(),
                 QLatin1String(caption));
}

void tst_FormImpostaMargini::ok_takesTheFields()
{
    type("txtSinistro", QStringLiteral("0"));
    type("txtDestro", QStringLiteral(" 100 "));
    type("txtSuperiore", QStringLiteral("12.6"));
    type("txtInferiore", QStringLiteral("2e1"));
    click("Command1");
    QVERIFY(!m_form->isVisible());
    QCOMPARE(margins(), QStringLiteral("0 100 13 20"));
}

void tst_FormImpostaMargini::ok_roundsAndBounds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("boxes");
    QTest::addColumn<long>("margin");
    QTest::newRow("0") << "0" << 0 << 0L;
    QTest::newRow("-0") << "-0" << 0 << 0L;
    QTest::newRow("100") << "100" << 0 << 100L;
    QTest::newRow("100.4") << "100.4" << 1 << 1L;
    QTest::newRow("-0.4") << "-0.4" << 1 << 1L;
    QTest::newRow("0.4") << "0.4" << 0 << 0L;
    QTest::newRow("12.6") << "12.6" << 0 << 13L;
    QTest::newRow("a half goes to the even one") << "12.5" << 0 << 12L;
    QTest::newRow("99.9") << "99.9" << 0 << 100L;
    QTest::newRow("plus") << "+7" << 0 << 7L;
    QTest::newRow("point first") << ".9" << 0 << 1L;
    QTest::newRow("empty") << "" << 1 << 1L;
    QTest::newRow("blanks") << "   " << 1 << 1L;
    QTest::newRow("word") << "ten" << 1 << 1L;
    QTest::newRow("unit") << "10mm" << 1 << 1L;
    QTest::newRow("comma") << "12,5" << 1 << 1L;
    QTest::newRow("no number and too large") << "200x" << 2 << 1L;
    QTest::newRow("no number and too small") << "-5x" << 2 << 1L;
    QTest::newRow("without end") << "1e999" << 1 << 1L;
    QTest::newRow("nan") << "nan" << 1 << 1L;
    QTest::newRow("two points") << "1.2.3" << 1 << 1L;
}

void tst_FormImpostaMargini::ok_roundsAndBounds()
{
    QFETCH(QString, text);
    QFETCH(int, boxes);
    for (int i = 0; i < boxes; ++i)
        expect("left");
    type("txtSinistro", text);
    click("Command1");
    QCOMPARE(m_form->isVisible(), boxes > 0);
    QTEST(m_config.MarginLeft, "margin");
    QCOMPARE(m_config.MarginRight, 2L);
}

void tst_FormImpostaMargini::ok_reportsEveryFailedTest()
{
    for (const char *which : {"left", "right", "top", "bottom"})
        expect(which);
    for (const char *which : {"left", "right", "top", "bottom"})
        expect(which);
    type("txtSinistro", QStringLiteral("101x"));
    type("txtDestro", QStringLiteral("-1x"));
    type("txtSuperiore", QStringLiteral("500-"));
    type("txtInferiore", QStringLiteral("-.5."));
    click("Command1");
    QCOMPARE(margins(), QStringLiteral("1 2 3 4"));
}

void tst_FormImpostaMargini::ok_failed_keepsTheTextsAndTheWindow()
{
    expect("bottom");
    expect("right");
    type("txtSinistro", QStringLiteral("50"));
    type("txtDestro", QStringLiteral("101"));
    type("txtInferiore", QStringLiteral("x"));
    click("Command1");
    QVERIFY(m_form->isVisible());
    QCOMPARE(texts(), QStringLiteral("50 101 3 x"));
    QCOMPARE(margins(), QStringLiteral("1 2 3 4")); // not even the good one is taken
    type("txtDestro", QStringLiteral("6"));
    type("txtInferiore", QStringLiteral("7"));
    click("Command1");
    QVERIFY(!m_form->isVisible());
    QCOMPARE(margins(), QStringLiteral("50 6 3 7"));
}

void tst_FormImpostaMargini::cancel_setsTheMarginsBack_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char *way : {"Command2", "Esc", "close"})
        QTest::newRow(way) << QByteArray(way);
}

void tst_FormImpostaMargini::cancel_setsTheMarginsBack()
{
    QFETCH(QByteArray, way);
    type("txtSinistro", QStringLiteral("50"));
    click("Command3");
    QCOMPARE(margins(), QStringLiteral("10 10 10 10"));
    if (way == "Esc")
        QTest::keyClick(m_form, Qt::Key_Escape);
    else if (way == "close")
        m_form->close();
    else
        click(way.constData());
    QVERIFY(!m_form->isVisible());
    QCOMPARE(margins(), QStringLiteral("1 2 3 4"));
}

void tst_FormImpostaMargini::default_setsTenAtOnceAndStays()
{
    click("Command3");
    QVERIFY(m_form->isVisible());
    QCOMPARE(margins(), QStringLiteral("10 10 10 10"));
    QCOMPARE(texts(), QStringLiteral("10 10 10 10"));
    click("Command1");
    QCOMPARE(margins(), QStringLiteral("10 10 10 10"));
}

void tst_FormImpostaMargini::enter_isOk()
{
    type("txtSinistro", QStringLiteral("8"));
    QTest::keyClick(field("txtSinistro"), Qt::Key_Return);
    QVERIFY(!m_form->isVisible());
    QCOMPARE(m_config.MarginLeft, 8L);
}

ARDIPHON_TEST(tst_FormImpostaMargini, QApplication)
#include "tst_FormImpostaMargini.moc"
