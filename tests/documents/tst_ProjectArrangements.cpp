#include "documents/Commands.h"
#include "documents/ProjectFixture.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace ardiphon;

/// How the project's window is laid out: arrangements, grips, labels, floating panels and tools.
class tst_ProjectArrangements : public QObject, private ProjectFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Arrangements.
    void arrangement_keys_data();
    void arrangement_keys();
    void arrangement_startsHorizontal();
    void arrangement_isTheWindowsOwn();
    void arrangement_vertical_shortensTheLabels();
    void arrangement_labels_keepTheirStar();
    void arrangement_labels_coverNoLineNumber();
    void arrangement_places_areThoseOfTheLayout();
    void reset_andResize_dropTheDraggedPosition();
    void gripH_followsTheMouseWithinItsLimits();
    void gripV_followsTheMouseWithinItsLimits();
    void gripV_draggedFar_leavesEachButtonItsPlace();
    void grips_ofTheirArrangement_haveTheirToolTips();
    void line_partsHalvesThatTouch();

    // Tools.
    void tools_toggle_bothGutters();
    void tools_millionLines_widenBothGutters();
    void tools_hideAll_staysHiddenThroughAnArrangement();
    void tools_hiddenHalf_keepsItsGutterHidden();
    void tools_keptValues_areApplied();
    void fontSize_goesToBothEditors();
    void bookmarks_goToTheFocusedEditor();
    void bookmarksPanel_showsHidesAndMoves();
    void smallestWindow_showsEverythingInside();
};

// Arrangements. -----------------------------------------------------------------------------------

void tst_ProjectArrangements::arrangement_keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("orchestra");
    QTest::addColumn<bool>("score");
    QTest::newRow("F5") << int(Qt::Key_F5) << "orizzontale"
                        << QByteArray("menuVisualizzaOrizzontale") << true << true;
    QTest::newRow("F6") << int(Qt::Key_F6) << "verticale" << QByteArray("menuVisualizzaVerticale")
                        << true << true;
    QTest::newRow("F7") << int(Qt::Key_F7) << "orchestra" << QByteArray("menuVisualizzaOrchestra")
                        << true << false;
    QTest::newRow("F8") << int(Qt::Key_F8) << "score" << QByteArray("menuVisualizzaScore") << false
                        << true;
}

void tst_ProjectArrangements::arrangement_keys()
{
    QFETCH(int, key);
    QFETCH(QByteArray, command);
    QFETCH(bool, orchestra);
    QFETCH(bool, score);
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    press(m->orchestra, Qt::Key(key));
    QTEST(m->config.Arrangement, "name");
    QStringList checked;
    for (const char *each : {"menuVisualizzaOrizzontale", "menuVisualizzaVerticale",
                             "menuVisualizzaOrchestra", "menuVisualizzaScore"})
        if (m->control<QAction>(each)->isChecked())
            checked.append(QLatin1String(each));
    QCOMPARE(checked, QStringList{QLatin1String(command)});
    for (const char *name : {"LEDIT1", "LabelOrchestra", "Toolbar2", "PicNumeri1"})
        QCOMPARE(shown(name), orchestra);
    for (const char *name : {"LEDIT2", "LabelScore", "Toolbar3", "PicNumeri2"})
        QCOMPARE(shown(name), score);
    QVERIFY(orchestra || m->score->hasFocus());
    QVERIFY(score || m->orchestra->hasFocus());
    m->trigger("menuVisualizzaOrizzontale"); // and everything comes back
    for (const char *name : {"LEDIT1", "LEDIT2", "PicNumeri1", "PicNumeri2", "LabelScore"})
        QVERIFY(shown(name));
}

void tst_ProjectArrangements::arrangement_startsHorizontal()
{
    m->config.Arrangement = QStringLiteral("score");
    m->show();
    QCOMPARE(m->config.Arrangement, QStringLiteral("orizzontale"));
    QVERIFY(m->control<QAction>("menuVisualizzaOrizzontale")->isChecked());
    QVERIFY(shown("LEDIT1") && shown("SplitterH") && !shown("SplitterV"));
}

void tst_ProjectArrangements::arrangement_isTheWindowsOwn()
{
    m->show();
    m->trigger("menuVisualizzaVerticale");
    m->config.Arrangement = QStringLiteral("score"); // only a mirror
    m->trigger("menuVisualizzaReset");
    QVERIFY(shown("LEDIT1") && shown("SplitterV") && !shown("SplitterH"));
    QVERIFY(m->control<QAction>("menuVisualizzaVerticale")->isChecked());
    QCOMPARE(m->config.Arrangement, QStringLiteral("verticale"));
}

void tst_ProjectArrangements::arrangement_vertical_shortensTheLabels()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    m->show();
    m->trigger("menuFileNuovaScore");
    const QString full = m->label("LabelOrchestra");
    m->trigger("menuVisualizzaVerticale");
    QCOMPARE(m->label("LabelOrchestra"),
             m->config.OrchestraFileName.left(3) + QStringLiteral(" ~ \\piece.orc"));
    QCOMPARE(m->label("LabelScore"), QStringLiteral("File Score: [Untitled]"));
    m->trigger("menuVisualizzaOrchestra");
    QCOMPARE(m->label("LabelOrchestra"), full);
    m->trigger("menuVisualizzaVerticale");
    m->trigger("menuVisualizzaOrizzontale");
    QCOMPARE(m->label("LabelOrchestra"), full);
}

void tst_ProjectArrangements::arrangement_labels_coverNoLineNumber()
{
    m->showPair("o\r\np", "s\r\nt");
    for (const char *name : {"PicNumeri1", "PicNumeri2"}) {
        auto *gutter = m->window->findChild<QWidget *>(QLatin1String(name));
        QVERIFY(gutter && gutter->isVisible());
        const QRect place(gutter->mapTo(m->window, QPoint(0, 0)), gutter->size());
        const auto seen = [](const QPixmap &pixels) {
            return pixels.toImage().convertToFormat(QImage::Format_RGB32);
        };
        QCOMPARE(seen(m->window->grab(place)), seen(gutter->grab()));
    }
}

void tst_ProjectArrangements::arrangement_labels_keepTheirStar()
{
    m->showPair();
    m->type(m->orchestra, QStringLiteral("x"));
    QTRY_VERIFY(m->label("LabelOrchestra").endsWith(u'*'));
    m->trigger("menuVisualizzaVerticale");
    QVERIFY(m->label("LabelOrchestra").endsWith(QLatin1String("\\piece.orc*")));
    QVERIFY(!m->label("LabelOrchestra").endsWith(QLatin1String("**")));
}

void tst_ProjectArrangements::arrangement_places_areThoseOfTheLayout()
{
    m->showPair();
    const QRect inside = m->window->centralWidget()->rect();
    const int gutter = place("PicNumeri1").width();
    const QRect first = place("LEDIT1");
    QCOMPARE(first.left(), 24 + gutter);
    QCOMPARE(first.top(), 1400 / 15);
    const QRect second = place("LEDIT2"); // to the pixel: twips are finer
    QVERIFY(qAbs(second.top() - (first.top() + first.height() + 20)) <= 1);
    QCOMPARE(second.width(), first.width());
    QVERIFY(qAbs(second.height() - first.height()) <= 1);
    QCOMPARE(place("Toolbar2").left(), 0);
    QCOMPARE(place("Toolbar2").width(), 24);
    QCOMPARE(m->control<QToolBar>("Toolbar2")->orientation(), Qt::Vertical);

    m->trigger("menuVisualizzaVerticale");
    QCOMPARE(place("LEDIT1").topLeft(), QPoint(gutter, 1850 / 15));
    QCOMPARE(place("LEDIT1").bottom(), inside.bottom());
    QCOMPARE(place("Toolbar3").left(), place("LEDIT1").left() + place("LEDIT1").width());
    QVERIFY(place("Toolbar3").bottom() < place("LEDIT2").top());
    QCOMPARE(m->control<QToolBar>("Toolbar2")->orientation(), Qt::Horizontal);

    m->trigger("menuWindowHelp"); // 220 instead of 1000
    QCOMPARE(place("LEDIT1").top(), (400 + 220 + 450) / 15);
}

void tst_ProjectArrangements::reset_andResize_dropTheDraggedPosition()
{
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    const int equal = place("LEDIT1").width();
    drag(m->control<QWidget>("SplitterV"), {-100, 0});
    QVERIFY(qAbs(place("LEDIT1").width() - (equal - 100)) <= 1);
    press(m->orchestra, Qt::Key_F9);
    QCOMPARE(place("LEDIT1").width(), equal);
    drag(m->control<QWidget>("SplitterV"), {-100, 0});
    m->window->resize(m->window->width() + 60, m->window->height());
    QTRY_COMPARE(place("LEDIT1").width(), equal + 30);
    QCOMPARE(place("LEDIT2").width(), equal + 30);
}

void tst_ProjectArrangements::gripH_followsTheMouseWithinItsLimits()
{
    m->showPair();
    auto *grip = m->control<QWidget>("SplitterH");
    const int start = grip->y();
    const QRect first = place("LEDIT1");
    drag(grip, {35, 40});
    QCOMPARE(grip->y(), start + 40);
    QVERIFY(qAbs(place("LEDIT2").top() - (start + 40 + 220 / 15)) <= 1);
    QVERIFY(qAbs(place("LEDIT1").bottom() - (start + 40 - 1 - 80 / 15)) <= 1);
    QCOMPARE(place("LabelScore").top(), grip->y());
    QCOMPARE(place("PicNumeri2").height(), place("LEDIT2").height());
    const QRect kept = place("LEDIT2");
    drag(grip, {0, -2000}); // beyond both limits everything stays
    QCOMPARE(place("LEDIT2"), kept);
    drag(grip, {0, 2000});
    QCOMPARE(place("LEDIT2"), kept);
    drag(grip, {0, first.top() + 54 - grip->y()}); // 810 twips below the editor's top
    QCOMPARE(grip->y(), first.top() + 54);
    drag(grip, {0, -2}); // 780
    QCOMPARE(grip->y(), first.top() + 54);
}

void tst_ProjectArrangements::gripV_followsTheMouseWithinItsLimits()
{
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    auto *grip = m->control<QWidget>("SplitterV");
    const int width = m->window->centralWidget()->width();
    const auto dragTo = [grip](int x) { drag(grip, {x - grip->x(), 0}); };
    dragTo(width - 80); // exactly 1200 twips
    QCOMPARE(grip->x(), width - 80);
    dragTo(width - 79);
    QCOMPARE(grip->x(), width - 80);
    dragTo(54); // 810
    QCOMPARE(grip->x(), 54);
    dragTo(53); // 795
    QCOMPARE(grip->x(), 54);
    QCOMPARE(place("LEDIT2").right(), m->window->centralWidget()->rect().right());
    QVERIFY(place("Toolbar3").left() <= place("PicNumeri2").left());
}

/// The toolbars keep their places, one partly under the other or outside; what cannot be seen there
/// is behind the arrow at the end.
void tst_ProjectArrangements::gripV_draggedFar_leavesEachButtonItsPlace()
{
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    QWidget *inside = m->window->centralWidget();
    const auto buttonsInSight = [&](const char *name) {
        auto *toolbar = m->control<QToolBar>(name);
        int count = 0;
        for (QToolButton *button : toolbar->findChildren<QToolButton *>()) {
            if (!button->isVisible())
                continue;
            ++count;
            for (const QPoint &corner : {button->rect().topLeft(), button->rect().bottomRight()}) {
                const QPoint at = button->mapTo(inside, corner);
                if (inside->childAt(at) != button)
                    return -1;
            }
        }
        return count;
    };
    const int all = buttonsInSight("Toolbar2");
    QCOMPARE(all, int(orchestraToolbar().size()));
    auto *grip = m->control<QWidget>("SplitterV");
    drag(grip, {60 - grip->x(), 0});
    const int half = inside->width() / 2;
    QCOMPARE(place("Toolbar2").width(), half);
    QCOMPARE(place("Toolbar3").left(), place("LEDIT1").right() + 1);
    QTRY_VERIFY(buttonsInSight("Toolbar2") > 0 && buttonsInSight("Toolbar2") < all);
    QVERIFY(m->control<QToolBar>("Toolbar2")
                ->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"))
                ->isVisible());
    drag(grip, {inside->width() - 90 - grip->x(), 0});
    QCOMPARE(place("Toolbar3").width(), half);
    QTRY_COMPARE(buttonsInSight("Toolbar2"), all);
    QTRY_VERIFY(buttonsInSight("Toolbar3") > 0);
    press(m->orchestra, Qt::Key_F5);
    QTRY_VERIFY(buttonsInSight("Toolbar2") > 0);
    QCOMPARE(place("Toolbar2").width(), 24);
}

/// Without line numbers the two texts would be in one white field.
void tst_ProjectArrangements::line_partsHalvesThatTouch()
{
    m->showPair();
    QVERIFY(!shown("splitLine"));
    press(m->orchestra, Qt::Key_F6);
    press(m->orchestra, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(shown("splitLine"));
    QCOMPARE(place("splitLine"),
             QRect(place("LEDIT2").left() - 1, place("LEDIT1").top(), 1, place("LEDIT1").height()));
    QWidget *inside = m->window->centralWidget();
    const QRgb seen = inside->grab().toImage().pixel(place("splitLine").center());
    QCOMPARE(QColor(seen), QColor(Qt::darkGray));
    press(m->orchestra, Qt::Key_F7);
    QVERIFY(!shown("splitLine"));
}

void tst_ProjectArrangements::grips_ofTheirArrangement_haveTheirToolTips()
{
    m->showPair();
    QCOMPARE(m->control<QWidget>("SplitterH")->toolTip(),
             QStringLiteral("Splitter - [F9] Reset to Normal position"));
    QCOMPARE(m->control<QWidget>("SplitterV")->toolTip(),
             QStringLiteral("Splitter - [F9] Reset to normal position"));
    m->trigger("menuVisualizzaVerticale");
    QVERIFY(!shown("SplitterH") && shown("SplitterV"));
    m->trigger("menuVisualizzaScore");
    QVERIFY(!shown("SplitterH") && !shown("SplitterV"));
}

// Tools. ------------------------------------------------------------------------------------------

void tst_ProjectArrangements::tools_toggle_bothGutters()
{
    m->showPair();
    const int left = place("LEDIT1").left();
    press(m->score, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(!shown("PicNumeri1") && !shown("PicNumeri2"));
    QCOMPARE(place("LEDIT1").left(), 24);
    press(m->score, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(shown("PicNumeri1") && shown("PicNumeri2"));
    QCOMPARE(place("LEDIT1").left(), left);
    press(m->score, Qt::Key_4, Qt::ControlModifier);
    QVERIFY(!shown("Toolbar1") && shown("Toolbar2"));
    press(m->score, Qt::Key_3, Qt::ControlModifier);
    QVERIFY(!shown("TextOpcode") && !shown("TextParametri"));
    QCOMPARE(place("LEDIT1").top(), 220 / 15);
}

void tst_ProjectArrangements::tools_millionLines_widenBothGutters()
{
    m->showPair();
    const QFontMetrics metrics(m->control<QWidget>("PicNumeri1")->font());
    QCOMPARE(place("PicNumeri1").width(), metrics.horizontalAdvance(QStringLiteral("000000")));
    m->score->SetText(QStringLiteral("\r\n").repeated(1'000'000));
    const int wide = metrics.horizontalAdvance(QStringLiteral("0000000"));
    QTRY_COMPARE(place("PicNumeri2").width(), wide);
    QCOMPARE(place("PicNumeri1").width(), wide);
    QCOMPARE(place("LEDIT2").x(), place("PicNumeri2").x() + wide);
    m->score->ClearState(TextState);
}

void tst_ProjectArrangements::tools_hideAll_staysHiddenThroughAnArrangement()
{
    m->showPair();
    press(m->orchestra, Qt::Key_5, Qt::ControlModifier);
    press(m->orchestra, Qt::Key_F9);
    QVERIFY(!shown("PicNumeri1") && !shown("Toolbar1") && !shown("TextOpcode"));
    QVERIFY(m->config.LineNumbersVisible);
    press(m->orchestra, Qt::Key_6, Qt::ControlModifier);
    QVERIFY(shown("PicNumeri1") && shown("Toolbar1") && shown("TextOpcode"));
}

void tst_ProjectArrangements::tools_hiddenHalf_keepsItsGutterHidden()
{
    m->showPair();
    m->trigger("menuVisualizzaOrchestra");
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuWindowRestore");
    QVERIFY(shown("PicNumeri1") && !shown("PicNumeri2"));
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuVisualizzaVerticale");
    QVERIFY(!shown("PicNumeri1") && !shown("PicNumeri2"));
}

void tst_ProjectArrangements::tools_keptValues_areApplied()
{
    m->config.SaveToolsPreferences = QStringLiteral("YES");
    for (const char *name : {"BookBar", "Toolbar"})
        WriteRegistryString(m->settings, registry::WindowKey, QLatin1String(name),
                            QStringLiteral("HIDE"));
    m->showPair();
    QVERIFY(!shown("Toolbar1") && shown("PicNumeri1") && shown("TextOpcode"));
    QVERIFY(!shown("PictureBookmarks"));
}

void tst_ProjectArrangements::fontSize_goesToBothEditors()
{
    m->showPair();
    const int gutter = place("PicNumeri1").width();
    m->trigger("menuFontSize(14)");
    QCOMPARE(m->orchestra->FontSize(), 20.0);
    QCOMPARE(m->score->FontSize(), 20.0);
    QVERIFY(place("PicNumeri2").width() > gutter);
    m->trigger("buttonCaratterePiu");
    QCOMPARE(m->score->FontSize(), 20.0);
    m->trigger("buttonCarattereMeno");
    QCOMPARE(m->orchestra->FontSize(), 19.0);
}

void tst_ProjectArrangements::bookmarks_goToTheFocusedEditor()
{
    m->showPair();
    m->score->setFocus();
    press(m->score, Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(m->control<QTreeWidget>("Tree2")->topLevelItem(0)->text(0),
             QStringLiteral("-> i1 0 1"));
    QCOMPARE(m->control<QTreeWidget>("Tree1")->topLevelItem(0)->text(0), QStringLiteral("..."));
    QVERIFY(m->config.ScoreModified && !m->config.OrchestraModified);
    m->control<QLineEdit>("TextOpcode")->setFocus();
    m->trigger("menuToolsRemoveAllBookmark"); // on neither
    QCOMPARE(m->score->GetBookmarkLine(1), 1);
    m->score->setFocus();
    m->trigger("menuToolsRemoveBookmark");
    QCOMPARE(m->score->GetBookmarkLine(1), -1);
}

void tst_ProjectArrangements::bookmarksPanel_showsHidesAndMoves()
{
    m->showPair();
    auto *panel = m->control<QWidget>("PictureBookmarks");
    QVERIFY(!panel->isVisible());
    press(m->orchestra, Qt::Key_2, Qt::ControlModifier);
    QVERIFY(panel->isVisible());
    const int outer = m->window->frameGeometry().width();
    const QPoint start(outer - panel->width() - 27, place("LEDIT1").top() + 2);
    QCOMPARE(panel->pos(), start);
    QVERIFY(m->control<QAction>("menuWindowBarraBook")->isChecked());
    drag(m->control<QWidget>("LabelBookmarks"), {-30, 25});
    QCOMPARE(panel->pos(), start + QPoint(-30, 25));
    m->trigger("menuVisualizzaReset"); // stays where it was dropped
    QCOMPARE(panel->pos(), start + QPoint(-30, 25));
    QTest::mouseClick(m->control<QWidget>("buttonBookmarks"), Qt::LeftButton);
    QVERIFY(!panel->isVisible());
    m->trigger("menuWindowBarraBook");
    QCOMPARE(panel->pos(), start);
    m->trigger("menuWindowAllTools");
    QVERIFY(panel->isVisible());
}

void tst_ProjectArrangements::smallestWindow_showsEverythingInside()
{
    m->showPair();
    m->window->resize(m->window->minimumSize());
    QTRY_COMPARE(m->window->size(), m->window->minimumSize());
    for (const char *command : {"menuVisualizzaOrizzontale", "menuVisualizzaVerticale",
                                "menuVisualizzaOrchestra", "menuVisualizzaScore"}) {
        m->trigger(command);
        for (LEditOCX *editor : {m->orchestra, m->score})
            if (editor->isVisible())
                QVERIFY2(editor->width() > 100 && editor->height() > 60, command);
    }
}

ARDIPHON_TEST(tst_ProjectArrangements, QApplication)
#include "tst_ProjectArrangements.moc"
