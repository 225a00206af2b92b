// Uses the real window at random, on a server that answers with random faults, until something is
// wrong: a warning, a line on the console that a failed search does not explain, a result that came
// from nowhere or is gone, a flag that stays up though nothing runs, a strange link.

#include "App/Application.h"
#include "FickleServer.h"
#include "Services/ServiceAddresses.h"
#include "ViewModels/FlightStatusViewModel.h"
#include "inspect/WindowDriver.h"
#include "support/ClientTesting.h"
#include "support/ConsoleText.h"
#include "support/Http2Front.h"

#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QTest>
#include <QTextStream>

#include <algorithm>
#include <numeric>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What is wrong.
QStringList surprises;

void surprise(const QString &what) { surprises.append(u"SURPRISE: "_s + what); }

/// Limits that are reached within a minute.
HttpSettings shortSettings()
{
    HttpSettings settings = trustingSettings();
    settings.limits = { .idle = 1s, .total = 4s };
    return settings;
}

// No call takes longer, pauses before its repetition included.
constexpr auto longestSilence = 10s;

template<typename T>
const T &one(const QList<T> &list, QRandomGenerator &random)
{
    return list.at(random.bounded(static_cast<int>(list.size())));
}

QString listed(const QMap<QString, int> &counts)
{
    QStringList texts;
    for (auto it = counts.begin(); it != counts.end(); ++it)
        texts.append(u"%1 × %2"_s.arg(it.value()).arg(it.key()));
    return texts.join(u", "_s);
}

} // namespace

/// Does one thing after the other, each with a likelihood of its own, and looks at what comes of
/// it.
class RandomUser : public QObject
{
    Q_OBJECT

public:
    RandomUser(quint32 seed, bool asksOverHttp2)
        : m_random(seed)
        , m_server(seed + 1)
        , m_front(asksOverHttp2 ? std::make_unique<Http2Front>(m_server.endpoint()) : nullptr)
        , m_endpoint(m_front ? m_front->endpoint() : m_server.endpoint())
    {
        ServiceAddresses::setMcpEndpoint(m_endpoint);
        for (const QString &scheme : { u"http"_s, u"https"_s })
            QDesktopServices::setUrlHandler(scheme, this, "noteLink");
        VTRMCPClientTestAccess::replaceShared(m_endpoint, shortSettings());
        openWindow();
    }
    ~RandomUser() override
    {
        closeWindow();
        VTRMCPClientTestAccess::destroyShared();
        for (const QString &scheme : { u"http"_s, u"https"_s })
            QDesktopServices::unsetUrlHandler(scheme);
    }

    /// Acts for this long, or until a surprise.
    void act(std::chrono::seconds time)
    {
        QElapsedTimer clock;
        clock.start();
        while (surprises.isEmpty() && std::chrono::milliseconds(clock.elapsed()) < time) {
            doSomething();
            QTest::qWait(below(4) == 0 ? below(400) : below(30));
            checkStatus();
        }
        if (surprises.isEmpty())
            rest();
    }
    /// What was done and met, for a person.
    QString summary() const
    {
        QString text;
        QTextStream(&text) << "done: " << listed(m_done) << "\nanswered: " << m_server.callCount()
                           << " calls, " << m_server.flights.sizes.size() << " lists of flights, "
                           << m_server.calendars.sizes.size()
                           << " calendars\nfaults met: " << listed(m_server.faultsMet())
                           << Qt::endl;
        return text;
    }

public Q_SLOTS:
    void noteLink(const QUrl &link)
    {
        ++m_done[u"link opened"_s];
        if (link.host().isEmpty() || !link.userInfo().isEmpty())
            surprise(u"A strange link was opened: "_s + link.toString());
    }

private:
    struct Action
    {
        QString name;
        int weight;
        std::function<void(RandomUser &)> run;
    };

    static const QList<Action> &actions()
    {
        using U = RandomUser;
        static const QList<Action> all {
            { u"search"_s, 10, [](U &u) { u.openItem(u"searchButton"_s); } },
            { u"search by key"_s, 4, [](U &u) { u.m_hands.key(Qt::Key_F5); } },
            { u"day"_s, 10, &U::chooseDay },
            { u"swap"_s, 3, [](U &u) { u.openItem(u"swapButton"_s); } },
            { u"status sheet"_s, 3, [](U &u) { u.openItem(u"flightStatusButton"_s); } },
            { u"status question"_s, 4, [](U &u) { u.openItem(u"statusQueryButton"_s); } },
            { u"guide sheet"_s, 3, [](U &u) { u.openItem(u"cityGuideButton"_s); } },
            { u"guide tab"_s, 3, [](U &u) { u.openItem(u"guideTabs"_s); } },
            { u"airport picker"_s, 2, [](U &u) { u.openItem(u"originButton"_s); } },
            { u"trip type"_s, 2, [](U &u) { u.openItem(u"tripType"_s); } },
            { u"date panel"_s, 2, [](U &u) { u.openItem(u"departureDate"_s); } },
            { u"pop-up menu"_s, 2, [](U &u) { u.openItem(u"timeRange"_s); } },
            { u"help menu"_s, 2, [](U &u) { u.m_hands.key(Qt::Key_F10); } },
            { u"escape"_s, 14, [](U &u) { u.m_hands.key(Qt::Key_Escape); } },
            { u"keys"_s, 12, &U::pressKeys },
            { u"pointer"_s, 8, &U::pressPointer },
            { u"some item"_s, 8, &U::useItem },
            { u"wheel"_s, 6, &U::turnWheel },
            { u"resize"_s, 3, &U::resizeWindow },
            { u"rest"_s, 5, &U::rest },
            { u"close and reopen"_s, 1, &U::reopenWindow },
        };
        return all;
    }

    void openWindow()
    {
        m_engine = std::make_unique<QQmlApplicationEngine>();
        m_flights.clear();
        m_days.clear();
        if (!loadMainWindow(*m_engine, u"Vantora"_s))
            qFatal("There is no window.");
        m_hands = WindowDriver(qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst()));
        m_hands.window()->requestActivate();
        const FlightSearchViewModel *state = m_hands.viewModel();
        connect(state, &FlightSearchViewModel::flightsChanged, this, &RandomUser::checkFlights);
        connect(state, &FlightSearchViewModel::calendarPricesChanged, this,
                &RandomUser::checkCalendar);
        connect(state, &FlightSearchViewModel::hasSearchedChanged, this,
                [this] { ++m_done[u"window"_s]; });
        const auto follow = [this, state](auto isAsking, auto changed) {
            connect(state, changed, this, [this, state, isAsking] {
                const bool asks = (state->*isAsking)();
                m_done[u"question"_s] += asks ? 1 : 0;
                m_done[u"question that failed"_s] += !asks && state->hasErrorMessage();
            });
        };
        using State = FlightSearchViewModel;
        follow(&State::isLoading, &State::isLoadingChanged);
        follow(&State::isSearchingFlightsOnly, &State::isSearchingFlightsOnlyChanged);
    }
    void closeWindow()
    {
        m_hands.window()->close();
        m_hands = WindowDriver();
        m_engine.reset();
    }
    void doSomething()
    {
        static const int total =
            std::accumulate(actions().begin(), actions().end(), 0,
                            [](int sum, const Action &action) { return sum + action.weight; });
        // A session that was refused stays refused until the program is started again.
        if (m_server.refusedSession() && below(10) == 0)
            return reopenWindow();
        int chosen = below(total);
        for (const Action &action : actions()) {
            chosen -= action.weight;
            if (chosen >= 0)
                continue;
            ++m_done[action.name];
            return action.run(*this);
        }
    }
    void pressKeys()
    {
        const QList<Qt::Key> keys { Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Left,
                                    Qt::Key_Right,    Qt::Key_Up,      Qt::Key_Down,
                                    Qt::Key_Space,    Qt::Key_Return,  Qt::Key_Home,
                                    Qt::Key_End,      Qt::Key_PageUp,  Qt::Key_PageDown,
                                    Qt::Key_Escape,   Qt::Key_Alt,     Qt::Key_Delete,
                                    Qt::Key_Backspace };
        const QStringList texts { u"lon"_s, u"vq1907"_s, u"12.12.2026"_s, u"şğ"_s };
        for (int count = 1 + below(8); count > 0; --count) {
            if (below(5) == 0)
                m_hands.type(one(texts, m_random));
            else
                m_hands.key(one(keys, m_random),
                            below(8) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }
    QPoint anywhere()
    {
        return { below(m_hands.window()->width()), below(m_hands.window()->height()) };
    }
    void pressPointer()
    {
        QTest::mouseMove(m_hands.window(), anywhere());
        QTest::mousePress(m_hands.window(), Qt::LeftButton, {}, anywhere());
        if (below(3) == 0)
            QTest::mouseMove(m_hands.window(), anywhere());
        QTest::mouseRelease(m_hands.window(), Qt::LeftButton, {}, anywhere());
    }
    /// Clicks something that assistive technology would offer, wherever it is.
    void useItem()
    {
        const auto items =
            WindowDriver::itemsIn(m_hands.window()->contentItem(), [](QQuickItem *item) {
                QAccessibleInterface *node = item->width() > 0 ? accessible(item) : nullptr;
                return node && node->state().focusable;
            });
        if (!items.isEmpty())
            click(one(items, m_random));
    }
    void openItem(const QString &objectName)
    {
        if (const QQuickItem *item = m_hands.named(objectName))
            click(item);
    }
    /// Where it is, whatever lies above it; not outside the window.
    void click(const QQuickItem *item)
    {
        const QPoint centre = item->mapToScene(item->boundingRect().center()).toPoint();
        if (QRect(QPoint(), m_hands.window()->size()).contains(centre))
            QTest::mouseClick(m_hands.window(), Qt::LeftButton, {}, centre);
    }
    /// Of the calendar, or one that is none.
    void chooseDay()
    {
        const QList<DailyPrice> &days = m_hands.viewModel()->calendarPrices();
        const QString day =
            days.isEmpty() || below(10) == 0 ? u"2026-13-45"_s : one(days, m_random).date;
        m_hands.viewModel()->startSelectCalendarDate(day);
    }
    void resizeWindow() { m_hands.window()->resize(1080 + below(1000), 720 + below(600)); }
    void turnWheel()
    {
        const QPointF at = anywhere();
        const QPoint turn(below(5) == 0 ? 120 : 0, (below(2) == 0 ? -1 : 1) * 120 * (1 + below(6)));
        QWheelEvent event(at, m_hands.window()->mapToGlobal(at), {}, turn, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_hands.window(), &event);
    }
    /// With a new client, as a new start of the program has, or with the calls of the former window
    /// still under way.
    void reopenWindow()
    {
        if (m_server.refusedSession() || below(2) == 0) {
            VTRMCPClientTestAccess::destroyShared();
            closeWindow();
            VTRMCPClientTestAccess::replaceShared(m_endpoint, shortSettings());
        } else {
            closeWindow();
        }
        openWindow();
    }
    /// Waits until everything has ended, and sees whether it shows.
    void rest()
    {
        const auto runs = [this] {
            const auto sheets = m_hands.window()->findChildren<FlightStatusViewModel *>();
            return m_hands.isSearching()
                || std::any_of(sheets.begin(), sheets.end(),
                               [](const auto *sheet) { return sheet->isLoading(); });
        };
        // Of searches at once the first to end lowers the flag: the server knows of the others.
        constexpr auto shortSilence = 200ms;
        // nghttpx may keep a connection whose answer the client has given up.
        const QDeadlineTimer limit(2 * longestSilence);
        while (m_server.idleTime() < (runs() ? longestSilence : shortSilence)
               && !limit.hasExpired())
            QTest::qWait(50);
        if (runs())
            surprise(u"Nothing runs, and a flag is up."_s);
        const FlightSearchViewModel *state = m_hands.viewModel();
        if (state->flights() != m_flights || state->calendarPrices() != m_days)
            surprise(u"What is listed has changed unsaid."_s);
        m_server.flights.empty = m_server.calendars.empty = 0;
    }
    void checkFlights()
    {
        m_flights = m_hands.viewModel()->flights();
        if (m_flights.isEmpty()) {
            if (m_server.flights.empty-- == 0)
                surprise(u"The flights are gone, and no answer said so."_s);
            return;
        }
        const QString number = m_flights.first().flightNumber;
        const bool isOneAnswer =
            std::all_of(m_flights.begin(), m_flights.end(), [&number](const FlightOption &flight) {
                return flight.flightNumber == number;
            });
        const int sent = number.mid(number.startsWith(u"VQ") ? 2 : 0).toInt();
        if (!isOneAnswer || m_server.flights.sizes.value(sent) != m_flights.size())
            surprise(
                u"These flights were never sent: %1 of %2"_s.arg(m_flights.size()).arg(number));
    }
    void checkCalendar()
    {
        m_days = m_hands.viewModel()->calendarPrices();
        if (m_days.isEmpty()) {
            if (m_server.calendars.empty-- == 0)
                surprise(u"The days are gone, and no answer said so."_s);
            return;
        }
        const int sent = static_cast<int>(m_days.first().amount);
        if (m_server.calendars.sizes.value(sent) != m_days.size())
            surprise(u"These days were never sent: %1 of %2"_s.arg(m_days.size()).arg(sent));
    }
    /// A status once shown stays until there is another.
    void checkStatus()
    {
        for (FlightStatusViewModel *sheet :
             m_hands.window()->findChildren<FlightStatusViewModel *>()) {
            if (sheet->property("hadResult").toBool() && !sheet->hasResult())
                surprise(u"The status is gone."_s);
            sheet->setProperty("hadResult", sheet->hasResult());
        }
    }
    int below(int limit) { return m_random.bounded(limit); }

    QRandomGenerator m_random;
    FickleServer m_server;
    std::unique_ptr<Http2Front> m_front; ///< before the server; null for HTTP/1.1
    QUrl m_endpoint;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    WindowDriver m_hands;
    QList<FlightOption> m_flights; ///< that were shown last
    QList<DailyPrice> m_days;
    QMap<QString, int> m_done;
};

namespace {

/// Nothing that the user does may make Qt or QML complain.
void noteMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    if (type != QtDebugMsg && type != QtInfoMsg)
        surprise(message);
}

/// What failed searches write, each on a line that can be read.
bool isExpected(const QString &line)
{
    constexpr qsizetype longest = 1100;
    return line.isEmpty()
        || (line.size() < longest
            && (line.startsWith(u"Price calendar fetch error: ")
                || line.startsWith(u"Flights search error: ")));
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Does anything with the window, on a server that does anything wrong."_s);
    parser.addHelpOption();
    parser.addOptions({
        { u"seconds"_s, u"How long."_s, u"NUMBER"_s, u"60"_s },
        { u"http2"_s, u"Asks over HTTP/2, by nghttpx."_s },
        { u"seed"_s, u"Makes the same choices again."_s, u"NUMBER"_s,
          QString::number(QRandomGenerator::global()->generate()) },
    });
    parser.process(application);
    const quint32 seed = parser.value(u"seed"_s).toUInt();
    const std::chrono::seconds time(parser.value(u"seconds"_s).toInt());
    QTextStream(stderr) << "vantora-random-user --seed " << seed << " --seconds " << time.count()
                        << Qt::endl;

    prepareApplication();
    QAccessible::setActive(true);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(noteMessage);
    std::optional<RandomUser> user;
    const QString console = consoleTextDuring([&] {
        user.emplace(seed, parser.isSet(u"http2"_s));
        user->act(time);
    });
    const QStringList lines = console.split(u'\n');
    for (const QString &line : lines) {
        if (!isExpected(line))
            surprise(u"On the console: "_s + line.left(200));
    }
    const QString summary = user->summary();
    user.reset();
    QTextStream(stdout) << summary << surprises.join(u'\n') << Qt::endl;
    return surprises.isEmpty() ? 0 : 1;
}

#include "main.moc"
