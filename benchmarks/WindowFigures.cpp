// What happens in an open window, as lines "name value", in milliseconds.

#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "benchmarks/FlightAnswers.h"
#include "benchmarks/FrameWatch.h"
#include "inspect/WindowDriver.h"
#include "support/ToolAnswers.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;

/// Answers a search with as many flights as `count` says at the moment.
class ServerThread : public QThread
{
public:
    std::atomic<int> count = 12;
    /// The flights take a second, so that their loading is seen.
    std::atomic<bool> isSlow = false;

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
        QHash<int, QByteArray> replies;
        for (int flights : { 12, manyFlights, mostFlights })
            replies.insert(flights, flightsReply(flights));
        QStringList days;
        for (int day = 0; day < 14; ++day)
            days.append(QDate::currentDate().addDays(7 + day).toString(Qt::ISODate));
        ScriptedServer server;
        server.onToolCall = [&](const ReceivedRequest &request) {
            if (request.tool() != flightsTool)
                return calendarAnswer(days);
            auto answer = ScriptedAnswer::text(replies.value(count));
            answer.pieceSize = isSlow ? answer.body.size() / 5 : 0;
            answer.pieceInterval = 200;
            return answer;
        };
        m_endpoint = server.endpoint();
        m_listens.release();
        exec();
    }

private:
    QUrl m_endpoint;
    QSemaphore m_listens;
};

class Window : public WindowDriver
{
public:
    explicit Window(ServerThread &server)
        : m_server(server)
    {
        if (!loadMainWindow(m_engine, u"Vantora"_s))
            std::exit(1);
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
    }

    bool isBusy() const
    {
        return viewModel()->isLoading() || viewModel()->isSearchingFlightsOnly();
    }
    /// A frame in which all of the window is drawn anew, which the other ground makes it.
    double frame() const
    {
        const QColor ground = m_window->color();
        const double frame = untilFrame(
            m_window, [&] { m_window->setColor(ground.lighter(101)); }, [] { return true; });
        m_window->setColor(ground);
        return frame;
    }
    void click(const QQuickItem *item) const
    {
        const QPointF middle(item->width() / 2, item->height() / 2);
        QTest::mouseClick(m_window, Qt::LeftButton, {}, item->mapToScene(middle).toPoint());
    }
    /// A search until its flights, so many, are on the screen.
    double search(int count) const
    {
        m_server.count = count;
        return untilFrame(
            m_window, [this] { viewModel()->startSearchAll(); },
            [&] { return viewModel()->filteredFlightsList()->count() == count && !isBusy(); });
    }
    QQuickItem *someOtherDay() const
    {
        const auto days = itemsIn(named(u"fareChart"_s), [](const QQuickItem *item) {
            return item->property("isSelected") == false && item->property("isBest") == false;
        });
        return days.value(2);
    }

private:
    ServerThread &m_server;
    QQmlApplicationEngine m_engine;
};

void measurePresses(const Window &window, ServerThread &server)
{
    QList<double> frame;
    QList<double> picker;
    QList<double> day;
    for (int round = 0; round < rounds; ++round) {
        frame.append(window.frame());
        picker.append(untilFrame(
            window.window(), [&] { window.click(window.named(u"originButton"_s)); },
            [&] { return window.named(u"airportPicker"_s); }));
        while (window.named(u"airportPicker"_s)) {
            wait(400);
            window.key(Qt::Key_Escape);
            wait(400);
        }
        server.isSlow = true;
        day.append(untilFrame(
            window.window(), [&] { window.click(window.someOtherDay()); },
            [&] { return window.isBusy(); }));
        while (window.isBusy())
            wait(500);
        server.isSlow = false;
    }
    print("frame", median(frame));
    print("picker", median(picker));
    print("day", median(day));
}

/// The longest time in which the event loop does not turn until half a second after the action.
double longestStall(const std::function<void()> &action)
{
    QElapsedTimer clock;
    clock.start();
    qint64 last = 0;
    qint64 longest = 0;
    QTimer heartbeat;
    heartbeat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        const qint64 now = clock.nsecsElapsed();
        longest = std::max(longest, now - last);
        last = now;
    });
    heartbeat.start(1);
    action();
    wait(500);
    return double(longest) / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    ServerThread server;
    ServiceAddresses::setMcpEndpoint(server.listen());
    prepareApplication();
    const Window window(server);
    window.search(12);
    wait(1000);

    int frames = 0;
    const auto counting = QObject::connect(
        window.window(), &QQuickWindow::frameSwapped, window.window(), [&frames] { ++frames; },
        Qt::QueuedConnection);
    wait(10'000);
    QObject::disconnect(counting);
    print("idle-frames", frames);

    measurePresses(window, server);

    window.search(manyFlights);
    wait(600);
    print("scroll", cpuPerFrame(window.window(), window.named(u"page"_s)));
    window.named(u"page"_s)->setProperty("contentY", 0);

    QList<double> stalls;
    QList<double> sortStalls;
    QList<double> largestStalls;
    for (int round = 0; round < rounds; ++round) {
        window.search(12);
        wait(500);
        stalls.append(longestStall([&] { window.search(manyFlights); }));
        const auto option =
            round % 2 == 0 ? FlightSortOption::earliest : FlightSortOption::cheapest;
        sortStalls.append(longestStall([&] { window.viewModel()->applyFilter(option); }));
        window.search(12);
        wait(500);
        largestStalls.append(longestStall([&] { window.search(mostFlights); }));
    }
    print("stall", median(stalls));
    print("sort-stall", median(sortStalls));
    print("largest-stall", median(largestStalls));
    return 0;
}
