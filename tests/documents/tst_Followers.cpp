#include "documents/CsdFixture.h"
#include "documents/DocumentTexts.h"
#include "documents/ProjectWindow.h"
#include "support/FileDrop.h"
#include "support/RandomSeed.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace ardiphon;

/// What follows the text in the editor windows: the views of a split, the tags, the marks of a
/// modified text. Where nothing has changed they do nothing at all.
class tst_Followers : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void split_key_isReportedByEachViewOnce();
    void split_randomEdits_keepAShadowOfEachView();
    void split_document_isReportedByTheViewThatTakesIt();
    void csd_atRest_doesNotTick();
    void csd_atRest_wakesForItsTags();
    void csd_titleOfAModifiedText_getsItsStarAgain();
    void csd_sameDocumentAgain_findsItsTagsAgain();
    void csd_sameTextImportedAgain_findsItsTagsAgain();
    void project_atRest_doesNotTick();
    void project_labelOfAModifiedText_getsItsStarAgain();

private:
    /// Has a timer tick until it rests, without waiting for it.
    static void tickUntilRest(QTimer *timer)
    {
        for (int i = 0; i < 100 && timer->isActive(); ++i)
            tick(timer);
    }
    static void tick(QTimer *timer)
    {
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }
    void copyBetweenViews() const { tickUntilRest(control<QTimer>("TimerAggiorna")); }
    QTimer *ticks() const { return control<QTimer>("Timer1"); }
    QString tag(int index) const
    {
        return control<QTreeWidget>("Tree")->topLevelItem(index)->text(0);
    }
};

void tst_Followers::split_key_isReportedByEachViewOnce()
{
    show("one\ntwo\n");
    trigger("buttonSplit");
    ShadowText upper(*first());
    ShadowText lower(*second());
    QTest::keyClick(first()->focusProxy(), Qt::Key_A);
    QCOMPARE(upper.changes(), QList({TextChange{1, 1, 1}}));
    QCOMPARE(lower.changes(), QList({TextChange{1, 1, 1}}));
    caret(second(), 2, 1);
    QTest::keyClick(second()->focusProxy(), Qt::Key_Return); // copied by the next tick
    QCOMPARE(upper.changes().size(), 1);
    copyBetweenViews();
    QCOMPARE(upper.changes(), QList({TextChange{1, 1, 1}, TextChange{2, 1, 2}}));
    QCOMPARE(lower.changes(), QList({TextChange{1, 1, 1}, TextChange{2, 1, 2}}));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Down,
                    Qt::ShiftModifier); // copies, changes nothing
    copyBetweenViews();
    QCOMPARE(upper.changes().size() + lower.changes().size(), 4);
    QCOMPARE(upper.faults() + lower.faults(), QString());
}

void tst_Followers::split_randomEdits_keepAShadowOfEachView()
{
    show(QByteArray("instr 1\nasig oscil 1, 440\nendin\n").repeated(5));
    trigger("buttonSplit");
    ShadowText upper(*first());
    ShadowText lower(*second());
    QRandomGenerator random(randomSeed(20261122));
    static constexpr std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_A, 0},    {Qt::Key_Return, 0},    {Qt::Key_Backspace, 0},
        {Qt::Key_Tab, 0},  {Qt::Key_Down, 0},      {Qt::Key_Down, int(Qt::ShiftModifier)},
        {Qt::Key_End, 0},  {Qt::Key_Delete, 0},    {Qt::Key_Z, int(Qt::ControlModifier)},
        {Qt::Key_Home, 0}, {Qt::Key_Semicolon, 0}, {Qt::Key_X, int(Qt::ControlModifier)},
        {Qt::Key_Up, 0},   {Qt::Key_Space, 0},     {Qt::Key_V, int(Qt::ControlModifier)}};
    for (int i = 0; i < 400; ++i) {
        LEditOCX *view = random.bounded(2) ? first() : second();
        const auto [key, held] = keys[random.bounded(int(std::size(keys)))];
        QTest::keyClick(view->focusProxy(), key, Qt::KeyboardModifiers(held));
        if (random.bounded(3) > 0)
            copyBetweenViews();
        if (i % 80 == 79)
            trigger("menuModificaUndo");
        const QString faults = upper.faults() + lower.faults();
        if (!faults.isEmpty())
            QFAIL(qPrintable(QStringLiteral("edit %1: %2").arg(i).arg(faults)));
    }
    copyBetweenViews();
    QCOMPARE(upper.lines(), lower.lines());
}

void tst_Followers::split_document_isReportedByTheViewThatTakesIt()
{
    show("one\ntwo\n");
    ShadowText upper(*first());
    ShadowText lower(*second());
    trigger("buttonSplit");
    QCOMPARE(lower.changes(), QList({TextChange{1, 1, 3}}));
    trigger("buttonSplit");
    QCOMPARE(lower.changes(), QList({TextChange{1, 1, 3}, TextChange{1, 3, 1}}));
    QCOMPARE(upper.changes(), QList<TextChange>());
    QCOMPARE(upper.faults() + lower.faults(), QString());
}

void tst_Followers::csd_atRest_doesNotTick()
{
    show("<CsScore>");
    QVERIFY(ticks()->isActive());
    QSignalSpy told(ticks(), &QTimer::timeout);
    QTRY_VERIFY(!ticks()->isActive());
    QCOMPARE(told.count(), m_program->config.Words->CsdWords.size() - 1); // once for each word
    QCOMPARE(tag(6), QStringLiteral("<CsScore>"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Right);
    trigger("menuWindowToolbar");
    QVERIFY(!ticks()->isActive());
    // A tick that comes all the same looks for nothing.
    control<QTreeWidget>("Tree")->topLevelItem(6)->setText(0, QStringLiteral("..."));
    for (int i = 0; i < 20; ++i)
        tick(ticks());
    QCOMPARE(tag(6), QStringLiteral("..."));
}

void tst_Followers::csd_atRest_wakesForItsTags()
{
    show("<CsScore>");
    tickUntilRest(ticks());
    const QString title = m_window->windowTitle();
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("x"));
    QVERIFY(ticks()->isActive());
    QTest::keyClick(first()->focusProxy(), Qt::Key_Backspace);
    first()->SetText(QStringLiteral("</CsScore>"));
    QCOMPARE(m_window->windowTitle(), title); // until the tick
    QTRY_COMPARE(m_window->windowTitle(), title + u'*');
    tickUntilRest(ticks());
    QCOMPARE(tag(6), QStringLiteral("..."));
    QCOMPARE(tag(7), QStringLiteral("</CsScore>"));
    first()->ClearState(TextState); // has the window close without a question
}

void tst_Followers::csd_titleOfAModifiedText_getsItsStarAgain()
{
    show("one");
    QTest::keyClick(first()->focusProxy(), Qt::Key_A);
    tickUntilRest(ticks());
    m_window->setWindowTitle(QStringLiteral("other"));
    QTRY_COMPARE(m_window->windowTitle(), QStringLiteral("other*"));
    tickUntilRest(ticks());
    first()->ClearState(TextState);
}

void tst_Followers::csd_sameDocumentAgain_findsItsTagsAgain()
{
    show("<CsScore>");
    QTRY_COMPARE(tag(6), QStringLiteral("<CsScore>"));
    tickUntilRest(ticks());
    FileDrop::on(*first(), {m_program->config.CSDFileName});
    QCOMPARE(tag(6), QStringLiteral("..."));
    QTRY_COMPARE(tag(6), QStringLiteral("<CsScore>"));
}

/// The text stays as it is, so it reports no change; the tags were cleared all the same.
void tst_Followers::csd_sameTextImportedAgain_findsItsTagsAgain()
{
    show();
    m_program->write(QStringLiteral("parts.sco"), "s");
    const QString orchestra = m_program->write(QStringLiteral("parts.orc"), "o");
    const QString title = QStringLiteral("Open Project (Orchestra & Score)");
    m_program->dialogs.expectOpen(title, orchestra);
    trigger("menuFileImportaORCSCO");
    tickUntilRest(ticks());
    QCOMPARE(tag(6), QStringLiteral("<CsScore>"));
    m_program->dialogs.expect({QStringLiteral("File has changed!\r\nDo you want to save it?"),
                               QStringLiteral("Import Orc/Sco Files"), MessageIcon::Exclamation,
                               MessageButtons::YesNoCancel},
                              Answer::No);
    m_program->dialogs.expectOpen(title, orchestra);
    trigger("menuFileImportaORCSCO");
    QCOMPARE(tag(6), QStringLiteral("..."));
    tickUntilRest(ticks());
    QCOMPARE(tag(6), QStringLiteral("<CsScore>"));
    first()->ClearState(TextState);
}

void tst_Followers::project_atRest_doesNotTick()
{
    ProjectWindow project;
    project.showPair();
    auto *timer = project.control<QTimer>("Timer1");
    QTRY_VERIFY(!timer->isActive());
    for (const auto &[editor, label] :
         {std::pair{project.score, "LabelScore"}, std::pair{project.orchestra, "LabelOrchestra"}}) {
        const QString before = project.label(label);
        project.type(editor, QStringLiteral("x"));
        QCOMPARE(project.label(label), before); // until the tick
        QTRY_COMPARE(project.label(label), before + u'*');
        QVERIFY(!timer->isActive());
        project.type(editor, QStringLiteral("x")); // it is marked already
        QVERIFY(!timer->isActive());
        editor->ClearState(TextState);
        QCOMPARE(project.label(label), before + u'*'); // until the next save
    }
}

void tst_Followers::project_labelOfAModifiedText_getsItsStarAgain()
{
    ProjectWindow project;
    project.showPair();
    project.type(project.score, QStringLiteral("x"));
    QTRY_VERIFY(project.label("LabelScore").endsWith(u'*'));
    tickUntilRest(project.control<QTimer>("Timer1"));
    const QString folder = project.path(QStringLiteral("folder.sco"));
    QVERIFY(QDir().mkdir(folder));
    project.dialogs.expectSave(QStringLiteral("Save Score As ... (*.SCO)"), folder);
    project.expectMessage(notSaved(folder, QStringLiteral("it is a folder")));
    project.trigger("menuFileSalvaScoreNome"); // fails, and the label is written again
    const QString label =
        QStringLiteral("File Score: ") + project.path(QStringLiteral("piece.sco"));
    QCOMPARE(project.label("LabelScore"), label);
    QTRY_COMPARE(project.label("LabelScore"), label + u'*');
    QCOMPARE(project.dialogs.verify(), QString());
    project.score->ClearState(TextState);
}

ARDIPHON_TEST(tst_Followers, QApplication)
#include "tst_Followers.moc"
