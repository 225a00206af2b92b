// The application up to a frame: prints the peak of its memory in MiB and ends.
//   window-start                      the first frame of its window
//   window-start ENDPOINT             the first one with flight cards, of this server
//   window-start ENDPOINT SEARCHES    so many searches more: prints by how many KiB the memory
//                                     grows, from the first tenth of them to the last one

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
    QQuickWindow *window = loadMainWindow(engine, QStringLiteral("Vantora"));
    if (!window)
        return 1;
    auto *viewModel = window->property("viewModel").value<FlightSearchViewModel *>();
    const auto isShown = [&] {
        return endpoint.isEmpty()
            || (viewModel->filteredFlightsList()->count() > 0 && !viewModel->isLoading());
    };
    // Printed in the frame's thread: this one is already busy with the next frame.
    untilFrame(
        window, [] {}, isShown, [] { print("memory", memoryKiB("VmHWM") / 1024); });
    const int searches = QGuiApplication::arguments().value(2).toInt();
    double before = 0;
    for (int search = 0; search < searches; ++search) {
        if (search == searches / 10)
            before = residentKiB();
        untilFrame(
            window, [&] { viewModel->startSearchAll(); }, isShown);
    }
    if (searches > 0)
        print("growth", residentKiB() - before);
    // What a program does at its end is not measured.
    std::_Exit(0);
}
