#include "analysis/ToolCommand.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

namespace {

/// What a tool's form holds at first, with an input and an output.
ToolValues defaults(const AnalysisTool &tool)
{
    ToolValues values;
    const QString suffix = QLatin1String(tool.formats.front().suffix);
    values.texts = {{QStringLiteral("LabelInput"), QStringLiteral("a.wav")},
                    {QStringLiteral("TextOutput"), QStringLiteral("a.") + suffix},
                    {QStringLiteral("LabelNoise"), QStringLiteral("n.wav")}};
    for (const ToolGroup &group : tool.groups)
        for (const ToolRow &row : group.rows)
            values.texts.insert(
                QLatin1String(row.text),
                QLatin1String(row.choices.empty() ? row.initial : row.choices[0].initial));
    return values;
}

ToolValues with(ToolValues values, const QHash<QString, QString> &texts,
                const QSet<QString> &on = {}, int item = 0)
{
    values.texts.insert(texts);
    values.on.unite(on);
    values.item = item;
    return values;
}

/// Every number has its index as its value, between blanks.
ToolValues padded(const AnalysisTool &tool, int count)
{
    ToolValues values = defaults(tool);
    for (int i = 0; i < count; ++i)
        values.texts.insert(QStringLiteral("TextFlags(%1)").arg(i), QStringLiteral(" %1 ").arg(i));
    return values;
}

QString fieldName(int index) { return QStringLiteral("TextFlags(%1)").arg(index); }

const QString hetroDefaults = QStringLiteral("-b0.0 -d0.0 -M32767 -m64 -c1 -h10 -n256");
const QString lpDefaults = QStringLiteral("-b0.0 -d0.0 -p34 -h200 -c1 -P70 -Q200 -v0");
const QString pvDefaults = QStringLiteral("-b0.0 -d0.0 -c1 -n256 -w4");
const QString cvDefaults = QStringLiteral("-b0.0 -d0.0");
const QString noiseDefaults =
    QStringLiteral("-N1024 -L0 -D0 -b0.0 -B0 -e0.0 -E0 -t30 -S1 -n5 -m-40 -w-1");

} // namespace

class tst_ToolCommand : public QObject
{
    Q_OBJECT

private slots:
    void parameters_ofDefaults_data();
    void parameters_ofDefaults();
    void hetro_rules_data();
    void hetro_rules();
    void lpanal_rules_data();
    void lpanal_rules();
    void pvanal_rules_data();
    void pvanal_rules();
    void cvanal_rules_data();
    void cvanal_rules();
    void dnoise_rules_data();
    void dnoise_rules();
    void parameters_names_areQuotedAsTheyAre();
    void withSuffix_cutsThreeCharacters_data();
    void withSuffix_cutsThreeCharacters();
    void obstacle_comesInOrder();
    void obstacle_ofTheOddTools();

private:
    static void columns()
    {
        QTest::addColumn<ToolValues>("values");
        QTest::addColumn<QString>("flags");
    }
};

void tst_ToolCommand::parameters_ofDefaults_data()
{
    QTest::addColumn<const AnalysisTool *>("tool");
    QTest::addColumn<QString>("parameters");
    QTest::newRow("hetro") << &Hetro
                           << QStringLiteral("-U hetro -b0.0 -d0.0 -M32767 -m64 -c1 -h10 -n256 "
                                             "\"a.wav\" \"a.het\"");
    QTest::newRow("lpanal") << &LPAnal
                            << QStringLiteral("-U lpanal -b0.0 -d0.0 -p34 -h200 -c1 -P70 -Q200 -v0 "
                                              "\"a.wav\" \"a.lp\"");
    QTest::newRow("pvanal") << &PVAnal
                            << QStringLiteral("-U pvanal -b0.0 -d0.0 -c1 -n256 -w4 "
                                              "\"a.wav\" \"a.pv\"");
    QTest::newRow("cvanal") << &CVAnal
                            << QStringLiteral("-U cvanal -b0.0 -d0.0 \"a.wav\" \"a.cv\"");
    QTest::newRow("dnoise") << &DNoise
                            << QStringLiteral("-U dnoise -N1024 -L0 -D0 -b0.0 -B0 -e0.0 -E0 -t30 "
                                              "-S1 -n5 -m-40 -w-1 -W -i\"n.wav\" -o\"a.den\" "
                                              "\"a.wav\"");
}

void tst_ToolCommand::parameters_ofDefaults()
{
    QFETCH(const AnalysisTool *, tool);
    QTEST(toolParameters(*tool, with(defaults(*tool), {}, {QStringLiteral("OptionWav")})),
          "parameters");
}

void tst_ToolCommand::hetro_rules_data()
{
    columns();
    const auto row = [](const char *name, const QHash<QString, QString> &texts, const QString &more,
                        const QSet<QString> &on = {}) {
        QTest::newRow(name) << with(defaults(Hetro), texts, on) << hetroDefaults + more;
    };
    row("cut-off", {{fieldName(4), "500"}}, " -l500");
    row("small cut-off", {{fieldName(4), "0.01"}}, " -l0.01");
    row("cut-off with more behind its number", {{fieldName(4), "1-2/"}}, " -l1-2/");
    row("negative cut-off", {{fieldName(4), "-5"}}, "");
    row("cut-off of a sign", {{fieldName(4), "-"}}, "");
    row("cut-off of a slash", {{fieldName(4), "/9"}}, "");
    row("cut-off of a point", {{fieldName(4), "."}}, "");
    row("empty cut-off", {{fieldName(4), ""}}, "");
    row("rate", {{fieldName(8), "44100"}}, " -s44100");
    row("rate with a fraction of zero", {{fieldName(8), "10000.0"}}, "");
    row("rate that reads as the default", {{fieldName(8), "10000/2"}}, "");
    row("rate of zero", {{fieldName(8), "0"}}, " -s0");
    row("no rate", {{fieldName(8), ""}}, " -s");
    row("more flags that are off", {{"TextMoreFlags", "-x"}}, "");
    row("more flags that are empty", {{"TextMoreFlags", ""}}, "", {"CheckMoreFlags"});
    row("more flags as they stand", {{"TextMoreFlags", " -x  \"a b\" "}}, "  -x  \"a b\" ",
        {"CheckMoreFlags"});
    row("all", {{fieldName(4), "500"}, {fieldName(8), "44100"}, {"TextMoreFlags", "-x"}},
        " -l500 -s44100 -x", {"CheckMoreFlags"});

    QTest::newRow("every field in its place, trimmed")
        << padded(Hetro, 9) << QStringLiteral("-b0 -d1 -M2 -m3 -c5 -h6 -n7 -l 4  -s 8 ");
    const QString longText(10000, u'7');
    QTest::newRow("long field") << with(defaults(Hetro), {{fieldName(0), longText}})
                                << QString(hetroDefaults).replace("-b0.0", "-b" + longText);
}

void tst_ToolCommand::hetro_rules()
{
    QFETCH(ToolValues, values);
    QTEST(flagString(Hetro, values), "flags");
}

void tst_ToolCommand::lpanal_rules_data()
{
    columns();
    const auto row = [](const char *name, const QHash<QString, QString> &texts, const QString &more,
                        const QSet<QString> &on = {}) {
        QTest::newRow(name) << with(defaults(LPAnal), texts, on) << lpDefaults + more;
    };
    row("comment in pieces", {{fieldName(4), "two words"}}, " -Ctwo words");
    row("comment of blanks", {{fieldName(4), "  "}}, " -C  ");
    row("rate", {{fieldName(8), "8000"}}, " -s8000");
    row("graphic", {}, " -g", {"CheckGraphic"});
    row("poles", {}, " -a", {"CheckPoles"});
    row("all", {{fieldName(4), "c"}, {fieldName(8), "1"}, {"TextMoreFlags", "-x"}},
        " -Cc -s1 -g -a -x", {"CheckGraphic", "CheckPoles", "CheckMoreFlags"});
    QTest::newRow("every field in its place, trimmed")
        << padded(LPAnal, 9) << QStringLiteral("-b0 -d1 -p2 -h3 -c5 -P6 -Q7 -v0 -C 4  -s 8 ");
    QTest::newRow("no pitch tracking") << with(defaults(LPAnal), {{fieldName(6), "0"}})
                                       << QString(lpDefaults).replace("-P70", "-P0");
    QTest::newRow("hopsize and highest frequency are two")
        << with(defaults(LPAnal), {{fieldName(3), "1"}, {fieldName(7), "2"}})
        << QStringLiteral("-b0.0 -d0.0 -p34 -h1 -c1 -P70 -Q2 -v0");
    QTest::newRow("verbosity") << with(defaults(LPAnal), {}, {}, 2)
                               << QString(lpDefaults).replace("-v0", "-v2");
}

void tst_ToolCommand::lpanal_rules()
{
    QFETCH(ToolValues, values);
    QTEST(flagString(LPAnal, values), "flags");
}

void tst_ToolCommand::pvanal_rules_data()
{
    columns();
    const auto row = [](const char *name, const QHash<QString, QString> &texts, const QString &more,
                        const QSet<QString> &on = {}) {
        QTest::newRow(name) << with(defaults(PVAnal), texts, on) << pvDefaults + more;
    };
    row("rate", {{fieldName(5), "8000"}}, " -s8000");
    row("text", {{fieldName(7), "a b.txt"}}, " -Va b.txt", {"CheckText"});
    row("text without a name", {}, "", {"CheckText"});
    row("text that is off", {{fieldName(7), "a.txt"}}, "");
    row("latch", {}, " -G200", {"CheckLatch"});
    row("latch without a value", {{fieldName(6), ""}}, " -G", {"CheckLatch"});
    row("graphic", {}, " -g", {"CheckGraphic"});
    row("verbose", {}, " -v", {"CheckVerbose"});
    row("all", {{fieldName(5), "1"}, {fieldName(7), "t"}, {"TextMoreFlags", "-x"}},
        " -s1 -Vt -G200 -g -v -x",
        {"CheckText", "CheckLatch", "CheckGraphic", "CheckVerbose", "CheckMoreFlags"});
    QTest::newRow("every field in its place, trimmed")
        << with(padded(PVAnal, 8), {}, {"CheckText", "CheckLatch"})
        << QStringLiteral("-b0 -d1 -c2 -n3 -w 4  -s 5  -V 7  -G 6 ");
    QTest::newRow("hopsize") << with(defaults(PVAnal), {{fieldName(4), "128"}}, {}, 1)
                             << QString(pvDefaults).replace("-w4", "-h128");
    QTest::newRow("no item") << with(defaults(PVAnal), {}, {}, -1)
                             << QStringLiteral("-b0.0 -d0.0 -c1 -n256");
}

void tst_ToolCommand::pvanal_rules()
{
    QFETCH(ToolValues, values);
    QTEST(flagString(PVAnal, values), "flags");
}

void tst_ToolCommand::cvanal_rules_data()
{
    columns();
    const auto row = [](const char *name, const QHash<QString, QString> &texts,
                        const QString &more) {
        QTest::newRow(name) << with(defaults(CVAnal), texts) << cvDefaults + more;
    };
    row("channel", {{fieldName(2), "2"}}, " -c2");
    row("channel of zero", {{fieldName(2), "0.0"}}, "");
    row("channel of a sign", {{fieldName(2), "-"}}, "");
    row("negative channel", {{fieldName(2), "-1"}}, " -c-1");
    row("rate", {{fieldName(3), "8000"}}, " -s8000");
    row("both", {{fieldName(2), "2"}, {fieldName(3), "8000"}}, " -c2 -s8000");
    QTest::newRow("every field in its place, trimmed")
        << padded(CVAnal, 4) << QStringLiteral("-b0 -d1 -c 2  -s 3 ");
}

void tst_ToolCommand::cvanal_rules()
{
    QFETCH(ToolValues, values);
    QTEST(flagString(CVAnal, values), "flags");
}

void tst_ToolCommand::dnoise_rules_data()
{
    columns();
    const auto row = [](const char *name, const QHash<QString, QString> &texts, const QString &more,
                        const QSet<QString> &on = {}) {
        QTest::newRow(name) << with(defaults(DNoise), texts, on) << noiseDefaults + more;
    };
    row("wav", {}, " -W", {"OptionWav"});
    row("aiff", {}, " -A", {"OptionAIFF"});
    row("ircam", {}, " -J", {"OptionIRCAM"});
    row("others, trimmed", {{"TextSoundfileFlags", "  -3 -f "}}, " -W -3 -f", {"OptionWav"});
    row("rewrite", {}, " -R", {"CheckRewrite"});
    row("heartbeat, trimmed", {{"TextHeartbeat", " 3 "}}, " -H3", {"CheckHeartbeat"});
    row("heartbeat that is off", {{"TextHeartbeat", "3"}}, "");
    row("verbose", {}, " -V", {"CheckVerbose"});
    row("all", {{"TextSoundfileFlags", "-3"}, {"TextMoreFlags", "-x"}}, " -J -3 -R -H1 -V -x",
        {"OptionIRCAM", "CheckRewrite", "CheckHeartbeat", "CheckVerbose", "CheckMoreFlags"});
    QTest::newRow("every field in its place, trimmed")
        << with(padded(DNoise, 12), {}, {}, 1)
        << QStringLiteral("-N0 -L2 -D3 -b4 -B5 -e6 -E7 -t8 -S9 -n10 -m11 -M 1 ");
    QTest::newRow("window length") << with(defaults(DNoise), {{fieldName(1), "0"}}, {}, 1)
                                   << QString(noiseDefaults).replace("-w-1", "-M0");
    QTest::newRow("empty fields leave their bare flags")
        << with(defaults(DNoise), {{fieldName(0), ""}, {fieldName(8), ""}})
        << QString(noiseDefaults).replace("-N1024", "-N").replace("-t30", "-t");
}

void tst_ToolCommand::dnoise_rules()
{
    QFETCH(ToolValues, values);
    QTEST(flagString(DNoise, values), "flags");
}

void tst_ToolCommand::parameters_names_areQuotedAsTheyAre()
{
    const auto files = [](const QString &input, const QString &output) {
        return with(defaults(CVAnal), {{"LabelInput", input}, {"TextOutput", output}});
    };
    QCOMPARE(toolParameters(CVAnal, files("/my sounds/a %1.wav", "$(b) `c`; d.cv")),
             QStringLiteral("-U cvanal -b0.0 -d0.0 \"/my sounds/a %1.wav\" \"$(b) `c`; d.cv\""));
    QCOMPARE(toolParameters(CVAnal, files("a\"b.wav", " ")),
             QStringLiteral("-U cvanal -b0.0 -d0.0 \"a\"b.wav\" \" \""));
    QCOMPARE(toolParameters(DNoise, ToolValues()),
             QStringLiteral("-U dnoise -N -L -D -b -B -e -E -t -S -n -m -w -i\"\" -o\"\" \"\""));
}

void tst_ToolCommand::withSuffix_cutsThreeCharacters_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("result");
    QTest::newRow("usual") << "/sound/a.wav"
                           << "/sound/a.het";
    QTest::newRow("four letters") << "a.aiff"
                                  << "a.ahet";
    QTest::newRow("no extension") << "/sound/voice"
                                  << "/sound/vohet";
    QTest::newRow("short") << "ab"
                           << "het";
    QTest::newRow("empty") << ""
                           << "het";
}

void tst_ToolCommand::withSuffix_cutsThreeCharacters()
{
    QFETCH(QString, path);
    QTEST(withSuffix(path, "het"), "result");
}

void tst_ToolCommand::obstacle_comesInOrder()
{
    ToolValues values;
    const QString csound = QStringLiteral("/usr/bin/csound");
    QCOMPARE(startObstacle(Hetro, QString(), values)->text,
             QStringLiteral("Cannot find CSound.exe!\r\nSelect File->Settings->Csound.exe!"));
    QCOMPARE(startObstacle(Hetro, QString(), values)->icon, MessageIcon::Exclamation);
    QCOMPARE(startObstacle(Hetro, csound, values)->text, QStringLiteral("No Input File!"));
    QCOMPARE(startObstacle(Hetro, csound, values)->icon, MessageIcon::Information);
    values.texts.insert(QStringLiteral("LabelInput"), QStringLiteral("/no/such/file"));
    QCOMPARE(startObstacle(Hetro, csound, values)->text, QStringLiteral("No Output File!"));
    QCOMPARE(startObstacle(Hetro, csound, values)->icon, MessageIcon::Information);
    values.texts.insert(QStringLiteral("TextOutput"), QStringLiteral(" "));
    QVERIFY(!startObstacle(Hetro, csound, values));
}

void tst_ToolCommand::obstacle_ofTheOddTools()
{
    const QString csound = QStringLiteral("csound");
    ToolValues values;
    QVERIFY(!startObstacle(DNoise, csound, values));
    QVERIFY(startObstacle(DNoise, QString(), values));
    QCOMPARE(startObstacle(PVLook, csound, values)->text, QStringLiteral("No Input File!"));
    values.texts.insert(QStringLiteral("LabelInput"), QStringLiteral("a.pv"));
    QVERIFY(!startObstacle(PVLook, csound, values)); // it has no output
    QVERIFY(startObstacle(PVLook, QString(), values));
}

ARDIPHON_TEST(tst_ToolCommand, NoApplication)
#include "tst_ToolCommand.moc"
