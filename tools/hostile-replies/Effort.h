#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>

#include <algorithm>
#include <ctime>

/// An application that measures for how long it is at work at a stretch, without an eye for its
/// user: with one event, and the ones that were posted meanwhile.
class MeasuredApplication : public QGuiApplication
{
public:
    using QGuiApplication::QGuiApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (m_depth++ > 0)
            return leave(QGuiApplication::notify(receiver, event));
        QElapsedTimer wall;
        wall.start();
        const double before = processorTime();
        const bool result = QGuiApplication::notify(receiver, event);
        longestWall = std::max(longestWall, static_cast<double>(wall.nsecsElapsed()) / 1e6);
        longestProcessor = std::max(longestProcessor, processorTime() - before);
        return leave(result);
    }

    double longestWall = 0; ///< milliseconds
    double longestProcessor = 0;

private:
    bool leave(bool result)
    {
        --m_depth;
        return result;
    }
    static double processorTime()
    {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    int m_depth = 0;
};

/// Begins a new highest resident memory.
inline void forgetHighestMemory()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}
