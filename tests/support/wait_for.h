// Runs the event loop until a condition holds. Unlike QTest::qWaitFor it doesn't sleep between rounds, which a browser
// engine that lives on this loop would pay for with seconds a page.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace vellum::test {

// True when the condition came to hold within `milliseconds`.
inline bool WaitFor(const std::function<bool()>& condition, int milliseconds = 20000) {
    if (condition()) return true;
    QElapsedTimer since;
    since.start();
    QEventLoop loop;
    bool holds = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        holds = condition();
        if (holds || since.elapsed() >= milliseconds) loop.quit();
    });
    poll.start(5);
    loop.exec();
    return holds;
}

}  // namespace vellum::test
