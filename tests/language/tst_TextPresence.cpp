// Whether texts are in a document: what is answered, and how much of the document is read for it.

#include "language/TextPresence.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_TextPresence : public QObject
{
    Q_OBJECT

private slots:
    void contains_placesInTheText_data();
    void contains_placesInTheText();
    void contains_randomEdits_isAsIfReadAgain();
    void contains_askedAgain_readsNothing();
    void contains_afterAnEdit_readsOnlyAroundIt();
    void contains_textThatWasThere_isFoundElsewhere();
    void contains_manyTexts_areStillFound();
};

namespace {

// A document that counts what is read of it, and fails where a reader would make its gap move.
class Document : public GappedText
{
public:
    explicit Document(const QByteArray &text) : m_text(text), m_gap(text.size()) {}

    qsizetype size() const override { return m_text.size(); }
    qsizetype gap() const override { return m_gap; }
    QByteArrayView bytes(qsizetype start, qsizetype end) const override
    {
        if (start < 0 || end < start || end > m_text.size())
            qFatal("read outside the text");
        if (start < m_gap && end > m_gap)
            qFatal("read across the gap");
        read += end - start;
        return QByteArrayView(m_text).sliced(start, end - start);
    }

    void replace(TextPresence &presence, qsizetype at, qsizetype length, const QByteArray &text)
    {
        if (length > 0) {
            presence.aboutToChange(at, length);
            m_text.remove(at, length);
        }
        if (!text.isEmpty()) {
            presence.aboutToChange(at, 0);
            m_text.insert(at, text);
        }
        m_gap = at + text.size();
    }

    const QByteArray &text() const { return m_text; }
    void setGap(qsizetype gap) { m_gap = gap; }

    mutable qsizetype read = 0;

private:
    QByteArray m_text;
    qsizetype m_gap = 0;
};

} // namespace

void tst_TextPresence::contains_placesInTheText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<bool>("there");
    QTest::newRow("the beginning") << QByteArray("<CsScore>\n1") << QByteArray("<CsScore>") << true;
    QTest::newRow("the end") << QByteArray("1\n<CsScore>") << QByteArray("<CsScore>") << true;
    QTest::newRow("all of it") << QByteArray("<CsScore>") << QByteArray("<CsScore>") << true;
    QTest::newRow("other case") << QByteArray("<csscore>") << QByteArray("<CsScore>") << false;
    QTest::newRow("cut off") << QByteArray("<CsScore") << QByteArray("<CsScore>") << false;
    QTest::newRow("no text") << QByteArray() << QByteArray("x") << false;
    QTest::newRow("nothing wanted") << QByteArray("x") << QByteArray() << false;
    QTest::newRow("one letter") << QByteArray("ab") << QByteArray("b") << true;
}

void tst_TextPresence::contains_placesInTheText()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, wanted);
    for (qsizetype gap = 0; gap <= text.size(); ++gap) {
        Document document(text);
        document.setGap(gap);
        TextPresence presence(document);
        QTEST(presence.contains(wanted), "there");
        QTEST(presence.contains(wanted), "there");
    }
}

void tst_TextPresence::contains_randomEdits_isAsIfReadAgain()
{
    QRandomGenerator random(randomSeed(18));
    const QByteArrayList wanted{"a", "ab", "aab", "abba", "bbbbbb"};
    for (int round = 0; round < 300; ++round) {
        Document document("abab");
        TextPresence presence(document);
        for (int edit = 0; edit < 60; ++edit) {
            const qsizetype at = random.bounded(int(document.size()) + 1);
            const qsizetype length =
                random.bounded(int(std::min<qsizetype>(document.size() - at, 5)) + 1);
            QByteArray text;
            for (int i = random.bounded(4); i > 0; --i)
                text.append(random.bounded(3) ? 'b' : 'a');
            document.replace(presence, at, length, text);
            document.setGap(random.bounded(int(document.size()) + 1));
            const QByteArray &asked = wanted[random.bounded(wanted.size())];
            QVERIFY2(presence.contains(asked) == document.text().contains(asked),
                     (asked + " in " + document.text()).constData());
        }
    }
}

void tst_TextPresence::contains_askedAgain_readsNothing()
{
    Document document(QByteArray(100'000, 'x') + "here" + QByteArray(100'000, 'x'));
    TextPresence presence(document);
    QVERIFY(presence.contains("here"));
    QVERIFY(!presence.contains("nowhere"));
    document.read = 0;
    document.setGap(5);
    QVERIFY(presence.contains("here"));
    QVERIFY(!presence.contains("nowhere"));
    QVERIFY2(document.read < 100, qPrintable(QString::number(document.read)));
}

void tst_TextPresence::contains_afterAnEdit_readsOnlyAroundIt()
{
    Document document(QByteArray(100'000, 'x') + "here" + QByteArray(100'000, 'x'));
    TextPresence presence(document);
    presence.contains("here");
    presence.contains("nowhere");
    for (const qsizetype at : {qsizetype(200'000), qsizetype(10), qsizetype(150'000)}) {
        document.read = 0;
        document.replace(presence, at, 1, "typed");
        QVERIFY(presence.contains("here"));
        QVERIFY(!presence.contains("nowhere"));
        QVERIFY2(document.read < 200, qPrintable(QString::number(document.read)));
    }
    document.replace(presence, 150'000, 0, "nowhere");
    document.read = 0;
    QVERIFY(presence.contains("nowhere"));
    QVERIFY2(document.read < 200, qPrintable(QString::number(document.read)));
}

void tst_TextPresence::contains_textThatWasThere_isFoundElsewhere()
{
    Document document("tag " + QByteArray(1000, 'x') + " tag");
    TextPresence presence(document);
    QVERIFY(presence.contains("tag"));
    document.replace(presence, 0, 1, {}); // the one that was found goes
    QVERIFY(presence.contains("tag"));
    document.replace(presence, document.size() - 1, 1, {});
    QVERIFY(!presence.contains("tag"));
}

void tst_TextPresence::contains_manyTexts_areStillFound()
{
    QByteArray text;
    for (int number = 0; number < 1000; ++number)
        text += "<" + QByteArray::number(number) + ">";
    Document document(text);
    TextPresence presence(document);
    for (int number = 0; number < 1100; ++number)
        QCOMPARE(presence.contains("<" + QByteArray::number(number) + ">"), number < 1000);
    QVERIFY(presence.contains("<0>"));
}

ARDIPHON_TEST(tst_TextPresence, NoApplication)
#include "tst_TextPresence.moc"
