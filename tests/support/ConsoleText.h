#pragma once

#include <QTemporaryFile>

#include <cstdio>
#include <functional>
#include <unistd.h>

/// What is written to standard output meanwhile.
inline QString consoleTextDuring(const std::function<void()> &act)
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("No temporary file for the console's text.");
    std::fflush(stdout);
    const int output = ::dup(STDOUT_FILENO);
    ::dup2(file.handle(), STDOUT_FILENO);
    act();
    std::fflush(stdout);
    ::dup2(output, STDOUT_FILENO);
    ::close(output);
    file.seek(0);
    return QString::fromUtf8(file.readAll());
}
