#include "App/Application.h"
#include "Effort.h"
#include "HostileReplies.h"
#include "Services/ServiceAddresses.h"
#include "ViewModels/ObservableObject.h"
#include "benchmarks/Figures.h"
#include "inspect/WindowDriver.h"
#include "support/ConsoleCapture.h"
#include "support/ToolAnswers.h"

#include <QAccessible>
#include <QQmlApplicationEngine>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double longestStall = 50; ///< milliseconds
constexpr double mostMemory = 200; ///< MiB

/// What the server, a process of its own whose work and memory do not count, is told.
struct Order
{
    std::atomic<int> reply { -1 };
    std::atomic<int> port { 0 };
    std::atomic<bool> isOver { false };
};

ScriptedAnswer answerTo(const ReceivedRequest &request, const Order &order)
{
    const HostileReply *reply = order.reply < 0 ? nullptr : &hostileReplies().at(order.reply);
    return reply && reply->tool == request.tool() ? reply->answer() : ScriptedAnswer::content();
}

void serve(Order &order, int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    ScriptedServer server;
    server.onToolCall = [&order](const ReceivedRequest &request) {
        return answerTo(request, order);
    };
    order.port = server.endpoint().port();
    QTimer clock;
    const pid_t parent = getppid();
    QObject::connect(&clock, &QTimer::timeout, &application, [&order, parent] {
        if (order.isOver || getppid() != parent)
            QCoreApplication::quit();
    });
    clock.start(100);
    QCoreApplication::exec();
}

class Player : public WindowDriver
{
public:
    using WindowDriver::WindowDriver;

    /// Asks as a user would, and gives the answer time to be drawn.
    void play(const HostileReply &reply) const
    {
        constexpr int drawing = 700; // milliseconds
        if (reply.tool == flightsTool || reply.tool == calendarTool) {
            viewModel()->startSearchAll();
            waitForSearch();
            QTest::qWait(drawing);
            return;
        }
        const bool isStatus = reply.tool == statusTool;
        press(isStatus ? u"flightStatusButton"_s : u"cityGuideButton"_s);
        QTest::qWait(drawing);
        if (isStatus)
            press(u"statusQueryButton"_s);
        QTest::qWait(drawing);
        constexpr int patience = 30'000;
        if (!QTest::qWaitFor([this] { return !isAsking(); }, patience))
            QTextStream(stderr) << "No answer to this: ";
        QTest::qWait(2 * drawing);
        // The other tab.
        key(Qt::Key_Right);
        QTest::qWait(drawing);
        key(Qt::Key_Escape);
        QTest::qWait(drawing);
    }

private:
    bool isAsking() const
    {
        const auto states = window()->findChildren<ObservableObject *>();
        return std::any_of(states.begin(), states.end(), [](const ObservableObject *state) {
            return state->property("isLoading").toBool();
        });
    }
    void press(const QString &name) const { pressAccessibly(named(name)); }
};

/// Plays the reply and says how that went. False when it was too much.
bool playMeasured(MeasuredApplication &application, const Player &player, const HostileReply &reply)
{
    malloc_trim(0);
    const double before = memoryKiB("VmRSS");
    forgetHighestMemory();
    application.longestWall = application.longestProcessor = 0;
    player.play(reply);
    const double grown = (memoryKiB("VmHWM") - before) / 1024;
    const bool isTooMuch = application.longestProcessor > longestStall || grown > mostMemory;
    QTextStream(stderr) << QString::asprintf(
        "%-48s %6.0f ms %6.0f ms of the processor %6.0f MiB%s\n", qPrintable(reply.what),
        application.longestWall, application.longestProcessor, grown,
        isTooMuch ? "  TOO MUCH" : "");
    return !isTooMuch;
}

} // namespace

/// Plays every hostile reply, or those whose names begin like the argument, to the real window, and
/// prints for how long the main thread was away at most, and how far memory grew.
int main(int argc, char *argv[])
{
    void *shared =
        mmap(nullptr, sizeof(Order), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto *order = new (shared) Order;
    if (fork() == 0) {
        serve(*order, argc, argv);
        return 0;
    }
    // A window of nobody's: on a display it would need one to give it the keyboard.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    MeasuredApplication application(argc, argv);
    const QString wanted = QCoreApplication::arguments().value(1);
    prepareApplication();
    QAccessible::setActive(true);
    bool isFine = QTest::qWaitFor([order] { return order->port > 0; });
    ServiceAddresses::setMcpEndpoint(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(order->port)));
    {
        const ConsoleCapture console;
        QQmlApplicationEngine engine;
        if (!loadMainWindow(engine, u"Vantora"_s))
            return 1;
        const Player player(qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst()));
        player.waitForSearch();
        for (int index = 0; index < hostileReplies().size(); ++index) {
            if (!hostileReplies().at(index).what.startsWith(wanted))
                continue;
            order->reply = index;
            isFine &= playMeasured(application, player, hostileReplies().at(index));
        }
    }
    order->isOver = true;
    return isFine ? 0 : 1;
}
