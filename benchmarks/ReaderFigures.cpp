// What reading a reply costs beside parsing its JSON, and what sorting its flights costs.

#include "Services/FlightSearchTool.h"
#include "Services/ServiceAddresses.h"
#include "Services/ToolResult.h"
#include "ViewModels/FlightSearchViewModel.h"
#include "benchmarks/FlightAnswers.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QJsonDocument>

namespace {

void parseJson(benchmark::State &state)
{
    const QByteArray reply = flightsReply(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(reply));
}

void readFlights(benchmark::State &state)
{
    const QByteArray reply = flightsReply(static_cast<int>(state.range(0)));
    const QString origin = QStringLiteral("IST");
    const QString destination = QStringLiteral("LHR");
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            FlightSearchTool::parseFlightOptions(readToolResult(reply), origin, destination));
    }
}

BENCHMARK(parseJson)->Arg(12)->Arg(manyFlights);
BENCHMARK(readFlights)->Arg(12)->Arg(manyFlights);

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    ScriptedServer server;
    server.onToolCall = [](const ReceivedRequest &) {
        return ScriptedAnswer::text(flightsReply(manyFlights));
    };
    ServiceAddresses::setMcpEndpoint(server.endpoint());
    FlightSearchViewModel viewModel;
    viewModel.startSearchAll();
    while (viewModel.isLoading())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (viewModel.flights().size() != manyFlights)
        qFatal("The search brought no flights.");

    benchmark::RegisterBenchmark("applyFilter", [&viewModel](benchmark::State &state) {
        for (auto _ : state)
            viewModel.applyFilter(FlightSortOption::cheapest);
    });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
