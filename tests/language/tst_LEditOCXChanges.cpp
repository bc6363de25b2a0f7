// What the editor control reports of changes to its text. The number of random edits may be
// given as the first argument.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>

using namespace ardiphon;
using namespace EditorInput;

namespace {

int editCount = 4000;

/// "3:1>2" for one line that became two, in the order in which it was reported.
QString reported(ShadowText &shadow)
{
    QStringList all;
    for (const TextChange &change : shadow.changes())
        all.append(QStringLiteral("%1:%2>%3")
                       .arg(change.line)
                       .arg(change.linesRemoved)
                       .arg(change.linesAdded));
    shadow.forgetChanges();
    return all.join(u' ');
}

} // namespace

class tst_LEditOCXChanges : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void key_reportsOneChange_data();
    void key_reportsOneChange();
    void keyThatChangesNothing_reportsNothing();
    void call_reportsTheLinesThatChanged();
    void document_isReportedAsWhole();
    void inputMethod_reportsEachCharacter();
    void droppedText_isReportedBeforeItsKeyPress();
    void assistiveTool_isReported();
    void crAndLfThatMeet_areReportedRight();
    void modified_isReportedAfterTheText();
    void modified_followsSavesAndHistory();
    void follower_thatChangesTheText_isReportedAfter();
    void handlerOfKeyPress_thatChangesTheText_isReportedBefore();
    void copyOfAnotherView_isReportedByEach();
    void randomEdits_keepAShadow();

private:
    void load(const QByteArray &bytes);
    int below(int limit) { return int(m_random.bounded(limit)); }
    QString anyText();
    void editByKey();
    void editByCall();

    std::unique_ptr<LEditOCX> m_editor;
    std::unique_ptr<ShadowText> m_shadow;
    QTemporaryDir m_folder;
    QRandomGenerator m_random{randomSeed(20261122)};
};

void tst_LEditOCXChanges::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(400, 200);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    m_shadow = std::make_unique<ShadowText>(*m_editor);
}

void tst_LEditOCXChanges::load(const QByteArray &bytes)
{
    QFile file(m_folder.filePath(QStringLiteral("document")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the document was not written");
    file.close();
    m_editor->ClearDocument();
    if (!m_editor->LoadFile(file.fileName()))
        qFatal("the document was not read");
    m_shadow->forgetChanges();
}

void tst_LEditOCXChanges::key_reportsOneChange_data()
{
    QTest::addColumn<QString>("selected"); // line:column-line:column
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("change");
    const auto row = [](const char *name, const char *selected, int key, const char *change,
                        int modifiers = 0) {
        QTest::newRow(name) << selected << key << modifiers << change;
    };
    const int ctrl = int(Qt::ControlModifier);
    row("letter", "2:1-2:1", Qt::Key_X, "2:1>1");
    row("letter at the start of a line", "3:0-3:0", Qt::Key_X, "3:1>1");
    row("letter over a selection", "2:1-4:1", Qt::Key_X, "2:3>1");
    row("letter over all", "1:0-5:0", Qt::Key_X, "1:5>1");
    row("Enter", "2:1-2:1", Qt::Key_Return, "2:1>2");
    row("Enter over a selection", "2:1-4:1", Qt::Key_Return, "2:3>2");
    row("Tab", "2:1-2:1", Qt::Key_Tab, "2:1>1");
    row("Tab over lines", "2:0-4:1", Qt::Key_Tab, "2:3>3");
    row("Backspace", "2:1-2:1", Qt::Key_Backspace, "2:1>1");
    row("Backspace at the start of a line", "2:0-2:0", Qt::Key_Backspace, "1:2>1");
    row("Delete", "2:1-2:1", Qt::Key_Delete, "2:1>1");
    row("Delete at the end of a line", "2:3-2:3", Qt::Key_Delete, "2:2>1");
    row("Delete of a selection", "2:1-4:1", Qt::Key_Delete, "2:3>1");
    row("a word left", "2:3-2:3", Qt::Key_Backspace, "2:1>1", ctrl);
    row("a word right", "2:0-2:0", Qt::Key_Delete, "2:1>1", ctrl);
    row("a line", "2:1-2:1", Qt::Key_Y, "2:2>1", ctrl);
    row("Cut", "2:1-4:1", Qt::Key_X, "2:3>1", ctrl);
    row("Paste", "2:1-2:1", Qt::Key_V, "2:1>3", ctrl);
    row("Paste over a selection", "2:1-4:1", Qt::Key_V, "2:3>3", ctrl);
}

void tst_LEditOCXChanges::key_reportsOneChange()
{
    QFETCH(QString, selected);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, change);
    load("one\r\ntwo\r\nthree\r\nfour\r\n");
    QGuiApplication::clipboard()->setText(QStringLiteral("a\nb\nc"));
    const QStringList ends = selected.split(QRegularExpression(QStringLiteral("[:-]")));
    select(*m_editor, ends[0].toInt(), ends[1].toInt(), ends[2].toInt(), ends[3].toInt());
    QCOMPARE(reported(*m_shadow), QString());
    press(*m_editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(reported(*m_shadow), change);
    QCOMPARE(m_shadow->faults(), QString());
    const QStringList after = m_shadow->lines();
    press(*m_editor, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_shadow->changes().size(), 1);
    QCOMPARE(m_shadow->lines(), QStringList({"one", "two", "three", "four", ""}));
    press(*m_editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(m_shadow->changes().size(), 2);
    QCOMPARE(m_shadow->lines(), after);
    QCOMPARE(m_shadow->faults(), QString());
}

void tst_LEditOCXChanges::keyThatChangesNothing_reportsNothing()
{
    load("one\r\ntwo\r\n");
    const quint64 revision = m_editor->TextRevision();
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Down, Qt::Key_End,
                              Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Insert})
        press(*m_editor, key);
    for (const Qt::Key key : {Qt::Key_Z, Qt::Key_C, Qt::Key_X, Qt::Key_A, Qt::Key_End})
        press(*m_editor, key, Qt::ControlModifier);
    m_editor->SelectAll();
    m_editor->Copy();
    m_editor->Undo();
    m_editor->Redo();
    m_editor->SetText(m_editor->Text());
    m_editor->SetText(QStringLiteral("one\ntwo\n")); // the line ends of the document are its own
    m_editor->SetFindText(QStringLiteral("nowhere"));
    m_editor->ReplaceAll();
    m_editor->ReplaceCurrent();
    m_editor->ResetUndo();
    m_editor->ClearState(TextState);
    m_editor->SetBookmarkLine(1, 2);
    m_editor->SetFontSize(20);
    m_editor->grab();
    QCOMPARE(reported(*m_shadow), QString());
    QCOMPARE(m_editor->TextRevision(), revision);
}

void tst_LEditOCXChanges::call_reportsTheLinesThatChanged()
{
    load("one\ntwo\nthree\ntwo\nfive\n");
    m_editor->SetText(QStringLiteral("one\r\ntwo\r\nother\r\nlines\r\ntwo\r\nfive\r\n"));
    QCOMPARE(reported(*m_shadow), "3:1>2");
    m_editor->Undo();
    QCOMPARE(reported(*m_shadow), "3:2>1");
    m_editor->SetFindText(QStringLiteral("two"));
    m_editor->SetReplaceText(QStringLiteral("2\r\n2"));
    m_editor->ReplaceAll();
    QCOMPARE(reported(*m_shadow), "2:3>5");
    m_editor->Undo();
    QCOMPARE(reported(*m_shadow), "2:5>3");
    goTo(*m_editor, 1, 0);
    m_editor->SetFindDirection(1);
    QCOMPARE(m_editor->FindFirst(), 1);
    m_editor->ReplaceCurrent();
    QCOMPARE(reported(*m_shadow), "2:1>2");
    select(*m_editor, 1, 1, 4, 1);
    m_editor->SetSelText(QStringLiteral("x"));
    QCOMPARE(reported(*m_shadow), "1:4>1");
    select(*m_editor, 1, 0, 1, 1);
    m_editor->Cut();
    m_editor->Paste();
    QCOMPARE(reported(*m_shadow), "1:1>1 1:1>1");
    QCOMPARE(m_shadow->faults(), QString());
}

void tst_LEditOCXChanges::document_isReportedAsWhole()
{
    const QString file = m_folder.filePath(QStringLiteral("three"));
    load("a\nb\nc");
    QVERIFY(m_editor->SaveFile(file));
    QCOMPARE(reported(*m_shadow), QString());
    QVERIFY(m_editor->LoadFile(file)); // the same text again
    QCOMPARE(reported(*m_shadow), "1:3>3");
    m_editor->ClearDocument();
    QCOMPARE(reported(*m_shadow), "1:3>1");
    m_editor->ClearDocument();
    QCOMPARE(reported(*m_shadow), "1:1>1");
    QVERIFY(m_editor->LoadFile(file));
    QCOMPARE(reported(*m_shadow), "1:1>3");
    QVERIFY(!m_editor->LoadFile(m_folder.filePath(QStringLiteral("missing"))));
    QCOMPARE(reported(*m_shadow), "1:3>1");
    QCOMPARE(m_shadow->faults(), QString());
}

void tst_LEditOCXChanges::inputMethod_reportsEachCharacter()
{
    load("one\r\n");
    const auto send = [this](const char *composed, const char *committed) {
        QInputMethodEvent event(QString::fromUtf8(composed), {});
        event.setCommitString(QString::fromUtf8(committed));
        QApplication::sendEvent(m_editor->focusProxy(), &event);
        return m_shadow->faults();
    };
    QCOMPARE(send("に", ""), QString());
    QCOMPARE(reported(*m_shadow), "1:1>1");
    QCOMPARE(send("", "日本"), QString());
    QCOMPARE(reported(*m_shadow), "1:1>1 1:1>1 1:1>1"); // what was composed is taken away
    QCOMPARE(send("", "🎵"), QString());
    QCOMPARE(reported(*m_shadow), "1:1>1");
}

void tst_LEditOCXChanges::droppedText_isReportedBeforeItsKeyPress()
{
    load("one two");
    QStringList order;
    connect(m_editor.get(), &LEditOCX::textChanged, this, [&] { order.append("text"); });
    connect(m_editor.get(), &LEditOCX::KeyPress, this, [&] { order.append("key"); });
    QMimeData text;
    text.setText(QStringLiteral("x\ny"));
    QWidget *viewport = m_editor->focusProxy()->findChild<QWidget *>("qt_scrollarea_viewport");
    const QPoint at = m_editor->PositionToPixels(1, 4) + QPoint(1, 5);
    QDragEnterEvent enter(at, Qt::CopyAction, &text, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &enter);
    QDropEvent drop(at, Qt::CopyAction, &text, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &drop);
    QCOMPARE(reported(*m_shadow), "1:1>2");
    QCOMPARE(order, QStringList({"text", "key"}));
    QCOMPARE(m_shadow->faults(), QString());
}

/// The library changes the text by itself, and the control hears of it as the view is drawn.
void tst_LEditOCXChanges::assistiveTool_isReported()
{
    load("one\r\ntwo");
    QAccessible::setActive(true);
    auto *view = QAccessible::queryAccessibleInterface(m_editor->focusProxy());
    QVERIFY(view && view->editableTextInterface());
    view->editableTextInterface()->insertText(0, QStringLiteral("x\r\n"));
    QTRY_COMPARE(m_shadow->changes().size(), 1);
    QCOMPARE(reported(*m_shadow), "1:1>2");
    QCOMPARE(m_shadow->faults(), QString());
    QAccessible::setActive(false);
}

void tst_LEditOCXChanges::crAndLfThatMeet_areReportedRight()
{
    load("a\rx\nb");
    select(*m_editor, 2, 0, 2, 1);
    press(*m_editor, Qt::Key_Delete); // one line end is left of two
    QCOMPARE(reported(*m_shadow), "2:1>0");
    QCOMPARE(m_shadow->lines(), QStringList({"a", "b"}));
    m_editor->Undo();
    QCOMPARE(reported(*m_shadow), "1:1>2"); // between the two the line before has not ended
    QCOMPARE(m_shadow->faults(), QString());
    QCOMPARE(m_shadow->lines(), QStringList({"a", "x", "b"}));
}

void tst_LEditOCXChanges::modified_isReportedAfterTheText()
{
    QStringList order;
    connect(m_editor.get(), &LEditOCX::textChanged, this, [&] {
        order.append(QStringLiteral("text %1").arg(int(m_editor->GetState(TextState))));
    });
    connect(m_editor.get(), &LEditOCX::modifiedChanged, this,
            [&](bool modified) { order.append(QStringLiteral("modified %1").arg(int(modified))); });
    type(*m_editor, QStringLiteral("ab"));
    QCOMPARE(order, QStringList({"text 1", "modified 1", "text 1"}));
    order.clear();
    m_editor->Undo();
    QCOMPARE(order, QStringList({"text 0", "modified 0"}));
    order.clear();
    m_editor->SetText(QStringLiteral("x"));
    m_editor->ClearDocument();
    QCOMPARE(order, QStringList({"text 1", "modified 1", "text 0", "modified 0"}));
}

void tst_LEditOCXChanges::modified_followsSavesAndHistory()
{
    QList<bool> states;
    connect(m_editor.get(), &LEditOCX::modifiedChanged, this, [&](bool on) { states.append(on); });
    load("one");
    QCOMPARE(states, QList<bool>());
    type(*m_editor, QStringLiteral("x"));
    m_editor->ClearState(TextState);
    m_editor->ClearState(TextState);
    QCOMPARE(states, (QList{true, false}));
    m_editor->Undo(); // away from what was saved
    QCOMPARE(states, (QList{true, false, true}));
    m_editor->ResetUndo(); // does not make it the saved text
    QCOMPARE(states, (QList{true, false, true}));
    QVERIFY(m_editor->GetState(TextState));
    load("two");
    QCOMPARE(states, (QList{true, false, true, false}));
}

/// The one that is connected first changes the text; both are reported to the second in their
/// order.
void tst_LEditOCXChanges::follower_thatChangesTheText_isReportedAfter()
{
    LEditOCX editor;
    QStringList order;
    connect(&editor, &LEditOCX::textChanged, this, [&](const TextChange &, quint64 revision) {
        if (revision == 1)
            editor.SetText(QStringLiteral("%1\r\nmore").arg(editor.Text()));
        order.append(QStringLiteral("first %1").arg(revision));
    });
    connect(&editor, &LEditOCX::textChanged, this, [&](const TextChange &, quint64 revision) {
        order.append(QStringLiteral("second %1 of %2").arg(revision).arg(editor.TextRevision()));
    });
    connect(&editor, &LEditOCX::modifiedChanged, this, [&] { order.append("modified"); });
    type(editor, QStringLiteral("a"));
    QCOMPARE(order,
             QStringList({"first 1", "second 1 of 2", "first 2", "second 2 of 2", "modified"}));
}

void tst_LEditOCXChanges::handlerOfKeyPress_thatChangesTheText_isReportedBefore()
{
    load("one");
    connect(m_editor.get(), &LEditOCX::KeyPress, this,
            [this] { m_editor->SetText(QStringLiteral("one\r\ntwo")); });
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(reported(*m_shadow), "1:1>2 1:1>1");
    QCOMPARE(m_shadow->lines(), QStringList({"xone", "two"}));
    QCOMPARE(m_shadow->faults(), QString());
}

void tst_LEditOCXChanges::copyOfAnotherView_isReportedByEach()
{
    load("one\r\ntwo\r\nthree");
    LEditOCX copy;
    ShadowText shadow(copy);
    copy.SetTextOf(*m_editor);
    QCOMPARE(reported(shadow), "1:1>3");
    goTo(*m_editor, 2, 0);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(reported(shadow), QString());
    copy.SetTextOf(*m_editor);
    copy.SetTextOf(*m_editor);
    QCOMPARE(reported(*m_shadow), "2:1>2");
    QCOMPARE(reported(shadow), "2:1>2");
    QCOMPARE(shadow.faults() + m_shadow->faults(), QString());
}

QString tst_LEditOCXChanges::anyText()
{
    static const QStringList pieces{"\r", "\n",     "\r\n", "\r\n", "a",      "instr 1",
                                    "\t", "\u00E8", "/*",   "two",  "\u20AC", "\U0001F3B5"};
    QString text;
    for (int i = below(8); i > 0; --i)
        text += pieces[below(int(pieces.size()))];
    return text;
}

void tst_LEditOCXChanges::editByKey()
{
    static constexpr std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_Return, 0},    {Qt::Key_Backspace, 0}, {Qt::Key_Delete, 0}, {Qt::Key_Tab, 0},
        {Qt::Key_Tab, 1},       {Qt::Key_Y, 2},         {Qt::Key_X, 2},      {Qt::Key_C, 2},
        {Qt::Key_V, 2},         {Qt::Key_Backspace, 2}, {Qt::Key_Delete, 2}, {Qt::Key_Z, 2},
        {Qt::Key_Z, 3},         {Qt::Key_Right, 1},     {Qt::Key_Down, 1},   {Qt::Key_Home, 0},
        {Qt::Key_Up, 0},        {Qt::Key_End, 2},       {Qt::Key_Insert, 0}, {Qt::Key_X, 0},
        {Qt::Key_Semicolon, 0}, {Qt::Key_Space, 0}};
    const auto [key, held] = keys[below(int(std::size(keys)))];
    press(*m_editor, key,
          (held & 1 ? Qt::ShiftModifier : Qt::NoModifier) |
              (held & 2 ? Qt::ControlModifier : Qt::NoModifier));
}

void tst_LEditOCXChanges::editByCall()
{
    const QString file = m_folder.filePath(QStringLiteral("random"));
    switch (below(14)) {
    case 0:
        return m_editor->SetText(anyText());
    case 1:
        return m_editor->SetText(m_editor->Text() + anyText());
    case 2:
        m_editor->SetFindText(anyText().left(1));
        m_editor->SetReplaceText(anyText().left(3));
        return m_editor->ReplaceAll();
    case 3:
        return m_editor->Undo();
    case 4:
        return m_editor->Redo();
    case 5:
        return below(10) == 0 ? m_editor->ClearDocument() : m_editor->Paste();
    case 6:
        if (below(4) == 0)
            std::ignore = m_editor->SaveFile(file); // any state of the file will do
        else if (below(4) == 0)
            std::ignore = m_editor->LoadFile(file);
        return;
    case 7:
        return below(5) == 0 ? m_editor->ResetUndo() : m_editor->ClearState(TextState);
    case 8:
        m_editor->SetFindDirection(2);
        m_editor->FindFirst();
        return m_editor->ReplaceCurrent();
    case 9:
        return m_editor->Cut();
    case 10:
    case 11:
        return m_editor->SetSelText(anyText());
    default:
        select(*m_editor, 1 + below(m_editor->LineCount()), below(6),
               1 + below(m_editor->LineCount()), below(6));
    }
}

void tst_LEditOCXChanges::randomEdits_keepAShadow()
{
    static const QByteArrayList documents{"one\r\ntwo\r\nthree\r\n", "one\ntwo\nthree\n",
                                          "one\rtwo\rthree\r", "a\rb\r\n\nc\n\r\rd", ""};
    for (int i = 0; i < editCount; ++i) {
        if (i % 200 == 0)
            load(documents[below(int(documents.size()))]);
        const quint64 before = m_editor->TextRevision();
        const QString text = m_editor->Text();
        const bool byKey = below(2) == 0;
        if (byKey)
            editByKey();
        else
            editByCall();
        const quint64 changes = m_editor->TextRevision() - before;
        if (!m_shadow->faults().isEmpty())
            QFAIL(qPrintable(QStringLiteral("edit %1: %2").arg(i).arg(m_shadow->faults())));
        if (changes > 1 || (changes == 0 && m_editor->Text() != text))
            QFAIL(qPrintable(QStringLiteral("edit %1 told %2 times").arg(i).arg(changes)));
    }
}

ARDIPHON_TEST_RUN_BY(tst_LEditOCXChanges, [](int argc, char **argv) {
    bool isNumber = false;
    const int number = argc > 1 ? QByteArray(argv[1]).toInt(&isNumber) : 0;
    if (isNumber) {
        editCount = number;
        std::rotate(argv + 1, argv + 2, argv + argc--);
    }
    return runTest<tst_LEditOCXChanges, QApplication>(argc, argv);
})
#include "tst_LEditOCXChanges.moc"
