#pragma once

#include "hardening/Dice.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

/// Files that were whole once: each is one of some samples with damages here and there.
class DamagedFiles
{
public:
    explicit DamagedFiles(const QByteArrayList &samples) : m_samples(samples) {}

    /// Now and then a whole one.
    QByteArray next(Dice &dice) const
    {
        QByteArray bytes = dice.pick(m_samples);
        for (int damages = dice.roll(6); damages > 0; --damages)
            damage(bytes, dice);
        return bytes;
    }

private:
    void damage(QByteArray &bytes, Dice &dice) const
    {
        static const QByteArrayList pieces{QByteArray(1, '\0'),
                                           QByteArray(4, '\xFF'),
                                           "\x7F\xFF\xFF\xFF",
                                           "\r\n",
                                           "\r",
                                           "\"",
                                           "[",
                                           "]",
                                           ";",
                                           "=",
                                           "<",
                                           ">",
                                           "-1",
                                           "nan",
                                           "1e999",
                                           "99999999999999999",
                                           "\xC3",
                                           "\xF0\x9F\x8E\xB5",
                                           "\x1b[",
                                           "%s%n",
                                           QByteArray(300, ' '),
                                           QByteArray(5000, 'a')};
        const int at = dice.roll(bytes.size() + 1);
        const int length = dice.roll(std::min<qsizetype>(bytes.size() - at, 200) + 1);
        switch (dice.roll(7)) {
        case 0:
            if (at < bytes.size())
                bytes[at] = char(dice.roll(256));
            break;
        case 1:
            bytes.insert(at, dice.pick(pieces));
            break;
        case 2:
            bytes.remove(at, length);
            break;
        case 3:
            bytes.insert(at, bytes.mid(at, length).repeated(1 + dice.roll(20)));
            break;
        case 4:
            bytes.truncate(at);
            break;
        case 5: // the number that stands there, another one
            bytes.replace(at, std::min(length, 4), dice.pick(pieces));
            break;
        default:
            bytes.insert(at, dice.pick(m_samples));
            break;
        }
        bytes.truncate(100'000);
    }

    QByteArrayList m_samples;
};

/// The template of a folder for many files: in memory where there is a place for that.
inline QString memoryFolder()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
           QStringLiteral("/ardiphon-fuzz-XXXXXX");
}

/// Takes up to two numbers off the front of the arguments.
inline void readNumbers(int &argc, char **argv, int &first, unsigned &second)
{
    const auto take = [&](auto &value) {
        bool isNumber = false;
        const unsigned number = argc > 1 ? QByteArray(argv[1]).toUInt(&isNumber) : 0;
        if (isNumber) {
            value = std::remove_reference_t<decltype(value)>(number);
            std::rotate(argv + 1, argv + 2, argv + argc--);
        }
        return isNumber;
    };
    if (take(first))
        take(second);
}
