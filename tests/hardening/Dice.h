#pragma once

#include <QList>
#include <QString>

#include <random>

/// Chance that comes out alike for the same seed on every machine.
class Dice
{
public:
    explicit Dice(unsigned seed) : m_engine(seed) {}

    /// From 0 to \a sides - 1; 0 where there are none.
    int roll(qsizetype sides)
    {
        return sides > 0 ? int(m_engine() % static_cast<unsigned>(sides)) : 0;
    }
    bool chance(int percent) { return roll(100) < percent; }
    template <typename List>
    auto pick(const List &list)
    {
        return list[static_cast<decltype(std::size(list))>(roll(qsizetype(std::size(list))))];
    }

private:
    std::mt19937 m_engine;
};
