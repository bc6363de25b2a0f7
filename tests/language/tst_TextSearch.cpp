// The search rules, and the search against a plain slow one.

#include "language/TextSearch.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_TextSearch : public QObject
{
    Q_OBJECT

private slots:
    void forward_match_isFound_data();
    void forward_match_isFound();
    void backward_match_endsBeforeTheStart();
    void emptyText_neverMatches();
    void randomText_asTheModel();
};

namespace {

QString ranges(const TextSearch &search, QByteArrayView text)
{
    QStringList found;
    for (auto match = search.forward(text, 0); match; match = search.forward(text, match->end))
        found.append(QStringLiteral("%1-%2").arg(match->start).arg(match->end));
    return found.join(u' ');
}

// The same search said as plainly as possible, over characters.
class Model
{
public:
    Model(const QString &text, const QString &find, bool wholeWord)
        : m_text(text), m_find(find), m_wholeWord(wholeWord)
    {
    }

    bool matches(qsizetype at) const
    {
        const qsizetype end = at + m_find.size();
        if (m_find.isEmpty() || end > m_text.size())
            return false;
        for (qsizetype i = 0; i < m_find.size(); ++i) {
            if (m_text[at + i].toCaseFolded() != m_find[i].toCaseFolded())
                return false;
        }
        return !m_wholeWord || (!(isWord(at) && at > 0 && isWord(at - 1)) &&
                                !(isWord(end - 1) && end < m_text.size() && isWord(end)));
    }

    std::optional<TextRange> forward(qsizetype from) const
    {
        for (qsizetype at = from; at < m_text.size(); ++at) {
            if (matches(at))
                return range(at);
        }
        return std::nullopt;
    }

    std::optional<TextRange> backward(qsizetype before) const
    {
        for (qsizetype at = before - m_find.size(); at >= 0; --at) {
            if (matches(at))
                return range(at);
        }
        return std::nullopt;
    }

    qsizetype offset(qsizetype at) const { return m_text.first(at).toUtf8().size(); }

private:
    bool isWord(qsizetype at) const { return m_text[at].isLetterOrNumber() || m_text[at] == u'_'; }
    TextRange range(qsizetype at) const { return {offset(at), offset(at + m_find.size())}; }

    QString m_text;
    QString m_find;
    bool m_wholeWord;
};

QString randomText(QRandomGenerator &random, int length)
{
    static const QString alphabet = QString::fromUtf8("aAbBkKsS_1 .\néÉßK\u017F");
    QString text;
    for (int i = 0; i < length; ++i)
        text += alphabet[random.bounded(int(alphabet.size()))];
    return text;
}

} // namespace

void tst_TextSearch::forward_match_isFound_data()
{
    QTest::addColumn<QString>("find");
    QTest::addColumn<bool>("wholeWord");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    QTest::newRow("case") << "INSTR" << false << "instr Instr"
                          << "0-5 6-11";
    QTest::newRow("inside") << "in" << false << "endin"
                            << "3-5";
    QTest::newRow("whole word inside") << "in" << true << "endin in"
                                       << "6-8";
    QTest::newRow("whole word and underscore") << "in" << true << "in_ _in in1 in."
                                               << "12-14";
    QTest::newRow("whole word beginning with a sign") << "$a" << true << "b$a b$ab"
                                                      << "1-3";
    QTest::newRow("whole word ending with a sign") << "a." << true << "a.b xa. a."
                                                   << "0-2 8-10";
    QTest::newRow("no overlap") << "aa" << false << "aaaaa"
                                << "0-2 2-4";
    QTest::newRow("beyond ascii") << QString::fromUtf8("É") << false << QString::fromUtf8("é É")
                                  << "0-2 3-5";
    QTest::newRow("letters are words") << "a" << true << QString::fromUtf8("éa a") << "4-5";
    QTest::newRow("line end") << "a\r\nb" << false << "a\nb a\rb a\r\nb"
                              << "0-3 4-7 8-12";
    QTest::newRow("lone line feed") << "\n"
                                    << false << "\r\n\n"
                                    << "0-2 2-3";
    QTest::newRow("blanks count") << " a " << true << "x a y"
                                  << "1-4";
}

void tst_TextSearch::forward_match_isFound()
{
    QFETCH(QString, find);
    QFETCH(bool, wholeWord);
    QFETCH(QString, text);
    QFETCH(QString, found);
    QCOMPARE(ranges(TextSearch(find, wholeWord), text.toUtf8()), found);
}

void tst_TextSearch::backward_match_endsBeforeTheStart()
{
    const TextSearch search("aa", false);
    const QByteArrayView text("aaa aa");
    QCOMPARE(search.backward(text, 6), (TextRange{4, 6}));
    QCOMPARE(search.backward(text, 5), (TextRange{1, 3}));
    QCOMPARE(search.backward(text, 2), (TextRange{0, 2}));
    QVERIFY(!search.backward(text, 1));
    QVERIFY(!search.backward(text, 0));
}

void tst_TextSearch::emptyText_neverMatches()
{
    QVERIFY(!TextSearch(QString(), false).forward("abc", 0));
    QVERIFY(!TextSearch(QString(), true).backward("abc", 3));
    QVERIFY(!TextSearch("a", false).forward("", 0));
    QVERIFY(!TextSearch("a", false).forward("a", 5));
}

void tst_TextSearch::randomText_asTheModel()
{
    QRandomGenerator random(randomSeed(19));
    for (int round = 0; round < 20000; ++round) {
        const QString text = randomText(random, random.bounded(30));
        const QString find = randomText(random, random.bounded(4));
        const bool wholeWord = random.bounded(2);
        const Model model(text, find, wholeWord);
        const TextSearch search(find, wholeWord);
        const QByteArray utf8 = text.toUtf8();
        const qsizetype at = random.bounded(int(text.size()) + 1);
        QCOMPARE(search.forward(utf8, model.offset(at)), model.forward(at));
        QCOMPARE(search.backward(utf8, model.offset(at)), model.backward(at));
    }
}

ARDIPHON_TEST(tst_TextSearch, QCoreApplication)
#include "tst_TextSearch.moc"
