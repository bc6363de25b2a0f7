// The search and the replacement of the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace ardiphon;
using namespace EditorInput;

class tst_LEditOCXSearch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void findFirst_directions_data();
    void findFirst_directions();
    void findFirst_miss_leavesEverything();
    void findNext_leavesTheViewAlone();
    void replaceCurrent_goesOnBehindTheText();
    void replaceCurrent_withoutMatch_doesNothing();
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
    QFile file(m_folder.filePath("in"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    QVERIFY(m_editor->LoadFile(file.fileName()));
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
    QVERIFY(!m_editor->GetState(2));
    QCOMPARE(saved(), QByteArray("i1 i1\ni11 I1\r"));
    m_editor->SetFindText("none");
    m_editor->ReplaceAll();
    QVERIFY(!m_editor->GetState(2));
}

void tst_LEditOCXSearch::replaceAll_randomText_asTheModel()
{
    QRandomGenerator random(23);
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
