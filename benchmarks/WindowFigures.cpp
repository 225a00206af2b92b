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
#include "sample_server/HttpServer.h"
#include "support/ToolAnswers.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QQmlApplicationEngine>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int rounds = 5;

/// The real window on a server, which answers in threads of its own.
class Window : public WindowDriver
{
public:
    Window()
    {
        setAnswer(calendarTool,
                  { 200, calendarAnswer(14, QDate::currentDate().addDays(7)).body(), {} });
        for (const int count : { 12, manyFlights, mostFlights })
            m_flights.insert(count, { 200, flightsReply(count), {} });
        const quint16 port = m_server.listen(0).value();
        ServiceAddresses::setMcpEndpoint(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(port)));
        prepareApplication();
        m_window = loadMainWindow(m_engine, u"Vantora"_s);
        if (!m_window)
            std::exit(1);
    }

    /// What this tool is answered from now on.
    void setAnswer(const QString &tool, const Sample::HttpAnswer &answer,
                   std::chrono::milliseconds delay = 0ms)
    {
        const std::scoped_lock lock(m_mutex);
        m_answers.insert(tool, { answer, delay });
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
    void search(int count)
    {
        setAnswer(flightsTool, m_flights.value(count));
        untilFrame(
            m_window, [this] { viewModel()->startSearchAll(); },
            [&] { return viewModel()->filteredFlightsList()->count() == count && !isSearching(); });
    }
    /// The flights take a second, so that their loading is seen.
    void answerSlowly() { setAnswer(flightsTool, m_flights.value(12), 1s); }
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
    Sample::HttpAnswer answer(const Sample::HttpRequest &request)
    {
        const QJsonDocument question = QJsonDocument::fromJson(request.body);
        const QString tool = question["params"_L1]["name"_L1].toString();
        const Sample::HttpAnswer opening { 200, "{}", { { "mcp-session-id", "s" } } };
        std::unique_lock lock(m_mutex);
        const auto [answer, delay] = m_answers.value(tool, { opening, 0ms });
        lock.unlock();
        std::this_thread::sleep_for(delay);
        return answer;
    }

    std::mutex m_mutex; ///< for the next
    QHash<QString, std::pair<Sample::HttpAnswer, std::chrono::milliseconds>> m_answers;
    QHash<int, Sample::HttpAnswer> m_flights; ///< by how many
    Sample::HttpServer m_server { [this](const auto &request) { return answer(request); } };
    QQmlApplicationEngine m_engine;
};

/// Prints the milliseconds of CPU of one call.
void measure(const char *name, const std::function<void()> &action)
{
    constexpr int calls = 20;
    for (int round = 0; round < rounds; ++round) {
        const double start = cpuMilliseconds();
        for (int call = 0; call < calls; ++call)
            action();
        print(name, (cpuMilliseconds() - start) / calls);
    }
}

/// What a reply costs until it is JSON, and until it is records.
void measureReader()
{
    const QByteArray reply = flightsReply(manyFlights);
    measure("parse", [&] { QJsonDocument::fromJson(reply); });
    measure("read", [&] {
        ToolResults::parseFlightOptions(ToolResults::parseAnswer(reply), u"IST"_s, u"LHR"_s);
    });
}

void measurePresses(Window &window)
{
    for (int round = 0; round < rounds; ++round) {
        print("frame", window.frame());
        print("picker",
              untilFrame(
                  window.window(), [&] { window.click(window.named(u"originButton"_s)); },
                  [&] { return window.named(u"airportSearch"_s); }));
        while (window.named(u"airportSearch"_s)) {
            wait(400);
            window.key(Qt::Key_Escape);
            wait(400);
        }
        window.answerSlowly();
        print("day",
              untilFrame(
                  window.window(), [&] { window.click(window.someOtherDay()); },
                  [&] { return window.isSearching(); }));
        while (window.isSearching())
            wait(500);
    }
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
    if (!isStatus && tool != guideTool && tool != promotionsTool)
        qFatal("Nothing here asks for %s.", qPrintable(tool));
    pressAccessibly(window.named(isStatus ? u"flightStatusButton"_s : u"cityGuideButton"_s));
    wait(drawing);
    if (isStatus)
        pressAccessibly(window.named(u"statusQueryButton"_s));
    wait(drawing);
    const auto states = window.window()->findChildren<ObservableObject *>();
    const auto isLoading = [](auto *state) { return state->property("isLoading").toBool(); };
    if (!QTest::qWaitFor([&] { return std::ranges::none_of(states, isLoading); }, 30'000))
        QTextStream(stderr) << "No answer to this: ";
    wait(2 * drawing);
    // The other tab.
    window.key(Qt::Key_Right);
    wait(drawing);
    window.key(Qt::Key_Escape);
    wait(drawing);
}

/// Memory is measured with the server's, which holds the reply twice while it sends it.
void measureHostileReplies(Window &window)
{
    QAccessible::setActive(true);
    double stall = 0;
    double memory = 0;
    for (const HostileReply &reply : hostileReplies()) {
        window.setAnswer(reply.tool, reply.answer());
        const double before = residentKiB();
        forgetPeak();
        const Stall away = longestStall([&] { ask(window, reply.tool); });
        const double grown = (memoryKiB("VmHWM") - before) / 1024;
        window.setAnswer(reply.tool, { 200, "{}", {} });
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
    Window window;
    window.search(12);
    wait(1000);
    if (isHostile) {
        measureHostileReplies(window);
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

    for (int round = 0; round < rounds; ++round) {
        window.search(12);
        wait(500);
        print("stall", longestStall([&] { window.search(manyFlights); }).clock);
        const auto option =
            round % 2 == 0 ? FlightSortOption::earliest : FlightSortOption::cheapest;
        print("sort-stall", longestStall([&] { window.viewModel()->applyFilter(option); }).clock);
        window.search(12);
        wait(500);
        print("largest-stall", longestStall([&] { window.search(mostFlights); }).clock);
    }
    return 0;
}
