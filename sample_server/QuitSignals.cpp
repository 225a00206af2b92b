#include "sample_server/QuitSignals.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace {

int pipeEnds[2] = { -1, -1 };

/// Little is allowed in a signal handler; writing to a pipe is.
void wakeEventLoop(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}

} // namespace

void Sample::quitOnSignals()
{
    if (::pipe(pipeEnds) != 0)
        return;
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    struct sigaction action = {};
    action.sa_handler = wakeEventLoop;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

#else

void Sample::quitOnSignals() { }

#endif
