#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/HelpPanels.h"
#include "support/EditorInput.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/ShownToolTip.h"
#include "support/TestMain.h"

#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

namespace {

QByteArray record(const char *name, const char *description, const char *parameters)
{
    return QByteArray(name).leftJustified(50) + QByteArray(description).leftJustified(150) +
           QByteArray(parameters).leftJustified(230);
}

/// What a field shows of a record: the text and the blanks that fill it up.
QString padded(const char *text, int length)
{
    return QString::fromLatin1(text).leftJustified(length);
}

} // namespace

class tst_HelpPanels : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fields_beginWithTheirTexts();
    void fields_areReadOnly();
    void click_onOpcode_showsRecordWithPadding();
    void click_onOpcode_showsItsBeginning();
    void click_onOpcode_tipShowsMarksAsTheyAre();
    void click_inSecondView_showsItsOpcode();
    void click_inViewNotFollowed_changesNothing();
    void click_onOtherThanOpcode_keepsTexts_data();
    void click_onOtherThanOpcode_keepsTexts();
    void click_besideOrBelowTheText_keepsTexts();
    void click_onNameOutOfReach_keepsTexts();
    void recordThatCannotBeRead_showsPreviousOne();
    void firstRecordThatCannotBeRead_showsWordAlone();
    void noTable_keepsTexts();
    void randomBytes_neverFail();

private:
    void loadTable(const QByteArray &bytes);
    QString opcode() const { return m_panels->TextOpcode->text(); }
    QString parameters() const { return m_panels->TextParametri->text(); }

    struct Window : QWidget
    {
        LEditOCX first{this};
        LEditOCX second{this};
        LEditOCX score{this};
    };
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<WordTables> m_words;
    std::unique_ptr<Window> m_window;
    HelpPanels *m_panels = nullptr;
};

void tst_HelpPanels::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_words = std::make_unique<WordTables>();
    loadTable(record("a", "Makes audio.", "a(x)") +
              record("oscil", "Swings.", "ares oscil xamp, xcps") +
              record("rand", "Hisses.", "ares rand xamp") + record("~version", "Version.", "1.0"));
    m_window = std::make_unique<Window>();
    m_window->resize(600, 500);
    int top = 0;
    for (LEditOCX *view : {&m_window->first, &m_window->second, &m_window->score}) {
        view->setGeometry(0, top, 600, 120);
        view->SetText(QStringLiteral("a1 oscil 1, Oscil\r\n\r\n  rand ; rand\r\n\"oscil\" 12 = a"));
        top += 120;
    }
    m_panels = new HelpPanels(*m_words, m_window.get());
    m_panels->follow(&m_window->first);
    m_panels->follow(&m_window->second);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_HelpPanels::cleanup()
{
    m_window.reset();
    m_words.reset();
}

void tst_HelpPanels::loadTable(const QByteArray &bytes)
{
    writeBytes(m_folder->filePath(QStringLiteral("opcode.txt")), bytes);
    m_words->LoadWordTables(m_folder->path());
}

void tst_HelpPanels::fields_beginWithTheirTexts()
{
    QCOMPARE(opcode(), QStringLiteral("(Opcode)"));
    QCOMPARE(parameters(), QStringLiteral("(Parameters)"));
    QCOMPARE(m_window->findChild<QLineEdit *>(QStringLiteral("TextOpcode")), m_panels->TextOpcode);
    QCOMPARE(m_window->findChild<QLineEdit *>(QStringLiteral("TextParametri")),
             m_panels->TextParametri);
}

void tst_HelpPanels::fields_areReadOnly()
{
    QTest::keyClicks(m_panels->TextOpcode, QStringLiteral("typed"));
    QTest::keyClicks(m_panels->TextParametri, QStringLiteral("typed"));
    fields_beginWithTheirTexts();
}

void tst_HelpPanels::click_onOpcode_showsRecordWithPadding()
{
    EditorInput::click(m_window->first, 1, 4);
    QCOMPARE(opcode(), QStringLiteral("[oscil] - ") + padded("Swings.", 150));
    QCOMPARE(parameters(), padded("ares oscil xamp, xcps", 230));
    EditorInput::click(m_window->first, 3, 3);
    QCOMPARE(opcode(), QStringLiteral("[rand] - ") + padded("Hisses.", 150));
    QCOMPARE(parameters(), padded("ares rand xamp", 230));
}

void tst_HelpPanels::click_onOpcode_showsItsBeginning()
{
    m_panels->TextOpcode->resize(60, 22);
    EditorInput::click(m_window->first, 1, 4);
    QCOMPARE(m_panels->TextOpcode->cursorPosition(), 0);
    QCOMPARE(m_panels->TextParametri->cursorPosition(), 0);
    QCOMPARE(m_panels->TextParametri->toolTip(), QStringLiteral("ares oscil xamp, xcps"));
}

void tst_HelpPanels::click_onOpcode_tipShowsMarksAsTheyAre()
{
    loadTable(record("oscil", "Swings \"a\" & <b>.", "a1 oscil \"file\", p < q"));
    EditorInput::click(m_window->first, 1, 4);
    QCOMPARE(readToolTip(m_panels->TextOpcode->toolTip()),
             QStringLiteral("[oscil] - Swings \"a\" & <b>."));
    QCOMPARE(readToolTip(m_panels->TextParametri->toolTip()),
             QStringLiteral("a1 oscil \"file\", p < q"));
}

void tst_HelpPanels::click_inSecondView_showsItsOpcode()
{
    EditorInput::click(m_window->second, 3, 3);
    QVERIFY(opcode().startsWith(QStringLiteral("[rand] - Hisses.")));
}

void tst_HelpPanels::click_inViewNotFollowed_changesNothing()
{
    EditorInput::click(m_window->score, 1, 4);
    fields_beginWithTheirTexts();
}

void tst_HelpPanels::click_onOtherThanOpcode_keepsTexts_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::newRow("unknown word") << 1 << 0;
    QTest::newRow("other case") << 1 << 13;
    QTest::newRow("number") << 4 << 8;
    QTest::newRow("operator") << 4 << 11;
    QTest::newRow("empty line") << 2 << 0;
}

void tst_HelpPanels::click_onOtherThanOpcode_keepsTexts()
{
    QFETCH(int, line);
    QFETCH(int, column);
    EditorInput::click(m_window->first, 3, 3);
    const QString before = opcode() + parameters();
    QVERIFY(before.startsWith(QStringLiteral("[rand]")));
    EditorInput::click(m_window->first, line, column);
    QCOMPARE(opcode() + parameters(), before);
    // Below the text there is none either.
    m_window->first.SetText(QString());
    QTest::mouseClick(m_window->first.focusProxy(), Qt::LeftButton, {}, QPoint(200, 60));
    QCOMPARE(opcode() + parameters(), before);
}

/// There the caret ends up behind the last word of a line, which was not clicked.
void tst_HelpPanels::click_besideOrBelowTheText_keepsTexts()
{
    LEditOCX &view = m_window->first;
    const int height = view.LineHeight();
    const QPoint lastLetter = view.PositionToPixels(4, 14) - QPoint(2, -height / 2);
    for (const QPoint at :
         {lastLetter + QPoint(6, 0), lastLetter + QPoint(300, 0), lastLetter + QPoint(0, height)}) {
        QWidget *part = view.childAt(at);
        QTest::mouseClick(part, Qt::LeftButton, {}, part->mapFrom(&view, at));
        view.UpdateCurrentWord();
        QCOMPARE(view.CurrentWord(), QStringLiteral("a"));
        fields_beginWithTheirTexts();
    }
    QWidget *part = view.childAt(lastLetter);
    QTest::mouseClick(part, Qt::LeftButton, {}, part->mapFrom(&view, lastLetter));
    QVERIFY(opcode().startsWith(QStringLiteral("[a] - ")));
}

void tst_HelpPanels::click_onNameOutOfReach_keepsTexts()
{
    // A second group of the same first letter hides the first one from the look-up.
    loadTable(record("oscil", "Swings.", "oscil") + record("rand", "Hisses.", "rand") +
              record("ox", "Grazes.", "ox"));
    EditorInput::click(m_window->first, 1, 4);
    fields_beginWithTheirTexts();
}

void tst_HelpPanels::recordThatCannotBeRead_showsPreviousOne()
{
    EditorInput::click(m_window->first, 1, 4);
    m_words->CloseOpcodeFile();
    EditorInput::click(m_window->first, 3, 3);
    QCOMPARE(opcode(), QStringLiteral("[rand] - ") + padded("Swings.", 150));
    QCOMPARE(parameters(), padded("ares oscil xamp, xcps", 230));
}

void tst_HelpPanels::firstRecordThatCannotBeRead_showsWordAlone()
{
    m_words->OpcodeRecord = {};
    m_words->CloseOpcodeFile();
    EditorInput::click(m_window->first, 3, 3);
    QCOMPARE(opcode(), QStringLiteral("[rand] - "));
    QCOMPARE(parameters(), QString());
}

void tst_HelpPanels::noTable_keepsTexts()
{
    loadTable(QByteArray());
    EditorInput::click(m_window->first, 1, 4);
    fields_beginWithTheirTexts();
}

void tst_HelpPanels::randomBytes_neverFail()
{
    QByteArray noise(430 * 20 + 17, '\0');
    unsigned state = randomSeed(1);
    for (char &byte : noise)
        byte = char((state = state * 1103515245 + 12345) >> 16);
    noise.replace(430 * 3, 50, QByteArray("oscil").leftJustified(50));
    loadTable(noise);
    EditorInput::click(m_window->first, 1, 4);
    EditorInput::click(m_window->first, 3, 3);
    QVERIFY(!opcode().isEmpty());
}

ARDIPHON_TEST(tst_HelpPanels, QApplication)
#include "tst_HelpPanels.moc"
