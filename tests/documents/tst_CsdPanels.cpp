#include "documents/CsdFixture.h"
#include "support/TestMain.h"

#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QTreeWidget>

using namespace ardiphon;

/// What is around the text of the CSD window: tools, tags and bookmarks.
class tst_CsdPanels : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Tools.
    void tools_keptValues_areApplied();
    void tools_notKept_areShown();
    void tools_toggle_showsAndHides();
    void tools_keys_workWhereverTheFocusIs();
    void tools_secondGutter_goesWithTheSplit();
    void tools_hideAllThenToggle_bringsOneBack();
    void tools_allFlagsOff_hideAllRestores();
    void tools_menuWindow_checksMatchTheFlags();
    void tools_restoreAll_gutterWithoutItsFlag_isNotSeen();
    void tools_millionLines_widenTheGutter();
    void window_halves_fillTheWorkArea();
    void window_takesThePlacementThatWasKept();

    // Side panel.
    void tags_documentWords_appearOneByOne();
    void tags_emptyUnmodifiedText_leavesTheTree();
    void tags_listClick_insertsTheWordOnce();
    void bookmarks_ctrlB_setsAndRemoves();
    void bookmarks_line_isWhiteOnRed();
    void bookmarks_sixteenth_isRefused();
    void bookmarks_survive_inTheSideFile();
    void bookmarks_flag_isClearedByASideFileAlone();
    void bookmarks_sideFile_goesWithTheLast();
    void bookmarks_documentWithTheSideFilesName_isSafe();
    void bookmarks_click_goesToTheLine();
    void bookmarks_clickAfterASearch_selectsNothing();
    void bookmarks_undoneDeletion_isInTheTreeAndTheSideFile();
};

// Tools. ------------------------------------------------------------------------------------------

void tst_CsdPanels::tools_keptValues_areApplied()
{
    WriteRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("LineNumbers"),
                        QStringLiteral("HIDE"));
    WriteRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("Toolbar"),
                        QStringLiteral("hide")); // only the exact word hides
    show();
    QVERIFY(!m_program->config.LineNumbersVisible);
    QVERIFY(control<QWidget>("PicNumeri")->isHidden());
    QVERIFY(m_program->config.ToolbarVisible);
    QVERIFY(control<QWidget>("Toolbar1")->isVisible());
}

void tst_CsdPanels::tools_notKept_areShown()
{
    WriteRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("LineNumbers"),
                        QStringLiteral("HIDE"));
    m_program->config.SaveToolsPreferences = QStringLiteral("NO");
    show();
    QVERIFY(m_program->config.LineNumbersVisible);
    trigger("menuWindowToolbar");
    m_window->close();
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("Toolbar")),
        QString());
}

void tst_CsdPanels::tools_toggle_showsAndHides()
{
    show();
    const QRect wide = first()->geometry();
    QTest::keyClick(first()->focusProxy(), Qt::Key_2, Qt::ControlModifier);
    for (const char *name :
         {"Tree", "Tree2", "List1", "LabelTags", "LabelBookmarks", "LabelOwnBook"})
        QVERIFY2(control<QWidget>(name)->isHidden(), name);
    QVERIFY(first()->geometry().left() < wide.left());
    QTest::keyClick(first()->focusProxy(), Qt::Key_1, Qt::ControlModifier);
    QVERIFY(control<QWidget>("PicNumeri")->isHidden());
    QTest::keyClick(first()->focusProxy(), Qt::Key_2, Qt::ControlModifier);
    QVERIFY(control<QWidget>("Tree")->isVisible());
}

void tst_CsdPanels::tools_keys_workWhereverTheFocusIs()
{
    show();
    for (const char *name : {"TextInstr", "List1", "Tree"}) {
        auto *focused = control<QWidget>(name);
        focused->setFocus();
        for (const bool shown : {false, true}) {
            QTest::keyClick(focused, Qt::Key_3, Qt::ControlModifier);
            QCOMPARE(control<QWidget>("TextOpcode")->isVisible(), shown);
        }
    }
}

void tst_CsdPanels::tools_secondGutter_goesWithTheSplit()
{
    show();
    const auto *gutter = control<QWidget>("PicNumeri2");
    trigger("menuWindowRestore");
    QVERIFY(gutter->isHidden());
    trigger("buttonSplit");
    QVERIFY(gutter->isVisible());
    QCOMPARE(gutter->y(), second()->y());
    QCOMPARE(gutter->height(), second()->height());
    trigger("menuWindowLineNumbers");
    QVERIFY(gutter->isHidden());
    trigger("menuWindowLineNumbers");
    QVERIFY(gutter->isVisible());
    trigger("buttonSplit");
    QVERIFY(gutter->isHidden());
}

void tst_CsdPanels::tools_hideAllThenToggle_bringsOneBack()
{
    show();
    QTest::keyClick(first()->focusProxy(), Qt::Key_5, Qt::ControlModifier);
    QVERIFY(control<QWidget>("PicNumeri")->isHidden());
    QVERIFY(control<QWidget>("Toolbar1")->isHidden());
    QVERIFY(m_program->config.LineNumbersVisible); // the flags did not change
    trigger("menuWindowLineNumbers");
    QVERIFY(!m_program->config.LineNumbersVisible);
    trigger("menuWindowLineNumbers");
    QVERIFY(control<QWidget>("PicNumeri")->isVisible());
    QVERIFY(control<QWidget>("Toolbar1")->isHidden());
    QTest::keyClick(first()->focusProxy(), Qt::Key_6, Qt::ControlModifier);
    QVERIFY(control<QWidget>("Toolbar1")->isVisible());
}

void tst_CsdPanels::tools_allFlagsOff_hideAllRestores()
{
    show();
    m_program->config.LineNumbersVisible = m_program->config.BookBarVisible = false;
    m_program->config.OnLineHelpVisible = m_program->config.ToolbarVisible = false;
    control<QWidget>("Toolbar1")->hide();
    trigger("menuWindowAllTools");
    QVERIFY(control<QWidget>("Toolbar1")->isVisible());
    QVERIFY(!m_program->config.ToolbarVisible);
}

void tst_CsdPanels::tools_menuWindow_checksMatchTheFlags()
{
    show();
    auto *menu = control<QMenu>("menuWindow");
    trigger("menuWindowLineNumbers");
    emit menu->aboutToShow();
    QVERIFY(!action("menuWindowLineNumbers")->isChecked());
    QVERIFY(action("menuWindowBarraBook")->isChecked());
    QVERIFY(action("menuWindowToolbar")->isChecked());
}

/// Restore shows the control, which draws no number as long as the flag is off, and is behind
/// the text.
void tst_CsdPanels::tools_restoreAll_gutterWithoutItsFlag_isNotSeen()
{
    show("one\ntwo\nthree\n");
    trigger("menuWindowLineNumbers");
    control<QWidget>("Tree")->setFocus(); // no caret
    const auto text = [this] {
        QCoreApplication::processEvents();
        return m_window->grab(QRect(first()->mapTo(m_window, QPoint(0, 0)), first()->size()))
            .toImage();
    };
    const QImage before = text();
    trigger("menuWindowRestore");
    QVERIFY(control<QWidget>("PicNumeri")->isVisible());
    QCOMPARE(text(), before);
    const QPoint begin = first()->PositionToPixels(1, 0) + QPoint(2, 2);
    QVERIFY(first()->isAncestorOf(m_window->childAt(first()->mapTo(m_window, begin))));
}

void tst_CsdPanels::tools_millionLines_widenTheGutter()
{
    show(QByteArray("\n").repeated(999'990));
    const auto *gutter = control<QWidget>("PicNumeri");
    const auto widthOf = [gutter](const char *zeros) {
        return QFontMetrics(gutter->font()).horizontalAdvance(QLatin1String(zeros));
    };
    QCOMPARE(gutter->width(), widthOf("000000"));
    QCOMPARE(first()->x(), gutter->x() + gutter->width());
    caret(first(), first()->LineCount(), 0);
    for (int line = 0; line < 20; ++line)
        QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTRY_COMPARE(gutter->width(), widthOf("0000000"));
    QCOMPARE(first()->x(), gutter->x() + gutter->width());
    first()->ClearState(TextState);
}

void tst_CsdPanels::window_halves_fillTheWorkArea()
{
    show();
    const QRect area = m_window->screen()->availableGeometry();
    trigger("menuWindowDown");
    QTRY_COMPARE(m_window->frameGeometry().top(), area.top() + area.height() / 2);
    trigger("menuWindowRight");
    QTRY_COMPARE(m_window->frameGeometry().left(), area.left() + area.width() / 2);
    QCOMPARE(m_program->config.WorkArea, area);
    trigger("menuWindowLeft");
    QTRY_COMPARE(m_window->frameGeometry().left(), area.left());
    QVERIFY(m_window->frameGeometry().width() <
            area.width()); // half the test's screen is too little
    QCOMPARE(m_window->frameGeometry().height(), area.height());
    m_window->showMaximized();
    QTRY_VERIFY(m_window->isMaximized());
    trigger("menuWindowUp");
    QTRY_VERIFY(!m_window->isMaximized());
    QTRY_COMPARE(m_window->frameGeometry(),
                 QRect(area.left(), area.top(), area.width(), area.height() / 2));
}

void tst_CsdPanels::window_takesThePlacementThatWasKept()
{
    m_program->config.WindowLeft = 30L * 15;
    m_program->config.WindowTop = 20L * 15;
    m_program->config.WindowWidth = 700L * 15;
    m_program->config.WindowHeight = 500L * 15;
    show();
    QCOMPARE(m_window->pos(), QPoint(30, 20));
    QCOMPARE(m_window->size(), QSize(700, 500));
    delete m_window;
    m_program->config.WindowMaximized = true;
    show();
    QVERIFY(m_window->isMaximized());
}

// Side panel. -------------------------------------------------------------------------------------

void tst_CsdPanels::tags_documentWords_appearOneByOne()
{
    show("<CsScore>\n</CsScore>\n<csoptions>\n");
    const auto *tree = control<QTreeWidget>("Tree");
    QCOMPARE(tree->topLevelItemCount(), int(m_program->config.Words->CsdWords.size()) - 1);
    QCOMPARE(tree->topLevelItem(0)->foreground(0).color(), QColor(0, 0, 255));
    QTRY_COMPARE(tree->topLevelItem(7)->text(0), QStringLiteral("</CsScore>"));
    QCOMPARE(tree->topLevelItem(6)->text(0), QStringLiteral("<CsScore>"));
    QCOMPARE(tree->topLevelItem(2)->text(0), QStringLiteral("...")); // the case differs
    first()->SetText(QStringLiteral("e"));
    QTRY_COMPARE(tree->topLevelItem(7)->text(0), QStringLiteral("..."));
}

/// Nothing is looked for in a text that is empty and was not touched.
void tst_CsdPanels::tags_emptyUnmodifiedText_leavesTheTree()
{
    show("<CsScore>");
    const auto *tree = control<QTreeWidget>("Tree");
    QTRY_COMPARE(tree->topLevelItem(6)->text(0), QStringLiteral("<CsScore>"));
    first()->SetText(QString());
    first()->ClearState(TextState);
    auto *timer = control<QTimer>("Timer1");
    for (qsizetype tick = 0; tick <= m_program->config.Words->CsdWords.size(); ++tick) {
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }
    QCOMPARE(tree->topLevelItem(6)->text(0), QStringLiteral("<CsScore>"));
}

void tst_CsdPanels::tags_listClick_insertsTheWordOnce()
{
    show("ab");
    trigger("buttonSplit");
    auto *list = control<QListWidget>("List1");
    const QRect row = list->visualItemRect(list->item(2));
    caret(first(), 1, 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(first()->Text(), QStringLiteral("a<CsOptions>\r\nb"));
    QCOMPARE(second()->Text(), first()->Text());
    QVERIFY(!list->currentItem());
    QVERIFY(first()->hasFocus());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(first()->Text(), QStringLiteral("a<CsOptions>\r\nb"));
    QVERIFY(first()->hasFocus());
    first()->SelectAll();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(4)).center());
    QCOMPARE(first()->Text(), list->item(4)->text() + QStringLiteral("\r\n"));
}

void tst_CsdPanels::bookmarks_ctrlB_setsAndRemoves()
{
    show("instr\t1\n\nendin\n");
    const auto *tree = control<QTreeWidget>("Tree2");
    QCOMPARE(tree->topLevelItemCount(), 15);
    QTest::keyClick(first()->focusProxy(), Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("-> instr 1"));
    QCOMPARE(first()->GetBookmarkLine(1), 1);
    QVERIFY(m_program->config.CSDModified);
    const auto background = [this] { // of the first line, behind its text
        return first()->grab().toImage().pixelColor(400, first()->PositionToPixels(1, 0).y() +
                                                             first()->LineHeight() / 2);
    };
    QCOMPARE(background(), QColor(240, 0, 0));
    QCOMPARE(tree->topLevelItem(0)->foreground(0).color(), QColor(0, 0, 255));
    caret(first(), 3, 0);
    trigger("menuPopupBookmark");
    caret(first(), 1, 2);
    trigger("menuToolsBookmark"); // the same command takes it away
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("..."));
    QCOMPARE(first()->GetBookmarkLine(1), -1);
    QVERIFY(background() != QColor(240, 0, 0));
    caret(first(), 2, 0);
    trigger("menuToolsBookmark"); // the free slot is the first to be used again
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("-> "));
    trigger("menuToolsRemoveAllBookmark");
    QCOMPARE(tree->topLevelItem(1)->text(0), QStringLiteral("..."));
}

void tst_CsdPanels::bookmarks_line_isWhiteOnRed()
{
    show("instr 1\nMMMMMMMM\n");
    caret(first(), 2, 0);
    trigger("menuToolsBookmark");
    caret(first(), 1, 0);
    const QPoint top = first()->PositionToPixels(2, 0);
    const QImage line =
        first()->grab(QRect(top.x(), top.y(), 400, first()->LineHeight())).toImage();
    QCOMPARE(line.pixelColor(350, line.height() / 2), QColor(240, 0, 0));
    bool white = false;
    for (int y = 0; y < line.height(); ++y)
        for (int x = 0; x < 100; ++x)
            white = white || line.pixelColor(x, y) == QColor(255, 255, 255);
    QVERIFY(white);
}

void tst_CsdPanels::bookmarks_sixteenth_isRefused()
{
    show(QByteArray("line\n").repeated(20));
    for (int line = 1; line <= 15; ++line) {
        caret(first(), line, 0);
        trigger("menuToolsBookmark");
    }
    const Message full{QStringLiteral("You can insert max 15 Bookmarks!"),
                       QStringLiteral("Bookmark informations"), MessageIcon::Information,
                       MessageButtons::Ok};
    caret(first(), 16, 0);
    m_program->dialogs.expect(full);
    trigger("menuToolsBookmark");
    caret(first(), 3, 0); // even a line that has one
    m_program->dialogs.expect(full);
    trigger("menuToolsBookmark");
    QCOMPARE(first()->GetBookmarkLine(3), 3);
    trigger("menuToolsRemoveBookmark");
    QCOMPARE(first()->GetBookmarkLine(3), -1);
}

void tst_CsdPanels::bookmarks_survive_inTheSideFile()
{
    show("a\nb\nc\nd\n");
    for (int line = 2; line <= 4; ++line) {
        caret(first(), line, 0);
        trigger("menuToolsBookmark");
    }
    caret(first(), 3, 0);
    trigger("menuToolsRemoveBookmark");
    caret(first(), 1, 0);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return); // the lines move down by one
    trigger("menuFileSalvaOrchestra");

    const QByteArray none = QByteArray("[NONE]").leftJustified(20);
    const auto record = [](const char *line, const char *text) {
        return QByteArray(line).leftJustified(20) + QByteArray(text).leftJustified(20);
    };
    QCOMPARE(m_program->read(QStringLiteral("piece.bkm")),
             record("3", "-> b") + none + none + record("5", "-> d") +
                 QByteArray(none + none).repeated(12));
    QVERIFY(!m_program->config.CSDModified);

    delete m_window;
    m_window = new FormCSD(m_program->context);
    QCOMPARE(first()->GetBookmarkLine(1), 3);
    QCOMPARE(first()->GetBookmarkLine(2), -1);
    QCOMPARE(first()->GetBookmarkLine(3), 5);
    QCOMPARE(control<QTreeWidget>("Tree2")->topLevelItem(2)->text(0),
             QStringLiteral("-> d").leftJustified(20));
}

void tst_CsdPanels::bookmarks_flag_isClearedByASideFileAlone()
{
    show("a\n");
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    trigger("menuToolsRemoveAllBookmark");
    const QByteArray sideFile = m_program->read(QStringLiteral("piece.bkm"));
    const auto open = [this](const char *name) {
        const QString path = m_program->write(QLatin1String(name), "b\n");
        m_program->dialogs.expectOpen(QStringLiteral("Open File"), path);
        trigger("menuFileApriOrchestra");
    };
    open("other.csd");
    QVERIFY(m_program->config.CSDModified);
    m_program->write(QStringLiteral("third.bkm"), sideFile);
    open("third.csd");
    QVERIFY(!m_program->config.CSDModified);
    QCOMPARE(first()->GetBookmarkLine(1), 1);
}

void tst_CsdPanels::bookmarks_sideFile_goesWithTheLast()
{
    show("a\n");
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    QVERIFY(QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    QVERIFY(!QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));
}

/// A text that bears a side file's name is still a text.
void tst_CsdPanels::bookmarks_documentWithTheSideFilesName_isSafe()
{
    show();
    m_program->config.CSDFileName = m_program->write(QStringLiteral("text.bkm"), "my text");
    delete m_window;
    m_window = new FormCSD(m_program->context);
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    trigger("menuToolsRemoveAllBookmark");
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("text.bkm")), QByteArray("my text"));
}

void tst_CsdPanels::bookmarks_click_goesToTheLine()
{
    show(QByteArray("line\n").repeated(300));
    caret(first(), 250, 0);
    trigger("menuToolsBookmark");
    caret(first(), 1, 0);
    auto *tree = control<QTreeWidget>("Tree2");
    const auto click = [tree](int node) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(tree->topLevelItem(node)).center());
    };
    click(0);
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 250);
    QVERIFY(first()->TopLine() <= 250 && first()->TopLine() > 200);
    QVERIFY(first()->hasFocus());
    click(1); // a free slot only gives the focus
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 250);
    QVERIFY(first()->hasFocus());
}

void tst_CsdPanels::bookmarks_clickAfterASearch_selectsNothing()
{
    show("instr 1\n  asig oscili 1, 440\nendin and on\n");
    for (int line = 2; line <= 3; ++line) {
        caret(first(), line, 0);
        trigger("menuToolsBookmark");
    }
    auto *tree = control<QTreeWidget>("Tree2");
    const auto click = [tree](int node) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(tree->topLevelItem(node)).center());
    };
    first()->SetFindText(QStringLiteral("oscili"));
    first()->SetFindDirection(2);
    QCOMPARE(first()->FindFirst(), 1);
    for (int node = 0; node <= 1; ++node) {
        click(node);
        first()->GetSelection();
        QCOMPARE(first()->SelStartLine, 2 + node);
        QCOMPARE(first()->SelectionLength(), 0);
    }
    const QString before = first()->LineText(3);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("x"));
    QCOMPARE(first()->LineText(3), before.left(7) + u'x' + before.mid(7));
    first()->SelectAll(); // over several lines
    first()->GetSelection();
    click(0);
    QCOMPARE(first()->SelectionLength(), 0);
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 2);
}

void tst_CsdPanels::bookmarks_undoneDeletion_isInTheTreeAndTheSideFile()
{
    show("a\nb\nc\nd\ne\n");
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(first()->focusProxy(), key, modifiers);
    };
    for (int line : {4, 2}) {
        caret(first(), line, 0);
        press(Qt::Key_B, Qt::ControlModifier);
    }
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_Z, Qt::ControlModifier);
    caret(first(), 4, 0);
    press(Qt::Key_Y, Qt::ControlModifier);
    trigger("menuModificaUndo");
    trigger("menuModificaRedo");
    trigger("menuModificaUndo");
    auto *tree = control<QTreeWidget>("Tree2");
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("-> d"));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(tree->topLevelItem(0)).center());
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 4);
    trigger("menuFileSalvaOrchestra");
    const QByteArray sideFile = m_program->read(QStringLiteral("piece.bkm"));
    QCOMPARE(sideFile.left(80),
             QByteArray("4").leftJustified(20) + QByteArray("-> d").leftJustified(20) +
                 QByteArray("2").leftJustified(20) + QByteArray("-> b").leftJustified(20));
    press(Qt::Key_B, Qt::ControlModifier); // its bookmark goes, and nothing brings it back
    press(Qt::Key_Y, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("..."));
    QCOMPARE(first()->GetBookmarkLine(1), -1);
}

ARDIPHON_TEST(tst_CsdPanels, QApplication)
#include "tst_CsdPanels.moc"
