#pragma once

#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

/// Collects what is written to standard output while it lives.
class ConsoleCapture
{
public:
    ConsoleCapture()
    {
        if (!m_file.open())
            qFatal("No temporary file for the console's text.");
        std::fflush(stdout);
        m_output = ::dup(STDOUT_FILENO);
        ::dup2(m_file.handle(), STDOUT_FILENO);
    }
    ~ConsoleCapture()
    {
        std::fflush(stdout);
        ::dup2(m_output, STDOUT_FILENO);
        ::close(m_output);
    }
    Q_DISABLE_COPY_MOVE(ConsoleCapture)

    QString text()
    {
        std::fflush(stdout);
        m_file.seek(0);
        return QString::fromUtf8(m_file.readAll());
    }

private:
    QTemporaryFile m_file;
    int m_output = -1;
};
