#pragma once

#include <QtGlobal>

/// The seed for the random values of a test: the number in the environment variable
/// ARDIPHON_TEST_SEED, or else \a usual. It is printed, so that a run that failed can be repeated.
inline quint32 randomSeed(quint32 usual)
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("ARDIPHON_TEST_SEED", &isGiven);
    const quint32 seed = isGiven ? quint32(given) : usual;
    qInfo("ARDIPHON_TEST_SEED=%u", seed);
    return seed;
}
