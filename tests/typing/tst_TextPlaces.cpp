#include "support/TestMain.h"
#include "typing/TakenText.h"
#include "typing/TextPlaces.h"

#include <QTest>

using namespace ardiphon;

namespace {

/// With its places marked, as "oscili «1:xamp», «2:xcps»".
QString marked(const TakenText &taken)
{
    QString text;
    for (qsizetype at = 0; at <= taken.text.size(); ++at) {
        for (const TakenPlace &place : taken.places) {
            if (place.offset == at)
                text += QStringLiteral("[%1:%2]").arg(place.number).arg(place.length);
        }
        if (at < taken.text.size())
            text += taken.text[at];
    }
    return text;
}

CompletionPlace placeFor(PlaceKind kind, const QList<ValueType> &left = {})
{
    CompletionPlace place;
    place.kind = kind;
    place.left = left;
    place.argument = 1;
    return place;
}

/// A text that is edited as an editor would, with the places in it.
struct EditedPlaces
{
    void begin(const TakenText &taken, int line, int column)
    {
        places.begin(taken, line, column, at());
    }
    void replace(int line, int column, int length, const QString &by)
    {
        lines[line - 1].replace(column, length, by);
        places.follow({line, 1, 1}, at());
    }
    TextPlaces::LineText at()
    {
        return [this](int line) { return lines.value(line - 1); };
    }
    QString current() const
    {
        const auto span = places.current();
        return span ? lines[span->line - 1].mid(span->column, span->length)
                    : QStringLiteral("none");
    }
    QString next()
    {
        const auto span = places.goNext();
        return span ? lines[span->line - 1].mid(span->column, span->length)
                    : QStringLiteral("none");
    }

    QStringList lines;
    TextPlaces places;
};

} // namespace

class tst_TextPlaces : public QObject
{
    Q_OBJECT

private slots:
    void arguments_areWrittenAsThePlaceWantsThem_data();
    void arguments_areWrittenAsThePlaceWantsThem();
    void snippet_keepsItsPlaces();
    void indent_movesThePlaces();
    void next_goesThroughAllOfThem();
    void typing_makesThePresentOneLonger();
    void editsBeside_moveThem();
    void editOverAnEnd_endsThem();
    void linesAbove_moveThem();
    void linesAmongThem_endThem();
    void partners_areThoseOfTheSameNumber();
    void emptyPlaces_canBeFilled();
};

void tst_TextPlaces::arguments_areWrittenAsThePlaceWantsThem_data()
{
    QTest::addColumn<QString>("parameters");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *parameters, PlaceKind kind, const char *left,
                        const char *text) {
        QTest::newRow(name) << QString::fromUtf8(parameters) << int(kind) << QString::fromUtf8(left)
                            << QString::fromUtf8(text);
    };
    const char *const tone = "ares op xamp, xcps [, ifn, iphs]";
    row("behind a name", tone, PlaceKind::Opcode, "a", "op [1:4]xamp, [2:4]xcps[0:0]");
    row("with names on its left", tone, PlaceKind::Statement, "",
        "[1:4]ares op [2:4]xamp, [3:4]xcps[0:0]");
    row("as a value", tone, PlaceKind::Value, "a", "op([1:4]xamp, [2:4]xcps)[0:0]");
    row("without outputs", "op asig, kfreq", PlaceKind::Statement, "",
        "op [1:4]asig, [2:5]kfreq[0:0]");
    row("the one that fits", "ares op asig / kres op kval", PlaceKind::Opcode, "k",
        "op [1:4]kval[0:0]");
    row("a function", "op(x) where x is any", PlaceKind::Value, "", "op([1:1]x)[0:0]");
    row("text", "op \"label\", ival", PlaceKind::Statement, "",
        "op \"[1:5]label\", [2:4]ival[0:0]");
    row("all optional", "kres op [imin, imax]", PlaceKind::Opcode, "k", "op");
    row("all optional as a value", "kres op [imin, imax]", PlaceKind::Value, "k", "op([1:0])[0:0]");
    row("repeated", "op p1, p2, ..., pn", PlaceKind::Statement, "", "op [1:2]p1, [2:2]p2[0:0]");
    row("words", "while condition do ... od", PlaceKind::Statement, "", "op");
    row("nothing known", "", PlaceKind::Statement, "", "op");
}

void tst_TextPlaces::arguments_areWrittenAsThePlaceWantsThem()
{
    QFETCH(const QString, parameters);
    QFETCH(const int, kind);
    QFETCH(const QString, left);
    QList<ValueType> types;
    for (const QChar letter : left)
        types.append({letter.toLatin1(), false});
    const QString name = QStringLiteral("op");
    QTEST(marked(withArguments(name, signaturesOf(parameters, name),
                               placeFor(PlaceKind(kind), types))),
          "text");
}

void tst_TextPlaces::snippet_keepsItsPlaces()
{
    Snippet snippet;
    snippet.text = QStringLiteral("k1 = 5\nk2 = 5");
    snippet.places = {{5, 1, 1}, {12, 1, 1}};
    QCOMPARE(marked(textOf(snippet)), QStringLiteral("k1 = [1:1]5\nk2 = [1:1]5[0:0]"));
    snippet.places.append({0, 0, 0});
    QCOMPARE(marked(textOf(snippet)), QStringLiteral("[0:0]k1 = [1:1]5\nk2 = [1:1]5"));
    snippet.places.clear();
    QCOMPARE(marked(textOf(snippet)), QStringLiteral("k1 = 5\nk2 = 5"));
}

void tst_TextPlaces::indent_movesThePlaces()
{
    const TakenText taken{QStringLiteral("a\nb\nc"), {{0, 1, 1}, {2, 1, 2}, {5, 0, 0}}};
    QCOMPARE(marked(indented(taken, QStringLiteral("  "))),
             QStringLiteral("[1:1]a\n  [2:1]b\n  c[0:0]"));
    QCOMPARE(indented(taken, QString()), taken);
}

void tst_TextPlaces::next_goesThroughAllOfThem()
{
    EditedPlaces edited{{QStringLiteral("a1 op xamp, xcps")}, {}};
    edited.begin({QStringLiteral("op xamp, xcps"), {{3, 4, 1}, {9, 4, 2}, {13, 0, 0}}}, 1, 3);
    QCOMPARE(edited.current(), QStringLiteral("xamp"));
    QVERIFY(!edited.places.goBack());
    QCOMPARE(edited.next(), QStringLiteral("xcps"));
    QCOMPARE(edited.places.goBack(), std::optional(PlaceSpan{1, 6, 4}));
    QCOMPARE(edited.next(), QStringLiteral("xcps"));
    QVERIFY(edited.places.isAlive());
    QCOMPARE(edited.places.goNext(), std::optional(PlaceSpan{1, 16, 0}));
    QVERIFY(!edited.places.isAlive());
    QVERIFY(!edited.places.goNext());
}

void tst_TextPlaces::typing_makesThePresentOneLonger()
{
    EditedPlaces edited{{QStringLiteral("op xamp, xcps")}, {}};
    edited.begin({edited.lines[0], {{3, 4, 1}, {9, 4, 2}, {13, 0, 0}}}, 1, 0);
    edited.replace(1, 3, 4, QStringLiteral("0"));
    QCOMPARE(edited.current(), QStringLiteral("0"));
    edited.replace(1, 4, 0, QStringLiteral(".5"));
    QCOMPARE(edited.current(), QStringLiteral("0.5"));
    edited.replace(1, 3, 3, QString());
    QCOMPARE(edited.current(), QString());
    edited.replace(1, 3, 0, QStringLiteral("xx"));
    QCOMPARE(edited.current(), QStringLiteral("xx"));
    QCOMPARE(edited.next(), QStringLiteral("xcps"));
    edited.replace(1, 11, 0, QStringLiteral("440"));
    QVERIFY(edited.places.contains(1, 14));
    QVERIFY(!edited.places.contains(1, 15));
    QCOMPARE(edited.next(), QString());
}

void tst_TextPlaces::editsBeside_moveThem()
{
    EditedPlaces edited{{QStringLiteral("k1 op xamp, xcps ; so")}, {}};
    edited.begin({QStringLiteral("op xamp, xcps"), {{3, 4, 1}, {9, 4, 2}}}, 1, 3);
    edited.replace(1, 0, 2, QStringLiteral("kLonger"));
    QCOMPARE(edited.current(), QStringLiteral("xamp"));
    edited.replace(1, 25, 0, QStringLiteral("!"));
    QCOMPARE(edited.current(), QStringLiteral("xamp"));
    QCOMPARE(edited.next(), QStringLiteral("xcps"));
}

void tst_TextPlaces::editOverAnEnd_endsThem()
{
    EditedPlaces edited{{QStringLiteral("op xamp, xcps")}, {}};
    edited.begin({edited.lines[0], {{3, 4, 1}, {9, 4, 2}}}, 1, 0);
    edited.replace(1, 5, 6, QStringLiteral("1"));
    QVERIFY(!edited.places.isAlive());
    QVERIFY(!edited.places.current());
}

void tst_TextPlaces::linesAbove_moveThem()
{
    EditedPlaces edited{{QStringLiteral("one"), QStringLiteral("op xamp")}, {}};
    edited.begin({QStringLiteral("op xamp"), {{3, 4, 1}}}, 2, 0);
    edited.lines.prepend(QStringLiteral("none"));
    edited.places.follow({1, 0, 1}, edited.at());
    QCOMPARE(edited.places.current(), std::optional(PlaceSpan{3, 3, 4}));
    edited.lines.append(QStringLiteral("behind"));
    edited.places.follow({4, 0, 1}, edited.at());
    QCOMPARE(edited.current(), QStringLiteral("xamp"));
}

void tst_TextPlaces::linesAmongThem_endThem()
{
    EditedPlaces edited{{QStringLiteral("op xamp")}, {}};
    edited.begin({edited.lines[0], {{3, 4, 1}}}, 1, 0);
    edited.lines = {QStringLiteral("op "), QStringLiteral("xamp")};
    edited.places.follow({1, 1, 2}, edited.at());
    QVERIFY(!edited.places.isAlive());
}

void tst_TextPlaces::partners_areThoseOfTheSameNumber()
{
    EditedPlaces edited{{QStringLiteral("N 1"), QStringLiteral("N 2")}, {}};
    edited.begin({QStringLiteral("N 1\nN 2"), {{0, 1, 1}, {2, 1, 2}, {4, 1, 1}}}, 1, 0);
    QCOMPARE(edited.places.partners(), QList<PlaceSpan>({{2, 0, 1}}));
    QCOMPARE(edited.next(), QStringLiteral("1"));
    QVERIFY(edited.places.partners().isEmpty());
}

void tst_TextPlaces::emptyPlaces_canBeFilled()
{
    EditedPlaces edited{{QStringLiteral("op()")}, {}};
    edited.begin({edited.lines[0], {{3, 0, 1}, {4, 0, 0}}}, 1, 0);
    edited.replace(1, 3, 0, QStringLiteral("k1"));
    QCOMPARE(edited.current(), QStringLiteral("k1"));
    QCOMPARE(edited.places.goNext(), std::optional(PlaceSpan{1, 6, 0}));
}

ARDIPHON_TEST(tst_TextPlaces, NoApplication)
#include "tst_TextPlaces.moc"
