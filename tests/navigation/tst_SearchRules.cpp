#include "navigation/DefinitionRules.h"
#include "navigation/SearchRules.h"
#include "support/TestMain.h"

#include <QTest>

#include <limits>

using namespace ardiphon;

class tst_SearchRules : public QObject
{
    Q_OBJECT

private slots:
    void caption_caller_isAdded_data();
    void caption_caller_isAdded();
    void fieldText_selection_losesBlanksAround_data();
    void fieldText_selection_losesBlanksAround();
    void fieldText_hugeSelection_isCut();
    void lineNumber_text_isRoundedAndKept_data();
    void lineNumber_text_isRoundedAndKept();
    void placeBesideMatch_nearestPlace_data();
    void placeBesideMatch_nearestPlace();
    void placeBesideMatch_anywhere_isFreeAndSeen();
    void wordToFind_definition_data();
    void wordToFind_definition();
    void wordToFind_reference_data();
    void wordToFind_reference();
    void rules_differ_asTheTableSays();
    void entryCaption_longWord_isCutAt50();
};

void tst_SearchRules::caption_caller_isAdded_data()
{
    QTest::addColumn<QString>("caller");
    QTest::addColumn<QString>("caption");
    QTest::newRow("csd") << "CSD"
                         << "Find";
    QTest::newRow("orchestra") << "ORCHESTRA"
                               << "Find (Orchestra)";
    QTest::newRow("score") << "SCORE"
                           << "Find (Score)";
    QTest::newRow("none") << ""
                          << "Find";
}

void tst_SearchRules::caption_caller_isAdded()
{
    QFETCH(QString, caller);
    QTEST(captionForCaller(QStringLiteral("Find"), caller), "caption");
}

void tst_SearchRules::fieldText_selection_losesBlanksAround_data()
{
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("text");
    QTest::newRow("blanks") << "  kamp  "
                            << "kamp";
    QTest::newRow("inner blanks stay") << " instr  1 "
                                       << "instr  1";
    QTest::newRow("a tab and a line end stay") << " \tendin\r\n "
                                               << "\tendin\r\n";
    QTest::newRow("two lines") << " a\r\n b "
                               << "a\r\n b";
    QTest::newRow("a blank of another kind stays") << QString(u'\u00a0') << QString(u'\u00a0');
    QTest::newRow("only blanks") << "   "
                                 << "";
}

void tst_SearchRules::fieldText_selection_losesBlanksAround()
{
    QFETCH(QString, selection);
    QTEST(fieldTextFromSelection(selection), "text");
}

void tst_SearchRules::fieldText_hugeSelection_isCut()
{
    QCOMPARE(fieldTextFromSelection(QString(100'000, u'x')).size(), 100'000);
    QCOMPARE(fieldTextFromSelection(QString(LongestFieldText + 1, u'x')).size(), LongestFieldText);
}

void tst_SearchRules::lineNumber_text_isRoundedAndKept_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line"); // -1: none
    using Limits = std::numeric_limits<int>;
    QTest::newRow("plain") << "12" << 12;
    QTest::newRow("blanks") << " 12 " << 12;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("negative") << "-5" << -5;
    QTest::newRow("exponent") << "1e3" << 1000;
    QTest::newRow("upwards") << "12.6" << 13;
    QTest::newRow("half to even, down") << "12.5" << 12;
    QTest::newRow("half to even, up") << "13.5" << 14;
    QTest::newRow("too large") << "99999999999" << Limits::max();
    QTest::newRow("too small") << "-99999999999" << Limits::min();
    QTest::newRow("large exponent") << "1e99" << Limits::max();
    QTest::newRow("letters") << "12a" << -1;
    QTest::newRow("nothing") << "" << -1;
}

void tst_SearchRules::lineNumber_text_isRoundedAndKept()
{
    QFETCH(QString, text);
    QTEST(lineNumberFrom(text).value_or(-1), "line");
}

void tst_SearchRules::placeBesideMatch_nearestPlace_data()
{
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QRect>("match");
    QTest::addColumn<QPoint>("place");
    const QSize size(400, 120);
    const QRect middle({300, 200}, size);
    QTest::newRow("not covered") << middle << QRect(300, 100, 50, 16) << QPoint(300, 200);
    QTest::newRow("beside it") << middle << QRect(250, 250, 50, 16) << QPoint(300, 200);
    QTest::newRow("a pixel covered") << middle << QRect(250, 250, 51, 16) << QPoint(317, 200);
    QTest::newRow("under the upper part") << middle << QRect(500, 210, 50, 16) << QPoint(300, 242);
    QTest::newRow("under the lower part") << middle << QRect(500, 290, 50, 16) << QPoint(300, 154);
    QTest::newRow("under the right edge") << middle << QRect(690, 250, 50, 16) << QPoint(274, 200);
    QTest::newRow("a line across") << middle << QRect(100, 250, 700, 16) << QPoint(300, 282);
    QTest::newRow("no room below")
        << QRect({300, 470}, size) << QRect(500, 500, 50, 16) << QPoint(300, 364);
    QTest::newRow("no room above")
        << QRect({300, 10}, size) << QRect(500, 100, 50, 16) << QPoint(300, 132);
    QTest::newRow("partly outside")
        << QRect({700, 200}, size) << QRect(750, 210, 50, 16) << QPoint(400, 242);
    QTest::newRow("nothing in sight") << middle << QRect() << QPoint(300, 200);
    QTest::newRow("everything selected") << middle << QRect(0, 0, 800, 600) << QPoint(300, 200);
    QTest::newRow("larger than the screen")
        << QRect(0, 0, 900, 700) << QRect(100, 100, 50, 16) << QPoint(0, 0);
}

void tst_SearchRules::placeBesideMatch_nearestPlace()
{
    QFETCH(QRect, window);
    QFETCH(QRect, match);
    QTEST(placeBesideMatch(window, match, QRect(0, 0, 800, 600)), "place");
}

void tst_SearchRules::placeBesideMatch_anywhere_isFreeAndSeen()
{
    const QRect screen(1280, 24, 1024, 700);
    for (int x = screen.left(); x < screen.right() - 60; x += 13) {
        for (int y = screen.top(); y < screen.bottom() - 16; y += 7) {
            const QRect match(x, y, 60, 16);
            QRect window(x - 200, y - 60, 410, 127);
            window.moveTopLeft(placeBesideMatch(window, match, screen));
            QVERIFY(!window.intersects(match) && screen.contains(window));
        }
    }
}

void tst_SearchRules::wordToFind_definition_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("global");
    QTest::newRow("local") << "kamp"
                           << "kamp line 0, p3, 1"
                           << "kamp" << false;
    QTest::newRow("global") << "gaout"
                            << "outs gaout"
                            << "gaout" << true;
    QTest::newRow("G is no g") << "Gain"
                               << "outs Gain"
                               << "Gain" << false;
    QTest::newRow("macro") << "$HALL."
                           << "k $HALL."
                           << "HALL" << true;
    QTest::newRow("macro without point") << "$HALL"
                                         << "k $HALL"
                                         << "HALL" << true;
    QTest::newRow("point alone") << "kamp."
                                 << "kamp."
                                 << "kamp" << false;
    QTest::newRow("undef") << "HALL"
                           << "#undef HALL"
                           << "HALL" << true;
    QTest::newRow("define") << "HALL"
                            << "#define HALL # 1 #"
                            << "HALL" << false;
    QTest::newRow("undef in capitals") << "HALL"
                                       << "#UNDEF HALL"
                                       << "HALL" << false;
    QTest::newRow("dollar alone") << "$"
                                  << "$"
                                  << "" << true;
}

void tst_SearchRules::wordToFind_definition()
{
    QFETCH(QString, word);
    QFETCH(QString, line);
    const WordToFind found = wordToFind(Definition, word, line);
    QTEST(found.text, "text");
    QTEST(found.global, "global");
}

void tst_SearchRules::wordToFind_reference_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("global");
    QTest::newRow("local") << "kamp"
                           << "kamp line 0, p3, 1" << false;
    QTest::newRow("global") << "gaout"
                            << "outs gaout" << true;
    QTest::newRow("macro") << "$HALL."
                           << "k $HALL." << false;
    QTest::newRow("undef") << "HALL"
                           << "#undef HALL" << false;
    QTest::newRow("define") << "HALL"
                            << "#define HALL # 1 #" << true;
    QTest::newRow("define in capitals") << "HALL"
                                        << "#DEFINE HALL # 1 #" << false;
}

void tst_SearchRules::wordToFind_reference()
{
    QFETCH(QString, word);
    QFETCH(QString, line);
    const WordToFind found = wordToFind(Reference, word, line);
    QCOMPARE(found.text, word);
    QTEST(found.global, "global");
}

void tst_SearchRules::rules_differ_asTheTableSays()
{
    QVERIFY(Definition.globalFromTop && !Reference.globalFromTop);
    QVERIFY(Definition.localFromInstrument && !Reference.localFromInstrument);
    QVERIFY(Definition.focusesWithoutWord && !Reference.focusesWithoutWord);
}

void tst_SearchRules::entryCaption_longWord_isCutAt50()
{
    QCOMPARE(definitionCaption(QStringLiteral("kamp")), QStringLiteral("Go to definition of kamp"));
    QCOMPARE(referenceCaption(QStringLiteral("kamp")), QStringLiteral("Go to reference of kamp"));
    const QString x50(50, u'x');
    QCOMPARE(definitionCaption(x50 + u'y'), QStringLiteral("Go to definition of ") + x50);
    QCOMPARE(referenceCaption(x50 + u'y'), QStringLiteral("Go to reference of ") + x50);
}

ARDIPHON_TEST(tst_SearchRules, QCoreApplication)
#include "tst_SearchRules.moc"
