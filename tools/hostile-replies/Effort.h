#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>

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

/// The process' memory in MiB, by a name of the system's: "VmRSS" now, "VmHWM" at its highest.
inline double memory(const QString &name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QRegularExpression line(name + QStringLiteral(R"(:\s+(\d+) kB)"));
    return line.match(QString::fromUtf8(status.readAll())).captured(1).toDouble() / 1024;
}

/// Begins a new highest.
inline void forgetHighestMemory()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}
