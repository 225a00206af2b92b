#pragma once

#include <QFile>
#include <QTextStream>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

/// A figure of a program in this folder: a line "name value". Of one that is printed more than once
/// the table has the median.
inline void print(const char *name, double value)
{
    QTextStream(stdout) << name << ' ' << value << '\n' << Qt::flush;
}

/// A line of /proc/self/status in KiB, such as "VmHWM", the peak of the resident memory; 0 where
/// the system has no such file.
inline double memoryKiB(const QByteArray &line)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &found : lines) {
        if (found.startsWith(line + ':'))
            return found.sliced(line.size() + 1).chopped(2).trimmed().toDouble();
    }
    return 0;
}

/// Resident memory, with what the allocator keeps for later given back.
inline double residentKiB()
{
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
    return memoryKiB("VmRSS");
}

/// Begins a new peak.
inline void forgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}
