#include "piece/RenamedPiece.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_PieceRename : public QObject
{
    Q_OBJECT

private slots:
    void edits_data();
    void edits();
    void refusals_data();
    void refusals();
    void obstacles_data();
    void obstacles();
    void project_countsTheLinesOfEachText();
    void hiddenNotes_areCounted();
    void reading_inSlices();
    void renamedBack_isTheSameText();
};

namespace {

const QByteArray OrchestraTag = "<CsInstruments>\n";

/// A piece whose instruments, opcodes, variables, macros, labels and channels refer to each other.
QByteArray randomPiece(QRandomGenerator &random)
{
    const auto pick = [&](const QByteArrayList &from) { return from[random.bounded(from.size())]; };
    QByteArrayList lines = {"<CsInstruments>", "#define LEN #4#", "gkLevel init 1",
                            "opcode shape, k, kk\nkx, ky xin\nxout kx * ky + $LEN.\nendop"};
    const QByteArrayList statements = {
        "kx = kx + 1",
        "kenv shape kx, gkLevel",
        "kx = shape(kx, 2) * gkLevel",
        "goto done",
        "if kx > $LEN goto done",
        "chnset kx, \"level\"",
        "kx chnget \"level\"",
        "schedule 1, 0, $LEN",
        "schedule \"Bell\", 0, 1",
        "event_i \"i\", 3, 0, 1",
        "scoreline_i {{\ni 1 0 1\ni \"Bell\" 0 [1+1]\n}}",
        "turnoff2 2, 0, 0",
        "prints \"kx gkLevel $LEN\"",
        "; kx gkLevel shape 1 Bell",
        "print kx, \\\n kx",
        "gkLevel = 2",
        "scoreline_i \"i 2 0 1\"",
    };
    for (const char *const name : {"1", "2, 3", "Bell"}) {
        lines.append(QByteArray("instr ") + name + "\nkx = p4\n");
        for (int count = int(random.bounded(12)); count > 0; --count)
            lines.append(pick(statements));
        lines.append("done:\nendin");
    }
    lines.append("<CsScore>\n#define DUR #2#");
    const QByteArrayList notes = {
        "i 1 0 $DUR", "i2 0 1",       "i \"Bell\" 0 [$DUR.*2]", "i 3 . +",
        "; i 1 0 1",  "f 1 0 8 10 1", "{ 3 CNT\ni 3 $CNT 1\n}", "i -1 0 0",
        "s"};
    for (int count = int(random.bounded(20)); count > 0; --count)
        lines.append(pick(notes));
    return lines.join('\n');
}

} // namespace

void tst_PieceRename::edits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *title, const char *text, const char *name,
                        const char *expected) {
        QTest::newRow(title) << OrchestraTag + text << QString::fromUtf8(name)
                             << OrchestraTag + expected;
    };
    row("number to number",
        "instr 3, §4, Bell\nschedule -4.2, 0, 1\nscoreline_i {{i4 0 1}}\nendin\n<CsScore>\n"
        "i 4 0 1\ni-4 0 0\ni4.25 0 1\ni 14 4 4",
        "017",
        "instr 3, 17, Bell\nschedule -17.2, 0, 1\nscoreline_i {{i17 0 1}}\nendin\n<CsScore>\n"
        "i 17 0 1\ni-17 0 0\ni17.25 0 1\ni 14 4 4");
    row("name to name",
        "instr 3, Be§ll\nschedule \"Bell\", 0, 1\nscoreline_i \"i \\\"Bell\\\" 0 1\"\nendin\n"
        "<CsScore>\ni \"Bell\" 0 1\ni \"-Bell\" 0 0\ni \"Bell.1\" 0 0",
        "Gong",
        "instr 3, Gong\nschedule \"Gong\", 0, 1\nscoreline_i \"i \\\"Gong\\\" 0 1\"\nendin\n"
        "<CsScore>\ni \"Gong\" 0 1\ni \"-Gong\" 0 0\ni \"Gong.1\" 0 0");
    row("number to name",
        "instr 3, 1§\nschedule 1, 0, 1\nschedule(1, 0)\nscoreline_i \"i1 0 1\"\nscoreline_i {{i1 0 "
        "1}}\nendin\n<CsScore>\ni 1 0 1\ni1 0 1\ni-1 0 0",
        "Bell",
        "instr 3, Bell\nschedule \"Bell\", 0, 1\nschedule(\"Bell\", 0)\nscoreline_i "
        "\"i\\\"Bell\\\" "
        "0 1\"\nscoreline_i {{i\"Bell\" 0 1}}\nendin\n<CsScore>\ni \"Bell\" 0 1\ni\"Bell\" 0 1\n"
        "i\"-Bell\" 0 0");
    row("name to number",
        "instr +Bell\nschedule \"Bell\", 0, 1\nscoreline_i \"i \\\"Be§ll\\\" 0 1\"\nendin\n"
        "<CsScore>\ni \"Bell\" 0 1\ni\"-Bell\" 0 0\ni \"Bell.1\" 0 0",
        "5",
        "instr 5\nschedule 5, 0, 1\nscoreline_i \"i 5 0 1\"\nendin\n<CsScore>\ni 5 0 1\ni-5 0 0\n"
        "i 5.1 0 0");
    row("an opcode", "opcode fo§o, i, i\nendop\ninstr 1\nix foo 1\nix = foo(2)\nendin", "twice",
        "opcode twice, i, i\nendop\ninstr 1\nix twice 1\nix = twice(2)\nendin");
    row("a local", "kx = 1\ninstr 1\nk§x = 1\nprint kx ; kx\nendin\ninstr 2\nkx = 1\nendin",
        "kLevel", "kx = 1\ninstr 1\nkLevel = 1\nprint kLevel ; kx\nendin\ninstr 2\nkx = 1\nendin");
    row("a global", "gkx init 1\ninstr 1\ngk§x = gkx\nendin", "gkLevel",
        "gkLevel init 1\ninstr 1\ngkLevel = gkLevel\nendin");
    row("a parameter without a letter of a type", "opcode foo(val:i):(i)\nix = va§l\nendop", "num",
        "opcode foo(num:i):(i)\nix = num\nendop");
    row("a macro", "#define AB #1#\nprint $A§B.\nprints \"$AB\"", "if",
        "#define if #1#\nprint $if.\nprints \"$if\"");
    row("a label", "instr 1\nagain:\ngoto ag§ain\nendin", "start",
        "instr 1\nstart:\ngoto start\nendin");
    row("a channel", "chnset kx, \"a§\"\nkx chnget \"a\"", "the level",
        "chnset kx, \"the level\"\nkx chnget \"the level\"");
    row("behind letters of several bytes",
        "instr 1\nprints \"\xc3\xa4\xf0\x9f\x8e\xb5\", kx§\nendin", "kLevel",
        "instr 1\nprints \"\xc3\xa4\xf0\x9f\x8e\xb5\", kLevel\nendin");
}

void tst_PieceRename::edits()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, name);
    const MarkedPiece of(text);
    const auto rename = readRename(of);
    QVERIFY(rename);
    QCOMPARE(rename->refusal(name), QString());
    QTEST(withEdits(MarkedPiece::plain(text), rename->editsFor(name)), "expected");
}

void tst_PieceRename::refusals_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *text, const char *name, const char *expected) {
        QTest::addRow("%s -> %s", text, name)
            << OrchestraTag + text << QString::fromUtf8(name) << QString::fromUtf8(expected);
    };
    const auto longName = QByteArray("k").repeated(251);
    row("k§x = 1", "", "Type the new name.");
    row("k§x = 1", "kx", "That is its name now.");
    row("instr §7", "07", "That is its name now.");
    row("k§x = 1", "k x", "A name has only the letters A to Z, digits and \"_\".");
    row("k§x = 1", "k\xc3\xa4", "A name has only the letters A to Z, digits and \"_\".");
    row("k§x = 1", "1x", "A name cannot begin with a digit.");
    row("k§x = 1", longName.constData(), "The name is too long.");
    row("k§x = 1", "ax", "The name has to begin with \"k\": another letter is another type.");
    row("k§x = 1", "x", "The name has to begin with \"k\": another letter is another type.");
    row("k§x = 1", "gkx", "With \"g\" in front it would be known everywhere.");
    row("gk§x = 1", "kx", "The name has to begin with \"gk\", as it is known everywhere.");
    row("gk§x = 1", "gax", "The name has to begin with \"gk\": another letter is another type.");
    row("k§x = 1", "kgoto", "\"kgoto\" is a word of the language.");
    row("if§ab = 1", "if", "\"if\" is a word of the language.");
    row("i§x = 1", "igoto", "\"igoto\" is a word of the language.");
    row("k§x = 1", "p4", "\"p4\" is a field of the score.");
    row("opcode fo§o, i, i", "p4", "\"p4\" is a field of the score.");
    row("opcode fo§o, i, i", "oscili", "\"oscili\" is an opcode of the language.");
    row("instr Be§ll", "instr", "\"instr\" is a word of the language.");
    row("opcode fo§o, i, i", "A4", "\"A4\" is a word of the language.");
    row("instr §1", "0", "The number of an instrument is 1 or more.");
    row("instr §1", "-3", "The number of an instrument is 1 or more.");
    row("instr §1", "1000000000", "The number is too large.");
    row("instr §1", "1.5", "A name cannot begin with a digit.");
    row("chnset kx, \"§a\"", "a\"b", "The name of a channel cannot have \", \\ and $ in it.");
    row("chnset kx, \"§a\"", "$B", "The name of a channel cannot have \", \\ and $ in it.");
    row("#define A§B #1#", "A-B", "A name has only the letters A to Z, digits and \"_\".");

    row("instr §1\nendin\ninstr 2", "2", "Line 4: \"2\" is taken already.");
    row("instr §1, Bell\nendin", "Bell", "Line 2: \"Bell\" is taken already.");
    row("instr §1\nendin\n<CsScore>\ni 5 0 1", "5", "Line 5: \"5\" is taken already.");
    row("instr §1\nschedule \"Bell\", 0, 1", "Bell", "Line 3: \"Bell\" is taken already.");
    row("opcode fo§o, i, i\nendop\nopcode bar, 0, i", "bar", "Line 4: \"bar\" is taken already.");
    row("opcode fo§o, i, i\nendop\ninstr 1\nkx = 1", "kx", "Line 5: \"kx\" is taken already.");
    row("instr 1\nk§x = 1\nprint ky", "ky", "Line 4: \"ky\" is taken already.");
    row("instr 1\nk§x = 1\nky:", "ky", "Line 4: \"ky\" is taken already.");
    row("opcode kfoo, i, i\nendop\ninstr 1\nk§x = 1", "kfoo",
        "\"kfoo\" is an opcode of the piece.");
    row("instr 1\nk§x = 1\n#define A #ky#", "ky", "Line 4: \"ky\" is taken already.");
    row("gk§x = 1\ninstr 1\nprint gky", "gky", "Line 4: \"gky\" is taken already.");
    row("#define A§B #1#\n#define C #2#", "C", "Line 3: \"C\" is taken already.");
    row("#define A§B #1#\n#define C(X) #$AB.#", "X", "Line 3: \"X\" is taken already.");
    row("#define A§B #1#\n$M_PI", "M_PI", "Line 3: \"M_PI\" is taken already.");
    row("instr 1\nagai§n:\nstart:", "start", "Line 4: \"start\" is taken already.");
    row("instr 1\nagai§n:\nkx = 1", "kx", "Line 4: \"kx\" is taken already.");
    row("chnset kx, \"§a\"\nchnset kx, \"b\"", "b", "Line 3: \"b\" is taken already.");

    row("instr §1\n<CsScore>\ni 1.3 0 1", "Bell",
        "Line 4: a number with a fraction cannot become a name.");
    row("instr §1\nschedule -1, 0, 0", "Bell",
        "Line 3: a number with a sign cannot become a name.");
    row("instr §1\ninsremot \"a\", \"b\", 1", "Bell", "Line 3: there has to be a number.");
    row("instr Be§ll\nix nstrnum \"Bell\"", "5", "Line 3: there has to be a name.");
}

void tst_PieceRename::refusals()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, name);
    const MarkedPiece of(text);
    const auto rename = readRename(of);
    QVERIFY(rename);
    QTEST(rename->refusal(name), "expected");
}

void tst_PieceRename::obstacles_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *text, const char *expected) {
        QTest::newRow(text) << OrchestraTag + text << QString::fromUtf8(expected);
    };
    row("; k§x", "There is no name at the caret.");
    row("ax osci§li 1", "\"oscili\" is an opcode of the language.");
    row("in§str 1", "\"instr\" is a word of the language.");
    row("s§r = 1", "\"sr\" is a word of the language.");
    row("instr 1\nprint p§4", "\"p4\" is a field of the score.");
    row("#define A(X) #$X§#", "\"X\" is an argument of a macro.");
    row("ax = un§heard", "\"unheard\" is not defined in this piece.");
    row("#define A #k§x#", "\"kx\" stands in the text of a macro, so it can mean more than one.");
    row("schedule §3, 0, 1", "\"3\" is not defined in this piece.");
    row("print $A§B", "\"AB\" is not defined in this piece.");
    row("goto ag§ain", "\"again\" is not defined in this piece.");
    row("instr 1\nk§x = 1\nendin\n#define A #kx#",
        "Line 5: a macro has \"kx\" too, which may be this one.");
    row("instr 1\nk§x = 1\nendin\n#define A #gkx#", "");
    row("instr 1\nk§x = 1", "");
}

void tst_PieceRename::obstacles()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);
    const MarkedPiece of(text);
    const QString before = renameObstacle(of.symbol());
    const auto rename = readRename(of);
    QCOMPARE(rename ? rename->obstacle() : before, expected);
    if (rename && !expected.isEmpty())
        QCOMPARE(rename->refusal(QStringLiteral("kNew")), expected);
}

void tst_PieceRename::project_countsTheLinesOfEachText()
{
    PieceTextLines orchestra("instr 1\nendin\ninstr 2\nendin");
    PieceTextLines score("i 1 0 1\n\ni 5.1 0 1\ni 1.5 0 1");
    Piece piece({{DocumentRole::Orchestra, &orchestra}, {DocumentRole::Score, &score}},
                isMarkedOpcode);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    const auto symbol = symbolAt(piece, *piece.score(), 1, 2);
    QVERIFY(symbol);
    PieceRename rename(piece, *symbol);
    QCOMPARE(rename.linesInAll(), 8);
    QVERIFY(rename.readOn(QDeadlineTimer(QDeadlineTimer::Forever)));
    QCOMPARE(rename.linesRead(), 8);
    QCOMPARE(rename.count(), 3);
    QCOMPARE(rename.place(0), (PiecePlace{DocumentRole::Orchestra, 1, 6, 1}));
    QCOMPARE(rename.place(2), (PiecePlace{DocumentRole::Score, 4, 2, 1}));
    QCOMPARE(rename.refusal(QStringLiteral("2")),
             QStringLiteral("Line 3 of the orchestra: \"2\" is taken already."));
    QCOMPARE(rename.refusal(QStringLiteral("5")),
             QStringLiteral("Line 3 of the score: \"5\" is taken already."));
}

void tst_PieceRename::hiddenNotes_areCounted()
{
    const QByteArray text = "<CsInstruments>\ninstr §1\nk§x = 1\n<CsScore>\ni $A 0 1\ni [1+1] 0 1\n"
                            "i . 0 1\ni 1 $A 1\n#define B #i $A 0 1#";
    QCOMPARE(readRename(MarkedPiece(text))->hiddenNotes(), 3);
    QByteArray other = text;
    other.replace("§1", "1");
    QCOMPARE(readRename(MarkedPiece(other))->hiddenNotes(), 0);
}

void tst_PieceRename::reading_inSlices()
{
    const QByteArray notes = QByteArray("i 1 0 1\ni 2 0 1\n").repeated(5000);
    const MarkedPiece of("<CsInstruments>\ninstr §1\nendin\n<CsScore>\n" + notes);
    PieceRename rename(of.piece, *of.symbol());
    int slices = 1;
    while (!rename.readOn(QDeadlineTimer(0))) {
        QVERIFY(rename.linesRead() <= 128 * slices);
        ++slices;
    }
    QCOMPARE(slices, (of.text().lineCount() + 127) / 128);
    QCOMPARE(rename.count(), 5001);
}

void tst_PieceRename::renamedBack_isTheSameText()
{
    const QByteArrayList names = {"1",  "2",   "3",    "Bell",  "shape", "gkLevel",
                                  "kx", "LEN", "done", "level", "DUR",   "CNT"};
    const QStringList others = {"7",      "Gong", "kLevel",   "gkOther", "twist", "COUNT",
                                "finish", "9",    "loudness", "2",       "kx"};
    QRandomGenerator random(randomSeed(31));
    int renames = 0;
    for (int round = 0; round < 400; ++round) {
        const QByteArray text = randomPiece(random);
        const QByteArray name = names[random.bounded(names.size())];
        QList<qsizetype> places;
        for (qsizetype at = text.indexOf(name); at >= 0; at = text.indexOf(name, at + 1))
            places.append(at);
        if (places.isEmpty())
            continue;
        const qsizetype place = places[random.bounded(places.size())];
        QByteArray caret = text;
        const MarkedPiece of(caret.insert(place, "§"));
        const auto rename = readRename(of);
        const QString other = others[random.bounded(others.size())];
        if (!rename || !rename->refusal(other).isEmpty())
            continue;
        const QList<RenameEdit> edits = rename->editsFor(other);
        const QByteArray renamed = withEdits(text, edits);
        QVERIFY(renamed != text);
        QStringList lines = QString::fromUtf8(renamed).split(u'\n');
        const PiecePlace first = edits.first().place;
        const qsizetype column = lines[first.line - 1].indexOf(other, first.column);
        lines[first.line - 1].insert(column, QChar(0xa7));
        const MarkedPiece after(lines.join(u'\n').toUtf8());
        const auto back = readRename(after);
        QVERIFY2(back, renamed.constData());
        const QString before = QString::fromUtf8(rename->symbol().name);
        QCOMPARE(back->refusal(before), QString());
        QCOMPARE(back->count(), rename->count());
        QCOMPARE(withEdits(renamed, back->editsFor(before)), text);
        ++renames;
    }
    QVERIFY2(renames > 60, qPrintable(QString::number(renames)));
}

ARDIPHON_TEST(tst_PieceRename, NoApplication)
#include "tst_PieceRename.moc"
