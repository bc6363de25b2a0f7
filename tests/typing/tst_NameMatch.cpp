#include "support/TestMain.h"
#include "typing/NameMatch.h"

#include <QTest>

using namespace ardiphon;

class tst_NameMatch : public QObject
{
    Q_OBJECT

private slots:
    void letters_areFoundInTheirOrder_data();
    void letters_areFoundInTheirOrder();
    void grade_tellsHowMuchOfTheName_data();
    void grade_tellsHowMuchOfTheName();
    void starts_areWorthMore_data();
    void starts_areWorthMore();
    void prefix_endsAtAStart();
    void nothingTyped_isInEveryName();
    void longNames_areLookedAtAsFarAsTheyGo();
};

void tst_NameMatch::letters_areFoundInTheirOrder_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("found"); ///< the letters marked, "" for none

    const auto row = [](const char *typed, const char *name, const char *found) {
        QTest::addRow("%s in %s", typed, name)
            << QString::fromUtf8(typed) << QString::fromUtf8(name) << QString::fromUtf8(found);
    };
    row("osi", "oscili", "[o][s]c[i]li");
    row("isc", "oscili", "");
    row("OSI", "oscili", "[o][s]c[i]li");
    row("osi", "OscIli", "[O][s]c[I]li");
    row("gt", "kGateTime", "k[G]ate[T]ime");
    row("v2", "vco2", "[v]co[2]");
    row("te", "ga_te_end", "ga_[t]e_[e]nd");
    row("t9", "t99", "[t][9]9");
    row("aa", "a", "");
    row("ab", "xaab", "xa[a][b]");
    row("<cso", "<CsoundSynthesizer>", "[<][C][s][o]undSynthesizer>");
    row("$am", "$AMP", "[$][A][M]P");
    row("é", "Écho", "[É]cho");
    row("x", "", "");
}

void tst_NameMatch::letters_areFoundInTheirOrder()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, name);
    const auto match = matchName(typed, name);
    QString found;
    for (int i = 0; match && i < name.size(); ++i)
        found += match->letters.contains(i) ? QStringLiteral("[%1]").arg(name[i]) : name[i];
    QTEST(found, "found");
}

void tst_NameMatch::grade_tellsHowMuchOfTheName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("grade");

    QTest::newRow("all") << "vco2"
                         << "vco2" << int(MatchGrade::Exact);
    QTest::newRow("other capitals") << "atsadd"
                                    << "ATSadd" << int(MatchGrade::Beginning);
    QTest::newRow("the beginning") << "vc"
                                   << "vco2" << int(MatchGrade::Beginning);
    QTest::newRow("starts") << "gt"
                            << "kGateTime" << int(MatchGrade::Starts);
    QTest::newRow("a word within") << "tim"
                                   << "kGateTime" << int(MatchGrade::Starts);
    QTest::newRow("anywhere") << "osi"
                              << "oscili" << int(MatchGrade::Scattered);
    QTest::newRow("within a word") << "il"
                                   << "oscili" << int(MatchGrade::Scattered);
}

void tst_NameMatch::grade_tellsHowMuchOfTheName()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, name);
    const auto match = matchName(typed, name);
    QVERIFY(match);
    QTEST(int(match->grade), "grade");
}

void tst_NameMatch::starts_areWorthMore_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("better");
    QTest::addColumn<QString>("worse");

    QTest::newRow("the front") << "os"
                               << "oscil"
                               << "poscil";
    QTest::newRow("a capital") << "gt"
                               << "kGateTo"
                               << "kgateto";
    QTest::newRow("behind _") << "ot"
                              << "a_of_two"
                              << "anofitwo";
    QTest::newRow("a digit") << "2"
                             << "ab21"
                             << "ab12";
    QTest::newRow("side by side") << "li"
                                  << "limits"
                                  << "lxixit";
    QTest::newRow("the shorter one") << "os"
                                     << "oscil"
                                     << "oscillator_of_mine";
    QTest::newRow("the same case") << "fl"
                                   << "flanger"
                                   << "FLanger";
}

void tst_NameMatch::starts_areWorthMore()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, better);
    QFETCH(const QString, worse);
    QVERIFY(matchName(typed, better)->score > matchName(typed, worse)->score);
}

void tst_NameMatch::prefix_endsAtAStart()
{
    QCOMPARE(matchName(QStringLiteral("cut"), QStringLiteral("kcut"))->grade,
             MatchGrade::Scattered);
    QCOMPARE(matchName(QStringLiteral("cut"), QStringLiteral("kcut"), 1)->grade,
             MatchGrade::Starts);
}

void tst_NameMatch::nothingTyped_isInEveryName()
{
    QVERIFY(matchName(QStringView(), u"oscili"));
    QVERIFY(matchName(QStringView(), QStringView()));
    QVERIFY(matchName(QStringView(), u"oscili")->letters.isEmpty());
}

void tst_NameMatch::longNames_areLookedAtAsFarAsTheyGo()
{
    const QString longName = QString(200, u'a') + u'b';
    QVERIFY(matchName(QStringLiteral("aaa"), longName));
    QVERIFY(!matchName(QStringLiteral("ab"), longName));
    QVERIFY(!matchName(QString(100, u'a'), longName));
    for (const int size : {31, 32, 33, 63, 64, 65}) {
        const QString name(size, u'a');
        QCOMPARE(matchName(name, name).has_value(), size <= 32);
        QVERIFY(matchName(QStringLiteral("a"), name));
    }
}

ARDIPHON_TEST(tst_NameMatch, NoApplication)
#include "tst_NameMatch.moc"
