// The search and the replacement of the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace ardiphon;
using namespace EditorInput;

namespace {

/// Where a search from a selection ends, said as plainly as possible. Texts of one line.
class Model
{
public:
    Model(const QString &text, const QString &find, bool wholeWord)
        : m_text(text), m_find(find), m_wholeWord(wholeWord)
    {
    }

    QString find(int direction, int start, int end) const
    {
        if (direction == 0)
            return first(start - int(m_find.size()), -1, -1);
        const QString ahead = first(end, int(m_text.size()), 1);
        return !ahead.isEmpty() || direction == 1 ? ahead : first(0, end, 1);
    }

private:
    bool isWord(qsizetype at) const
    {
        return at >= 0 && at < m_text.size() &&
               (m_text[at].isLetterOrNumber() || m_text[at] == '_');
    }
    bool matches(int at) const
    {
        const qsizetype end = at + m_find.size();
        return m_text.mid(at, m_find.size()).compare(m_find, Qt::CaseInsensitive) == 0 &&
               !(m_wholeWord &&
                 ((isWord(at - 1) && isWord(at)) || (isWord(end - 1) && isWord(end))));
    }
    QString first(int from, int to, int step) const
    {
        for (int at = from; step > 0 ? at < to : at > to; at += step) {
            if (matches(at))
                return QStringLiteral("1:%1-1:%2").arg(at).arg(at + m_find.size());
        }
        return {};
    }

    QString m_text;
    QString m_find;
    bool m_wholeWord;
};

} // namespace

class tst_LEditOCXSearch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void findFirst_directions_data();
    void findFirst_directions();
    void findFirst_wholeWord_neverInsideALongerOne_data();
    void findFirst_wholeWord_neverInsideALongerOne();
    void findFirst_randomText_asTheModel();
    void findFirst_miss_leavesEverything();
    void findNext_leavesTheViewAlone();
    void replaceCurrent_goesOnBehindTheText();
    void replaceCurrent_withoutMatch_doesNothing();
    void replaceCurrent_textChangedSince_doesNothing();
    void replaceAll_isOneStepOfHistory();
    void replaceAll_randomText_asTheModel();

private:
    void load(const QByteArray &bytes);
    QByteArray saved();

    std::unique_ptr<LEditOCX> m_editor;
    QTemporaryDir m_folder;
};

void tst_LEditOCXSearch::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void tst_LEditOCXSearch::load(const QByteArray &bytes)
{
    writeBytes(m_folder.filePath("in"), bytes);
    require(bool(m_editor->LoadFile(m_folder.filePath("in"))), "the file is not read");
}

QByteArray tst_LEditOCXSearch::saved()
{
    QFile file(m_folder.filePath("out"));
    if (!m_editor->SaveFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
        return "(not saved)";
    return file.readAll();
}

void tst_LEditOCXSearch::findFirst_directions_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("forward") << 1 << QStringList{"2:0-2:2", "3:3-3:5", ""};
    QTest::newRow("backward") << 0 << QStringList{"1:0-1:2", ""};
    QTest::newRow("both") << 2 << QStringList{"2:0-2:2", "3:3-3:5", "1:0-1:2", "2:0-2:2"};
}

void tst_LEditOCXSearch::findFirst_directions()
{
    QFETCH(int, direction);
    QFETCH(QStringList, found);
    m_editor->SetText("in a\r\nIN\r\n   in endin");
    goTo(*m_editor, 1, 3);
    m_editor->SetFindText("in");
    m_editor->SetFindWholeWord(true);
    m_editor->SetFindDirection(direction);
    for (const QString &match : found) {
        QCOMPARE(m_editor->FindFirst(), match.isEmpty() ? 0 : 1);
        if (!match.isEmpty()) {
            QCOMPARE(selection(*m_editor), match);
            QCOMPARE(m_editor->SelText().toLower(), "in");
        }
    }
}

void tst_LEditOCXSearch::findFirst_wholeWord_neverInsideALongerOne_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("find");
    QTest::addColumn<int>("line"); ///< of the caret
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("up"); ///< what is found in each direction, "" for a miss
    QTest::addColumn<QString>("down");
    QTest::addColumn<QString>("both");
    const auto row = [](const char *name, const char *text, const char *find, int line, int column,
                        const char *up, const char *down, const char *both) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(find) << line << column
                            << QString(up) << QString(down) << QString(both);
    };
    // A search that turns round looks at the text's beginning again, no further than the caret and
    // what a match may need behind it; the word that lies across that limit stays whole.
    row("a longer word behind the caret", "0123 5678 0123  betas", "beta", 1, 0, "", "", "");
    row("two longer words", "0123 5678 0123 beta5 beta0", "beta", 1, 0, "", "", "");
    row("letters of two bytes", "01234567890123éééé5", "éééé", 1, 0, "", "", "");
    row("letters of four bytes", "0123 567 \U0001D400\U0001D400b", "\U0001D400\U0001D400", 1, 0, "",
        "", "");
    row("far behind the caret's line", "x\n\n0123 5678 123 betas", "beta", 2, 0, "", "", "");
    row("word and longer word", "beta 0123 5678 012 betas", "beta", 1, 6, "1:0-1:4", "", "1:0-1:4");
    row("caret before the only match", "betas beta", "beta", 1, 0, "", "1:6-1:10", "1:6-1:10");
    row("at the start and at the end", "beta\nbetas\nbeta", "beta", 2, 2, "1:0-1:4", "3:0-3:4",
        "3:0-3:4");
    row("caret inside the match", "a beta z", "beta", 1, 4, "", "", "1:2-1:6");
    row("caret at the match's start", "a beta z", "beta", 1, 2, "", "1:2-1:6", "1:2-1:6");
    row("caret at the match's end", "a beta z", "beta", 1, 6, "1:2-1:6", "", "1:2-1:6");
    row("at the line's ends", "beta\nbeta", "beta", 1, 4, "1:0-1:4", "2:0-2:4", "2:0-2:4");
    // What is before the caret belongs to the word in which it is.
    row("caret inside a word", "alphabeta", "beta", 1, 5, "", "", "");
    row("caret behind a letter of two bytes", "ébeta", "beta", 1, 1, "", "", "");
    row("caret behind a letter of four bytes", "\U0001D400beta", "beta", 1, 2, "", "", "");
    row("caret behind an underscore", "_beta", "beta", 1, 1, "", "", "");
    row("caret behind a sign of three bytes", "€beta", "beta", 1, 1, "", "1:1-1:5", "1:1-1:5");
    row("caret before the rest of the word", "betas", "beta", 1, 4, "", "", "");
}

void tst_LEditOCXSearch::findFirst_wholeWord_neverInsideALongerOne()
{
    QFETCH(QString, text);
    QFETCH(QString, find);
    QFETCH(int, line);
    QFETCH(int, column);
    m_editor->SetText(text);
    m_editor->SetFindText(find);
    m_editor->SetFindWholeWord(true);
    QFETCH(QString, up);
    QFETCH(QString, down);
    QFETCH(QString, both);
    const QString expected[] = {up, down, both};
    for (int direction = 0; direction <= 2; ++direction) {
        const QString match = expected[direction];
        goTo(*m_editor, line, column);
        m_editor->SetFindDirection(direction);
        QCOMPARE(m_editor->FindFirst(), match.isEmpty() ? 0 : 1);
        const QString caret = QStringLiteral("%1:%2-%1:%2").arg(line).arg(column);
        QCOMPARE(selection(*m_editor), match.isEmpty() ? caret : match);
        goTo(*m_editor, line, column);
        QCOMPARE(m_editor->FindNext(), match.isEmpty() ? 0 : 1);
    }
}

void tst_LEditOCXSearch::findFirst_randomText_asTheModel()
{
    QRandomGenerator random(randomSeed(4));
    const auto any = [&](const QString &alphabet, int least, int most) {
        QString text;
        for (int i = random.bounded(least, most); i > 0; --i)
            text += alphabet[random.bounded(int(alphabet.size()))];
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        const QString text = any(QString::fromUtf8("abbé_ €"), 0, 40);
        const QString find = any(QString::fromUtf8("aBé€ "), 1, 4);
        const bool wholeWord = random.bounded(2);
        const int direction = random.bounded(3);
        const int start = random.bounded(int(text.size()) + 1);
        const int end = random.bounded(2) ? start : random.bounded(start, int(text.size()) + 1);
        m_editor->SetText(text);
        m_editor->SetFindText(find);
        m_editor->SetFindWholeWord(wholeWord);
        m_editor->SetFindDirection(direction);
        select(*m_editor, 1, start, 1, end);
        const QString before = selection(*m_editor);
        const QString expected = Model(text, find, wholeWord).find(direction, start, end);
        QCOMPARE(m_editor->FindFirst(), expected.isEmpty() ? 0 : 1);
        QCOMPARE(selection(*m_editor), expected.isEmpty() ? before : expected);
    }
}

void tst_LEditOCXSearch::findFirst_miss_leavesEverything()
{
    m_editor->SetText("one two");
    select(*m_editor, 1, 1, 1, 4);
    m_editor->SetFindText("three");
    m_editor->SetFindDirection(2);
    m_editor->SelStartColumn = 99;
    QCOMPARE(m_editor->FindFirst(), 0);
    QCOMPARE(m_editor->FindNext(), 0);
    QCOMPARE(m_editor->SelStartColumn, 99);
    QCOMPARE(selection(*m_editor), "1:1-1:4");
    m_editor->SetFindText("");
    QCOMPARE(m_editor->FindFirst(), 0);
}

void tst_LEditOCXSearch::findNext_leavesTheViewAlone()
{
    m_editor->SetText(QString("x\r\n").repeated(300) + "instr 7\r\nendin\r\n");
    goTo(*m_editor, 2, 0);
    m_editor->SetFindText("endin");
    m_editor->SetFindWholeWord(true);
    m_editor->SetFindDirection(1);
    m_editor->SelStartLine = m_editor->SelEndLine = 1;
    m_editor->SelStartColumn = m_editor->SelEndColumn = 0;
    QCOMPARE(m_editor->FindNext(), 1);
    QCOMPARE(m_editor->SelStartLine, 302);
    QCOMPARE(m_editor->SelEndColumn, 5);
    QCOMPARE(m_editor->TopLine(), 1);
    QCOMPARE(m_editor->SelectionLength(), 0);
    m_editor->SetFindText("instr");
    m_editor->SetFindDirection(0);
    QCOMPARE(m_editor->FindNext(), 1);
    QCOMPARE(m_editor->SelStartLine, 301);
    m_editor->SetSelection();
    QCOMPARE(m_editor->SelText(), "instr");
    QVERIFY(m_editor->TopLine() > 1);
}

void tst_LEditOCXSearch::replaceCurrent_goesOnBehindTheText()
{
    m_editor->SetText("a ba a");
    goTo(*m_editor, 1, 0);
    m_editor->SetFindText("a");
    m_editor->SetReplaceText("aa");
    m_editor->SetFindWholeWord(false);
    m_editor->SetFindDirection(1);
    int count = 0;
    while (m_editor->FindFirst() == 1 && ++count < 10)
        m_editor->ReplaceCurrent();
    QCOMPARE(count, 3);
    QCOMPARE(m_editor->Text(), "aa baa aa");
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "aa baa a");
}

void tst_LEditOCXSearch::replaceCurrent_withoutMatch_doesNothing()
{
    m_editor->SetText("a b");
    m_editor->SetFindText("a");
    m_editor->SetReplaceText("x");
    select(*m_editor, 1, 2, 1, 3);
    m_editor->ReplaceCurrent();
    QCOMPARE(m_editor->FindFirst(), 0);
    m_editor->SetFindDirection(2);
    QCOMPARE(m_editor->FindFirst(), 1);
    select(*m_editor, 1, 2, 1, 3);
    m_editor->ReplaceCurrent();
    QCOMPARE(m_editor->Text(), "a b");
}

/// What is now where the match was may be anything.
void tst_LEditOCXSearch::replaceCurrent_textChangedSince_doesNothing()
{
    m_editor->SetText("one two");
    m_editor->SetFindText("two");
    m_editor->SetReplaceText("x");
    QCOMPARE(m_editor->FindFirst(), 1);
    type(*m_editor, "sea");
    select(*m_editor, 1, 4, 1, 7);
    m_editor->ReplaceCurrent();
    QCOMPARE(m_editor->Text(), "one sea");
}

void tst_LEditOCXSearch::replaceAll_isOneStepOfHistory()
{
    load("i1 i1\ni11 I1\r");
    m_editor->SetBookmarkLine(3, 2);
    m_editor->SetFindText("i1");
    m_editor->SetReplaceText("i1\r\ni1");
    m_editor->SetFindWholeWord(true);
    m_editor->ReplaceAll();
    QCOMPARE(m_editor->Text(), "i1\r\ni1 i1\r\ni1\r\ni11 i1\r\ni1\r\n");
    QCOMPARE(m_editor->GetBookmarkLine(3), 4);
    m_editor->Undo();
    QVERIFY(!m_editor->GetState(TextState));
    QCOMPARE(saved(), QByteArray("i1 i1\ni11 I1\r"));
    m_editor->SetFindText("none");
    m_editor->ReplaceAll();
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_LEditOCXSearch::replaceAll_randomText_asTheModel()
{
    QRandomGenerator random(randomSeed(23));
    const auto any = [&](int most) {
        QString text;
        for (int i = random.bounded(most); i > 0; --i)
            text += QString::fromUtf8("aAb \né")[random.bounded(6)];
        return text;
    };
    m_editor->SetFindWholeWord(false);
    for (int round = 0; round < 2000; ++round) {
        QString text = any(30);
        const QString find = any(3);
        const QString replacement = any(3);
        m_editor->SetText(text);
        m_editor->SetFindText(find);
        m_editor->SetReplaceText(replacement);
        m_editor->ReplaceAll();
        if (!find.isEmpty())
            text.replace(find, replacement, Qt::CaseInsensitive);
        QCOMPARE(m_editor->Text(), text.replace('\n', "\r\n"));
    }
}

ARDIPHON_TEST(tst_LEditOCXSearch, QApplication)
#include "tst_LEditOCXSearch.moc"
