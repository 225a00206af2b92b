#pragma once

#include "benchmarks/Figures.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QQuickWindow>
#include <QTimer>

#include <cstdlib>
#include <ctime>
#include <functional>

/// Milliseconds of CPU that this process has used so far, in all its threads.
inline double cpuMilliseconds() { return 1e3 * double(std::clock()) / CLOCKS_PER_SEC; }

inline void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Milliseconds from `action` until a frame is on the screen in which the condition holds. Such a
/// frame is asked for when none is due, and `shown` is called in the thread that has drawn it. Ends
/// the program when there is none for a minute.
inline double untilFrame(
    QQuickWindow *window, const std::function<void()> &action,
    const std::function<bool()> &condition, const std::function<void()> &shown = [] {})
{
    constexpr int timeLimit = 60'000;
    QElapsedTimer clock;
    QEventLoop loop;
    double milliseconds = 0;
    // Both run where frames are drawn, the first one while the main thread waits.
    bool isShown = false;
    QObject::connect(
        window, &QQuickWindow::afterSynchronizing, &loop, [&] { isShown = condition(); },
        Qt::DirectConnection);
    QObject::connect(
        window, &QQuickWindow::frameSwapped, &loop,
        [&] {
            if (isShown && milliseconds == 0) {
                milliseconds = double(clock.nsecsElapsed()) / 1e6;
                shown();
                QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
            }
        },
        Qt::DirectConnection);
    QTimer asking;
    QObject::connect(&asking, &QTimer::timeout, [&] {
        if (clock.hasExpired(timeLimit)) {
            qCritical("What was waited for did not come.");
            std::exit(1);
        }
        if (condition())
            window->update();
    });
    asking.start(5);
    clock.start();
    action();
    if (condition())
        window->update();
    loop.exec();
    return milliseconds;
}

/// Scrolls the page by a step for each frame, and returns the CPU of one frame in milliseconds.
inline double cpuPerFrame(QQuickWindow *window, QObject *page)
{
    constexpr int warmUp = 20;
    constexpr int frames = 200;
    constexpr double step = 40;
    double start = 0;
    for (int frame = 0; frame < warmUp + frames; ++frame) {
        if (frame == warmUp)
            start = cpuMilliseconds();
        const double place = page->property("contentY").toDouble() + step;
        untilFrame(
            window, [&] { page->setProperty("contentY", place); }, [] { return true; });
    }
    return (cpuMilliseconds() - start) / frames;
}
