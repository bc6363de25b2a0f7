#include "piece/PieceFields.h"
#include "piece/PieceLines.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;

namespace {

/// The fields of the body at \a line, as "4 iamp", with "any" where it reads more.
QStringList fieldTexts(const PieceOfLines &of, int line)
{
    const auto body = bodyAt(of.piece, of.text(), line);
    if (!body)
        return {QStringLiteral("no body")};
    const PieceFields fields = fieldsOf(of.text(), *body);
    QStringList texts;
    for (const PieceField &field : fields.fields)
        texts.append(QStringLiteral("%1 %2").arg(field.number).arg(field.name).trimmed());
    if (fields.readsAny)
        texts.append(QStringLiteral("any"));
    return texts;
}

} // namespace

class tst_PieceFields : public QObject
{
    Q_OBJECT

private slots:
    void fields_areReadAndNamed_data();
    void fields_areReadAndNamed();
    void place_isWhereItIsReadFirst();
    void otherBodies_doNotCount();
    void commentsAbove_nameThem();
    void anyBytes_areRead();
};

void tst_PieceFields::fields_areReadAndNamed_data()
{
    QTest::addColumn<QByteArrayList>("lines");
    QTest::addColumn<QStringList>("fields");
    const auto row = [](const char *name, const QByteArrayList &lines, const QStringList &fields) {
        QTest::newRow(name) << lines << fields;
    };
    row("none", {"a1 oscili 1, 440", "out a1"}, {});
    row("a variable", {"icps = p5"}, {"5 icps"});
    row("with a comment behind", {"icps = p5 ; the pitch"}, {"5 icps"});
    row("with a type", {"cps:i = p5"}, {"5 cps"});
    row("by init", {"kcps init p5"}, {"5 kcps"});
    row("behind a label", {"again: icps = p5"}, {"5 icps"});
    row("not alone", {"icps = p5 * 2", "iamp = -p4", "ioct = cpspch(p6)"}, {"4", "5", "6"});
    row("the first variable", {"icps = p5", "ifreq = p5"}, {"5 icps"});
    row("alone later", {"a1 oscili p4, p5", "icps = p5"}, {"4", "5 icps"});
    row("an opcode's output is not the field", {"icps limit p5"}, {"5"});
    row("a comparison", {"if p5 == p6 then"}, {"5", "6"});
    row("brackets", {"icps = p(5)", "iamp = p( 4 )"}, {"4", "5"});
    row("computed", {"icps = p(i1 + 5)"}, {"any"});
    row("pindex", {"i1 pindex 6", "i2 = pindex(7)", "i3 pindex i1"}, {"6", "7", "any"});
    row("pcount", {"i1 pcount", "i2 = p4"}, {"4 i2", "any"});
    row("passign", {"iamp, icps passign 4"}, {"4 iamp", "5 icps"});
    row("passign from the first", {"inum, istart, idur passign"}, {"1 inum", "2 istart", "3 idur"});
    row("passign with types", {"amp:i, cps:i passign 4"}, {"4 amp", "5 cps"});
    row("passign with an end", {"iamp, icps passign 4, 5"}, {"4 iamp", "5 icps"});
    row("passign of an array", {"iall[] passign 4"}, {"any"});
    row("passign, computed", {"iamp passign inum"}, {"any"});
    row("a comment behind", {"a1 oscili p4, p5 ; p5 pitch"}, {"4", "5 pitch"});
    row("a comment with =", {";p4 = amp", "a1 oscili p4, p5"}, {"4 amp", "5"});
    row("other comments", {"// p4: amp", "/* p5 - pitch */", "a1 oscili p4, p5"},
        {"4 amp", "5 pitch"});
    row("a comment over lines", {"/*", "p4 amp", "*/", "a1 oscili p4, p5"}, {"4 amp", "5"});
    row("several", {"; p4 = amp, p5 = pitch of the note", "a1 oscili p4, p5"},
        {"4 amp", "5 pitch of the note"});
    row("several without commas", {"; p4 amp p5 pitch", "a1 oscili p4, p5"}, {"4 amp", "5 pitch"});
    row("columns say nothing", {"; p1 p2 p3 p4 p5", "a1 oscili p4, p5"}, {"4", "5"});
    row("a variable counts first", {"; p5 pitch", "icps = p5"}, {"5 icps"});
    row("named only in a comment", {"; p9 pan"}, {});
    row("no word of its own", {"; amp4 xp4 p4x", "a1 oscili p4, p5"}, {"4", "5"});
    row("in texts and macros", {"prints \"p4\"", "#define A #p5#", "kp6 = 1"}, {});
    row("a large number", {"i1 = p99999", "i2 = p0"}, {});
}

void tst_PieceFields::fields_areReadAndNamed()
{
    QFETCH(QByteArrayList, lines);
    QFETCH(QStringList, fields);
    const PieceOfLines of("instr 1\n" + lines.join('\n') + "\nendin\n", DocumentRole::Orchestra);
    QCOMPARE(fieldTexts(of, 1), fields);
}

void tst_PieceFields::place_isWhereItIsReadFirst()
{
    const PieceOfLines of("instr 1\nprints \"\xc3\xa9\", p4\nicps = p4\nendin\n",
                          DocumentRole::Orchestra);
    const PieceFields fields = fieldsOf(of.text(), *bodyAt(of.piece, of.text(), 1));
    QCOMPARE(fields.fields.size(), 1);
    QCOMPARE(fields.fields[0].place, (PiecePlace{DocumentRole::Orchestra, 2, 12, 2}));
    QCOMPARE(fields.nameOf(4), QStringLiteral("icps"));
    QCOMPARE(fields.nameOf(5), QString());
}

void tst_PieceFields::otherBodies_doNotCount()
{
    const PieceOfLines of("instr 1\niamp = p4\nendin\ninstr 2, Bell\nicps = p5\n",
                          DocumentRole::Orchestra);
    QCOMPARE(fieldTexts(of, 2), QStringList("4 iamp"));
    QCOMPARE(fieldTexts(of, 5), QStringList("5 icps")); // without an end
}

void tst_PieceFields::commentsAbove_nameThem()
{
    const PieceOfLines of("; p4 = far away\n\n; p4 = amp\n;; p5 = pitch\ninstr 1 ; p6 pan\n"
                          "a1 oscili p4, p5, p6 ; p5 cps\nendin\n",
                          DocumentRole::Orchestra);
    QCOMPARE(fieldTexts(of, 5), QStringList({"4 amp", "5 cps", "6 pan"}));
}

void tst_PieceFields::anyBytes_areRead()
{
    static const QByteArrayList Some = {
        "p4",     "p(",   "passign", "pcount", "=",  ",",  "[",  "]",    "; p",
        "pindex", "icps", ")",       ":",      "/*", "{{", "\"", "\xff", "p99999999999999999999",
        "4",      "init"};
    QRandomGenerator random(randomSeed(23));
    for (int round = 0; round < 2000; ++round) {
        QByteArray text = "instr 1\n";
        for (int i = random.bounded(30); i > 0; --i)
            text += Some[random.bounded(int(Some.size()))] + (random.bounded(5) != 0 ? " " : "\n");
        const PieceOfLines of(text, DocumentRole::Orchestra);
        for (const PieceField &field : fieldsOf(of.text(), *bodyAt(of.piece, of.text(), 1)).fields)
            QVERIFY(field.number >= 1 && field.number <= 2000);
    }
}

ARDIPHON_TEST(tst_PieceFields, NoApplication)
#include "tst_PieceFields.moc"
