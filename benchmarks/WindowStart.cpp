// The application up to a frame: prints the peak of its memory in KiB and ends.
//   window-start             the first frame of its window
//   window-start ENDPOINT    the first one with flight cards, of this server

#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "ViewModels/FlightSearchViewModel.h"
#include "benchmarks/FrameWatch.h"

#include <QGuiApplication>

#include <cstdlib>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const QString endpoint = QGuiApplication::arguments().value(1);
    if (!endpoint.isEmpty())
        ServiceAddresses::setMcpEndpoint(QUrl(endpoint));
    prepareApplication();
    QQmlApplicationEngine engine;
    if (!loadMainWindow(engine, QStringLiteral("Vantora")))
        return 1;
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    auto *viewModel = window->property("viewModel").value<FlightSearchViewModel *>();
    untilFrame(
        window, [] {},
        [&] {
            return endpoint.isEmpty()
                || (viewModel->filteredFlightsList()->count() > 0 && !viewModel->isLoading());
        });
    print("memory", memoryKiB("VmHWM"));
    // What a program does at its end is not measured.
    std::_Exit(0);
}
