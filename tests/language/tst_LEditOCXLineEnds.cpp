// Texts whose line ends are of several kinds, as old files and files from other systems have them.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace ardiphon;
using namespace EditorInput;

class tst_LEditOCXLineEnds : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void edits_leaveTheOtherLineEnds_data();
    void edits_leaveTheOtherLineEnds();
    void enter_besideAnotherKind_makesALine_data();
    void enter_besideAnotherKind_makesALine();
    void search_passesEachLineEnd_data();
    void search_passesEachLineEnd();
    void replaceAll_lineEnds_areOfTheTextsKind_data();
    void replaceAll_lineEnds_areOfTheTextsKind();
    void bookmarks_countEachLineEnd();
    void randomEdits_mixedEnds_asTheModel();

private:
    void load(const QByteArray &bytes);
    QByteArray saved();
    void place(int line, int column) { goTo(*m_editor, line, column); }

    std::unique_ptr<LEditOCX> m_editor;
    QTemporaryDir m_folder;
};

namespace {

// Mostly CR, mostly LF and mostly CR LF; the lines of each are a, b, "", c, d, e, f.
const QByteArray Cr("a\rb\r\rc\nd\r\ne\rf");
const QByteArray Lf("a\nb\n\nc\rd\r\ne\nf");
const QByteArray CrLf("a\r\nb\r\n\r\nc\nd\re\r\nf");
const QString Lines("a\r\nb\r\n\r\nc\r\nd\r\ne\r\nf");

void addTexts()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("CR") << Cr;
    QTest::newRow("LF") << Lf;
    QTest::newRow("CR LF") << CrLf;
}

} // namespace

void tst_LEditOCXLineEnds::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void tst_LEditOCXLineEnds::load(const QByteArray &bytes)
{
    writeBytes(m_folder.filePath("in"), bytes);
    require(bool(m_editor->LoadFile(m_folder.filePath("in"))), "the file is not read");
}

QByteArray tst_LEditOCXLineEnds::saved()
{
    QFile file(m_folder.filePath("out"));
    if (!m_editor->SaveFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
        return "(not saved)";
    return file.readAll();
}

void tst_LEditOCXLineEnds::edits_leaveTheOtherLineEnds_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("typed");  ///< with "x", Enter, "y" typed behind the b
    QTest::addColumn<QByteArray>("pasted"); ///< with "1", a line end, "2" pasted before the d
    QTest::addColumn<QByteArray>("set");    ///< with a line "n" set between e and f
    QTest::newRow("CR") << Cr << QByteArray("a\rbx\ry\r\rc\nd\r\ne\rf")
                        << QByteArray("a\rb\r\rc\n1\r2d\r\ne\rf")
                        << QByteArray("a\rb\r\rc\nd\r\ne\rn\rf");
    QTest::newRow("LF") << Lf << QByteArray("a\nbx\ny\n\nc\rd\r\ne\nf")
                        << QByteArray("a\nb\n\nc\r1\n2d\r\ne\nf")
                        << QByteArray("a\nb\n\nc\rd\r\ne\nn\nf");
    QTest::newRow("CR LF") << CrLf << QByteArray("a\r\nbx\r\ny\r\n\r\nc\nd\re\r\nf")
                           << QByteArray("a\r\nb\r\n\r\nc\n1\r\n2d\re\r\nf")
                           << QByteArray("a\r\nb\r\n\r\nc\nd\re\r\nn\r\nf");
}

void tst_LEditOCXLineEnds::edits_leaveTheOtherLineEnds()
{
    QFETCH(QByteArray, bytes);
    load(bytes);
    QCOMPARE(m_editor->Text(), Lines);
    QCOMPARE(saved(), bytes);
    place(2, 1);
    type(*m_editor, "x");
    press(*m_editor, Qt::Key_Return);
    type(*m_editor, "y");
    QTEST(saved(), "typed");
    load(bytes);
    place(5, 0);
    QApplication::clipboard()->setText("1\n2");
    m_editor->Paste();
    QTEST(saved(), "pasted");
    load(bytes);
    m_editor->SetText(QString(Lines).insert(Lines.size() - 1, "n\r\n"));
    QTEST(saved(), "set");
    m_editor->Undo();
    QCOMPARE(saved(), bytes);
}

void tst_LEditOCXLineEnds::enter_besideAnotherKind_makesALine_data() { addTexts(); }

/// A CR that is typed before an LF, and an LF behind a CR, would be one line end with it.
void tst_LEditOCXLineEnds::enter_besideAnotherKind_makesALine()
{
    QFETCH(QByteArray, bytes);
    const QStringList lines = Lines.split("\r\n");
    for (int line = 1; line <= lines.size(); ++line) {
        for (int column = 0; column <= lines[line - 1].size(); ++column) {
            load(bytes);
            place(line, column);
            press(*m_editor, Qt::Key_Return);
            QStringList expected = lines;
            expected[line - 1].insert(column, "\r\n");
            QCOMPARE(m_editor->Text(), expected.join("\r\n"));
            QCOMPARE(selection(*m_editor), QStringLiteral("%1:0-%1:0").arg(line + 1));
            m_editor->Undo();
            QCOMPARE(saved(), bytes);
        }
    }
}

void tst_LEditOCXLineEnds::search_passesEachLineEnd_data() { addTexts(); }

void tst_LEditOCXLineEnds::search_passesEachLineEnd()
{
    QFETCH(QByteArray, bytes);
    load(bytes);
    m_editor->SetFindWholeWord(false);
    m_editor->SetFindText("\n");
    m_editor->SetFindDirection(1);
    const QStringList found{"1:1-2:0", "2:1-3:0", "3:0-4:0", "4:1-5:0", "5:1-6:0", "6:1-7:0"};
    for (const QString &match : found) {
        QCOMPARE(m_editor->FindFirst(), 1);
        QCOMPARE(selection(*m_editor), match);
        QCOMPARE(m_editor->SelectionLength(), 2);
    }
    QCOMPARE(m_editor->FindFirst(), 0);
    m_editor->SetFindDirection(0);
    for (int i = int(found.size()) - 2; i >= 0; --i) {
        QCOMPARE(m_editor->FindFirst(), 1);
        QCOMPARE(selection(*m_editor), found[i]);
        m_editor->SetSelText(""); // the line end was selected whole
        QCOMPARE(m_editor->LineCount(), 6);
        m_editor->Undo();
        QCOMPARE(m_editor->Text(), Lines);
        select(*m_editor, i + 1, 99, i + 2, 0);
    }
    QCOMPARE(m_editor->FindFirst(), 0);
    m_editor->SetFindText("c\r\nd\r\ne");
    QCOMPARE(m_editor->FindFirst(), 0);
    m_editor->SetFindDirection(2);
    QCOMPARE(m_editor->FindFirst(), 1);
    QCOMPARE(selection(*m_editor), "4:0-6:1");
}

void tst_LEditOCXLineEnds::replaceAll_lineEnds_areOfTheTextsKind_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("CR") << Cr << QByteArray("\r");
    QTest::newRow("LF") << Lf << QByteArray("\n");
    QTest::newRow("CR LF") << CrLf << QByteArray("\r\n");
}

void tst_LEditOCXLineEnds::replaceAll_lineEnds_areOfTheTextsKind()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, end);
    load(bytes);
    m_editor->SetFindWholeWord(false);
    m_editor->SetFindText("\n");
    m_editor->SetReplaceText("\r\n");
    m_editor->ReplaceAll();
    QCOMPARE(m_editor->Text(), Lines);
    QCOMPARE(saved(), Lines.toUtf8().replace("\r\n", end));
    m_editor->Undo();
    QCOMPARE(saved(), bytes);
    m_editor->SetFindText("c"); // what is put between a CR and an LF, or taken away, joins no lines
    for (const char *by : {"", "\n", "x\n", "\nx"}) {
        m_editor->SetReplaceText(by);
        m_editor->ReplaceAll();
        QCOMPARE(m_editor->Text(), QString(Lines).replace("c", QString(by).replace("\n", "\r\n")));
        m_editor->Undo();
        QCOMPARE(saved(), bytes);
    }
}

void tst_LEditOCXLineEnds::bookmarks_countEachLineEnd()
{
    for (const QByteArray &bytes : {Cr, Lf, CrLf}) {
        load(bytes);
        m_editor->SetBookmarkLine(1, 7);
        m_editor->SetBookmarkLine(2, 4);
        place(1, 0);
        press(*m_editor, Qt::Key_Return);
        QCOMPARE(m_editor->GetBookmarkLine(1), 8);
        QCOMPARE(m_editor->GetBookmarkLine(2), 5);
        m_editor->SelectAll();
        press(*m_editor, Qt::Key_Delete);
        m_editor->Undo();
        QCOMPARE(m_editor->GetBookmarkLine(1), 8);
        QCOMPARE(m_editor->GetBookmarkLine(2), 5);
        LEditOCX other; // as the other view of a split: it has line ends of one kind
        other.SetText(m_editor->Text());
        other.SelectAll();
        other.SetSelText("");
        m_editor->SetTextOf(other);
        QCOMPARE(m_editor->Text(), "");
        other.Undo();
        m_editor->SetTextOf(other);
        QCOMPARE(m_editor->GetBookmarkLine(1), 8);
        QCOMPARE(m_editor->GetBookmarkLine(2), 5);
    }
}

/// Whatever is put in place of whatever, no line is joined to another or parted.
void tst_LEditOCXLineEnds::randomEdits_mixedEnds_asTheModel()
{
    QRandomGenerator random(randomSeed(8));
    const QByteArrayList pieces{"a", "\xC3\xA9", "\r", "\n", "\r\n", "bc"};
    const auto make = [&](int most) {
        QByteArray bytes;
        for (int i = random.bounded(most); i > 0; --i)
            bytes += pieces[random.bounded(int(pieces.size()))];
        return bytes;
    };
    const auto alike = [](QByteArray bytes) {
        return QString::fromUtf8(bytes.replace("\r\n", "\n").replace('\r', '\n'));
    };
    for (int round = 0; round < 400; ++round) {
        const QByteArray bytes = make(25);
        load(bytes);
        QString model = alike(bytes);
        for (int step = 0; step < 6; ++step) {
            const int start = random.bounded(int(model.size()) + 1);
            const int end = std::min(start + random.bounded(4), int(model.size()));
            const auto lineOf = [&](int at) { return int(model.left(at).count('\n')) + 1; };
            const auto columnOf = [&](int at) {
                return int(at - (model.left(at).lastIndexOf('\n') + 1));
            };
            select(*m_editor, lineOf(start), columnOf(start), lineOf(end), columnOf(end));
            QCOMPARE(m_editor->SelText(), model.mid(start, end - start).replace("\n", "\r\n"));
            const QByteArray text = make(3);
            if (alike(text) == "\n")
                press(*m_editor, Qt::Key_Return);
            else
                m_editor->SetSelText(QString::fromUtf8(text));
            model.replace(start, end - start, alike(text));
            QCOMPARE(m_editor->Text(), QString(model).replace("\n", "\r\n"));
        }
        if (round % 20 == 0)
            QCOMPARE(alike(saved()), model);
    }
}

ARDIPHON_TEST(tst_LEditOCXLineEnds, QApplication)
#include "tst_LEditOCXLineEnds.moc"
