#include "app/ConfigurationBlock.h"
#include "start/StartRules.h"
#include "start/ui/FormNew.h"
#include "start/ui/PictureButton.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace ardiphon;

class tst_FormNew : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void load_clearsTheChoice();
    void window_isModalOverItsOwnerWithoutFrame();
    void pictures_haveNamesAndTooltip();
    void picture_released_choosesAndCloses_data();
    void picture_released_choosesAndCloses();
    void picture_releasedElsewhere_choosesToo();
    void picChiudi_clicked_cancels();
    void picChiudi_releasedElsewhere_staysOpen();
    void keys_aloneOrWithAlt_data();
    void keys_aloneOrWithAlt();
    void escape_cancels();
    void hover_lightsOnePictureAtATime();
    void choose_waitsForTheChoice();

private:
    PictureButton *picture(const char *name) const
    {
        return m_form->findChild<PictureButton *>(QString::fromLatin1(name));
    }
    void open();

    std::unique_ptr<QWidget> m_owner;
    ConfigurationBlock m_config;
    std::unique_ptr<FormNew> m_form;
};

void tst_FormNew::init()
{
    m_form.reset();
    m_owner = std::make_unique<QWidget>();
    m_owner->setGeometry(300, 300, 10, 10); // so small that it lies under none of the pictures
    m_owner->show();
    m_config.NewDocumentChoice = "old";
    open();
}

void tst_FormNew::open()
{
    m_form = std::make_unique<FormNew>(m_config, m_owner.get());
    m_form->show();
    require(QTest::qWaitForWindowExposed(m_form.get()), "the window does not show");
}

void tst_FormNew::load_clearsTheChoice() { QCOMPARE(m_config.NewDocumentChoice, ""); }

void tst_FormNew::window_isModalOverItsOwnerWithoutFrame()
{
    QCOMPARE(m_form->objectName(), "FormNew");
    QVERIFY(m_form->isModal());
    QCOMPARE(m_form->parentWidget(), m_owner.get());
    QVERIFY(m_form->windowFlags().testFlag(Qt::FramelessWindowHint));
    const QPoint middle = m_owner->frameGeometry().center();
    QVERIFY((m_form->geometry().center() - middle).manhattanLength() <= 2);
}

void tst_FormNew::pictures_haveNamesAndTooltip()
{
    QCOMPARE(picture("picCSD")->accessibleName(), "CSD");
    QCOMPARE(picture("picORCSCO")->accessibleName(), "ORC/SCO");
    QCOMPARE(picture("picChiudi")->toolTip(), "Exit");
    QVERIFY(!picture("picInfo"));
}

void tst_FormNew::picture_released_choosesAndCloses_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("choice");

    QTest::newRow("picCSD") << QByteArray("picCSD") << "NEWCSD";
    QTest::newRow("picORCSCO") << QByteArray("picORCSCO") << "NEWORCSCO";
}

void tst_FormNew::picture_released_choosesAndCloses()
{
    QFETCH(QByteArray, name);
    QTest::mousePress(picture(name.constData()), Qt::LeftButton);
    QVERIFY(m_form->isVisible());
    QTest::mouseRelease(picture(name.constData()), Qt::LeftButton);
    QTEST(m_config.NewDocumentChoice, "choice");
    QVERIFY(!m_form->isVisible());
}

void tst_FormNew::picture_releasedElsewhere_choosesToo()
{
    QTest::mousePress(picture("picORCSCO"), Qt::LeftButton);
    QTest::mouseRelease(picture("picORCSCO"), Qt::LeftButton, {}, QPoint(-500, -500));
    QCOMPARE(m_config.NewDocumentChoice, "NEWORCSCO");
}

void tst_FormNew::picChiudi_clicked_cancels()
{
    QTest::mouseClick(picture("picChiudi"), Qt::LeftButton);
    QVERIFY(!m_form->isVisible());
    QCOMPARE(m_config.NewDocumentChoice, "");
}

void tst_FormNew::picChiudi_releasedElsewhere_staysOpen()
{
    QTest::mousePress(picture("picChiudi"), Qt::LeftButton);
    QTest::mouseRelease(picture("picChiudi"), Qt::LeftButton, {}, QPoint(-500, -500));
    QVERIFY(m_form->isVisible());
}

void tst_FormNew::keys_aloneOrWithAlt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("choice");

    const auto row = [](const char *name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                        const char *choice) {
        QTest::newRow(name) << key << modifiers << QString(choice);
    };
    row("C", Qt::Key_C, Qt::NoModifier, "NEWCSD");
    row("Alt C", Qt::Key_C, Qt::AltModifier, "NEWCSD");
    row("Shift C", Qt::Key_C, Qt::ShiftModifier, "");
    row("Ctrl C", Qt::Key_C, Qt::ControlModifier, "");
    row("O", Qt::Key_O, Qt::NoModifier, "NEWORCSCO");
    row("Alt O", Qt::Key_O, Qt::AltModifier, "NEWORCSCO");
    row("Ctrl Alt O", Qt::Key_O, Qt::ControlModifier | Qt::AltModifier, "");
    row("1", Qt::Key_1, Qt::NoModifier, "");
    row("B", Qt::Key_B, Qt::NoModifier, "");
    row("Return", Qt::Key_Return, Qt::NoModifier, "");
}

void tst_FormNew::keys_aloneOrWithAlt()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, choice);
    QTest::keyClick(m_form.get(), key, modifiers);
    QCOMPARE(m_config.NewDocumentChoice, choice);
    QCOMPARE(m_form->isVisible(), choice.isEmpty());
}

void tst_FormNew::escape_cancels()
{
    QTest::keyClick(m_form.get(), Qt::Key_Escape);
    QVERIFY(!m_form->isVisible());
    QCOMPARE(m_config.NewDocumentChoice, "");
}

void tst_FormNew::hover_lightsOnePictureAtATime()
{
    QTest::mouseMove(picture("picCSD"));
    QCOMPARE(picture("picCSD")->state(), PictureState::Color);
    QTest::mouseMove(picture("picORCSCO"));
    QCOMPARE(picture("picCSD")->state(), PictureState::Gray);
    QCOMPARE(picture("picORCSCO")->state(), PictureState::Color);
    QTest::mouseMove(m_form.get(), QPoint(3, m_form->height() - 3));
    QCOMPARE(picture("picORCSCO")->state(), PictureState::Gray);
}

void tst_FormNew::choose_waitsForTheChoice()
{
    m_form.reset();
    m_config.NewDocumentChoice = "old";
    QTimer::singleShot(0, this, [] {
        QWidget *const chooser = QApplication::activeModalWidget();
        require(chooser, "the window does not show");
        QTest::keyClick(chooser, Qt::Key_O);
    });
    QCOMPARE(FormNew::choose(m_config, m_owner.get()), "NEWORCSCO");
    QCOMPARE(m_config.NewDocumentChoice, "NEWORCSCO");
}

ARDIPHON_TEST(tst_FormNew, QApplication)
#include "tst_FormNew.moc"
