#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "support/EditorInput.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QMenu>

using namespace ardiphon;

/// The menu "Text": its commands by their keys, in one view and in two.
class tst_LineFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void menu_hasTheCommands();
    void command_isOneStep_data();
    void command_isOneStep();
    void selection_staysAtItsLetters_data();
    void selection_staysAtItsLetters();
    void move_atTheEnds_doesNothing();
    void move_takesWhatIsHiddenAlong();
    void move_passesWhatIsHidden();
    void move_keepsBookmarks();
    void duplicate_ofHiddenLines_hidesTheCopy();
    void lineEnds_areThoseOfTheFile();
    void move_bringsTheCaretIntoView();
    void split_getsTheSame_data();
    void split_getsTheSame();
    void split_getsWhatFurtherCaretsType();
    void nextOccurrence_isTypedOver();
    void project_worksOnTheHalfWithTheFocus();

private:
    void pressKeys(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        m_window->activateWindow(); // where no window manager does
        require(QTest::qWaitFor([&] { return m_window->isActiveWindow(); }), "it is not active");
        QTest::keyClick(m_window->focusWidget(), key, modifiers);
    }
    void carryOut(const QString &command)
    {
        if (command == QLatin1String("menuStudioComment"))
            pressKeys(Qt::Key_Slash, Qt::ControlModifier);
        else if (command == QLatin1String("menuStudioDuplicate"))
            pressKeys(Qt::Key_D, CtrlShift);
        else if (command == QLatin1String("menuStudioMoveUp"))
            pressKeys(Qt::Key_A, CtrlShift);
        else if (command == QLatin1String("menuStudioMoveDown"))
            pressKeys(Qt::Key_B, CtrlShift);
        else if (command == QLatin1String("menuStudioNextOccurrence"))
            pressKeys(Qt::Key_N, CtrlShift);
        else
            trigger(command.toLatin1().constData());
    }

    static constexpr Qt::KeyboardModifiers CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
};

namespace {

QString shownText(const LEditOCX &editor)
{
    return editor.Text().replace(QLatin1String("\r\n"), QLatin1String("|"));
}

} // namespace

void tst_LineFeature::menu_hasTheCommands()
{
    show();
    const auto *const menu = control<QMenu>("menuStudioText");
    QCOMPARE(menu->title(), QStringLiteral("&Text"));
    QVERIFY(control<QMenu>("menuStudio")->actions().contains(menu->menuAction()));
    QStringList rows;
    for (const QAction *const entry : menu->actions()) {
        const QString key = entry->shortcut().toString();
        rows.append(entry->isSeparator() ? QStringLiteral("-")
                    : key.isEmpty()      ? entry->text()
                                         : entry->text() + u'\t' + key);
    }
    QCOMPARE(
        rows.join(u'|'),
        QStringLiteral("&Comment or Uncomment\tCtrl+/|-|&Duplicate\tCtrl+Shift+D|"
                       "Move &Up\tCtrl+Shift+A|Move D&own\tCtrl+Shift+B|"
                       "Delete to Line's &End|&Join Lines|Re-&indent|-|U&pper Case|&Lower Case|-|"
                       "Select &Next Occurrence\tCtrl+Shift+N"));
}

void tst_LineFeature::command_isOneStep_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("after"); // of "ab|  cd|ef" with the caret behind "c"

    QTest::newRow("comment") << "menuStudioComment"
                             << "ab|  ;cd|ef";
    QTest::newRow("duplicate") << "menuStudioDuplicate"
                               << "ab|  cd|  cd|ef";
    QTest::newRow("up") << "menuStudioMoveUp"
                        << "  cd|ab|ef";
    QTest::newRow("down") << "menuStudioMoveDown"
                          << "ab|ef|  cd";
    QTest::newRow("to the end") << "menuStudioDeleteToEnd"
                                << "ab|  c|ef";
    QTest::newRow("join") << "menuStudioJoin"
                          << "ab|  cd ef";
    QTest::newRow("upper") << "menuStudioUpperCase"
                           << "ab|  CD|ef";
}

void tst_LineFeature::command_isOneStep()
{
    QFETCH(QString, command);
    QFETCH(QString, after);

    show("ab\r\n  cd\r\nef");
    const QString before = shownText(*first());
    caret(first(), 2, 3);
    ShadowText shadow(*first());
    carryOut(command);
    QCOMPARE(shownText(*first()), after);
    QCOMPARE(shadow.changes().size(), 1);
    QCOMPARE(shadow.faults(), QString());
    QCOMPARE(first()->LineText(first()->CaretLine()).at(first()->CaretColumn() - 1).toLower(),
             u'c');
    EditorInput::press(*first(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shownText(*first()), before);
    QVERIFY(!first()->GetState(TextState));
}

void tst_LineFeature::selection_staysAtItsLetters_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<int>>("span");
    QTest::addColumn<QString>("after"); // of "ab|cd|ef|gh"
    QTest::addColumn<QString>("selected");

    const QList<int> lines{2, 0, 4, 0}; // two whole lines
    const QList<int> letters{2, 1, 3, 1};
    QTest::newRow("comment") << "menuStudioComment" << lines << "ab|;cd|;ef|gh"
                             << "2:0-4:0";
    QTest::newRow("comment, letters") << "menuStudioComment" << letters << "ab|;cd|;ef|gh"
                                      << "2:2-3:2";
    QTest::newRow("duplicate") << "menuStudioDuplicate" << lines << "ab|cd|ef|cd|ef|gh"
                               << "2:0-4:0";
    QTest::newRow("up") << "menuStudioMoveUp" << lines << "cd|ef|ab|gh"
                        << "1:0-3:0";
    QTest::newRow("up, letters") << "menuStudioMoveUp" << letters << "cd|ef|ab|gh"
                                 << "1:1-2:1";
    QTest::newRow("down, letters") << "menuStudioMoveDown" << letters << "ab|gh|cd|ef"
                                   << "3:1-4:1";
    QTest::newRow("down, from the beginning")
        << "menuStudioMoveDown" << QList<int>{1, 0, 1, 1} << "cd|ab|ef|gh"
        << "2:0-2:1";
    QTest::newRow("up, the last line")
        << "menuStudioMoveUp" << QList<int>{4, 0, 4, 2} << "ab|cd|gh|ef"
        << "3:0-3:2";
    QTest::newRow("lower") << "menuStudioUpperCase" << letters << "ab|cD|Ef|gh"
                           << "2:1-3:1";
    QTest::newRow("join") << "menuStudioJoin" << letters << "ab|cd ef|gh"
                          << "2:1-2:4";
}

void tst_LineFeature::selection_staysAtItsLetters()
{
    QFETCH(QString, command);
    QFETCH(QList<int>, span);
    QFETCH(QString, after);
    QFETCH(QString, selected);

    show("ab\r\ncd\r\nef\r\ngh");
    caret(first(), span[0], span[1], span[2], span[3]);
    carryOut(command);
    QCOMPARE(shownText(*first()), after);
    QCOMPARE(EditorInput::selection(*first()), selected);
}

void tst_LineFeature::move_atTheEnds_doesNothing()
{
    show("ab\r\ncd");
    const quint64 revision = first()->TextRevision();
    caret(first(), 1, 1);
    carryOut("menuStudioMoveUp");
    caret(first(), 2, 1);
    carryOut("menuStudioMoveDown");
    caret(first(), 2, 2);
    carryOut("menuStudioDeleteToEnd");
    carryOut("menuStudioJoin");
    QCOMPARE(first()->TextRevision(), revision);
}

void tst_LineFeature::move_takesWhatIsHiddenAlong()
{
    show("a\r\nhead\r\n1\r\n2\r\nb\r\nc");
    first()->FoldLines({{3, 4}});
    caret(first(), 2, 2);
    carryOut("menuStudioMoveDown");
    QCOMPARE(shownText(*first()), QStringLiteral("a|b|head|1|2|c"));
    QCOMPARE(first()->HiddenUnder(3), (LineRun{4, 5}));
    carryOut("menuStudioMoveDown");
    QCOMPARE(shownText(*first()), QStringLiteral("a|b|c|head|1|2"));
    QCOMPARE(first()->HiddenUnder(4), (LineRun{5, 6}));
    for (int i = 0; i < 3; ++i)
        carryOut("menuStudioMoveUp");
    QCOMPARE(shownText(*first()), QStringLiteral("head|1|2|a|b|c"));
    QCOMPARE(first()->HiddenUnder(1), (LineRun{2, 3}));
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("1:2-1:2"));
}

void tst_LineFeature::move_passesWhatIsHidden()
{
    show("a\r\nhead\r\n1\r\n2\r\nb");
    first()->FoldLines({{3, 4}});
    caret(first(), 1, 1);
    carryOut("menuStudioMoveDown");
    QCOMPARE(shownText(*first()), QStringLiteral("head|1|2|a|b"));
    QCOMPARE(first()->HiddenUnder(1), (LineRun{2, 3}));
    carryOut("menuStudioMoveUp");
    QCOMPARE(shownText(*first()), QStringLiteral("a|head|1|2|b"));
    QCOMPARE(first()->HiddenUnder(2), (LineRun{3, 4}));
    caret(first(), 5, 0);
    carryOut("menuStudioMoveUp");
    QCOMPARE(shownText(*first()), QStringLiteral("a|b|head|1|2"));
    QCOMPARE(first()->HiddenUnder(3), (LineRun{4, 5}));
}

/// Of the lines that are moved, and of those that they pass; also by undo and redo.
void tst_LineFeature::move_keepsBookmarks()
{
    show("a\r\nb\r\nc\r\nd");
    for (int line = 1; line <= 4; ++line)
        first()->SetBookmarkLine(line, line);
    const auto bookmarked = [this] {
        QString letters;
        for (int slot = 1; slot <= 4; ++slot)
            letters += first()->LineText(first()->GetBookmarkLine(slot));
        return letters;
    };
    for (const char *const command : {"menuStudioMoveUp", "menuStudioMoveDown"}) {
        for (const int line : {1, 2, 3, 4}) {
            caret(first(), line, 0);
            carryOut(QLatin1String(command));
            QString found = bookmarked();
            first()->Undo();
            found += u' ' + bookmarked();
            first()->Redo();
            found += u' ' + bookmarked();
            QCOMPARE(found, QStringLiteral("abcd abcd abcd"));
        }
    }
}

void tst_LineFeature::duplicate_ofHiddenLines_hidesTheCopy()
{
    show("head\r\n1\r\n2\r\nb");
    first()->FoldLines({{2, 3}});
    carryOut("menuStudioDuplicate");
    QCOMPARE(shownText(*first()), QStringLiteral("head|1|2|head|1|2|b"));
    QCOMPARE(first()->HiddenUnder(1), (LineRun{2, 3}));
    QCOMPARE(first()->HiddenUnder(4), (LineRun{5, 6}));
}

void tst_LineFeature::lineEnds_areThoseOfTheFile()
{
    for (const QByteArray end : {"\n", "\r"}) {
        show("a" + end + "b" + end + "c");
        caret(first(), 3, 1);
        carryOut("menuStudioMoveUp");
        carryOut("menuStudioDuplicate");
        trigger("menuFileSalvaOrchestra");
        QCOMPARE(m_program->read(QStringLiteral("piece.csd")),
                 "a" + end + "c" + end + "c" + end + "b");
        delete m_window;
    }
}

void tst_LineFeature::move_bringsTheCaretIntoView()
{
    show(QByteArray("line\r\n").repeated(200));
    caret(first(), 1, 0);
    for (int i = 0; i < 100; ++i)
        carryOut("menuStudioMoveDown");
    QCOMPARE(first()->CaretLine(), 101);
    QVERIFY(first()->LineAt(first()->height() - 1) >= 101);
    QVERIFY(first()->TopLine() <= 101);
    for (int i = 0; i < 90; ++i)
        carryOut("menuStudioMoveUp");
    QCOMPARE(first()->CaretLine(), 11);
    QVERIFY(first()->TopLine() <= 11);
}

void tst_LineFeature::split_getsTheSame_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("inSecond");
    for (const char *const command :
         {"menuStudioComment", "menuStudioDuplicate", "menuStudioMoveUp", "menuStudioMoveDown",
          "menuStudioDeleteToEnd", "menuStudioJoin", "menuStudioUpperCase"}) {
        QTest::addRow("%s first", command) << QString::fromLatin1(command) << false;
        QTest::addRow("%s second", command) << QString::fromLatin1(command) << true;
    }
}

/// At once, and each view keeps its own caret.
void tst_LineFeature::split_getsTheSame()
{
    QFETCH(QString, command);
    QFETCH(bool, inSecond);
    show("ab\r\ncd\r\nef\r\ngh\r\nij");
    trigger("buttonSplit");
    QTRY_COMPARE(second()->Text(), first()->Text());
    LEditOCX *const typed = inSecond ? second() : first();
    LEditOCX *const other = inSecond ? first() : second();
    const QString before = typed->Text();
    caret(other, 5, 1);
    typed->setFocus();
    caret(typed, 2, 1);
    ShadowText shadow(*other);
    carryOut(command);
    QVERIFY(typed->Text() != before);
    QCOMPARE(other->Text(), typed->Text());
    QCOMPARE(shadow.changes().size(), 1);
    QCOMPARE(other->LineText(other->CaretLine()), QStringLiteral("ij"));
    QCOMPARE(other->CaretColumn(), 1);
}

void tst_LineFeature::split_getsWhatFurtherCaretsType()
{
    show("ab ab\r\nab");
    trigger("buttonSplit");
    QTRY_COMPARE(second()->Text(), first()->Text());
    second()->setFocus();
    caret(second(), 1, 1);
    for (int i = 0; i < 3; ++i)
        carryOut("menuStudioNextOccurrence");
    EditorInput::type(*second(), QStringLiteral("xyz"));
    QCOMPARE(shownText(*second()), QStringLiteral("xyz xyz|xyz"));
    QTRY_COMPARE(shownText(*first()), QStringLiteral("xyz xyz|xyz"));
    EditorInput::press(*second(), Qt::Key_Backspace);
    QTRY_COMPARE(shownText(*first()), QStringLiteral("xy xy|xy"));
    QCOMPARE(shownText(*second()), QStringLiteral("xy xy|xy"));
}

void tst_LineFeature::nextOccurrence_isTypedOver()
{
    show("kamp init 1\r\nout kamp, kamps");
    caret(first(), 1, 2);
    carryOut("menuStudioNextOccurrence");
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("1:0-1:4"));
    QVERIFY(!first()->HasFurtherCarets());
    carryOut("menuStudioNextOccurrence");
    QVERIFY(first()->HasFurtherCarets());
    carryOut("menuStudioNextOccurrence"); // no more: it is part of another word
    EditorInput::type(*first(), QStringLiteral("i1"));
    QCOMPARE(shownText(*first()), QStringLiteral("i1 init 1|out i1, kamps"));
}

void tst_LineFeature::project_worksOnTheHalfWithTheFocus()
{
    ProjectWindow project;
    project.showPair("asig\r\n", "i 1 0 1\r\n");
    project.score->setFocus();
    QTRY_VERIFY(project.score->hasFocus());
    project.trigger("menuStudioComment");
    QCOMPARE(project.score->Text(), QStringLiteral(";i 1 0 1\r\n"));
    QCOMPARE(project.orchestra->Text(), QStringLiteral("asig\r\n"));
}

ARDIPHON_TEST(tst_LineFeature, QApplication)
#include "tst_LineFeature.moc"
