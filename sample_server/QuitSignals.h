#pragma once

namespace Sample {

/// Makes SIGINT and SIGTERM end the event loop of the application. On systems without POSIX signals
/// nothing happens and the system's own handling stays.
void quitOnSignals();

} // namespace Sample
