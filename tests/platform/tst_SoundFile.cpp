#include "platform/ui/SoundFile.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"
#include "support/WaveBytes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sndfile.h>

#include <cmath>
#include <limits>
#include <sys/stat.h>
#include <vector>

using namespace ardiphon;

/// The decoder of sound files: what it reads, and that no file harms it.
class tst_SoundFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_folder.isValid()); }

    void formats_areDecoded_data();
    void formats_areDecoded();
    void length_isInMilliseconds();
    void places_neverLeaveTheFile();
    void read_atTheEnd_givesWhatThereIs();
    void read_floatingPoint_isBroughtIntoRange_data();
    void read_floatingPoint_isBroughtIntoRange();
    void open_noSound_isNull();
    void open_pipe_isNull();
    void open_failure_saysWhy();
    void open_damagedHeaders_neverHarm();

private:
    QString path() const { return m_folder.filePath(QStringLiteral("sound")); }
    void write(const QByteArray &bytes);

    QTemporaryDir m_folder;
};

void tst_SoundFile::write(const QByteArray &bytes) { writeBytes(path(), bytes); }

void tst_SoundFile::formats_areDecoded_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("channels");
    QTest::addColumn<double>("precision");

    const auto add = [](const char *name, int format, double precision) {
        for (int channels : {1, 2, 4, 8})
            QTest::addRow("%s %d", name, channels) << format << channels << precision;
    };
    add("wav 8", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 1e-2);
    add("wav 16", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1e-4);
    add("wav 24", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 1e-6);
    add("wav 32", SF_FORMAT_WAV | SF_FORMAT_PCM_32, 1e-6);
    add("wav float", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1e-6);
    add("wav double", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 1e-6);
    add("wavex 16", SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, 1e-4);
    add("aiff 8", SF_FORMAT_AIFF | SF_FORMAT_PCM_S8, 1e-2);
    add("aiff 24", SF_FORMAT_AIFF | SF_FORMAT_PCM_24, 1e-6);
    add("aiff float", SF_FORMAT_AIFF | SF_FORMAT_FLOAT, 1e-6);
    add("w64 16", SF_FORMAT_W64 | SF_FORMAT_PCM_16, 1e-4);
    add("w64 double", SF_FORMAT_W64 | SF_FORMAT_DOUBLE, 1e-6);
}

void tst_SoundFile::formats_areDecoded()
{
    QFETCH(int, format);
    QFETCH(int, channels);
    QFETCH(double, precision);
    const auto sample = [](int index) { return double(index % 97) / 97 - 0.5; };
    SF_INFO info{0, 44100, channels, format, 0, 0};
    SNDFILE *written = sf_open(QFile::encodeName(path()).constData(), SFM_WRITE, &info);
    QVERIFY2(written, sf_strerror(nullptr));
    std::vector<double> samples(std::size_t(4410) * channels);
    for (int index = 0; index < int(samples.size()); ++index)
        samples[index] = sample(index);
    QCOMPARE(sf_write_double(written, samples.data(), sf_count_t(samples.size())),
             sf_count_t(samples.size()));
    sf_close(written);

    const auto file = SoundFile::open(path());
    QVERIFY(file);
    QCOMPARE(file->channels(), channels);
    QCOMPARE(file->rate(), 44100);
    QCOMPARE(file->frames(), 4410);
    QVERIFY(file->seek(100));
    std::vector<float> read(std::size_t(20) * channels);
    QCOMPARE(file->read(read.data(), 20), 20);
    for (int index = 0; index < int(read.size()); ++index)
        QVERIFY(std::abs(double(read[index]) - sample(100 * channels + index)) < precision);
}

void tst_SoundFile::length_isInMilliseconds()
{
    write(WaveBytes::wave(1, 1000, QByteArray(2 * 750, 'x')));
    QCOMPARE(SoundFile::open(path())->milliseconds(), 750);
    write(WaveBytes::wave(2, 192000, QByteArray(4 * 19200, 'x')));
    QCOMPARE(SoundFile::open(path())->milliseconds(), 100);
}

void tst_SoundFile::places_neverLeaveTheFile()
{
    write(WaveBytes::wave(1, 1000, QByteArray(2 * 500, 'x')));
    const auto file = SoundFile::open(path());
    QCOMPARE(file->frameAt(-1), 0);
    QCOMPARE(file->frameAt(499), 499);
    QCOMPARE(file->frameAt(1'000'000), 500);
    QCOMPARE(file->millisecondsAt(-1), 0);
    QCOMPARE(file->millisecondsAt(250), 250);
    QCOMPARE(file->millisecondsAt(1'000'000), 500);
    QVERIFY(file->seek(0));
    QVERIFY(file->seek(500));
    QVERIFY(!file->seek(501));
    QVERIFY(!file->seek(-1));
}

void tst_SoundFile::read_atTheEnd_givesWhatThereIs()
{
    write(WaveBytes::wave(1, 1000, QByteArray(2 * 500, 'x')));
    const auto file = SoundFile::open(path());
    std::vector<float> samples(1000);
    QVERIFY(file->seek(450));
    QCOMPARE(file->read(samples.data(), 1000), 50);
    QCOMPARE(file->read(samples.data(), 1000), 0);
}

void tst_SoundFile::read_floatingPoint_isBroughtIntoRange_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("float") << int(SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    QTest::newRow("double") << int(SF_FORMAT_WAV | SF_FORMAT_DOUBLE);
}

/// Such a file may hold anything, and what is no number would be heard as a bang or as nothing.
void tst_SoundFile::read_floatingPoint_isBroughtIntoRange()
{
    QFETCH(int, format);
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> written{0.25, nan, 1, 1.5, infinity, -nan, -0.5, -2, -infinity, -1};
    const std::vector<float> expected{0.25F, 0, 1, 1, 1, 0, -0.5F, -1, -1, -1};
    SF_INFO info{0, 44100, 2, format, 0, 0};
    SNDFILE *file = sf_open(QFile::encodeName(path()).constData(), SFM_WRITE, &info);
    QVERIFY2(file, sf_strerror(nullptr));
    QCOMPARE(sf_write_double(file, written.data(), sf_count_t(written.size())),
             sf_count_t(written.size()));
    sf_close(file);
    std::vector<float> read(written.size());
    QCOMPARE(SoundFile::open(path())->read(read.data(), qint64(read.size()) / 2),
             qint64(read.size()) / 2);
    QCOMPARE(read, expected);
}

void tst_SoundFile::open_pipe_isNull()
{
    const QString pipe = m_folder.filePath(QStringLiteral("pipe.wav"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const TimeLimit limit; // nobody will ever write into it
    QVERIFY(!SoundFile::open(pipe));
}

void tst_SoundFile::open_failure_saysWhy()
{
    const auto reasonFor = [](const QString &file) {
        QString reason;
        return SoundFile::open(file, &reason) ? QString() : reason;
    };
    QCOMPARE(reasonFor(m_folder.filePath(QStringLiteral("nowhere"))),
             QStringLiteral("There is no such file."));
    write("no sound at all");
    QCOMPARE(reasonFor(path()), QStringLiteral("Format not recognised."));
    write(WaveBytes::wave(1, 44100, "abcd"));
    QCOMPARE(reasonFor(path()), QString());
}

void tst_SoundFile::open_noSound_isNull()
{
    QVERIFY(!SoundFile::open(m_folder.filePath(QStringLiteral("nowhere"))));
    QVERIFY(!SoundFile::open(m_folder.path()));
    write("<CsoundSynthesizer>\r\n");
    QVERIFY(!SoundFile::open(path()));
}

void tst_SoundFile::open_damagedHeaders_neverHarm()
{
    QRandomGenerator random(randomSeed(63));
    const QByteArray whole = WaveBytes::wave(2, 44100, QByteArray(400, 'x'));
    std::vector<float> block(1024 * 1024);
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = whole;
        for (int change = 1 + random.bounded(4); change > 0; --change)
            bytes[random.bounded(60)] = char(random.bounded(256));
        write(bytes.first(random.bounded(int(bytes.size()))));
        if (const auto file = SoundFile::open(path())) {
            QVERIFY(file->channels() > 0 && file->channels() <= 1024 && file->rate() > 0);
            QVERIFY(file->milliseconds() >= 0);
            QVERIFY(file->read(block.data(), 1024) <= 1024);
        }
    }
}

ARDIPHON_TEST(tst_SoundFile, QCoreApplication)
#include "tst_SoundFile.moc"
