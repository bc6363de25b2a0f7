#include "language/WordTables.h"
#include "piece/MarkedPiece.h"
#include "support/TestMain.h"
#include "typing/CompletionList.h"

#include <QTest>

using namespace ardiphon;

class tst_CompletionList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_words.LoadWordTables(QStringLiteral(PROGRAM_DIR)); }

    void opcode_whoseOutputFitsIsFirst_data();
    void opcode_whoseOutputFitsIsFirst();
    void lettersInOrder_findAnOpcode();
    void statement_offersNamesAndOpcodesWithoutOutputs();
    void statement_offersOpcodesOfThePiece();
    void output_offersVariablesAlone();
    void argument_ofTheRightRateIsFirst();
    void argument_offersFunctionsThatGiveThatRate();
    void argument_thatIsATable_offersTables();
    void variables_areThoseInScope();
    void variable_thatIsTyped_isNotOffered();
    void pFields_areOffered();
    void uses_decideAmongWhatFits();
    void exactName_isFirst();
    void macros_areThoseOfTheirSection();
    void labels_areThoseOfTheBody();
    void instruments_areOfferedWhereOneIsPlayed();
    void channels_areOffered();
    void genRoutines_areOfferedByNumber();
    void scoreStatements_areOffered();
    void snippets_areOfferedInTheirLanguage();
    void tags_beginWithTheOneThatCloses();
    void options_areOffered();
    void files_areOfferedWhereOneIsWanted();
    void nothingElse_isOfferedInQuotes();
    void bracketAndQuotes_areProposedWhereTheyAreMissing();
    void ends_areProposedWhereTheyAreMissing_data();
    void ends_areProposedWhereTheyAreMissing();
    void narrow_keepsWhatHasTheLetters();
    void narrow_isTheSameAsReadingAnew();
    void recordThatOthersRead_stays();
    void emptyTables_offerTheNamesOfThePiece();

private:
    /// The suggestions at the mark in \a text, as "kind name".
    QStringList rows(const QByteArray &text, bool isAsked = false);
    QStringList names(const QByteArray &text, bool isAsked = false);
    CompletionList listOf(const MarkedPiece &marked, bool isAsked);

    WordTables m_words;
    OpcodeSignatures m_opcodes{m_words};
    QStringList m_files;
    const QList<Snippet> m_snippets = {
        {QStringLiteral("qxvoice"),
         QStringLiteral("A voice"),
         SnippetLanguage::Orchestra,
         QStringLiteral("a1 = 1"),
         {}},
        {QStringLiteral("qxloop"),
         QStringLiteral("A loop"),
         SnippetLanguage::Score,
         QStringLiteral("{ 4 N"),
         {}},
        {QStringLiteral("qxplay"),
         QStringLiteral("Playing"),
         SnippetLanguage::Options,
         QStringLiteral("-odac"),
         {}},
        {QStringLiteral("qxframe"),
         QStringLiteral("A piece"),
         SnippetLanguage::Document,
         QStringLiteral("<CsScore>"),
         {}},
    };
};

CompletionList tst_CompletionList::listOf(const MarkedPiece &marked, bool isAsked)
{
    const CompletionSources sources{marked.piece, m_words, m_opcodes, [this] { return m_files; },
                                    m_snippets};
    const QString line = QString::fromUtf8(marked.text().line(marked.caretLine).toByteArray());
    return CompletionList(
        sources, completionPlace(marked.piece, marked.text(), marked.caretLine, marked.caretColumn),
        isAsked ? CompletionReason::Asked : CompletionReason::Letters,
        line.mid(marked.caretColumn));
}

QStringList tst_CompletionList::rows(const QByteArray &text, bool isAsked)
{
    const MarkedPiece marked(text);
    const CompletionList list = listOf(marked, isAsked);
    QStringList found;
    for (int row = 0; row < list.size(); ++row)
        found.append(completionKindText(list.at(row).kind) + u' ' + list.at(row).taken());
    return found;
}

QStringList tst_CompletionList::names(const QByteArray &text, bool isAsked)
{
    const MarkedPiece marked(text);
    const CompletionList list = listOf(marked, isAsked);
    QStringList found;
    for (int row = 0; row < list.size(); ++row)
        found.append(list.at(row).name);
    return found;
}

void tst_CompletionList::opcode_whoseOutputFitsIsFirst_data()
{
    QTest::addColumn<QByteArray>("statement");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("later");

    QTest::newRow("audio") << QByteArray("asig ch§") << "chebyshevpoly"
                           << "chanctrl";
    QTest::newRow("control") << QByteArray("kfr ch§") << "chanctrl"
                             << "chebyshevpoly";
    QTest::newRow("text") << QByteArray("Sx str§") << "strcat"
                          << "strlen";
    QTest::newRow("number of a text") << QByteArray("ix str§") << "strlen"
                                      << "strcat";
    QTest::newRow("two outputs") << QByteArray("a1, a2 rev§") << "reverbsc"
                                 << "reverb";
    QTest::newRow("spectrum") << QByteArray("fx pvs§") << "pvsanal"
                              << "pvscent";
}

void tst_CompletionList::opcode_whoseOutputFitsIsFirst()
{
    QFETCH(const QByteArray, statement);
    QFETCH(const QString, first);
    QFETCH(const QString, later);
    const QStringList found = names("<CsInstruments>\ninstr 1\n" + statement + "\nendin\n");
    QVERIFY2(found.contains(later), qPrintable(found.join(u' ')));
    QVERIFY2(found.indexOf(first) >= 0 && found.indexOf(first) < found.indexOf(later),
             qPrintable(found.join(u' ')));
}

void tst_CompletionList::lettersInOrder_findAnOpcode()
{
    QVERIFY(names("<CsInstruments>\nasig osi§").contains(QStringLiteral("oscili")));
    QCOMPARE(names("<CsInstruments>\nasig oscili§").constFirst(), QStringLiteral("oscili"));
    QCOMPARE(names("<CsInstruments>\nasig qzxq§"), QStringList());
}

void tst_CompletionList::statement_offersNamesAndOpcodesWithoutOutputs()
{
    const QStringList found = rows("<CsInstruments>\ninstr 1\nkouter = 1\nou§\nendin\n");
    QVERIFY(found.contains(QStringLiteral("variable kouter")));
    QVERIFY(found.contains(QStringLiteral("opcode outs")));
    QVERIFY(found.indexOf(QStringLiteral("opcode outs")) <
                found.indexOf(QStringLiteral("opcode loscil")) ||
            !found.contains(QStringLiteral("opcode loscil")));
    QCOMPARE(rows("<CsInstruments>\ninstr§").constFirst(), QStringLiteral("word instr"));
}

void tst_CompletionList::statement_offersOpcodesOfThePiece()
{
    const QByteArray piece = "<CsInstruments>\nopcode Blend, a, aak\nendop\ninstr 1\n";
    QVERIFY(rows(piece + "asig Ble§").contains(QStringLiteral("own opcode Blend")));
    const MarkedPiece marked(piece + "asig Ble§");
    const CompletionList list = listOf(marked, false);
    QCOMPARE(textOf(list.at(0), m_opcodes).form, QStringLiteral("a1 Blend a1, a2, k3"));
    QVERIFY(names(piece + "asig Blend kno§").size() > 0);
}

void tst_CompletionList::output_offersVariablesAlone()
{
    QCOMPARE(rows("<CsInstruments>\ninstr 1\naLeft init 0\nkLevel = 1\na1, aL§\nendin\n"),
             QStringList({QStringLiteral("variable aLeft")}));
}

void tst_CompletionList::argument_ofTheRightRateIsFirst()
{
    const QByteArray piece = "<CsInstruments>\ninstr 1\nacut init 0\nkcut init 0\nicut = 1\n";
    QCOMPARE(names(piece + "asig linseg cut§").constFirst(), QStringLiteral("icut"));
    QCOMPARE(names(piece + "asig follow2 acut, cut§").first(2),
             QStringList({QStringLiteral("kcut"), QStringLiteral("icut")}));
    QCOMPARE(names(piece + "asig follow2 cut§").constFirst(), QStringLiteral("acut"));
    QCOMPARE(names(piece + "ival = cut§").constFirst(), QStringLiteral("icut"));
    QCOMPARE(names(piece + "kval = cut§").first(2),
             QStringList({QStringLiteral("kcut"), QStringLiteral("icut")}));
}

void tst_CompletionList::argument_offersFunctionsThatGiveThatRate()
{
    const QStringList found = rows("<CsInstruments>\ninstr 1\nasig tone asig, lin§\nendin\n");
    QVERIFY(found.contains(QStringLiteral("opcode linseg")));
    // What gives no value cannot stand there.
    QVERIFY(!rows("<CsInstruments>\ninstr 1\nasig tone asig, out§\nendin\n")
                 .contains(QStringLiteral("opcode outs")));
    QVERIFY(!rows("<CsInstruments>\ninstr 1\nasig tone asig, en§\nendin\n")
                 .contains(QStringLiteral("word endin")));
}

void tst_CompletionList::argument_thatIsATable_offersTables()
{
    const QByteArray piece =
        "<CsInstruments>\ngiSine ftgen 7, 0, 1024, 10, 1\ninstr 1\nigish = 1\n";
    const QStringList found = rows(piece + "asig oscili 1, 440, gi§\nendin\n");
    QCOMPARE(found.constFirst(), QStringLiteral("table giSine"));
    QVERIFY(!rows(piece + "asig oscili gi§").contains(QStringLiteral("table giSine")));
}

void tst_CompletionList::variables_areThoseInScope()
{
    const QByteArray piece = "<CsInstruments>\ngkAll init 0\ninot = 1\ninstr 1\nkAlone = 1\nendin\n"
                             "instr 2\nkAlike = 2\nkx = §\nendin\n</CsInstruments>\n";
    const auto with = [&](const char *typed) {
        QByteArray text = piece;
        return names(text.replace("\xc2\xa7", QByteArray(typed) + "\xc2\xa7"));
    };
    QVERIFY(with("kAl").contains(QStringLiteral("kAlike")));
    QVERIFY(!with("kAl").contains(QStringLiteral("kAlone")));
    QVERIFY(with("gkA").contains(QStringLiteral("gkAll")));
    QVERIFY(!with("ino").contains(QStringLiteral("inot")));
    const QByteArray between = "<CsInstruments>\ninstr 1\nihere = 1\nendin\nithere = 2\nival = ";
    QVERIFY(names(between + "it§").contains(QStringLiteral("ithere")));
    QVERIFY(!names(between + "ih§").contains(QStringLiteral("ihere")));
}

void tst_CompletionList::variable_thatIsTyped_isNotOffered()
{
    QVERIFY(
        !names("<CsInstruments>\ninstr 1\nkqxz§ = 1\nendin\n").contains(QStringLiteral("kqxz")));
    QVERIFY(names("<CsInstruments>\ninstr 1\nkqxz = 1\nkqx§\nendin\n")
                .contains(QStringLiteral("kqxz")));
}

void tst_CompletionList::pFields_areOffered()
{
    const MarkedPiece marked("<CsInstruments>\ninstr 1\niamp = p4\nasig oscili p§\nendin\n");
    const CompletionList list = listOf(marked, true);
    QMap<QString, QString> forms;
    for (int row = 0; row < list.size(); ++row) {
        if (list.at(row).kind == CompletionKind::PField)
            forms.insert(list.at(row).name, list.at(row).form);
    }
    QCOMPARE(forms.keys(), QStringList({QStringLiteral("p1"), QStringLiteral("p2"),
                                        QStringLiteral("p3"), QStringLiteral("p4")}));
    QCOMPARE(forms.value(QStringLiteral("p3")), QStringLiteral("the duration"));
    QCOMPARE(forms.value(QStringLiteral("p4")), QStringLiteral("iamp"));
}

void tst_CompletionList::uses_decideAmongWhatFits()
{
    const QByteArray plain = "<CsInstruments>\ninstr 1\nasig osc§\nendin\n";
    QVERIFY(names(plain).indexOf(QStringLiteral("oscil3")) >
            names(plain).indexOf(QStringLiteral("oscil")));
    const QByteArray used =
        "<CsInstruments>\ninstr 1\na1 oscil3 1\na2 oscil3 1\nasig osc§\nendin\n";
    QCOMPARE(names(used).constFirst(), QStringLiteral("oscil3"));
}

void tst_CompletionList::exactName_isFirst()
{
    const QByteArray used =
        "<CsInstruments>\ninstr 1\na1 oscil3 1\na2 oscil3 1\nasig oscil§\nendin\n";
    QCOMPARE(names(used).first(2),
             QStringList({QStringLiteral("oscil"), QStringLiteral("oscil3")}));
}

void tst_CompletionList::macros_areThoseOfTheirSection()
{
    const QByteArray piece = "<CsInstruments>\n#define AMP #0.5#\ninstr 1\nk1 = $A\xc2\xa7\nendin\n"
                             "</CsInstruments>\n<CsScore>\n#define ALSO #1#\n</CsScore>\n";
    QVERIFY(rows(piece).startsWith(QStringLiteral("macro $AMP")));
    QVERIFY(!rows(piece).contains(QStringLiteral("macro $ALSO")));
    QVERIFY(rows("<CsInstruments>\nk1 = $M_P§").contains(QStringLiteral("macro $M_PI")));
    QVERIFY(
        rows("<CsInstruments>\n#define AMP #1#\n#ifdef A§").contains(QStringLiteral("macro AMP")));
    QVERIFY(rows("<CsScore>\n#define ALSO #1#\ni 1 0 $A§").contains(QStringLiteral("macro $ALSO")));
}

void tst_CompletionList::labels_areThoseOfTheBody()
{
    QCOMPARE(rows("<CsInstruments>\ninstr 1\nloop:\nendin\ninstr 2\nlong:\nigoto lo§\nendin\n"),
             QStringList({QStringLiteral("label long")}));
    QCOMPARE(rows("<CsScore>\nm verse\ns\nn v§\n"), QStringList({QStringLiteral("label verse")}));
}

void tst_CompletionList::instruments_areOfferedWhereOneIsPlayed()
{
    const QByteArray piece = "<CsInstruments>\n; the bass\ninstr 12\nendin\ninstr Voice\nendin\n";
    QCOMPARE(
        rows(piece + "schedule §", true).first(2),
        QStringList({QStringLiteral("instrument 12"), QStringLiteral("instrument \"Voice\"")}));
    QCOMPARE(rows(piece + "schedule \"Vo§"), QStringList({QStringLiteral("instrument Voice")}));
    QCOMPARE(rows(piece + "event_i \"i\", \"Vo§"),
             QStringList({QStringLiteral("instrument Voice")}));
    QCOMPARE(rows(piece + "</CsInstruments>\n<CsScore>\ni 1§"),
             QStringList({QStringLiteral("instrument 12")}));
    QCOMPARE(rows(piece + "</CsInstruments>\n<CsScore>\ni \"V§"),
             QStringList({QStringLiteral("instrument Voice")}));
    const MarkedPiece marked(piece + "schedule §");
    QCOMPARE(listOf(marked, false).at(0).sentence, QStringLiteral("; the bass"));
}

void tst_CompletionList::channels_areOffered()
{
    const QByteArray piece = "<CsInstruments>\ninstr 1\nchnset 1, \"volume\"\n";
    QCOMPARE(rows(piece + "kv chnget \"vo§"), QStringList({QStringLiteral("channel volume")}));
    QCOMPARE(rows(piece + "kv chnget §", true).constFirst(), QStringLiteral("channel \"volume\""));
}

void tst_CompletionList::genRoutines_areOfferedByNumber()
{
    QCOMPARE(rows("<CsInstruments>\ngi1 ftgen 1, 0, 1024, GEN10§").constFirst(),
             QStringLiteral("GEN 10"));
    QCOMPARE(rows("<CsScore>\nf 1 0 1024 10§").constFirst(), QStringLiteral("GEN 10"));
    QVERIFY(rows("<CsScore>\nf 1 0 1024 §", true).contains(QStringLiteral("GEN \"tanh\"")));
    QVERIFY(rows("<CsScore>\nf 1 0 1024 §", true).contains(QStringLiteral("GEN 1")));
}

void tst_CompletionList::scoreStatements_areOffered()
{
    const QStringList found = rows("<CsScore>\n§", true);
    for (const char *const letter : {"i", "f", "t", "s", "e", "{", "}"})
        QVERIFY(found.contains(QStringLiteral("statement ") + QLatin1String(letter)));
}

void tst_CompletionList::snippets_areOfferedInTheirLanguage()
{
    QCOMPARE(names("<CsInstruments>\nqx§"), QStringList(QStringLiteral("qxvoice")));
    QCOMPARE(names("<CsInstruments>\nk1 = qx§"), QStringList());
    QCOMPARE(names("<CsScore>\nqx§"), QStringList(QStringLiteral("qxloop")));
    QCOMPARE(names("<CsOptions>\nqx§"), QStringList(QStringLiteral("qxplay")));
    QCOMPARE(names("qx§"), QStringList(QStringLiteral("qxframe")));
    QCOMPARE(names("<CsLicense>\nqx§"), QStringList());
}

void tst_CompletionList::tags_beginWithTheOneThatCloses()
{
    QCOMPARE(rows("<CsScore>\ni 1 0 1\n<§", true).constFirst(), QStringLiteral("tag </CsScore>"));
    QVERIFY(rows("<CsScore>\n</CsScore>\n<CsOp§").startsWith(QStringLiteral("tag <CsOptions>")));
}

void tst_CompletionList::options_areOffered()
{
    QVERIFY(rows("<CsOptions>\n--midi-k§").startsWith(QStringLiteral("option --midi-key")));
    QVERIFY(rows("<CsOptions>\n-o§").startsWith(QStringLiteral("option -o")));
}

void tst_CompletionList::files_areOfferedWhereOneIsWanted()
{
    m_files = {QStringLiteral("drum.wav"), QStringLiteral("my voice.aif")};
    QCOMPARE(rows("<CsInstruments>\nasig diskin2 \"dr§"),
             QStringList({QStringLiteral("file drum.wav")}));
    QCOMPARE(rows("<CsInstruments>\nasig diskin2 \"my v§"),
             QStringList({QStringLiteral("file my voice.aif")}));
    QCOMPARE(rows("<CsInstruments>\n#include \"dr§"),
             QStringList({QStringLiteral("file drum.wav")}));
    QCOMPARE(rows("<CsScore>\nf 1 0 0 1 \"dr§"), QStringList({QStringLiteral("file drum.wav")}));
    m_files.clear();
}

void tst_CompletionList::nothingElse_isOfferedInQuotes()
{
    m_files = {QStringLiteral("drum.wav")};
    QCOMPARE(rows("<CsInstruments>\nprints \"dr§"), QStringList());
    QCOMPARE(rows("<CsInstruments>\nSx = \"dr§"), QStringList());
    QCOMPARE(rows("<CsInstruments>\nSx strcpy \"dr§"), QStringList());
    QCOMPARE(rows("<CsInstruments>\n; dr§"), QStringList());
    m_files.clear();
}

void tst_CompletionList::bracketAndQuotes_areProposedWhereTheyAreMissing()
{
    const QString bracket = QStringLiteral("closing )");
    QCOMPARE(rows("<CsInstruments>\nk1 = (1 + 2§", true).constFirst(), bracket);
    QVERIFY(!rows("<CsInstruments>\nk1 = (1 + 2§)", true).contains(bracket));
    QVERIFY(!rows("<CsInstruments>\nk1 = (1 + kva§").contains(bracket));
    QCOMPARE(rows("<CsInstruments>\nk1 = (1 + 2§ ; so", true).constFirst(), bracket);
    QCOMPARE(rows("<CsInstruments>\nk1 = kArr[2§", true).constFirst(), QStringLiteral("closing ]"));
    QCOMPARE(rows("<CsInstruments>\nasig diskin2 \"§", true),
             QStringList({QStringLiteral("closing \"")}));
    QVERIFY(!rows("<CsInstruments>\nk1 = (1 + 2)§", true).contains(bracket));
}

void tst_CompletionList::ends_areProposedWhereTheyAreMissing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("first");

    QTest::newRow("instr") << QByteArray("instr 1\nk1 = 1\n§") << "closing endin";
    QTest::newRow("two letters") << QByteArray("instr 1\nk1 = 1\nen§") << "closing endin";
    QTest::newRow("opcode") << QByteArray("opcode A, k, k\nk1 xin\n§") << "closing endop";
    QTest::newRow("before the next")
        << QByteArray("instr 1\n§\ninstr 2\nendin\n") << "closing endin";
    QTest::newRow("if") << QByteArray("instr 1\nif k1 > 1 then\n§\nendin\n") << "closing endif";
    QTest::newRow("while") << QByteArray("instr 1\nwhile k1 > 1 do\n§\nendin\n") << "closing od";
    QTest::newRow("the inner one")
        << QByteArray("instr 1\nif k1 > 1 then\nwhile k1 > 1 do\n§\n") << "closing od";
    QTest::newRow("the outer one")
        << QByteArray("instr 1\nif k1 > 1 then\nwhile k1 > 1 do\nod\n§\n") << "closing endif";
    QTest::newRow("ended") << QByteArray("instr 1\nif k1 > 1 then\n§\nendif\nendin\n") << "";
    QTest::newRow("between") << QByteArray("instr 1\nendin\n§\n") << "";
}

void tst_CompletionList::ends_areProposedWhereTheyAreMissing()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, first);
    const QStringList found = rows("<CsInstruments>\n" + text, true);
    if (!first.isEmpty()) {
        QCOMPARE(found.value(0), first);
        return;
    }
    for (const QString &row : found)
        QVERIFY2(!row.startsWith(QLatin1String("closing")), qPrintable(row));
}

void tst_CompletionList::narrow_keepsWhatHasTheLetters()
{
    const MarkedPiece marked("<CsInstruments>\nasig os§");
    CompletionList list = listOf(marked, false);
    const int before = list.size();
    list.narrow(QStringLiteral("osc"));
    QVERIFY(list.size() < before);
    list.narrow(QStringLiteral("oscili"));
    QCOMPARE(list.at(0).name, QStringLiteral("oscili"));
    QVERIFY(list.isTyped(0));
    list.narrow(QStringLiteral("osciliq"));
    QVERIFY(list.isEmpty());
    list.narrow(QStringLiteral("os"));
    QCOMPARE(list.size(), before);
}

void tst_CompletionList::narrow_isTheSameAsReadingAnew()
{
    for (const char *const word : {"oscili", "vcomb", "pvsanal", "linsegr", "kf"}) {
        const QByteArray before = "<CsInstruments>\ninstr 1\nkfreq = 1\nkfun = 2\nkx = kfun\nasig ";
        const QByteArray letters(word);
        const MarkedPiece first(before + letters.first(2) + "\xc2\xa7");
        CompletionList list = listOf(first, false);
        for (qsizetype size = 3; size <= letters.size(); ++size) {
            list.narrow(QString::fromLatin1(letters.first(size)));
            QStringList narrowed;
            for (int row = 0; row < list.size(); ++row)
                narrowed.append(list.at(row).name);
            QCOMPARE(narrowed, names(before + letters.first(size) + "\xc2\xa7"));
        }
    }
}

void tst_CompletionList::recordThatOthersRead_stays()
{
    QVERIFY(m_words.ReadOpcodeRecord(5));
    const QString before = m_words.OpcodeRecord.Name;
    OpcodeSignatures fresh(m_words);
    QVERIFY(!fresh.of(300).parameters.isEmpty());
    QCOMPARE(m_words.OpcodeRecord.Name, before);
}

void tst_CompletionList::emptyTables_offerTheNamesOfThePiece()
{
    WordTables none;
    OpcodeSignatures opcodes(none);
    const MarkedPiece marked("<CsInstruments>\ninstr 1\nkfreq = 1\nk2 = kf§\n");
    const CompletionSources sources{marked.piece, none, opcodes, {}, m_snippets};
    const CompletionList list(
        sources, completionPlace(marked.piece, marked.text(), marked.caretLine, marked.caretColumn),
        CompletionReason::Letters, QString());
    QCOMPARE(list.size(), 1);
    QCOMPARE(list.at(0).name, QStringLiteral("kfreq"));
}

ARDIPHON_TEST(tst_CompletionList, NoApplication)
#include "tst_CompletionList.moc"
