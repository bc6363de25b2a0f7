#include "audio/ModuleWaveFormat.h"
#include "audio/WaveTexts.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"
#include "support/WaveBytes.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace ardiphon;
using namespace WaveBytes;

namespace {

const QByteArray stereo = format(2, 44100, 16);
constexpr WaveFormatRecord zeros;

/// Reads numbers a file's end away from them as 0, as the reader below wants.
qint32 numberOf(QByteArrayView file, qint64 at, int width)
{
    quint32 value = 0;
    for (int byte = width - 1; byte >= 0; --byte) {
        const qint64 place = at + byte;
        value = value << 8 | (place < file.size() ? quint8(file[place]) : 0U);
    }
    return width == 2 ? qint16(value) : qint32(value);
}

/// The reader written out step by step, byte by byte, to compare the real one with.
WaveFormatRecord readSlowly(QByteArrayView file)
{
    if (!file.startsWith("RIFF") || file.size() < 12 || file.sliced(8, 4) != QByteArrayView("WAVE"))
        return {};
    if (numberOf(file, 16, 4) < 16)
        return {};
    qint64 at = 36;
    for (qint32 left = numberOf(file, 16, 4) - 16; left > 0 && at <= file.size(); --left)
        ++at;
    for (;;) {
        if (at + 8 > file.size())
            return {};
        const bool found = file.sliced(at, 4) == QByteArrayView("data");
        const qint32 size = numberOf(file, at + 4, 4);
        at += 8;
        if (found)
            break;
        for (qint32 left = size; left > 0 && at <= file.size(); --left)
            ++at;
    }
    if (at > 32767)
        return {};
    WaveFormatRecord record;
    record.AvgBytesPerSec = numberOf(file, 28, 4);
    record.SampleRate = numberOf(file, 24, 4);
    record.Bits = qint16(numberOf(file, 34, 2));
    record.BlockAlign = qint16(numberOf(file, 32, 2));
    record.Channels = qint16(numberOf(file, 22, 2));
    record.FormatTag = qint16(numberOf(file, 20, 2));
    record.DataSize = numberOf(file, at - 4, 4);
    record.HeaderSize = qint16(at);
    return record;
}

} // namespace

/// The reader of wave headers and the texts made of what it reads.
class tst_ModuleWaveFormat : public QObject
{
    Q_OBJECT

private slots:
    void plainFile_everyField();
    void headerSize_data();
    void headerSize();
    void refused_givesZeros_data();
    void refused_givesZeros();
    void fileThatCannotBeRead_givesZeros();
    void randomHeaders_readAsByteByByte();
    void groupedNumber_data();
    void groupedNumber();
    void waveInformation_plainFile_exactText();
    void waveInformation_zeros_showsZerosAndFileSize();
    void waveInformation_rounding_data();
    void waveInformation_rounding();
    void playTime_data();
    void playTime();
};

void tst_ModuleWaveFormat::plainFile_everyField()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(wave(2, 44100, QByteArray(400, 'x')));
    file.close();

    const WaveFormatRecord record = ReadWaveFormat(file.fileName());
    QCOMPARE(record.AvgBytesPerSec, 176400);
    QCOMPARE(record.SampleRate, 44100);
    QCOMPARE(record.Bits, qint16(16));
    QCOMPARE(record.BlockAlign, qint16(4));
    QCOMPARE(record.Channels, qint16(2));
    QCOMPARE(record.FormatTag, qint16(1));
    QCOMPARE(record.DataSize, 400);
    QCOMPARE(record.HeaderSize, qint16(44));
    QCOMPARE(record.Reserved1, 0);
    QCOMPARE(record.Reserved2 + record.Reserved3, 0);
}

void tst_ModuleWaveFormat::headerSize_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("size");
    const QByteArray fmt = chunk("fmt ", stereo);
    const QByteArray data = chunk("data", "abcd");
    QTest::newRow("plain") << riff(fmt + data) << 44;
    QTest::newRow("list first") << riff(fmt + chunk("LIST", "INFOabcd") + data) << 60;
    QTest::newRow("format of 18 bytes") << riff(chunk("fmt ", stereo + "ab") + data) << 46;
    QTest::newRow("format of 40 bytes")
        << riff(chunk("fmt ", stereo + QByteArray(24, 'x')) + data) << 68;
    QTest::newRow("other format tag") << riff(chunk("junk", stereo) + data) << 44;
    QTest::newRow("odd chunk, not padded") << riff(fmt + chunk("note", "abc") + data) << 55;
    QTest::newRow("odd chunk, padded") << riff(fmt + chunk("note", "abc") + '\0' + data) << 0;
    QTest::newRow("negative chunk size skips nothing")
        << riff(fmt + "junk" + number<qint32>(-5) + data) << 52;
    QTest::newRow("no samples") << riff(fmt + chunk("data", {})) << 44;
    QTest::newRow("wrong RIFF size") << "RIFF" + number<qint32>(-1) + "WAVE" + fmt + data << 44;
    QTest::newRow("data size beyond the end")
        << riff(fmt + "data" + number<qint32>(0x7fffffff)) << 44;
    QTest::newRow("last place that fits")
        << riff(fmt + chunk("LIST", QByteArray(32767 - 52, 'x')) + data) << 32767;
    QTest::newRow("first that doesn't")
        << riff(fmt + chunk("LIST", QByteArray(32768 - 52, 'x')) + data) << 0;
}

void tst_ModuleWaveFormat::headerSize()
{
    QFETCH(QByteArray, file);
    QTEST(int(parseWaveFormat(file).HeaderSize), "size");
}

void tst_ModuleWaveFormat::refused_givesZeros_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray whole = wave(2, 44100, "abcd");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("<CsoundSynthesizer>\r\n").repeated(20);
    QTest::newRow("other container") << QByteArray(whole).replace(0, 4, "RIFX");
    QTest::newRow("other form") << QByteArray(whole).replace(8, 4, "AVI ");
    QTest::newRow("small format") << QByteArray(whole).replace(16, 4, number<qint32>(15));
    QTest::newRow("small format with data behind it")
        << riff("fmt " + number<qint32>(15) + stereo.first(15) + chunk("data", "abcd"));
    QTest::newRow("negative format") << QByteArray(whole).replace(16, 4, number<qint32>(-1));
    QTest::newRow("huge format") << QByteArray(whole).replace(16, 4, number<qint32>(0x7fffffff));
    QTest::newRow("no data") << riff(chunk("fmt ", stereo));
    QTest::newRow("huge chunk") << riff(chunk("fmt ", stereo) + "junk" +
                                        number<qint32>(0x7fffffff) + chunk("data", "abcd"));
    QTest::newRow("endless chunks")
        << riff(chunk("fmt ", stereo) + chunk("junk", {}).repeated(100'000));
    for (int size = 1; size < 44; ++size)
        QTest::addRow("cut to %d", size) << whole.first(size);
}

void tst_ModuleWaveFormat::refused_givesZeros()
{
    QFETCH(QByteArray, file);
    QVERIFY(parseWaveFormat(file) == zeros);
}

void tst_ModuleWaveFormat::fileThatCannotBeRead_givesZeros()
{
    const TimeLimit limit;
    QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe.wav"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(ReadWaveFormat(pipe) == zeros); // and doesn't wait for a writer
    QVERIFY(ReadWaveFormat(folder.path()) == zeros);
    QVERIFY(ReadWaveFormat(folder.filePath(QStringLiteral("none.wav"))) == zeros);
    QVERIFY(ReadWaveFormat(QString()) == zeros);
    QVERIFY(ReadWaveFormat(QStringLiteral("/dev/zero")) == zeros);
}

void tst_ModuleWaveFormat::randomHeaders_readAsByteByByte()
{
    QRandomGenerator random(randomSeed(8));
    const QByteArray pieces[] = {"RIFF",
                                 "WAVE",
                                 "fmt ",
                                 "data",
                                 "LIST",
                                 number<qint32>(0),
                                 number<qint32>(16),
                                 number<qint32>(-1),
                                 number<qint32>(0x7fffffff)};
    int accepted = 0;
    const TimeLimit limit; // a negative size must not lead back
    for (int round = 0; round < 100'000; ++round) {
        QByteArray file =
            riff(chunk("fmt ", stereo + QByteArray(random.bounded(6), 'x')) +
                 chunk("LIST", QByteArray(random.bounded(20), 'y')) + chunk("data", "abcdefgh"));
        for (int change = random.bounded(4); change > 0; --change) {
            const QByteArray &piece = pieces[random.bounded(int(std::size(pieces)))];
            const qsizetype at = random.bounded(int(file.size()));
            if (random.bounded(2) == 0)
                file.replace(at, piece.size(), piece);
            else
                file[at] = char(random.bounded(256));
        }
        file.truncate(random.bounded(3) == 0 ? random.bounded(int(file.size()) + 1) : file.size());
        // A buffer without a byte behind it lets the sanitizer see a read too far.
        const std::vector<char> exact(file.cbegin(), file.cend());
        const WaveFormatRecord read = parseWaveFormat(QByteArrayView(exact));
        if (read != readSlowly(file))
            QFAIL(file.toHex().constData());
        accepted += read.HeaderSize != 0;
    }
    QVERIFY(accepted > 20'000); // both ways out are well travelled
    QVERIFY(accepted < 80'000);
}

void tst_ModuleWaveFormat::groupedNumber_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0LL << "00";
    QTest::newRow("one digit") << 5LL << "05";
    QTest::newRow("two") << 12LL << "12";
    QTest::newRow("three") << 123LL << "123";
    QTest::newRow("four") << 1234LL << "1,234";
    QTest::newRow("seven") << 1234567LL << "1,234,567";
    QTest::newRow("beyond 32 bits") << 4294967296LL << "4,294,967,296";
    QTest::newRow("negative") << -5LL << "-05";
    QTest::newRow("negative thousands") << -123456LL << "-123,456";
}

void tst_ModuleWaveFormat::groupedNumber()
{
    QFETCH(qint64, number);
    QTEST(ardiphon::groupedNumber(number, QStringLiteral(",")), "text");
}

void tst_ModuleWaveFormat::waveInformation_plainFile_exactText()
{
    WaveFormatRecord record = parseWaveFormat(wave(2, 44100, "abcd"));
    record.DataSize = 3600 * 176400;
    QCOMPARE(ardiphon::waveInformation(record, 635040044, QStringLiteral(",")),
             QStringLiteral("SampleRate:  44100  -  Bits:  16  -  Channels:  2\r\n\r\n"
                            "Samples:  158,760,000\r\n"
                            "Header size:  44  -  DataSize:  635,040,000\r\n"
                            "FileSize:  635,040,044  -  Duration (hh:mm:ss):  01:60:00\r\n\r\n"
                            "AvgBytesPerSec:  176,400  -  BlockAlign:  4"));
}

void tst_ModuleWaveFormat::waveInformation_zeros_showsZerosAndFileSize()
{
    QCOMPARE(ardiphon::waveInformation({}, 1234, QStringLiteral(".")),
             QStringLiteral("SampleRate:  0  -  Bits:  0  -  Channels:  0\r\n\r\n"
                            "Samples:  00\r\n"
                            "Header size:  0  -  DataSize:  00\r\n"
                            "FileSize:  1.234  -  Duration (hh:mm:ss):  00:00:00\r\n\r\n"
                            "AvgBytesPerSec:  00  -  BlockAlign:  0"));
}

void tst_ModuleWaveFormat::waveInformation_rounding_data()
{
    QTest::addColumn<int>("dataSize");
    QTest::addColumn<int>("blockAlign");
    QTest::addColumn<int>("perSecond");
    QTest::addColumn<QString>("samples");
    QTest::addColumn<QString>("duration");
    QTest::newRow("half to even below") << 2 << 4 << 1 << "00"
                                        << "00:00:02";
    QTest::newRow("half to even above") << 6 << 4 << 4 << "02"
                                        << "00:00:01";
    QTest::newRow("up") << 7 << 4 << 4 << "02"
                        << "00:00:01";
    QTest::newRow("minutes not reduced") << 3900 << 1 << 1 << "3,900"
                                         << "01:65:00";
    QTest::newRow("a second less") << 3599 << 2 << 1 << "1,800"
                                   << "00:59:59";
    QTest::newRow("no rate") << 100 << 2 << 0 << "50"
                             << "00:00:00";
    QTest::newRow("no block") << 100 << 0 << 10 << "00"
                              << "00:00:10";
    QTest::newRow("lowest number") << INT_MIN << -1 << -1 << "2,147,483,648"
                                   << "596523:35791394:08";
}

void tst_ModuleWaveFormat::waveInformation_rounding()
{
    QFETCH(int, dataSize);
    QFETCH(int, blockAlign);
    QFETCH(int, perSecond);
    QFETCH(QString, samples);
    QFETCH(QString, duration);
    WaveFormatRecord record;
    record.DataSize = dataSize;
    record.BlockAlign = qint16(blockAlign);
    record.AvgBytesPerSec = perSecond;
    const QString text = ardiphon::waveInformation(record, 0, QStringLiteral(","));
    QVERIFY2(text.contains(QStringLiteral("Samples:  %1\r\n").arg(samples)), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("(hh:mm:ss):  %1\r\n").arg(duration)), qPrintable(text));
}

void tst_ModuleWaveFormat::playTime_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0 << "00:00";
    QTest::newRow("less than a second") << 999 << "00:00";
    QTest::newRow("a minute and more") << 65500 << "01:05";
    QTest::newRow("hours stay minutes") << 24'347'000 << "405:47";
}

void tst_ModuleWaveFormat::playTime()
{
    QFETCH(int, milliseconds);
    QTEST(ardiphon::playTime(milliseconds), "text");
    QCOMPARE(totalTime(milliseconds), QStringLiteral("Total Time: \r\n") +
                                          ardiphon::playTime(milliseconds) +
                                          QStringLiteral(" (mm:ss)"));
}

ARDIPHON_TEST(tst_ModuleWaveFormat, QCoreApplication)
#include "tst_ModuleWaveFormat.moc"
