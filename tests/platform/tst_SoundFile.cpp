#include "platform/ui/SoundFile.h"
#include "support/TestMain.h"
#include "support/WaveBytes.h"

#include <QtTest>

#include <sndfile.h>

#include <cmath>
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
    void open_noSound_isNull();
    void open_damagedHeaders_neverHarm();

private:
    QString path() const { return m_folder.filePath(QStringLiteral("sound")); }
    void write(const QByteArray &bytes);

    QTemporaryDir m_folder;
};

void tst_SoundFile::write(const QByteArray &bytes)
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

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

void tst_SoundFile::open_noSound_isNull()
{
    QVERIFY(!SoundFile::open(m_folder.filePath(QStringLiteral("nowhere"))));
    QVERIFY(!SoundFile::open(m_folder.path()));
    write("<CsoundSynthesizer>\r\n");
    QVERIFY(!SoundFile::open(path()));
}

void tst_SoundFile::open_damagedHeaders_neverHarm()
{
    QRandomGenerator random(63);
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
