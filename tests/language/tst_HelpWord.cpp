#include "language/HelpWord.h"
#include "language/WordTables.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

class tst_HelpWord : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void key_asksForTheWord_data();
    void key_asksForTheWord();
    void keyInScore_asksForTheFunctionTables();
    void keyAndPopup_differOutsideTheFirstLettersRange();
    void popup_offersTheWord_data();
    void popup_offersTheWord();
    void popupWithoutTables_offersNothing();

private:
    QTemporaryDir m_folder;
    WordTables m_words;
};

void tst_HelpWord::initTestCase()
{
    const auto write = [this](const char *name, const QByteArray &bytes) {
        writeBytes(m_folder.filePath(QLatin1String(name)), bytes);
    };
    QByteArray opcodes;
    // "ab" is behind the group of its first letter, where only a scan of all finds it.
    for (const char *name : {"aa", "bb", "bc", "cc", "instr", "ab"})
        opcodes += QByteArray(name).leftJustified(430);
    write("opcode.txt", opcodes);
    write("csd.txt", "<CsScore>\n</CsScore>\n");
    write("score.txt", "i\nf\nlast\n");
    m_words.LoadWordTables(m_folder.path());
}

void tst_HelpWord::key_asksForTheWord_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("keyword");
    QTest::newRow("opcode") << "bb"
                            << "bb";
    QTest::newRow("opcode behind its group") << "ab"
                                             << "ab";
    QTest::newRow("tag") << "</CsScore>"
                         << "</CsScore>";
    QTest::newRow("other case") << "BB"
                                << "";
    QTest::newRow("unknown") << "zz"
                             << "";
    QTest::newRow("score statement") << "i"
                                     << "";
    QTest::newRow("none") << ""
                          << "";
}

void tst_HelpWord::key_asksForTheWord()
{
    QFETCH(QString, word);
    QFETCH(QString, keyword);
    QCOMPARE(keyHelpWord(m_words, DocumentRole::Csd, word), keyword);
    QCOMPARE(keyHelpWord(m_words, DocumentRole::Orchestra, word), keyword);
}

void tst_HelpWord::keyInScore_asksForTheFunctionTables()
{
    for (const char *word : {"bb", "i", ""})
        QCOMPARE(keyHelpWord(m_words, DocumentRole::Score, QLatin1String(word)),
                 QStringLiteral("Gen Routines"));
}

void tst_HelpWord::keyAndPopup_differOutsideTheFirstLettersRange()
{
    // The second group of "a" overwrote the entry, so the range of "a" begins at "ab" and "aa" is
    // in the table but out of reach of the look-up.
    QCOMPARE(keyHelpWord(m_words, DocumentRole::Csd, QStringLiteral("aa")), QStringLiteral("aa"));
    QCOMPARE(popupHelpWord(m_words, DocumentRole::Csd, QStringLiteral("aa")).HelpWord, QString());
}

void tst_HelpWord::popup_offersTheWord_data()
{
    QTest::addColumn<DocumentRole>("language");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("caption");
    const auto add = [](const char *name, DocumentRole language, const char *word,
                        const char *keyword, const char *caption) {
        QTest::newRow(name) << language << QString::fromLatin1(word) << QString::fromLatin1(keyword)
                            << QString::fromLatin1(caption);
    };
    add("opcode", DocumentRole::Csd, "bc", "bc", "bc -> Help");
    add("opcode in orchestra", DocumentRole::Orchestra, "instr", "instr", "instr -> Help");
    add("tag", DocumentRole::Csd, "<CsScore>", "<CsScore>", "<CsScore> -> Help");
    add("unknown", DocumentRole::Csd, "zz", "", "Opcode -> Help");
    add("other case", DocumentRole::Csd, "Bc", "", "Opcode -> Help");
    add("none", DocumentRole::Csd, "", "", "Opcode -> Help");
    add("statement in a CSD", DocumentRole::Csd, "f", "", "Opcode -> Help");
    add("statement", DocumentRole::Score, "f", "f (score statement)",
        "f (score statement) -> Help");
    add("word left out of the table", DocumentRole::Score, "last", "", "Opcode -> Help");
    add("opcode in score", DocumentRole::Score, "bc", "", "Opcode -> Help");
    add("none in score", DocumentRole::Score, "", "", "Opcode -> Help");
}

void tst_HelpWord::popup_offersTheWord()
{
    QFETCH(DocumentRole, language);
    QFETCH(QString, word);
    const PopupHelpWord offered = popupHelpWord(m_words, language, word);
    QTEST(offered.HelpWord, "keyword");
    QTEST(offered.caption(), "caption");
}

void tst_HelpWord::popupWithoutTables_offersNothing()
{
    WordTables none;
    for (const DocumentRole language : {DocumentRole::Csd, DocumentRole::Score})
        QCOMPARE(popupHelpWord(none, language, QStringLiteral("bb")).caption(),
                 QStringLiteral("Opcode -> Help"));
    QCOMPARE(keyHelpWord(none, DocumentRole::Csd, QStringLiteral("bb")), QString());
}

ARDIPHON_TEST(tst_HelpWord, QCoreApplication)
#include "tst_HelpWord.moc"
