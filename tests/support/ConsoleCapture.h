#pragma once

#include <QByteArray>
#include <QTemporaryFile>

/// Collects what is written to standard output while it lives.
class ConsoleCapture
{
public:
    ConsoleCapture();
    ~ConsoleCapture();
    ConsoleCapture(const ConsoleCapture &) = delete;
    ConsoleCapture &operator=(const ConsoleCapture &) = delete;

    QString text();

private:
    QTemporaryFile m_file;
    int m_savedOutput;
};
