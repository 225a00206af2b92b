#include "RandomUser.h"

#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "ViewModels/FlightStatusViewModel.h"
#include "support/ClientTesting.h"

#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QTest>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Limits that are reached within a minute.
HttpSettings shortSettings()
{
    HttpSettings settings = trustingSettings();
    settings.limits = { .idle = 1s, .total = 4s };
    return settings;
}

// No call takes longer, pauses before its repetition included.
constexpr auto longestSilence = 10s;

} // namespace

RandomUser::RandomUser(quint32 seed, bool asksOverHttp2)
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

RandomUser::~RandomUser()
{
    closeWindow();
    VTRMCPClientTestAccess::destroyShared();
    for (const QString &scheme : { u"http"_s, u"https"_s })
        QDesktopServices::unsetUrlHandler(scheme);
}

QList<RandomUser::Action> RandomUser::actions()
{
    const auto button = [this](int weight, const QString &name) {
        return Action { weight, name, [this, name] { press(name); } };
    };
    const auto shortcut = [this](int weight, const QString &name, Qt::Key pressed) {
        return Action { weight, name, [this, pressed] { key(pressed); } };
    };
    return {
        button(10, u"searchButton"_s),
        button(3, u"swapButton"_s),
        button(3, u"flightStatusButton"_s),
        button(4, u"statusQueryButton"_s),
        button(3, u"cityGuideButton"_s),
        button(3, u"guideTabs"_s),
        button(2, u"originButton"_s),
        button(2, u"tripType"_s),
        button(2, u"departureDate"_s),
        button(2, u"timeRange"_s),
        shortcut(4, u"search by key"_s, Qt::Key_F5),
        shortcut(2, u"help menu"_s, Qt::Key_F10),
        shortcut(14, u"escape"_s, Qt::Key_Escape),
        { 10, u"day"_s, [this] { chooseDay(); } },
        { 12, u"keys"_s, [this] { pressKeys(); } },
        { 8, u"pointer"_s, [this] { pressPointer(); } },
        { 8, u"some item"_s, [this] { useItem(); } },
        { 6, u"wheel"_s, [this] { turnWheel(); } },
        { 3, u"resize"_s, [this] { m_window->resize(1080 + below(1000), 720 + below(600)); } },
        { 5, u"rest"_s, [this] { rest(); } },
        { 1, u"close and reopen"_s, [this] { reopenWindow(); } },
    };
}

void RandomUser::act()
{
    QList<double> weights;
    for (const Action &action : m_actions)
        weights.append(action.weight);
    std::discrete_distribution<int> distribution(weights.begin(), weights.end());
    // A session that was refused stays refused until the program is started again.
    if (m_server.refusedSession() && below(10) == 0) {
        reopenWindow();
    } else {
        const Action &action = m_actions.at(distribution(m_random));
        ++m_done[action.name];
        action.run();
    }
    QTest::qWait(below(4) == 0 ? below(400) : below(30));
    checkStatus();
}

void RandomUser::openWindow()
{
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_flights.clear();
    m_days.clear();
    m_window = loadMainWindow(*m_engine, u"Vantora"_s);
    if (!m_window)
        qFatal("There is no window.");
    m_window->requestActivate();
    using State = FlightSearchViewModel;
    connect(viewModel(), &State::flightsChanged, this, &RandomUser::checkFlights);
    connect(viewModel(), &State::calendarPricesChanged, this, &RandomUser::checkCalendar);
}

void RandomUser::closeWindow()
{
    m_window->close();
    m_window = nullptr;
    m_engine.reset();
}

/// With a new client, as a new start of the program has, or with the calls of the former window
/// still under way.
void RandomUser::reopenWindow()
{
    const bool isNewStart = m_server.refusedSession() || below(2) == 0;
    if (isNewStart)
        VTRMCPClientTestAccess::destroyShared();
    closeWindow();
    if (isNewStart)
        VTRMCPClientTestAccess::replaceShared(m_endpoint, shortSettings());
    openWindow();
}

void RandomUser::noteLink(const QUrl &link)
{
    ++m_done[u"link opened"_s];
    if (link.host().isEmpty() || !link.userInfo().isEmpty())
        qWarning("A strange link was opened: %s", qPrintable(link.toString()));
}

void RandomUser::press(const QString &objectName)
{
    if (QQuickItem *item = named(objectName))
        clickThere(item);
}

void RandomUser::clickThere(QQuickItem *item)
{
    const QPointF centre = item->mapToScene(item->boundingRect().center());
    if (QRectF(QPointF(), m_window->size()).contains(centre.toPoint()))
        click(item);
}

void RandomUser::pressKeys()
{
    static const QList<Qt::Key> keys { Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Left,
                                       Qt::Key_Right,    Qt::Key_Up,      Qt::Key_Down,
                                       Qt::Key_Space,    Qt::Key_Return,  Qt::Key_Home,
                                       Qt::Key_End,      Qt::Key_PageUp,  Qt::Key_PageDown,
                                       Qt::Key_Escape,   Qt::Key_Alt,     Qt::Key_Delete,
                                       Qt::Key_Backspace };
    static const QStringList texts { u"lon"_s, u"vq1907"_s, u"12.12.2026"_s, u"şğ"_s };
    for (int count = 1 + below(8); count > 0; --count) {
        if (below(5) == 0)
            type(one(texts));
        else
            key(one(keys), below(8) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
    }
}

void RandomUser::pressPointer()
{
    QTest::mouseMove(m_window, anywhere());
    QTest::mousePress(m_window, Qt::LeftButton, {}, anywhere());
    if (below(3) == 0)
        QTest::mouseMove(m_window, anywhere());
    QTest::mouseRelease(m_window, Qt::LeftButton, {}, anywhere());
}

/// Clicks something that assistive technology would offer, wherever it is.
void RandomUser::useItem()
{
    const auto items = itemsIn(m_window->contentItem(), [](QQuickItem *item) {
        QAccessibleInterface *node = item->width() > 0 ? accessible(item) : nullptr;
        return node && node->state().focusable;
    });
    if (!items.isEmpty())
        clickThere(one(items));
}

/// Of the calendar, or one that is none.
void RandomUser::chooseDay()
{
    const QList<DailyPrice> &days = viewModel()->calendarPrices();
    viewModel()->startSelectCalendarDate(days.isEmpty() || below(10) == 0 ? u"2026-13-45"_s
                                                                          : one(days).date);
}

void RandomUser::turnWheel()
{
    const QPointF at = anywhere();
    const QPoint turn(below(5) == 0 ? 120 : 0, (below(2) == 0 ? -1 : 1) * 120 * (1 + below(6)));
    QWheelEvent event(at, m_window->mapToGlobal(at), {}, turn, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(m_window, &event);
}

bool RandomUser::isAsking() const
{
    const auto sheets = m_window->findChildren<FlightStatusViewModel *>();
    return isSearching() || std::ranges::any_of(sheets, &FlightStatusViewModel::isLoading);
}

void RandomUser::rest()
{
    // Of searches at once the first to end lowers the flag: the server knows of the others.
    constexpr auto shortSilence = 200ms;
    // nghttpx may keep a connection whose answer the client has given up.
    const QDeadlineTimer limit(2 * longestSilence);
    while (m_server.idleTime() < (isAsking() ? longestSilence : shortSilence)
           && !limit.hasExpired())
        QTest::qWait(50);
    if (isAsking())
        qWarning("Nothing runs, and a flag is up.");
    if (viewModel()->flights() != m_flights || viewModel()->calendarPrices() != m_days)
        qWarning("What is listed has changed without a signal.");
    QAccessibleInterface *list = accessible(called(u"Uçuşlar"_s));
    if (list && list->childCount() != viewModel()->filteredFlights().size())
        qWarning("There are %d cards for %lld flights.", list->childCount(),
                 qlonglong(viewModel()->filteredFlights().size()));
    m_server.emptyFlights = m_server.emptyCalendars = 0;
}

void RandomUser::checkFlights()
{
    m_flights = viewModel()->flights();
    const QString number = u"VQ%1"_s.arg(m_flights.size());
    const bool isOneAnswer = std::ranges::all_of(
        m_flights, [&number](const FlightOption &flight) { return flight.flightNumber == number; });
    if (!isOneAnswer || (m_flights.isEmpty() && m_server.emptyFlights-- == 0))
        qWarning("These %lld flights were never sent.", qlonglong(m_flights.size()));
}

void RandomUser::checkCalendar()
{
    m_days = viewModel()->calendarPrices();
    const bool isOneAnswer = m_days.isEmpty() ? m_server.emptyCalendars-- > 0
                                              : m_days.first().amount == double(m_days.size());
    if (!isOneAnswer)
        qWarning("These %lld days were never sent.", qlonglong(m_days.size()));
}

/// A status once shown stays until there is another.
void RandomUser::checkStatus()
{
    for (FlightStatusViewModel *sheet : m_window->findChildren<FlightStatusViewModel *>()) {
        if (sheet->property("hadResult").toBool() && !sheet->hasResult())
            qWarning("The status is gone.");
        sheet->setProperty("hadResult", sheet->hasResult());
    }
}
