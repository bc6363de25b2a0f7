// Random bytes, edits and calls thrown at the editor control. The number of cases may be given as
// the first argument, and the seed as the second or, before that, in ARDIPHON_TEST_SEED.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QFile>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace ardiphon;
using namespace EditorInput;

namespace {

int caseCount = 8000; // fuzz.sh takes more
quint32 seed = 1;

// Many saves, so in memory where there is a folder for that.
QString folderTemplate()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + "/ardiphon-fuzz-XXXXXX";
}

const char *describe(int round, const QByteArray &bytes)
{
    static QByteArray text;
    text = "case " + QByteArray::number(round) + ": " + bytes.left(200).toPercentEncoding();
    return text.constData();
}

} // namespace

class tst_LEditOCXFuzz : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void loadEditUndoSave_anyBytes_givesThemBack();
    void randomCalls_randomArguments_keepTheControlSound();

private:
    int below(int limit) { return int(m_random.bounded(limit)); }
    QByteArray anyBytes();
    QString anyText();
    int anyNumber();
    Color anyColor() { return Color{m_random.bounded(0x1000000u)}; }

    void edit();
    void callDocument();
    void callSelection();
    void callSearch();
    void callView();
    void callBookmarks();
    void verifySoundness();

    QRandomGenerator m_random{randomSeed(seed)};
    std::unique_ptr<LEditOCX> m_editor;
    QTemporaryDir m_folder{folderTemplate()};
    QString m_file = m_folder.filePath("document");
};

void tst_LEditOCXFuzz::initTestCase()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->SetGetTokenColors([](TokenKind kind, const QString &text) {
        return TokenColors{Color{quint32(int(kind)) & 0xFFFFFF},
                           Color{quint32(qHash(text)) & 0xFFFFFF}};
    });
    m_editor->resize(400, 200);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

QByteArray tst_LEditOCXFuzz::anyBytes()
{
    static const QByteArrayList pieces{"\r",
                                       "\n",
                                       "\r\n",
                                       "a",
                                       "instr 1 ",
                                       "/*",
                                       "*/",
                                       ";",
                                       "\"",
                                       "\t",
                                       "\xC3\xA8",
                                       "\xE8",
                                       "\x80",
                                       "$M.",
                                       "<b>",
                                       "\xEF\xBB\xBF",
                                       "\xF0\x9F\x8E\xB5",
                                       "\xE2\x82\xAC",
                                       "0dbfs"};
    QByteArray bytes;
    for (int i = below(20); i > 0; --i) {
        const int piece = below(int(pieces.size()) + 2);
        if (piece < pieces.size())
            bytes += pieces[piece];
        else
            bytes += char(piece == pieces.size() ? 0 : below(256));
    }
    return below(500) == 0 ? bytes.repeated(3000) : bytes;
}

QString tst_LEditOCXFuzz::anyText()
{
    return below(2) ? QString::fromUtf8(anyBytes()) : QString::fromLatin1(anyBytes());
}

int tst_LEditOCXFuzz::anyNumber()
{
    static constexpr int limits[] = {0, -1, 1, 2, INT_MAX, INT_MIN, INT_MAX - 1, 32767, 65536};
    return below(3) == 0 ? limits[below(int(std::size(limits)))] : below(12);
}

void tst_LEditOCXFuzz::edit()
{
    static constexpr std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_Return, 0}, {Qt::Key_Backspace, 0}, {Qt::Key_Delete, 0}, {Qt::Key_Tab, 0},
        {Qt::Key_Tab, 1},    {Qt::Key_Y, 2},         {Qt::Key_X, 2},      {Qt::Key_C, 2},
        {Qt::Key_V, 2},      {Qt::Key_Backspace, 2}, {Qt::Key_Delete, 2}, {Qt::Key_Insert, 0},
        {Qt::Key_Right, 1},  {Qt::Key_Down, 1},      {Qt::Key_Home, 0},   {Qt::Key_End, 2}};
    switch (below(6)) {
    case 0:
        select(*m_editor, anyNumber(), anyNumber(), anyNumber(), anyNumber());
        break;
    case 1:
        m_editor->SetSelText(anyText());
        break;
    case 2:
        m_editor->SetText(below(3) ? m_editor->Text() + anyText() : anyText());
        break;
    case 3:
        m_editor->SetFindText(anyText().left(2));
        m_editor->SetReplaceText(anyText().left(4));
        m_editor->ReplaceAll();
        break;
    case 4:
        type(*m_editor, QString::fromUtf8("xé"));
        break;
    default: {
        const auto [key, held] = keys[below(int(std::size(keys)))];
        press(*m_editor, key,
              (held & 1 ? Qt::ShiftModifier : Qt::NoModifier) |
                  (held & 2 ? Qt::ControlModifier : Qt::NoModifier));
    }
    }
}

void tst_LEditOCXFuzz::verifySoundness()
{
    const QString text = m_editor->Text();
    const int lines = m_editor->LineCount();
    QStringList parts;
    for (int line = 1; line <= lines; ++line) {
        parts.append(m_editor->LineText(line));
        QCOMPARE(m_editor->LineLength(line), parts.back().size());
    }
    QCOMPARE(parts.join("\r\n"), text);
    QCOMPARE(m_editor->SelText().size(), m_editor->SelectionLength());
    const QString before = selection(*m_editor);
    m_editor->SetSelection();
    if (selection(*m_editor) != before)
        QFAIL(describe(0, text.toUtf8() + before.toUtf8()));
    for (int index = 0; index < 16; ++index)
        QVERIFY(m_editor->GetBookmarkLine(index) == -1 || m_editor->GetBookmarkLine(index) >= 1);
    if (below(10) == 0)
        m_editor->grab();
}

void tst_LEditOCXFuzz::loadEditUndoSave_anyBytes_givesThemBack()
{
    for (int round = 0; round < caseCount; ++round) {
        const QByteArray bytes = anyBytes();
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QVERIFY(m_editor->LoadFile(m_file));
        const QString text = m_editor->Text();
        for (int i = below(8); i > 0; --i)
            edit();
        verifySoundness();
        if (QTest::currentTestFailed())
            QFAIL(describe(round, bytes));
        for (int i = 0; i < 200 && m_editor->GetState(TextState); ++i)
            m_editor->Undo();
        QVERIFY(m_editor->SaveFile(m_file));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray written = file.readAll();
        if (written != bytes || m_editor->Text() != text)
            QFAIL(describe(round, bytes));
    }
}

void tst_LEditOCXFuzz::callDocument()
{
    switch (below(9)) {
    case 0:
        m_editor->SetText(anyText());
        break;
    case 1:
        m_editor->ClearDocument();
        break;
    case 2:
        std::ignore = m_editor->LoadFile(below(2) ? m_file : m_folder.path()); // a folder too
        break;
    case 3:
        std::ignore =
            m_editor->SaveFile(below(2) ? m_file : m_folder.filePath(anyText().replace('/', '|')));
        break;
    case 4:
        m_editor->GetState(anyNumber());
        m_editor->ClearState(anyNumber());
        break;
    case 5:
        m_editor->Undo();
        break;
    case 6:
        m_editor->Redo();
        break;
    case 7:
        m_editor->ResetUndo();
        break;
    default:
        m_editor->LineText(anyNumber());
        m_editor->LineLength(anyNumber());
    }
}

void tst_LEditOCXFuzz::callSelection()
{
    switch (below(7)) {
    case 0:
        m_editor->SelStartLine = anyNumber();
        m_editor->SelEndColumn = anyNumber();
        break;
    case 1:
        m_editor->SetSelection();
        break;
    case 2:
        m_editor->GetSelection();
        break;
    case 3:
        m_editor->SelectAll();
        break;
    case 4:
        m_editor->Copy();
        m_editor->Paste();
        break;
    case 5:
        m_editor->Cut();
        break;
    default:
        m_editor->UpdateCurrentWord();
        QVERIFY(m_editor->CurrentWord().isEmpty() ||
                m_editor->Text().contains(m_editor->CurrentWord()));
    }
}

void tst_LEditOCXFuzz::callSearch()
{
    m_editor->SetFindText(anyText().left(3));
    m_editor->SetReplaceText(anyText().left(3));
    m_editor->SetFindDirection(anyNumber());
    m_editor->SetFindWholeWord(below(2));
    switch (below(4)) {
    case 0:
        m_editor->FindFirst();
        m_editor->ReplaceCurrent();
        break;
    case 1:
        m_editor->FindNext();
        break;
    case 2:
        m_editor->ReplaceAll();
        break;
    default:
        m_editor->ReplaceCurrent();
    }
}

void tst_LEditOCXFuzz::callView()
{
    switch (below(7)) {
    case 0:
        m_editor->SetTopLine(anyNumber());
        QVERIFY(m_editor->TopLine() >= 1 && m_editor->TopLine() <= m_editor->LineCount());
        break;
    case 1:
        m_editor->PositionToPixels(anyNumber(), anyNumber());
        break;
    case 2:
        m_editor->SetFontSize(below(40) - 5);
        m_editor->SetFontName(below(2) ? "DejaVu Sans Mono" : anyText());
        break;
    case 3:
        m_editor->SetFontBold(below(2));
        m_editor->SetFontItalic(below(2));
        m_editor->SetFontUnderline(below(2));
        m_editor->SetFontStrikethrough(below(2));
        break;
    case 4:
        m_editor->SetTabSize(anyNumber());
        m_editor->SetAutoIndent(below(2));
        break;
    case 5:
        m_editor->SetBackColor(anyColor());
        m_editor->SetForeColor(anyColor());
        m_editor->SetSelectionBackColor(anyColor());
        m_editor->SetSelectionForeColor(anyColor());
        break;
    default:
        m_editor->resize(1 + below(500), 1 + below(300));
    }
}

void tst_LEditOCXFuzz::callBookmarks()
{
    const int index = anyNumber();
    switch (below(4)) {
    case 0:
        m_editor->SetBookmarkLine(index, anyNumber());
        break;
    case 1:
        m_editor->SetBookmarkBackColor(index, anyColor());
        break;
    case 2:
        m_editor->SetBookmarkForeColor(index, anyColor());
        break;
    default:
        m_editor->ClearBookmarkBackColor(index);
        m_editor->ClearBookmarkForeColor(index);
    }
}

void tst_LEditOCXFuzz::randomCalls_randomArguments_keepTheControlSound()
{
    using Step = void (tst_LEditOCXFuzz::*)();
    static constexpr Step steps[] = {
        &tst_LEditOCXFuzz::edit,          &tst_LEditOCXFuzz::callDocument,
        &tst_LEditOCXFuzz::callSelection, &tst_LEditOCXFuzz::callSearch,
        &tst_LEditOCXFuzz::callView,      &tst_LEditOCXFuzz::callBookmarks};
    for (int round = 0; round < caseCount && !QTest::currentTestFailed(); ++round) {
        for (int i = below(6); i > 0 && !QTest::currentTestFailed(); --i)
            (this->*steps[below(int(std::size(steps)))])();
        if (m_editor->Text().size() > 20000)
            m_editor->ClearDocument();
        verifySoundness();
        if (QTest::currentTestFailed())
            qWarning("in case %d", round);
    }
}

ARDIPHON_TEST_RUN_BY(tst_LEditOCXFuzz, [](int argc, char **argv) {
    for (int *value : {&caseCount, reinterpret_cast<int *>(&seed)}) {
        bool isNumber = false;
        const int number = argc > 1 ? QByteArray(argv[1]).toInt(&isNumber) : 0;
        if (!isNumber)
            break;
        *value = number;
        std::rotate(argv + 1, argv + 2, argv + argc--);
    }
    // No font here has every script that random bytes produce.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    return runTest<tst_LEditOCXFuzz, QApplication>(argc, argv);
})

#include "tst_LEditOCXFuzz.moc"
