// How long the window stands still while a flight list is opened, sorted and scrolled: with ten
// flights, and with ten thousand. The server answers from a thread of its own.

#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "ViewModels/FlightSearchViewModel.h"
#include "support/ScriptedServer.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QJsonArray>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSemaphore>
#include <QTextStream>
#include <QThread>
#include <QTime>
#include <QTimer>

#include <algorithm>
#include <atomic>

using namespace Qt::StringLiterals;

namespace {

constexpr int few = 10;
constexpr int many = 10'000;
constexpr int rounds = 5;

QByteArray flightsAnswer(int count)
{
    QJsonArray options;
    for (int i = 0; i < count; ++i) {
        const int minute = i * 7919 % 1440;
        const QString time =
            u"2026-12-05T"_s + QTime(minute / 60, minute % 60).toString(u"HH:mm:ss"_s);
        const QJsonObject segment { { u"flightNumber"_s, u"VQ%1"_s.arg(i) },
                                    { u"departureDateTime"_s, time },
                                    { u"arrivalDateTime"_s, time },
                                    { u"availableSeatCount"_s, i % 10 } };
        options.append(
            QJsonObject { { u"flightSegments"_s, QJsonArray { segment } },
                          { u"journeyDuration"_s, 60'000 * (60 + i * 104'729 % 900) },
                          { u"cheapestPriceAmount"_s, 1000 + i * 15'485'863LL % 20'000 } });
    }
    const QJsonObject information { { u"originDestinationOptions"_s, options } };
    return ScriptedAnswer::content({ { u"availabilityData"_s,
                                       QJsonObject { { u"originDestinationInformations"_s,
                                                       QJsonArray { information } } } } })
        .body;
}

/// Answers a search with as many flights as `count` says at the moment.
class ServerThread : public QThread
{
public:
    std::atomic<int> count = few;

    QUrl listen()
    {
        start();
        m_listens.acquire();
        return m_endpoint;
    }
    ~ServerThread() override
    {
        quit();
        wait();
    }

protected:
    void run() override
    {
        const QByteArray fewFlights = flightsAnswer(few);
        const QByteArray manyFlights = flightsAnswer(many);
        ScriptedServer server;
        server.onToolCall = [&](const ReceivedRequest &request) {
            if (request.tool() != u"search_flights")
                return ScriptedAnswer::content();
            return ScriptedAnswer::text(count == few ? fewFlights : manyFlights);
        };
        m_endpoint = server.endpoint();
        m_listens.release();
        exec();
    }

private:
    QUrl m_endpoint;
    QSemaphore m_listens;
};

/// Runs the event loop for a while and returns the longest time that it did not turn, in
/// milliseconds, `action` included.
template<typename Action>
double longestStall(int duration, Action action)
{
    QElapsedTimer clock;
    clock.start();
    qint64 last = 0;
    qint64 longest = 0;
    QTimer heartbeat;
    heartbeat.setTimerType(Qt::PreciseTimer);
    const auto beat = [&] {
        longest = std::max(longest, clock.nsecsElapsed() - last);
        last = clock.nsecsElapsed();
    };
    QObject::connect(&heartbeat, &QTimer::timeout, beat);
    heartbeat.start(1);
    action();
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
    beat();
    return double(longest) / 1e6;
}

struct Figures
{
    double open = 0;
    double sort = 0;
    double scroll = 0;
};

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

Figures measure(QQuickWindow *window, FlightSearchViewModel *viewModel)
{
    QList<double> open;
    QList<double> sort;
    QList<double> scroll;
    auto *page = window->findChild<QQuickItem *>(u"page"_s);
    for (int round = 0; round < rounds; ++round) {
        open.append(longestStall(1500, [viewModel] { viewModel->startSearchAll(); }));
        sort.append(
            longestStall(600, [viewModel] { viewModel->applyFilter(FlightSortOption::fastest); }));
        sort.append(
            longestStall(600, [viewModel] { viewModel->applyFilter(FlightSortOption::cheapest); }));
        QTimer scroller;
        QObject::connect(&scroller, &QTimer::timeout, page, [page] {
            page->setProperty("contentY", page->property("contentY").toReal() + 60);
        });
        scroller.start(16);
        scroll.append(longestStall(1500, [] {}));
        scroller.stop();
        page->setProperty("contentY", 0);
    }
    return { median(open), median(sort), median(scroll) };
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    ServerThread server;
    ServiceAddresses::setMcpEndpoint(server.listen());
    prepareApplication();
    QQmlApplicationEngine engine;
    if (!loadMainWindow(engine, u"Benchmark"_s))
        return 1;
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    auto *viewModel = window->property("viewModel").value<FlightSearchViewModel *>();
    longestStall(2000, [] {});

    const Figures base = measure(window, viewModel);
    server.count = many;
    const Figures large = measure(window, viewModel);
    QTextStream out(stdout);
    const auto row = [&out, viewModel](const char *what, double small, double big) {
        out << qSetFieldWidth(8) << Qt::left << what << qSetFieldWidth(0)
            << u"%1 ms with %2 flights, %3 ms with %4: ratio %5\n"_s.arg(small, 0, 'f', 1)
                   .arg(few)
                   .arg(big, 0, 'f', 1)
                   .arg(viewModel->flights().size())
                   .arg(big / small, 0, 'f', 2);
    };
    out << "Longest stall of the main thread, median of " << rounds << " rounds\n";
    row("open", base.open, large.open);
    row("sort", base.sort, large.sort);
    row("scroll", base.scroll, large.scroll);
    return 0;
}
