#pragma once

#include "audio/ModuleWaveFormat.h"

namespace ardiphon {

/// A number in the format "0,0": at least two digits, and \a separator between the thousands.
QString groupedNumber(qint64 number, const QString &separator);

/// The text of FormSNDInfo for a file of \a fileSize bytes with that header. A header of zeros
/// gives zeros.
QString waveInformation(const WaveFormatRecord &wave, qint64 fileSize, const QString &separator);

/// Minutes and seconds of a play time in milliseconds: "01:05" for 65,500. The minutes are not
/// reduced to hours.
QString playTime(int milliseconds);

/// The text of the player for the length of its file.
QString totalTime(int milliseconds);

} // namespace ardiphon
