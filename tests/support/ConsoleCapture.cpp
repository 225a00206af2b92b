#include "support/ConsoleCapture.h"

#include <cstdio>
#include <unistd.h>

ConsoleCapture::ConsoleCapture()
{
    if (!m_file.open())
        qFatal("No temporary file for the console's text.");
    std::fflush(stdout);
    m_savedOutput = ::dup(STDOUT_FILENO);
    ::dup2(m_file.handle(), STDOUT_FILENO);
}

ConsoleCapture::~ConsoleCapture()
{
    std::fflush(stdout);
    ::dup2(m_savedOutput, STDOUT_FILENO);
    ::close(m_savedOutput);
}

QString ConsoleCapture::text()
{
    std::fflush(stdout);
    m_file.seek(0);
    return QString::fromUtf8(m_file.readAll());
}
