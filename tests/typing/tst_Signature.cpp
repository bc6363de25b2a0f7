#include "support/TestMain.h"

#include "language/WordTables.h"
#include "typing/Signature.h"

#include <QTest>

using namespace ardiphon;

/// The signatures that the word tables give for an opcode.
class tst_Signature : public QObject
{
    Q_OBJECT

private slots:
    void signature_isTakenApart_data();
    void signature_isTakenApart();
    void overloads_areSeparate();
    void arguments_standWhereTheTextHasThem();
    void argumentAt_comesAgain_data();
    void argumentAt_comesAgain();
    void fewest_leavesOutWhatIsOptional();
    void type_ofAnArgument_data();
    void type_ofAnArgument();
    void type_ofAValue_data();
    void type_ofAValue();
    void takesValue_byType_data();
    void takesValue_byType();
    void allOpcodes_areUnderstood();
};

namespace {

/// As "xamp, [ifn], [iphs]*": optional ones in brackets, repeated ones with a star.
QString described(const QList<SignatureArgument> &arguments)
{
    QStringList texts;
    for (const SignatureArgument &argument : arguments) {
        QString text = argument.isOptional ? u'[' + argument.name + u']' : argument.name;
        if (argument.isRepeated)
            text += u'*';
        if (argument.isLastOfMany)
            text += u'$';
        texts.append(text);
    }
    return texts.join(QLatin1String(", "));
}

/// A directive, a constant, or a word of the language's conditions and loops.
bool isNoOpcode(const QString &text)
{
    return text.startsWith(u'#') || text.startsWith(u'$') ||
           text.contains(QLatin1String("condition"));
}

ValueType typeOf(const char *text) { return {*text, QByteArrayView(text).endsWith("[]")}; }

} // namespace

void tst_Signature::signature_isTakenApart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("outputs");
    QTest::addColumn<QString>("inputs");
    const auto row = [](const char *name, const char *text, SignatureForm form, const char *outputs,
                        const char *inputs) {
        QTest::newRow(text) << name << text << int(form) << outputs << inputs;
    };
    using enum SignatureForm;
    row("oscili", "ares oscili xamp, xcps [, ifn, iphs]", Statement, "ares",
        "xamp, xcps, [ifn], [iphs]");
    row("comb", "ares comb asig, krvt, ilpt [, iskip] [, insmps]", Statement, "ares",
        "asig, krvt, ilpt, [iskip], [insmps]");
    row("active", "ir active insnum [, iopt [, inorel]]", Statement, "ir",
        "insnum, [iopt], [inorel]");
    row("out", "out asig1 [, asig2, ...]", Statement, "", "asig1, [asig2]*");
    row("max", "amax max ain1, ain2 [, ain3, ain4 ...]", Statement, "amax",
        "ain1, ain2, [ain3]*, [ain4]*");
    row("alwayson", "alwayson Tinstrument [, p4, ..., pn]", Statement, "",
        "Tinstrument, [p4]*, [pn]$");
    row("expsegba", "ares expsegba ia, itim1, ib [, itim2] [, ic] [...]", Statement, "ares",
        "ia, itim1, ib, [itim2], [ic]*");
    row("diskin2", "ar1 [, ar2 [, ...]] diskin2 ifilcod [, kpitch]", Statement, "ar1, [ar2]*",
        "ifilcod, [kpitch]");
    row("linsegr", "ares linsegr ia, idur1, ib [, idur2, ic ...], irel, iz", Statement, "ares",
        "ia, idur1, ib, [idur2]*, [ic]*, irel, iz");
    row("ptrack", "kcps, kamp ptrack asig, ihopsize[,ipeaks]", Statement, "kcps, kamp",
        "asig, ihopsize, [ipeaks]");
    row("window", "kout[] window kin[] [, koff, itype]", Statement, "kout[]",
        "kin[], [koff], [itype]");
    row("pycall", "pycall \"callable\" [, karg1, ...]", Statement, "", "\"callable\", [karg1]*");
    row("abs", "abs(x) where x is i-, k- or a-rate", Function, "", "x");
    row("tb9", "iout = tb9(iIndex)", Function, "iout", "iIndex");
    row("A4", "A4 = iarg", Setting, "", "iarg");
    row("while", "while condition do ... od", Words, "", "");
    row("#define", "#define NAME # replacement text #", Words, "", "");
    row("outvalue", "outvalue Sname, Svalue (the channel may be a number)", Statement, "",
        "Sname, Svalue");
    row("nothing", "", Words, "", "");
    row("endin", "endin", Statement, "", "");
    row("other", "no such word", Words, "", "");
}

void tst_Signature::signature_isTakenApart()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    const QList<Signature> found = signaturesOf(text, name);
    if (text.isEmpty()) {
        QVERIFY(found.isEmpty());
        return;
    }
    QCOMPARE(found.size(), 1);
    QTEST(int(found[0].form), "form");
    QTEST(described(found[0].outputs), "outputs");
    QTEST(described(found[0].inputs), "inputs");
    QCOMPARE(found[0].name, name);
}

void tst_Signature::overloads_areSeparate()
{
    const QList<Signature> found = signaturesOf(
        QStringLiteral(" ir active insnum [, iopt] / kres active kinsnum [, iopt] "), "active");
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[0].text, "ir active insnum [, iopt]");
    QCOMPARE(found[1].text, "kres active kinsnum [, iopt]");
    QCOMPARE(signaturesOf("abs(x) where x is i-, k- or a-rate", "abs")[0].text, "abs(x)");
}

void tst_Signature::arguments_standWhereTheTextHasThem()
{
    for (const char *text : {"ares oscili xamp, xcps [, ifn, iphs]", "kout[] oscili \"a\" [,b]"}) {
        const Signature signature = signaturesOf(QString::fromLatin1(text), "oscili").value(0);
        QCOMPARE_GE(signature.inputs.size(), 2);
        for (const SignatureArgument &argument : signature.outputs + signature.inputs)
            QCOMPARE(signature.text.mid(argument.start, argument.name.size()), argument.name);
    }
}

void tst_Signature::argumentAt_comesAgain_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("names"); // of the arguments that are written, one after the other

    QTest::newRow("fixed") << "x a, b [, c]"
                           << "a b c - -";
    QTest::newRow("one") << "x a [, b, ...]"
                         << "a b b b b";
    QTest::newRow("pairs") << "x a [, b, c ...]"
                           << "a b c b c";
    QTest::newRow("to the last") << "x a, b1, ..., bn"
                                 << "a b1 b1 b1 b1";
    QTest::newRow("none") << "x"
                          << "- - - - -";
}

void tst_Signature::argumentAt_comesAgain()
{
    QFETCH(QString, text);
    const QList<SignatureArgument> inputs = signaturesOf(text, "x").value(0).inputs;
    QStringList names;
    for (int i = 0; i < 5; ++i) {
        const int found = argumentAt(inputs, i);
        names.append(found < 0 ? QStringLiteral("-") : inputs[found].name);
    }
    QTEST(names.join(u' '), "names");
    QCOMPARE(argumentAt(inputs, -1), -1);
}

void tst_Signature::fewest_leavesOutWhatIsOptional()
{
    const auto fewest = [](const char *text) {
        return fewestArguments(signaturesOf(QString::fromLatin1(text), "x").value(0).inputs);
    };
    QCOMPARE(fewest("x a, b [, c]"), 2);
    QCOMPARE(fewest("x [a, b]"), 0);
    QCOMPARE(fewest("x a1, ..., an"), 1);
    QCOMPARE(fewest("x"), 0);
}

void tst_Signature::type_ofAnArgument_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");

    QTest::newRow("audio") << "asig"
                           << "a";
    QTest::newRow("control") << "kamp"
                             << "k";
    QTest::newRow("any of three") << "xamp"
                                  << "x";
    QTest::newRow("array") << "kin[]"
                           << "k[]";
    QTest::newRow("text") << "Sname"
                          << "S";
    QTest::newRow("literal text") << "\"callable\""
                                  << "S";
    QTest::newRow("a function's") << "x"
                                  << "";
    QTest::newRow("no letter of a type") << "cps"
                                         << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_Signature::type_ofAnArgument()
{
    QFETCH(QString, name);
    QFETCH(QString, type);
    QVERIFY(typeOfArgument(name) == typeOf(type.toLatin1().constData()));
}

void tst_Signature::type_ofAValue_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("type");

    QTest::newRow("local") << "kamp"
                           << "k";
    QTest::newRow("global") << "galeft"
                            << "a";
    QTest::newRow("p-field") << " p4 "
                             << "i";
    QTest::newRow("number") << "440"
                            << "i";
    QTest::newRow("negative number") << "-.5"
                                     << "i";
    QTest::newRow("text") << "\"a.wav\""
                          << "S";
    QTest::newRow("long text") << "{{ a }}"
                               << "S";
    QTest::newRow("array") << "gkin[]"
                           << "k[]";
    QTest::newRow("expression") << "kamp * 2"
                                << "";
    QTest::newRow("number expression") << "2 * kamp"
                                       << "";
    QTest::newRow("another letter") << "tone"
                                    << "";
    QTest::newRow("x") << "xamp"
                       << "";
    QTest::newRow("empty") << "  "
                           << "";
}

void tst_Signature::type_ofAValue()
{
    QFETCH(QString, written);
    QFETCH(QString, type);
    QVERIFY(typeOfValue(written) == typeOf(type.toLatin1().constData()));
}

void tst_Signature::takesValue_byType_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("taken"); // of a, k, i, S, f and an array of k

    QTest::newRow("a") << "a"
                       << "a";
    QTest::newRow("k") << "k"
                       << "k i";
    QTest::newRow("i") << "i"
                       << "i";
    QTest::newRow("x") << "x"
                       << "a k i";
    QTest::newRow("S") << "S"
                       << "S";
    QTest::newRow("k array") << "k[]"
                             << "k[]";
    QTest::newRow("any") << ""
                         << "a k i S f k[]";
}

void tst_Signature::takesValue_byType()
{
    QFETCH(QString, wanted);
    QStringList taken;
    for (const char *given : {"a", "k", "i", "S", "f", "k[]"}) {
        if (takesValue(typeOf(wanted.toLatin1().constData()), typeOf(given)))
            taken.append(QString::fromLatin1(given));
    }
    QTEST(taken.join(u' '), "taken");
    QVERIFY(takesValue({'k', true}, {}));
    QVERIFY(givesValue({'x', false}, {'k', false}));
    QVERIFY(!givesValue({'k', false}, {'i', false}));
}

/// Nearly all opcodes of the tables are statements or functions, and no argument is a stray sign.
void tst_Signature::allOpcodes_areUnderstood()
{
    WordTables tables;
    tables.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    QCOMPARE_GE(tables.OpcodeCount, 1800);
    QStringList unclear;
    for (int i = 1; i < tables.OpcodeCount; ++i) {
        QVERIFY(tables.ReadOpcodeRecord(i));
        const QString name = tables.OpcodeRecord.Name.trimmed();
        const QList<Signature> found = signaturesOf(tables.OpcodeRecord.Parameters, name);
        for (const Signature &signature : found) {
            if (signature.form == SignatureForm::Words && !isNoOpcode(signature.text))
                unclear.append(signature.text);
        }
    }
    QCOMPARE(unclear, QStringList());
}

ARDIPHON_TEST(tst_Signature, NoApplication)
#include "tst_Signature.moc"
