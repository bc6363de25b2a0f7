#pragma once

#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>

#include <functional>

/// Does \a action once, from the event loop, as soon as \a condition holds: this is how a user acts
/// while a call has not returned yet. When the condition never comes the test fails; then, and when
/// a check in \a action failed, \a giveUp has to see to it that the call returns.
inline void when(QObject *context, std::function<bool()> condition, std::function<void()> action,
                 std::function<void()> giveUp)
{
    auto *timer = new QTimer(context);
    QObject::connect(timer, &QTimer::timeout, context, [=, limit = QDeadlineTimer(30'000)] {
        const bool holds = condition();
        if (!holds && !limit.hasExpired())
            return;
        timer->stop();
        if (holds)
            action();
        else
            QTest::qFail("what the test waited for never came", __FILE__, __LINE__);
        if (QTest::currentTestFailed())
            giveUp();
    });
    timer->start(1);
}
