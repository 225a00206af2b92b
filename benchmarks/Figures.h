#pragma once

#include <QFile>
#include <QList>
#include <QTextStream>

#include <algorithm>

/// A figure of a program in this folder: a line "name value".
inline void print(const char *name, double value)
{
    QTextStream(stdout) << name << ' ' << value << '\n' << Qt::flush;
}

inline double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
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
