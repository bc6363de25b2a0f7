#include "audio/WaveTexts.h"

#include <QStringList>

#include <cmath>

namespace ardiphon {

namespace {

const QString LineEnd = QStringLiteral("\r\n");
const QString Gap = QStringLiteral("  -  ");

QString twoDigits(qint64 number) { return groupedNumber(number, QString()); }

/// The number of samples of each channel, a half rounded to the even neighbour. 0 for blocks of no
/// bytes.
qint64 sampleCount(const WaveFormatRecord &wave)
{
    if (wave.BlockAlign == 0)
        return 0;
    return static_cast<qint64>(std::nearbyint(double(wave.DataSize) / wave.BlockAlign));
}

/// Hours, minutes and seconds. The minutes are counted from the beginning, not from the full hour.
QString duration(const WaveFormatRecord &wave)
{
    const qint64 seconds =
        wave.AvgBytesPerSec == 0 ? 0 : qint64(wave.DataSize) / wave.AvgBytesPerSec;
    return QStringList{twoDigits(seconds / 3600), twoDigits(seconds / 60), twoDigits(seconds % 60)}
        .join(u':');
}

} // namespace

QString groupedNumber(qint64 number, const QString &separator)
{
    QString digits = QString::number(qAbs(number)).rightJustified(2, u'0');
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, separator);
    return number < 0 ? u'-' + digits : digits;
}

QString waveInformation(const WaveFormatRecord &wave, qint64 fileSize, const QString &separator)
{
    const auto plain = [](qint64 number) { return QString::number(number); };
    const auto grouped = [&](qint64 number) { return groupedNumber(number, separator); };
    return QStringLiteral("SampleRate:  ") + plain(wave.SampleRate) + Gap +
           QStringLiteral("Bits:  ") + plain(wave.Bits) + Gap + QStringLiteral("Channels:  ") +
           plain(wave.Channels) + LineEnd + LineEnd + QStringLiteral("Samples:  ") +
           grouped(sampleCount(wave)) + LineEnd + QStringLiteral("Header size:  ") +
           plain(wave.HeaderSize) + Gap + QStringLiteral("DataSize:  ") + grouped(wave.DataSize) +
           LineEnd + QStringLiteral("FileSize:  ") + grouped(fileSize) + Gap +
           QStringLiteral("Duration (hh:mm:ss):  ") + duration(wave) + LineEnd + LineEnd +
           QStringLiteral("AvgBytesPerSec:  ") + grouped(wave.AvgBytesPerSec) + Gap +
           QStringLiteral("BlockAlign:  ") + plain(wave.BlockAlign);
}

QString playTime(int milliseconds)
{
    const int seconds = milliseconds / 1000;
    return twoDigits(seconds / 60) + u':' + twoDigits(seconds % 60);
}

QString totalTime(int milliseconds)
{
    return QStringLiteral("Total Time: \r\n") + playTime(milliseconds) + QStringLiteral(" (mm:ss)");
}

} // namespace ardiphon
