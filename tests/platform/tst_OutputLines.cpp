#include "platform/OutputLines.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

namespace {

constexpr qsizetype Limit = 4096;

/// Each line with a "|" where it ends, and a "+" where it goes on or has no end.
QByteArrayList splitInBlocks(const QByteArray &bytes, qsizetype blockSize)
{
    LineSplitter splitter(OutputChannel::Errors, Limit);
    QByteArrayList lines;
    const auto note = [&lines](const std::optional<OutputLine> &line) {
        if (line)
            lines.append(line->bytes + (line->isComplete ? '|' : '+'));
        return line.has_value();
    };
    for (qsizetype at = 0; at < bytes.size(); at += blockSize) {
        splitter.add(QByteArrayView(bytes).sliced(at, std::min(blockSize, bytes.size() - at)));
        while (note(splitter.next())) {
        }
    }
    while (note(splitter.rest())) {
    }
    return lines;
}

} // namespace

class tst_OutputLines : public QObject
{
    Q_OBJECT

private slots:
    void lines_ofBlocks_areTheSame_data();
    void lines_ofBlocks_areTheSame();
    void lines_keepTheirChannel();
    void lines_ofAnyBytes_loseNothing();
    void memory_ofAnEndlessLine_staysSmall();
};

void tst_OutputLines::lines_ofBlocks_areTheSame_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArrayList>("lines");
    QTest::newRow("nothing") << QByteArray() << QByteArrayList();
    QTest::newRow("LF") << QByteArray("a\nb\n") << QByteArrayList{"a|", "b|"};
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QByteArrayList{"a|", "b|"};
    QTest::newRow("lone CR") << QByteArray("a\rb\r\r\nc\r")
                             << QByteArrayList{"a\rb\r|", QByteArray("c\r+")};
    QTest::newRow("empty lines") << QByteArray("\n\r\n\n") << QByteArrayList{"|", "|", "|"};
    QTest::newRow("no last end") << QByteArray("a\nb") << QByteArrayList{"a|", "b+"};
    QTest::newRow("NUL") << QByteArray("a\0b\n\0", 5)
                         << QByteArrayList{QByteArray("a\0b|", 4), QByteArray("\0+", 2)};
    for (const qsizetype size : {Limit - 1, Limit}) {
        const QByteArray line(size, 'x');
        for (const char *end : {"\n", "\r\n"})
            QTest::addRow("%d with %d", int(size), int(qstrlen(end)))
                << line + end + line + end << QByteArrayList{line + '|', line + '|'};
        QTest::addRow("%d without end", int(size)) << line << QByteArrayList{line + '+'};
    }
    const QByteArray limit(Limit, 'x');
    for (const char *end : {"\n", "\r\n"}) {
        QTest::addRow("one more with %d", int(qstrlen(end)))
            << limit + 'y' + end + 'z' << QByteArrayList{limit + '+', "y|", "z+"};
        QTest::addRow("three times with %d", int(qstrlen(end)))
            << limit + limit + limit + end << QByteArrayList{limit + '+', limit + '+', limit + '|'};
    }
    QTest::newRow("one more without end") << limit + 'y' << QByteArrayList{limit + '+', "y+"};
}

void tst_OutputLines::lines_ofBlocks_areTheSame()
{
    QFETCH(QByteArray, bytes);
    for (const qsizetype size :
         {qsizetype(1), qsizetype(2), qsizetype(3), Limit - 1, Limit, Limit + 1, qsizetype(65536)})
        QTEST(splitInBlocks(bytes, size), "lines");
}

void tst_OutputLines::lines_keepTheirChannel()
{
    for (const OutputChannel channel : {OutputChannel::Standard, OutputChannel::Errors}) {
        LineSplitter splitter(channel);
        splitter.add("a\nb");
        QCOMPARE(splitter.next(), OutputLine({channel, "a", true}));
        QCOMPARE(splitter.next(), std::nullopt);
        QCOMPARE(splitter.rest(), OutputLine({channel, "b", false}));
        QCOMPARE(splitter.rest(), std::nullopt);
    }
}

void tst_OutputLines::lines_ofAnyBytes_loseNothing()
{
    QRandomGenerator random(randomSeed(QRandomGenerator::global()->generate()));
    for (int round = 0; round < 50; ++round) {
        QByteArray bytes;
        while (bytes.size() < 20'000)
            bytes += random.bounded(40) == 0 ? QByteArray(random.bounded(3 * int(Limit)), 'l')
                                             : QByteArray(1, "\n\ra\0\n"[random.bounded(5)]);
        LineSplitter splitter(OutputChannel::Standard, Limit);
        QByteArray joined;
        const auto join = [&joined](const OutputLine &line) {
            joined += line.bytes;
            if (line.isComplete)
                joined += '\n';
        };
        for (qsizetype at = 0; at < bytes.size();) {
            const qsizetype size = std::min<qsizetype>(random.bounded(9000), bytes.size() - at);
            splitter.add(QByteArrayView(bytes).sliced(at, size));
            at += size;
            while (const auto line = splitter.next()) {
                QVERIFY(line->bytes.size() <= Limit);
                join(*line);
            }
        }
        while (const auto line = splitter.rest())
            join(*line);
        QVERIFY(joined == QByteArray(bytes).replace("\r\n", "\n"));
    }
}

/// Where each byte of it costs the line before, this takes hours.
void tst_OutputLines::memory_ofAnEndlessLine_staysSmall()
{
    LineSplitter splitter;
    const QByteArray block(65536, 'x');
    qint64 told = 0;
    for (int i = 0; i < 2000; ++i) {
        splitter.add(block);
        while (const auto line = splitter.next())
            told += line->bytes.size();
        QVERIFY((i + 1) * block.size() - told <= LongestLine + block.size());
    }
}

ARDIPHON_TEST(tst_OutputLines, NoApplication)
#include "tst_OutputLines.moc"
