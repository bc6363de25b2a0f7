#include "compile/CompileRules.h"
#include "compile/LogAnalysis.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

namespace {

const QString Orchestra = QStringLiteral("/my music/a piece.orc");
const QString Score = QStringLiteral("/my music/a piece.sco");

/// "none", or the target and the line.
QString describe(const std::optional<ErrorPlace> &place)
{
    if (!place)
        return QStringLiteral("none");
    static const char *const targets[] = {"nowhere", "orchestra", "score"};
    return QStringLiteral("%1 %2").arg(QLatin1String(targets[int(place->target)])).arg(place->line);
}

/// What is found in a log of these lines under its banner.
LogFinding find(const QString &log)
{
    return findLogError(bannerText(0) + logHeading() +
                        QString(log).replace(u'\n', QLatin1String("\r\n")));
}

} // namespace

class tst_LogAnalysis : public QObject
{
    Q_OBJECT

private slots:
    void find_log_place_data();
    void find_log_place();
    void find_banner_matchesNothing();
    void find_selection_fromTheWordToTheLineEnd();
    void find_lastLineWithoutEnd_selectsNothing();
    void find_firstCharacter_isMissed();
    void place_lines_data();
    void place_lines();
    void place_numberAboveFile_bothLinesNameIt();
};

void tst_LogAnalysis::find_log_place_data()
{
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("place");
    const auto row = [](const char *name, const char *log, const char *place) {
        QTest::newRow(name) << QString::fromUtf8(log) << QString::fromUtf8(place);
    };
    row("nothing", "", "none");
    row("no error", "all went well, line 3\n", "none");
    row("error and line", "x\nerror: syntax error, line 7\n", "orchestra 7");
    row("line with a colon", "error, line 12:\n", "orchestra 12");
    row("whatever case", "INIT ERROR in line 6: x\n", "orchestra 6");
    row("longer words", "0 errors in line 3\nerrored, line 3\nmyerror line 3\n", "none");
    row("part of a name", "error_x line 3\nx_error line 3\n", "none");
    row("between signs", "(error) line 4\n", "orchestra 4");
    row("whole word behind a part", "errors line 3\nerror line 4\n", "orchestra 4");
    row("line before the word", "in line 3 an error\n", "none");
    row("line on the next line", "error:\n line 3\n", "none");
    row("no blank before line", "error:line 3\n", "none");
    row("other case of line", "error, Line 3\n", "none");
    row("line without number", "error on a line\n", "orchestra 0");
    row("no blank behind line", "error, line7\n", "orchestra 7");
    row("lines", "error, lines 7\n", "orchestra 0");
    row("rounded down", "error, line 7.5 x\n", "orchestra 8");
    row("half to even", "error, line 6.5 x\n", "orchestra 6");
    row("negative", "error, line -2\n", "orchestra -2");
    row("beyond all bounds", "error, line 99999999999\n", "orchestra 2147483647");
    row("unexpected char", "unexpected char z, line 3\n", "score 3");
    row("unexpected char, no blank", "unexpected char:line 3\n", "score 3");
    row("unexpected characters", "unexpected chars line 3\n", "none");
    row("illegal opcode", "sread: Illegal Opcode & line 9\n", "score 9");
    row("illegal opcode without line", "sread: illegal opcode &\n", "none");
    row("second kind before third", "illegal opcode line 9\nunexpected char line 3\n", "score 3");
    row("first kind hides the others", "error here\nillegal opcode line 9\n", "none");
    row("its second occurrence is not tried", "error here\nerror line 9\n", "none");
    row("second kind hides the third", "unexpected char\nillegal opcode line 9\n", "none");
}

void tst_LogAnalysis::find_log_place()
{
    QFETCH(QString, log);
    QTEST(describe(find(log).place), "place");
}

void tst_LogAnalysis::find_banner_matchesNothing()
{
    QCOMPARE(findLogError(bannerText(7'500'000) + logHeading()), LogFinding());
}

void tst_LogAnalysis::find_selection_fromTheWordToTheLineEnd()
{
    const QString text = QStringLiteral("one\r\nan Error, line 3 there\r\nrest\r\n");
    const LogFinding finding = findLogError(text);
    QCOMPARE(text.mid(finding.start, finding.length), QStringLiteral("Error, line 3 there"));
    // The words are selected without a number as well.
    QCOMPARE(findLogError(QStringLiteral("an error\r\n")), (LogFinding{3, 5, std::nullopt}));
}

void tst_LogAnalysis::find_lastLineWithoutEnd_selectsNothing()
{
    QCOMPARE(findLogError(QStringLiteral("an error, line 3")), (LogFinding{3, 0, std::nullopt}));
    QCOMPARE(findLogError(QStringLiteral("an error, line 3\n")), (LogFinding{3, 0, std::nullopt}));
}

void tst_LogAnalysis::find_firstCharacter_isMissed()
{
    QCOMPARE(findLogError(QStringLiteral("error, line 3\r\n")), LogFinding());
    QCOMPARE(findLogError(QStringLiteral("error\r\nerror, line 3\r\n")), LogFinding());
    QCOMPARE(describe(findLogError(QStringLiteral("error\r\nillegal opcode, line 3\r\n")).place),
             QStringLiteral("score 3"));
    QCOMPARE(describe(findLogError(QStringLiteral(" error, line 3\r\n")).place),
             QStringLiteral("orchestra 3"));
}

void tst_LogAnalysis::place_lines_data()
{
    QTest::addColumn<QStringList>("lines"); // asked of the first
    QTest::addColumn<QString>("place");
    const auto row = [](const char *name, const QStringList &lines, const char *place) {
        QTest::newRow(name) << lines << QString::fromUtf8(place);
    };
    row("neither", {"all went well"}, "none");
    row("file and line", {" from file /my music/a piece.orc (1), line 11:"}, "orchestra 11");
    row("line and file", {"line 11 of a piece.orc"}, "orchestra 11");
    row("score", {"/other/a piece.sco: Line 5"}, "score 5");
    row("another file", {" from file /my music/lib.inc (1), line 11:"}, "none");
    row("an included file of a longer name", {"my-a piece.orc line 3"}, "none");
    row("a copy of it", {"a piece.orc.bak line 3", "a piece.orc2"}, "none");
    row("the end of a sentence", {"line 3 is wrong in a piece.orc."}, "orchestra 3");
    row("file alone", {"orchname: /my music/a piece.orc"}, "none");
    row("line alone", {"error on line 3", "somewhere"}, "none");
    row("a word that ends in line", {"online 3 a piece.orc"}, "none");
    row("no number", {"a piece.orc, line x"}, "none");
    row("file below", {"INIT ERROR line 6: no x.wav", " from file a piece.orc (1),a1"},
        "orchestra 6");
    row("file below a blank line", {"Line 5", "", " from file a piece.orc (1)"}, "orchestra 5");
    row("line with a colon", {"Line: 6", " from file a piece.orc (1),Parsing failed"},
        "orchestra 6");
    row("colon and no blank", {"line:6 of a piece.orc"}, "none");
    row("file far below", {"Line 5", "", "", "", " from file a piece.orc (1)"}, "none");
    row("file below in other words", {"Line 5", "in a piece.orc"}, "none");
}

void tst_LogAnalysis::place_lines()
{
    QFETCH(QStringList, lines);
    QFETCH(QString, place);
    QCOMPARE(describe(placeNamedAt(lines, 0, Orchestra, Score)), place);
}

void tst_LogAnalysis::place_numberAboveFile_bothLinesNameIt()
{
    const QStringList log{"line 4 of a piece.sco", "Line 5", "", " from file a piece.orc (1),",
                          " from file a piece.orc (1),"};
    const auto at = [&log](qsizetype index) {
        return describe(placeNamedAt(log, index, Orchestra, Score));
    };
    QCOMPARE(at(0), QStringLiteral("score 4"));
    QCOMPARE(at(1), QStringLiteral("orchestra 5"));
    QCOMPARE(at(2), QStringLiteral("none"));
    QCOMPARE(at(3), QStringLiteral("orchestra 5"));
    QCOMPARE(at(4), QStringLiteral("none"));
    QCOMPARE(describe(placeNamedAt(log, 1, QString(), QString())), QStringLiteral("none"));
    // A line that has its own file lends its number to nobody.
    QCOMPARE(describe(placeNamedAt({log[0], log[3]}, 1, Orchestra, Score)), QStringLiteral("none"));
}

ARDIPHON_TEST(tst_LogAnalysis, QCoreApplication)
#include "tst_LogAnalysis.moc"
