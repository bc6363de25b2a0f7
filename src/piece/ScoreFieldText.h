#pragma once

#include <QByteArrayView>

#include <array>

namespace ardiphon {

/// What a character is in a field of a score without macros.
enum class ScoreFieldByte : quint8 { Begins = 1, Inside = 2, Blank = 4 };

inline constexpr std::array<quint8, 256> scoreFieldBytes = [] {
    constexpr auto Begins = quint8(ScoreFieldByte::Begins);
    constexpr auto Inside = quint8(ScoreFieldByte::Inside);
    std::array<quint8, 256> bytes{};
    for (const char c : {' ', '\t', '\r', '\n'})
        bytes[quint8(c)] = quint8(ScoreFieldByte::Blank);
    for (char c = '0'; c <= '9'; ++c)
        bytes[quint8(c)] = Begins | Inside;
    for (const char c : {'+', '-', '.', '<', '>', '(', ')', '~', 'n', 'p', 'z'})
        bytes[quint8(c)] = Begins | Inside;
    for (const char c : {'e', 'E'})
        bytes[quint8(c)] = Inside;
    for (const char c : {'^', '!', '"', '['})
        bytes[quint8(c)] = Begins;
    return bytes;
}();

inline bool isScoreByte(char c, ScoreFieldByte what)
{
    return (scoreFieldBytes[quint8(c)] & quint8(what)) != 0;
}
inline bool beginsScoreField(char c) { return isScoreByte(c, ScoreFieldByte::Begins); }

/// Where the blanks at \a at end.
qsizetype afterScoreBlanks(QByteArrayView text, qsizetype at);
/// The number, or what stands in its place, that begins at \a at, which is behind it then.
QByteArrayView takeScoreToken(QByteArrayView text, qsizetype &at);
/// The value of a number or an expression at \a at, which is behind it then.
double takeScoreNumber(QByteArrayView text, qsizetype &at);
/// The end of the string that begins with its quote at \a at.
qsizetype scoreStringEnd(QByteArrayView text, qsizetype at);

} // namespace ardiphon
