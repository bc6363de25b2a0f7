#include "support/Form1Fixture.h"
#include "support/ShownToolTip.h"
#include "support/TestMain.h"

#include <QDir>
#include <QMouseEvent>
#include <QScreen>
#include <QSignalSpy>

using namespace ardiphon;

/// The start window as a chooser: its looks, its choices and its hover.
class tst_Form1Chooser : public Form1Fixture
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { QCOMPARE(tearDown(), QString()); }

    void window_hasCaptionAndNoFrame();
    void controls_haveCaptionsAndTooltips();
    void picInfo_clicked_showsAbout();
    void recentFiles_showPathsAndDots();
    void recentFile_nameThatIsNoText_opensNothing();
    void longPath_isElidedButWhole();
    void recentFiles_haveTheirPathsAsToolTips();
    void pictures_lookDifferentInEveryState();
    void picCSD_released_opensEmptyCsd();
    void picORCSCO_released_opensEmptyProject();
    void picCSD_releasedOutside_opensToo();
    void picCSD_rightButton_doesNothing();
    void picCSD_spaceKey_opensCsd();
    void label_clicked_opensFile_data();
    void label_clicked_opensFile();
    void label_dots_doNothing();
    void label_releasedElsewhere_doesNothing();
    void keys_aloneOrWithAlt_data();
    void keys_aloneOrWithAlt();
    void picChiudi_clicked_leavesAndClosesOpcodeFile();
    void picChiudi_releasedElsewhere_staysOpen();
    void editorOpened_keepsOpcodeFileOpen();
    void escape_staysOpen();
    void browse_asksWithTitleFilterAndFolder();
    void browse_withoutWorkingDirectory_beginsInCurrentFolder();
    void browse_cancelled_leavesChooser();
    void browse_chosen_opensByEnding_data();
    void browse_chosen_opensByEnding();
    void hover_picture_lightsItAlone();
    void hover_label_lightsItsBackAlone();
    void hover_background_darkensAll();
    void hover_titleStrip_darkensAll();
    void hover_leavingTheWindow_darkensAll();
    void hover_windowMovedFromUnderTheMouse_darkensAll();
    void hover_timerRunsOnlyWhileLit();
    void press_showsPressImageAndFreezesHover();
    void titleStrip_dragged_movesWindow();
};

void tst_Form1Chooser::window_hasCaptionAndNoFrame()
{
    load();
    QCOMPARE(m_form->objectName(), "Form1");
    QCOMPARE(m_form->windowTitle(), "ArdiphonPro Startup");
    QVERIFY(m_form->windowFlags().testFlag(Qt::FramelessWindowHint));
    const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();
    QVERIFY((m_form->geometry().center() - middle).manhattanLength() <= 2);
}

void tst_Form1Chooser::controls_haveCaptionsAndTooltips()
{
    load();
    for (int i = 1; i <= 4; ++i)
        QCOMPARE(m_form->findChild<QLabel *>(QStringLiteral("Label%1").arg(i))->text(),
                 QStringLiteral("&%1").arg(i));
    QCOMPARE(label(4)->text(), "- BROWSE -");
    QCOMPARE(picture("picChiudi")->toolTip(), "Exit Ardiphon");
    QCOMPARE(picture("picInfo")->toolTip(), "Informations");
    for (const char *name : {"picCSD", "picORCSCO", "picChiudi", "picInfo"})
        QVERIFY2(!picture(name)->accessibleName().isEmpty(), name);
    QVERIFY(m_form->findChild<QWidget *>("labelBAR"));
    QCOMPARE(m_form->findChild<QTimer *>("Timer1")->interval(), 10);
}

void tst_Form1Chooser::picInfo_clicked_showsAbout()
{
    load();
    QTest::mouseClick(picture("picInfo"), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList("FormAbout"));
    QVERIFY(m_form->isVisible());
}

void tst_Form1Chooser::recentFile_nameThatIsNoText_opensNothing()
{
    const QString path = QStringLiteral("/somewhere/caf\uFFFD.csd");
    setRecent(1, path);
    load();
    m_dialogs->expect(
        {QStringLiteral("The file \"%1\" cannot be opened: its name is not UTF-8.").arg(path)});
    QTest::mouseClick(label(0), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList());
    QVERIFY(m_form->isVisible());
    QCOMPARE(m_dialogs->verify(), QString());
}

void tst_Form1Chooser::recentFiles_showPathsAndDots()
{
    setRecent(1, "/m/a.csd");
    setRecent(2, "/m/b & c.orc");
    load();
    QCOMPARE(label(0)->text(), "/m/a.csd");
    QCOMPARE(label(1)->text(), "/m/b & c.orc");
    QCOMPARE(label(2)->text(), "...");
    QCOMPARE(label(3)->text(), "...");
    QCOMPARE(m_config->RecentFiles[2], "/m/b & c.orc");
    for (int i = 0; i < 5; ++i)
        QCOMPARE(label(i)->width(), 231);
}

void tst_Form1Chooser::longPath_isElidedButWhole()
{
    load();
    const QSize before = m_form->size();
    const QString path = "/" + QString("folder/").repeated(100) + "a.csd";
    setRecent(1, path);
    load();
    QCOMPARE(label(0)->text(), path);
    QCOMPARE(m_form->size(), before);
}

void tst_Form1Chooser::recentFiles_haveTheirPathsAsToolTips()
{
    const QString path = "/" + QString("folder/").repeated(100) + "a.csd";
    setRecent(1, path);
    setRecent(2, "/m/<b>&amp;</b>.orc");
    load();
    QCOMPARE(readToolTip(label(0)->toolTip()), path);
    QCOMPARE(readToolTip(label(1)->toolTip()), "/m/<b>&amp;</b>.orc");
    for (const int empty : {2, 3, 4})
        QCOMPARE(label(empty)->toolTip(), QString());
}

void tst_Form1Chooser::pictures_lookDifferentInEveryState()
{
    load();
    for (PictureButton *const each : m_form->findChildren<PictureButton *>()) {
        QList<QImage> looks;
        for (const auto state : {PictureState::Gray, PictureState::Color, PictureState::Press}) {
            each->setState(state);
            const QImage look = each->grab().toImage();
            QVERIFY2(!looks.contains(look), qPrintable(each->objectName()));
            looks.append(look);
        }
    }
}

void tst_Form1Chooser::picCSD_released_opensEmptyCsd()
{
    load();
    m_config->CSDFileName = "old";
    QTest::mousePress(picture("picCSD"), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList());
    QTest::mouseRelease(picture("picCSD"), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList("FormCSD"));
    QCOMPARE(m_config->CSDFileName, "");
    QVERIFY(!m_form->isVisible());
}

void tst_Form1Chooser::picORCSCO_released_opensEmptyProject()
{
    load();
    m_config->OrchestraFileName = m_config->ScoreFileName = "old";
    QTest::mouseClick(picture("picORCSCO"), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList("FormORCSCO"));
    QCOMPARE(names(), QStringList({"", "", ""}));
    QVERIFY(!m_form->isVisible());
}

void tst_Form1Chooser::picCSD_releasedOutside_opensToo()
{
    PictureState whenShown = PictureState::Gray;
    m_windows.showFormCSD = [&] {
        m_shown << "FormCSD";
        whenShown = picture("picCSD")->state();
    };
    load();
    QTest::mousePress(picture("picCSD"), Qt::LeftButton);
    QTest::mouseRelease(picture("picCSD"), Qt::LeftButton, {}, QPoint(-5000, -5000));
    QCOMPARE(m_shown, QStringList("FormCSD"));
    QCOMPARE(whenShown, PictureState::Color);
}

void tst_Form1Chooser::picCSD_rightButton_doesNothing()
{
    load();
    QTest::mouseClick(picture("picCSD"), Qt::RightButton);
    QCOMPARE(m_shown, QStringList());
}

void tst_Form1Chooser::picCSD_spaceKey_opensCsd()
{
    load();
    picture("picCSD")->setFocus();
    QTest::keyClick(picture("picCSD"), Qt::Key_Space);
    QCOMPARE(m_shown, QStringList("FormCSD"));
}

void tst_Form1Chooser::label_clicked_opensFile_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("window");
    QTest::addColumn<QStringList>("named");

    QTest::newRow("csd") << 0 << "FormCSD" << QStringList({"/m/a.csd", "", ""});
    QTest::newRow("orc") << 1 << "FormORCSCO" << QStringList({"", "/m/b.orc", ""});
    QTest::newRow("sco") << 2 << "FormORCSCO" << QStringList({"", "", "/m/c.SCO"});
    QTest::newRow("txt") << 3 << "FormCSD" << QStringList({"/m/d.txt", "", ""});
}

void tst_Form1Chooser::label_clicked_opensFile()
{
    setRecent(1, "/m/a.csd");
    setRecent(2, "/m/b.orc");
    setRecent(3, "/m/c.SCO");
    setRecent(4, "/m/d.txt");
    QFETCH(int, index);
    QFETCH(QString, window);
    load();
    QTest::mouseClick(label(index), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList(window));
    QTEST(names(), "named");
    QVERIFY(!m_form->isVisible());
}

void tst_Form1Chooser::label_dots_doNothing()
{
    setRecent(1, "/m/a.csd");
    setRecent(2, "/m/b.orc");
    load();
    QTest::mouseClick(label(2), Qt::LeftButton);
    QTest::mouseClick(label(3), Qt::LeftButton);
    QTest::keyClick(m_form.get(), Qt::Key_3);
    QTest::keyClick(m_form.get(), Qt::Key_4);
    QCOMPARE(m_shown, QStringList());
    QVERIFY(m_form->isVisible());
}

void tst_Form1Chooser::label_releasedElsewhere_doesNothing()
{
    setRecent(1, "/m/a.csd");
    load();
    QTest::mousePress(label(0), Qt::LeftButton);
    QTest::mouseRelease(label(0), Qt::LeftButton, {}, QPoint(-50, -50));
    QCOMPARE(m_shown, QStringList());
}

void tst_Form1Chooser::keys_aloneOrWithAlt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("opened");

    const QList<std::tuple<const char *, Qt::Key, const char *>> keys{
        {"C", Qt::Key_C, "FormCSD "},
        {"O", Qt::Key_O, "FormORCSCO "},
        {"1", Qt::Key_1, "FormCSD /m/1.csd"},
        {"2", Qt::Key_2, "FormORCSCO /m/2.orc"},
        {"3", Qt::Key_3, "FormORCSCO /m/3.sco"},
        {"4", Qt::Key_4, "FormCSD /m/4.txt"},
    };
    const Qt::KeyboardModifiers alt = Qt::AltModifier;
    for (const auto &[name, key, opened] : keys) {
        QTest::addRow("%s", name) << key << Qt::KeyboardModifiers() << QString(opened);
        QTest::addRow("Alt %s", name) << key << alt << QString(opened);
        QTest::addRow("Shift %s", name) << key << Qt::KeyboardModifiers(Qt::ShiftModifier) << "";
        QTest::addRow("Ctrl %s", name) << key << Qt::KeyboardModifiers(Qt::ControlModifier) << "";
        QTest::addRow("Alt Shift %s", name) << key << (alt | Qt::ShiftModifier) << "";
        QTest::addRow("Ctrl Alt %s", name) << key << (alt | Qt::ControlModifier) << "";
    }
    QTest::newRow("1 of the number pad")
        << Qt::Key_1 << Qt::KeyboardModifiers(Qt::KeypadModifier) << "FormCSD /m/1.csd";
    QTest::newRow("Shift B") << Qt::Key_B << Qt::KeyboardModifiers(Qt::ShiftModifier) << "";
    QTest::newRow("Ctrl B") << Qt::Key_B << Qt::KeyboardModifiers(Qt::ControlModifier) << "";
    QTest::newRow("5") << Qt::Key_5 << Qt::KeyboardModifiers() << "";
    QTest::newRow("X") << Qt::Key_X << Qt::KeyboardModifiers() << "";
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers() << "";
}

void tst_Form1Chooser::keys_aloneOrWithAlt()
{
    setRecent(1, "/m/1.csd");
    setRecent(2, "/m/2.orc");
    setRecent(3, "/m/3.sco");
    setRecent(4, "/m/4.txt");
    load();
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, opened);
    QTest::keyClick(m_form.get(), key, modifiers);
    QCOMPARE(m_shown.isEmpty() ? QString() : m_shown.join(',') + ' ' + names().join(""), opened);
    QCOMPARE(m_form->isVisible(), opened.isEmpty());
}

void tst_Form1Chooser::picChiudi_clicked_leavesAndClosesOpcodeFile()
{
    load();
    QTest::mouseClick(picture("picChiudi"), Qt::LeftButton);
    QVERIFY(!m_form->isVisible());
    QVERIFY(m_config->FormCSDClosing);
    QVERIFY(!m_config->Words->ReadOpcodeRecord(1));
    QCOMPARE(m_shown, QStringList());
}

void tst_Form1Chooser::picChiudi_releasedElsewhere_staysOpen()
{
    load();
    QTest::mousePress(picture("picChiudi"), Qt::LeftButton);
    QTest::mouseRelease(picture("picChiudi"), Qt::LeftButton, {}, QPoint(-50, 100));
    QVERIFY(m_form->isVisible());
    QVERIFY(!m_config->FormCSDClosing);
    QTest::mouseMove(m_form.get(), QPoint(3, m_form->height() - 3));
    QVERIFY(isDark());
}

void tst_Form1Chooser::editorOpened_keepsOpcodeFileOpen()
{
    load();
    QTest::keyClick(m_form.get(), Qt::Key_C);
    QVERIFY(!m_form->isVisible());
    QVERIFY(!m_config->FormCSDClosing);
    QVERIFY(m_config->Words->ReadOpcodeRecord(1));
}

void tst_Form1Chooser::escape_staysOpen()
{
    load();
    QTest::keyClick(m_form.get(), Qt::Key_Escape);
    QVERIFY(m_form->isVisible());
}

void tst_Form1Chooser::browse_asksWithTitleFilterAndFolder()
{
    WriteRegistryString(*m_store, registry::SettingsKey, "WorkingDirectory", "/my/pieces");
    m_dialogs->expectOpen("Open Files", std::nullopt);
    m_dialogs->expectOpen("Open Files", std::nullopt);
    load();
    QTest::mouseClick(label(4), Qt::LeftButton);
    QTest::keyClick(m_form.get(), Qt::Key_B, Qt::AltModifier);
    QCOMPARE(m_dialogs->fileQuestions.size(), 2);
    for (const FileQuestion &question : m_dialogs->fileQuestions) {
        QCOMPARE(question.filter,
                 "Csound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco|CSD Files (*.csd)|*.csd|ORC "
                 "Files (*.orc)|*.orc|SCO Files (*.sco)|*.sco|Text Files (*.txt)|*.txt|All Files "
                 "(*.*)|*.*");
        QCOMPARE(question.directory, "/my/pieces");
    }
}

void tst_Form1Chooser::browse_withoutWorkingDirectory_beginsInCurrentFolder()
{
    m_dialogs->expectOpen("Open Files", std::nullopt);
    load();
    QTest::keyClick(m_form.get(), Qt::Key_B);
    QCOMPARE(m_dialogs->fileQuestions.value(0).directory, QDir::currentPath());
}

void tst_Form1Chooser::browse_cancelled_leavesChooser()
{
    m_dialogs->expectOpen("Open Files", std::nullopt);
    load();
    m_config->StartFileName = "before";
    QTest::mouseClick(label(4), Qt::LeftButton);
    QCOMPARE(m_shown, QStringList());
    QVERIFY(m_form->isVisible());
    QCOMPARE(m_config->StartFileName, "before");
}

void tst_Form1Chooser::browse_chosen_opensByEnding_data() { addDocumentRows(); }

void tst_Form1Chooser::browse_chosen_opensByEnding()
{
    QFETCH(QString, commandText);
    QFETCH(QString, window);
    const QString path = commandText.remove('"');
    m_dialogs->expectOpen("Open Files", path);
    load();
    QTest::mouseClick(label(4), Qt::LeftButton);
    QCOMPARE(m_config->StartFileName, path);
    QCOMPARE(m_shown, QStringList(window));
    QTEST(names(), "named");
    QVERIFY(!m_form->isVisible());
}

void tst_Form1Chooser::hover_picture_lightsItAlone()
{
    load();
    QVERIFY(isDark());
    for (const char *name : {"picCSD", "picORCSCO", "picChiudi", "picInfo"}) {
        QTest::mouseMove(picture(name));
        QCOMPARE(litPictures(), QStringList(name));
        QVERIFY(litLabels().isEmpty());
    }
}

void tst_Form1Chooser::hover_label_lightsItsBackAlone()
{
    setRecent(1, "/m/a.csd");
    load();
    QTest::mouseMove(picture("picCSD"));
    for (int i = 0; i < 5; ++i) {
        QTest::mouseMove(label(i));
        QCOMPARE(litLabels(), QList<int>({i}));
        QVERIFY(litPictures().isEmpty());
        QCOMPARE(label(i)->grab().toImage().pixelColor(1, 1), QColor(180, 190, 200));
    }
    QTest::mouseMove(picture("picORCSCO"));
    QVERIFY(litLabels().isEmpty());
    QVERIFY(label(4)->grab().toImage().pixelColor(1, 1) != QColor(180, 190, 200));
}

void tst_Form1Chooser::hover_background_darkensAll()
{
    load();
    const QPoint background(3, m_form->height() - 3);
    QTest::mouseMove(picture("picCSD"));
    QVERIFY(!isDark());
    QTest::mouseMove(m_form.get(), background);
    QVERIFY(isDark());
    QTest::mouseMove(label(1));
    QVERIFY(!isDark());
    QTest::mouseMove(m_form.get(), background);
    QVERIFY(isDark());
}

void tst_Form1Chooser::hover_titleStrip_darkensAll()
{
    load();
    auto *const labelBAR = m_form->findChild<QWidget *>("labelBAR");
    QTest::mouseMove(picture("picChiudi"));
    QTest::mouseMove(labelBAR);
    QVERIFY(isDark());
    QTest::mouseMove(label(0));
    QTest::mouseMove(labelBAR);
    QVERIFY(isDark());
}

void tst_Form1Chooser::hover_leavingTheWindow_darkensAll()
{
    load();
    QTest::mouseMove(label(2));
    QVERIFY(!isDark());
    QCursor::setPos(m_form->mapToGlobal(QPoint(-40, -40)));
    QTRY_VERIFY(isDark());
}

/// Where the window was at the last move of the mouse no longer counts.
void tst_Form1Chooser::hover_windowMovedFromUnderTheMouse_darkensAll()
{
    load();
    QTest::mouseMove(label(2));
    QVERIFY(!isDark());
    m_form->move(m_form->pos() + QPoint(2 * m_form->width(), 0));
    QTRY_VERIFY(isDark());
}

void tst_Form1Chooser::hover_timerRunsOnlyWhileLit()
{
    load();
    auto *const timer = m_form->findChild<QTimer *>("Timer1");
    QVERIFY(!timer->isActive());
    QTest::mouseMove(picture("picCSD"));
    QVERIFY(timer->isActive());
    QTest::mouseMove(m_form.get(), QPoint(3, m_form->height() - 3));
    QVERIFY(!timer->isActive());
}

void tst_Form1Chooser::press_showsPressImageAndFreezesHover()
{
    load();
    QTest::mouseMove(picture("picChiudi"));
    QTest::mousePress(picture("picChiudi"), Qt::LeftButton);
    QCOMPARE(picture("picChiudi")->state(), PictureState::Press);
    QTest::mouseMove(picture("picCSD"));
    QTest::mouseMove(label(0));
    QTest::mouseMove(m_form.get(), QPoint(3, m_form->height() - 3));
    QCursor::setPos(m_form->mapToGlobal(QPoint(-40, -40)));
    QSignalSpy ticks(m_form->findChild<QTimer *>("Timer1"), &QTimer::timeout);
    QTRY_VERIFY(ticks.size() >= 2);
    QCOMPARE(picture("picChiudi")->state(), PictureState::Press);
    QVERIFY(isDark());
    QTest::mouseRelease(picture("picChiudi"), Qt::LeftButton, {}, QPoint(-50, -50));
    QTRY_COMPARE(picture("picChiudi")->state(), PictureState::Gray);
}

void tst_Form1Chooser::titleStrip_dragged_movesWindow()
{
    load();
    auto *const labelBAR = m_form->findChild<QWidget *>("labelBAR");
    const QPoint before = m_form->pos();
    const QPoint grip(20, 10);
    QTest::mousePress(labelBAR, Qt::LeftButton, {}, grip);
    const QPoint to = labelBAR->mapToGlobal(grip + QPoint(30, 40));
    QMouseEvent move(QEvent::MouseMove, grip + QPoint(30, 40), to, Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(labelBAR, &move);
    QCOMPARE(m_form->pos(), before + QPoint(30, 40));
    QTest::mouseRelease(labelBAR, Qt::LeftButton, {}, grip);
    QTest::mouseMove(labelBAR, QPoint(1, 1));
    QCOMPARE(m_form->pos(), before + QPoint(30, 40));
}

ARDIPHON_TEST(tst_Form1Chooser, QApplication)
#include "tst_Form1Chooser.moc"
