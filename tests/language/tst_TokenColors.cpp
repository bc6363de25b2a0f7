#include "language/TokenColors.h"

#include "app/ConfigurationBlock.h"
#include "language/WordTables.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

Q_DECLARE_METATYPE(ardiphon::DocumentRole)
Q_DECLARE_METATYPE(ardiphon::TokenKind)

namespace {

/// The pairs of colours, each named by what it is for.
enum class Look { Plain, Quoted, Opcode, Csd, Macro, Instr, Equals };

constexpr auto Csd = DocumentRole::Csd;
constexpr auto Orchestra = DocumentRole::Orchestra;
constexpr auto Score = DocumentRole::Score;

constexpr TokenKind AllKinds[] = {TokenKind::Word, TokenKind::Quoted, TokenKind::Operator,
                                  TokenKind::Other};

} // namespace

Q_DECLARE_METATYPE(Look)

class tst_TokenColors : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void colors_data();
    void colors();
    void style_isAlwaysThree();
    void word_setsLookUpRange();
    void scoreView_leavesLookUpRange();
    void change_ofAColour_showsAtOnce();
    void opcodeTableMissing_leavesTheRest();

private:
    TokenColors pair(Look look) const;

    QTemporaryDir m_folder;
    ConfigurationBlock m_config;
};

void tst_TokenColors::initTestCase()
{
    const auto write = [this](const char *name, const QByteArray &bytes) {
        writeBytes(m_folder.filePath(name), bytes);
    };
    QByteArray opcodes;
    for (const char *name : {"$OPCODE", "0dbfs", "=", "bothcsd", "endin", "everywhere", "instr",
                             "opscore", "oscil", "~version"})
        opcodes += QByteArray(name).leftJustified(430, ' ');
    write("opcode.txt", opcodes);
    write("csd.txt", "<CsOptions>\nbothcsd\neverywhere\ncsdscore\n$CSD\n");
    write("score.txt", "i\nf\nopscore\neverywhere\ncsdscore\n$SCORE\nx\n");
    m_config.Words = std::make_shared<WordTables>();
    m_config.Words->LoadWordTables(m_folder.path());

    std::uint32_t number = 1; // every colour another
    for (Color *color :
         {&m_config.ColorBackground, &m_config.ColorText, &m_config.ColorOrchestra,
          &m_config.ColorOrchestraBK, &m_config.ColorCSD, &m_config.ColorCSDBK,
          &m_config.ColorFiles, &m_config.ColorFilesBK, &m_config.ColorMacro,
          &m_config.ColorMacroBK, &m_config.ColorInstrEndin, &m_config.ColorInstrEndinBK})
        color->value = number++;
}

TokenColors tst_TokenColors::pair(Look look) const
{
    switch (look) {
    case Look::Quoted:
        return {m_config.ColorFilesBK, m_config.ColorFiles};
    case Look::Opcode:
        return {m_config.ColorOrchestraBK, m_config.ColorOrchestra};
    case Look::Csd:
        return {m_config.ColorCSDBK, m_config.ColorCSD};
    case Look::Macro:
        return {m_config.ColorMacroBK, m_config.ColorMacro};
    case Look::Instr:
        return {m_config.ColorInstrEndinBK, m_config.ColorInstrEndin};
    case Look::Equals:
        return {m_config.ColorBackground, m_config.ColorOrchestra};
    case Look::Plain:
        break;
    }
    return {m_config.ColorBackground, m_config.ColorText};
}

void tst_TokenColors::colors_data()
{
    QTest::addColumn<TokenKind>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Look>("csd");
    QTest::addColumn<Look>("orchestra");
    QTest::addColumn<Look>("score");

    const auto row = [](TokenKind kind, const char *text, Look csd, Look orchestra, Look score) {
        QTest::addRow("kind %d: %s", int(kind), text)
            << kind << QString(text) << csd << orchestra << score;
    };
    using enum Look;
    const auto word = [&](const char *text, Look csd, Look orchestra, Look score) {
        row(TokenKind::Word, text, csd, orchestra, score);
    };
    word("kUnknown", Plain, Plain, Plain);
    word("oscil", Opcode, Opcode, Plain);
    word("Oscil", Plain, Plain, Plain);
    word("osci", Plain, Plain, Plain);
    word("<CsOptions>", Csd, Plain, Plain);
    word("<csoptions>", Plain, Plain, Plain);
    word("i", Opcode, Plain, Csd);
    word("I", Plain, Plain, Plain);
    word("x", Plain, Plain, Plain); // the last word of the score's file is not in its table
    word("bothcsd", Csd, Opcode, Plain);
    word("everywhere", Opcode, Opcode, Csd);
    word("csdscore", Opcode, Plain, Csd);
    word("opscore", Opcode, Opcode, Csd);
    word("$MACRO", Macro, Macro, Plain);
    word("$MACRO.", Macro, Macro, Plain);
    word("$", Macro, Macro, Plain);
    word("$OPCODE", Macro, Macro, Plain);
    word("$CSD", Macro, Macro, Plain);
    word("$SCORE", Macro, Macro, Csd);
    word("instr", Instr, Instr, Plain);
    word("endin", Instr, Instr, Plain);
    word("Instr", Plain, Plain, Plain);
    word("0dbfs", Opcode, Opcode, Plain); // by the table
    word("", Plain, Plain, Plain);

    row(TokenKind::Quoted, "\"file.wav\"", Quoted, Quoted, Quoted);
    row(TokenKind::Quoted, "\"$MACRO\"", Quoted, Quoted, Quoted);
    row(TokenKind::Quoted, "oscil", Quoted, Quoted, Quoted);
    row(TokenKind::Quoted, "", Quoted, Quoted, Quoted);

    row(TokenKind::Operator, "=", Equals, Equals, Plain);
    for (const char *text : {"(", ")", "*", "+", "-", ",", "^"})
        row(TokenKind::Operator, text, Plain, Plain, Plain);

    row(TokenKind::Other, "0dbfs", Opcode, Opcode, Plain);
    row(TokenKind::Other, "0DBFS", Plain, Plain, Plain);
    row(TokenKind::Other, "44100", Plain, Plain, Plain);
    row(TokenKind::Other, "=", Plain, Plain, Plain);
    row(TokenKind::Other, "instr", Plain, Plain, Plain);
}

void tst_TokenColors::colors()
{
    QFETCH(TokenKind, kind);
    QFETCH(QString, text);
    QFETCH(Look, csd);
    QFETCH(Look, orchestra);
    QFETCH(Look, score);
    QVERIFY(GetTokenColors(m_config, Csd, kind, text) == pair(csd));
    QVERIFY(GetTokenColors(m_config, Orchestra, kind, text) == pair(orchestra));
    QVERIFY(GetTokenColors(m_config, Score, kind, text) == pair(score));
}

void tst_TokenColors::style_isAlwaysThree()
{
    for (const DocumentRole language : {Csd, Orchestra, Score})
        for (const TokenKind kind : AllKinds)
            for (const char *text : {"oscil", "=", "0dbfs", "$A", "instr", "i", "none"})
                QCOMPARE(GetTokenColors(m_config, language, kind, text).style, 3);
}

void tst_TokenColors::word_setsLookUpRange()
{
    m_config.Words->LookupFirst = m_config.Words->LookupLast = -1;
    GetTokenColors(m_config, Csd, TokenKind::Word, "oscil");
    QCOMPARE(m_config.Words->LookupFirst, 8);
    QCOMPARE(m_config.Words->LookupLast, 10);
}

void tst_TokenColors::scoreView_leavesLookUpRange()
{
    m_config.Words->LookupFirst = m_config.Words->LookupLast = -1;
    GetTokenColors(m_config, Score, TokenKind::Word, "oscil");
    QCOMPARE(m_config.Words->LookupFirst, -1);
    QCOMPARE(m_config.Words->LookupLast, -1);
}

void tst_TokenColors::change_ofAColour_showsAtOnce()
{
    const Color before = m_config.ColorOrchestra;
    m_config.ColorOrchestra = Color::rgb(9, 9, 9);
    QVERIFY(GetTokenColors(m_config, Csd, TokenKind::Word, "oscil").fore == Color::rgb(9, 9, 9));
    m_config.ColorOrchestra = before;
}

void tst_TokenColors::opcodeTableMissing_leavesTheRest()
{
    QTemporaryDir empty;
    m_config.Words->LoadWordTables(empty.path());
    const auto look = [this](const char *text) {
        return GetTokenColors(m_config, Csd, TokenKind::Word, text);
    };
    QVERIFY(look("oscil") == pair(Look::Plain));
    QVERIFY(look("$MACRO") == pair(Look::Macro));
    QVERIFY(look("instr") == pair(Look::Instr));
    QVERIFY(look("endin") == pair(Look::Instr));
    m_config.Words->LoadWordTables(m_folder.path());
}

ARDIPHON_TEST(tst_TokenColors, QCoreApplication)
#include "tst_TokenColors.moc"
