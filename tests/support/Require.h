#pragma once

#include <QTest>

#include <source_location>

/// Ends the run, and says where and why, unless \a isMet: for what a helper of the tests cannot do
/// without. A QVERIFY there would return from the helper alone, and the test would go on.
inline void require(bool isMet, const char *what,
                    const std::source_location &place = std::source_location::current())
{
    if (!isMet)
        qFatal("%s:%u: %s", place.file_name(), unsigned(place.line()), what);
}

/// CHECKED(compareAll(a, b)); calls a helper that checks with QCOMPARE and the like, and returns
/// from the test too when one of its checks failed. The same for a call, such as that of a dialog,
/// in which a step of the test runs that checks: such a step has to end the call also when it
/// fails.
#define CHECKED(...)                                                                               \
    do {                                                                                           \
        __VA_ARGS__;                                                                               \
        if (QTest::currentTestFailed())                                                            \
            return;                                                                                \
    } while (false)
