#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "support/TestMain.h"
#include "workbench/Document.h"
#include "workbench/WordCount.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QMenuBar>
#include <QRegularExpression>

using namespace ardiphon;

/// How a feature joins a window, with the example that the documents show.
class tst_WindowFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void dock_closed_changesNothing();
    void dock_shownByItsKey_theCentreMakesRoom();
    void dock_inTheBottom_theCentreMakesRoom();
    void dock_noMenuOfTheWindowsOwn();
    void text_everyChange_isCounted();
    void project_bothTexts_areCounted();
    void host_documents_areThoseOfTheWindow();
    void example_isTheOneInTheDocuments();

private:
    void installWordCount() const { m_window->install(std::make_unique<WordCount>()); }
    QString words() const { return control<QLabel>("LabelWords")->text(); }
    void pressKey() const
    {
        QTest::keyClick(first()->focusProxy(), Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
    }
    /// Where everything in the window is, by name.
    QMap<QString, QRect> places() const
    {
        QMap<QString, QRect> all;
        for (const QWidget *each : m_window->centralWidget()->findChildren<QWidget *>())
            if (!each->objectName().isEmpty())
                all.insert(each->objectName(), each->geometry());
        return all;
    }
};

void tst_WindowFeature::dock_closed_changesNothing()
{
    show("<CsScore>\n");
    const QMap<QString, QRect> before = places();
    const QSize size = m_window->centralWidget()->size();
    installWordCount();
    QApplication::processEvents();
    QVERIFY(control<QDockWidget>("DockWords")->isHidden());
    QCOMPARE(m_window->centralWidget()->size(), size);
    QCOMPARE(places(), before);
}

void tst_WindowFeature::dock_shownByItsKey_theCentreMakesRoom()
{
    show();
    installWordCount();
    const QMap<QString, QRect> before = places();
    const int width = m_window->centralWidget()->width();
    pressKey();
    const auto *dock = control<QDockWidget>("DockWords");
    QTRY_VERIFY(m_window->centralWidget()->width() < width);
    QVERIFY(dock->isVisible());
    QVERIFY(dock->x() > m_window->centralWidget()->geometry().right());
    const int room = width - m_window->centralWidget()->width();
    QCOMPARE(first()->geometry(), before["LEDIT1"].adjusted(0, 0, -room, 0));
    QCOMPARE(places()["Tree"], before["Tree"]);
    pressKey();
    QTRY_COMPARE(places(), before);
}

void tst_WindowFeature::dock_inTheBottom_theCentreMakesRoom()
{
    show();
    QDockWidget *const dock =
        m_window->addDock({"DockBelow", "Below", Qt::BottomDockWidgetArea}, new QLabel("below"));
    const int foot = places()["Frame1"].bottom();
    const int height = m_window->centralWidget()->height();
    dock->show();
    QTRY_VERIFY(m_window->centralWidget()->height() < height);
    QCOMPARE(places()["Frame1"].bottom(), foot - (height - m_window->centralWidget()->height()));
}

/// The toolkit would offer its docks on the menu bar's right button.
void tst_WindowFeature::dock_noMenuOfTheWindowsOwn()
{
    show();
    installWordCount();
    const QPoint at(200, 5);
    QContextMenuEvent click(QContextMenuEvent::Mouse, at, m_window->menuBar()->mapToGlobal(at));
    QApplication::sendEvent(m_window->menuBar(), &click);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_WindowFeature::text_everyChange_isCounted()
{
    show("one two\nthree\n");
    installWordCount();
    QCOMPARE(words(), QStringLiteral("3 words"));
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("a b "));
    QCOMPARE(words(), QStringLiteral("5 words"));
    first()->SelectAll();
    QTest::keyClick(first()->focusProxy(), Qt::Key_Delete);
    QCOMPARE(words(), QStringLiteral("0 words"));
    first()->Undo();
    QCOMPARE(words(), QStringLiteral("5 words"));
    trigger("menu44100Mono");
    QVERIFY(words() != QStringLiteral("5 words"));
    first()->SetText(QStringLiteral("x"));
    QCOMPARE(words(), QStringLiteral("1 words"));
    first()->ClearState(TextState); // has the window close without a question
}

void tst_WindowFeature::project_bothTexts_areCounted()
{
    ProjectWindow project;
    project.showPair("instr 1\nendin\n", "i1 0 1\ne\n");
    project.window->install(std::make_unique<WordCount>());
    QCOMPARE(project.label("LabelWords"), QStringLiteral("7 words"));
    ProjectWindow::type(project.score, QStringLiteral("f1 "));
    QCOMPARE(project.label("LabelWords"), QStringLiteral("8 words"));
    project.score->ClearState(TextState);
}

void tst_WindowFeature::host_documents_areThoseOfTheWindow()
{
    show();
    FeatureHost &csd = *m_window;
    QCOMPARE(csd.document(DocumentRole::Csd)->name(), m_program->config.CSDFileName);
    QVERIFY(!csd.document(DocumentRole::Orchestra));
    QCOMPARE(csd.editors(), QList{first()});
    QCOMPARE(csd.views().size(), 2);
    QVERIFY(!csd.editor(DocumentRole::Score));

    ProjectWindow project;
    project.showPair();
    FeatureHost &pair = *project.window;
    QCOMPARE(pair.document(DocumentRole::Score)->name(), project.config.ScoreFileName);
    QVERIFY(!pair.document(DocumentRole::Csd));
    QCOMPARE(pair.editors(), (QList{project.orchestra, project.score}));
    project.score->setFocus();
    QCOMPARE(pair.focusedEditor(), project.score);
}

/// Line by line, but for the blanks in front.
void tst_WindowFeature::example_isTheOneInTheDocuments()
{
    const auto textOf = [](const char *path) {
        QFile file(QStringLiteral(TEST_SOURCE_DIR) + QLatin1String(path));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).simplified()
                                              : QString();
    };
    const QString document = textOf("/../docs/architecture.md");
    const QString source = textOf("/workbench/WordCount.h");
    static const QRegularExpression code(QStringLiteral("```cpp (class WordCount.*?) ```"));
    const QString shown = code.match(document).captured(1);
    QVERIFY(!shown.isEmpty());
    QVERIFY2(source.contains(shown), qPrintable(shown));
}

ARDIPHON_TEST(tst_WindowFeature, QApplication)
#include "tst_WindowFeature.moc"
