// What happens in an open window, as lines "name value", in milliseconds and MiB.
//   window-figures              what a user does with it
//   window-figures --hostile    what replies do that are within every limit and made to hurt; each
//                               is told on the standard error

#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "Services/ToolResults.h"
#include "ViewModels/ObservableObject.h"
#include "benchmarks/FlightAnswers.h"
#include "benchmarks/FrameWatch.h"
#include "benchmarks/HostileReplies.h"
#include "inspect/WindowDriver.h"
#include "support/ToolAnswers.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QQmlApplicationEngine>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <ctime>
#include <functional>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;

/// Answers in a thread of its own, each tool with what was set last.
class ServerThread : public QThread
{
public:
    ServerThread()
    {
        start();
        m_listens.acquire();
    }
    ~ServerThread() override
    {
        quit();
        wait();
    }

    QUrl endpoint() const { return m_endpoint; }
    void setAnswer(const QString &tool, const ScriptedAnswer &answer)
    {
        const std::scoped_lock lock(m_mutex);
        m_answers.insert(tool, answer);
    }

protected:
    void run() override
    {
        ScriptedServer server;
        server.onToolCall = [this](const ReceivedRequest &request) {
            const std::scoped_lock lock(m_mutex);
            return m_answers.value(request.tool(), ScriptedAnswer::content());
        };
        m_endpoint = server.endpoint();
        m_listens.release();
        exec();
    }

private:
    QUrl m_endpoint;
    QSemaphore m_listens;
    std::mutex m_mutex;
    QHash<QString, ScriptedAnswer> m_answers;
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
        m_server.setAnswer(calendarTool, calendarAnswer(14, QDate::currentDate().addDays(7)));
        for (const int count : { 12, manyFlights, mostFlights })
            m_answers.insert(count, ScriptedAnswer::text(flightsReply(count)));
    }

    /// Whether what anything in the window has asked for is under way.
    bool isAsking() const
    {
        const auto states = m_window->findChildren<ObservableObject *>();
        return std::any_of(states.begin(), states.end(), [](const ObservableObject *state) {
            return state->property("isLoading").toBool();
        });
    }
    /// A frame in which the whole window is drawn, since its background changes.
    double frame() const
    {
        const QColor background = m_window->color();
        const double frame = untilFrame(
            m_window, [&] { m_window->setColor(background.lighter(101)); }, [] { return true; });
        m_window->setColor(background);
        return frame;
    }
    /// A search until its flights, so many, are on the screen.
    double search(int count) const
    {
        m_server.setAnswer(flightsTool, m_answers.value(count));
        return untilFrame(
            m_window, [this] { viewModel()->startSearchAll(); },
            [&] { return viewModel()->filteredFlightsList()->count() == count && !isSearching(); });
    }
    void answerSlowly() const
    {
        const ScriptedAnswer answer = m_answers.value(12);
        m_server.setAnswer(flightsTool, answer.inChunks(answer.body().size() / 5, 200));
    }
    /// From the top of a flight's card to that of the next.
    double cardPitch() const
    {
        const auto isList = [](const QQuickItem *item) {
            return item->property("cardPitch").isValid();
        };
        return itemsIn(named(u"page"_s), isList).value(0)->property("cardPitch").toDouble();
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
    QHash<int, ScriptedAnswer> m_answers; ///< by how many flights
};

/// Milliseconds of CPU of one call.
double cpuOf(int calls, const std::function<void()> &action)
{
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        const double start = cpuMilliseconds();
        for (int call = 0; call < calls; ++call)
            action();
        times.append((cpuMilliseconds() - start) / calls);
    }
    return median(times);
}

/// What a reply costs until it is JSON, and until it is records.
void measureReader()
{
    const QByteArray reply = flightsReply(manyFlights);
    print("parse", cpuOf(20, [&] { QJsonDocument::fromJson(reply); }));
    print("read", cpuOf(20, [&] {
              ToolResults::parseFlightOptions(ToolResults::parseAnswer(reply), u"IST"_s, u"LHR"_s);
          }));
}

void measurePresses(const Window &window)
{
    QList<double> frame;
    QList<double> picker;
    QList<double> day;
    for (int round = 0; round < rounds; ++round) {
        frame.append(window.frame());
        picker.append(untilFrame(
            window.window(), [&] { window.click(window.named(u"originButton"_s)); },
            [&] { return window.named(u"airportSearch"_s); }));
        while (window.named(u"airportSearch"_s)) {
            wait(400);
            window.key(Qt::Key_Escape);
            wait(400);
        }
        // The flights take a second, so that their loading is seen.
        window.answerSlowly();
        day.append(untilFrame(
            window.window(), [&] { window.click(window.someOtherDay()); },
            [&] { return window.isSearching(); }));
        while (window.isSearching())
            wait(500);
    }
    print("frame", median(frame));
    print("picker", median(picker));
    print("day", median(day));
}

/// Milliseconds in which the event loop does not turn.
struct Stall
{
    double clock = 0;
    double processor = 0; ///< of the main thread
};

double mainThreadMilliseconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The longest ones until half a second after the action.
Stall longestStall(const std::function<void()> &action)
{
    QElapsedTimer clock;
    clock.start();
    Stall last { 0, mainThreadMilliseconds() };
    Stall longest;
    QTimer heartbeat;
    heartbeat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        const Stall now { double(clock.nsecsElapsed()) / 1e6, mainThreadMilliseconds() };
        longest = { std::max(longest.clock, now.clock - last.clock),
                    std::max(longest.processor, now.processor - last.processor) };
        last = now;
    });
    heartbeat.start(1);
    action();
    wait(500);
    return longest;
}

/// Asks as a user would, and gives the answer time to be drawn.
void ask(const Window &window, const QString &tool)
{
    constexpr int drawing = 700;
    if (tool == flightsTool || tool == calendarTool) {
        window.viewModel()->startSearchAll();
        window.waitForSearch();
        return wait(drawing);
    }
    const bool isStatus = tool == statusTool;
    pressAccessibly(window.named(isStatus ? u"flightStatusButton"_s : u"cityGuideButton"_s));
    wait(drawing);
    if (isStatus)
        pressAccessibly(window.named(u"statusQueryButton"_s));
    wait(drawing);
    if (!QTest::qWaitFor([&] { return !window.isAsking(); }, 30'000))
        QTextStream(stderr) << "No answer to this: ";
    wait(2 * drawing);
    // The other tab.
    window.key(Qt::Key_Right);
    wait(drawing);
    window.key(Qt::Key_Escape);
    wait(drawing);
}

/// Memory is measured with the server's, which holds the reply twice while it sends it.
void measureHostileReplies(const Window &window, ServerThread &server)
{
    QAccessible::setActive(true);
    double stall = 0;
    double memory = 0;
    for (const HostileReply &reply : hostileReplies()) {
        server.setAnswer(reply.tool, reply.answer());
        const double before = residentKiB();
        forgetPeak();
        const Stall away = longestStall([&] { ask(window, reply.tool); });
        const double grown = (memoryKiB("VmHWM") - before) / 1024;
        server.setAnswer(reply.tool, ScriptedAnswer::content());
        QTextStream(stderr) << QString::asprintf(
            "%-28s%-36s %6.0f ms %6.0f ms of the processor %6.0f MiB\n", qPrintable(reply.tool),
            qPrintable(reply.what), away.clock, away.processor, grown);
        stall = std::max(stall, away.processor);
        memory = std::max(memory, grown);
    }
    print("hostile-stall", stall);
    print("hostile-memory", memory);
}

} // namespace

int main(int argc, char *argv[])
{
    // On a display without a window manager nobody gives the window the keyboard.
    const bool isHostile = argc > 1;
    if (isHostile)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    ServerThread server;
    ServiceAddresses::setMcpEndpoint(server.endpoint());
    prepareApplication();
    const Window window(server);
    window.search(12);
    wait(1000);
    if (isHostile) {
        measureHostileReplies(window, server);
        return 0;
    }

    int frames = 0;
    const auto counting = QObject::connect(
        window.window(), &QQuickWindow::frameSwapped, window.window(), [&frames] { ++frames; },
        Qt::QueuedConnection);
    wait(10'000);
    QObject::disconnect(counting);
    print("idle-frames", frames);

    measurePresses(window);
    measureReader();

    window.search(manyFlights);
    wait(600);
    print("pitch", window.cardPitch());
    print("scroll", cpuPerFrame(window.window(), window.named(u"page"_s)));
    window.named(u"page"_s)->setProperty("contentY", 0);

    QList<double> stalls;
    QList<double> sortStalls;
    QList<double> largestStalls;
    for (int round = 0; round < rounds; ++round) {
        window.search(12);
        wait(500);
        stalls.append(longestStall([&] { window.search(manyFlights); }).clock);
        const auto option =
            round % 2 == 0 ? FlightSortOption::earliest : FlightSortOption::cheapest;
        sortStalls.append(longestStall([&] { window.viewModel()->applyFilter(option); }).clock);
        window.search(12);
        wait(500);
        largestStalls.append(longestStall([&] { window.search(mostFlights); }).clock);
    }
    print("stall", median(stalls));
    print("sort-stall", median(sortStalls));
    print("largest-stall", median(largestStalls));
    return 0;
}
