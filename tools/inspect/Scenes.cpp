#include "inspect/Scenes.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool hasResults(const Stage &stage)
{
    const FlightSearchViewModel *viewModel = stage.viewModel();
    return !viewModel->hasErrorMessage() && !viewModel->calendarPrices().isEmpty()
        && !viewModel->filteredFlights().isEmpty();
}

/// A server near by may have answered before the start of the search returns.
bool showLoading(Stage &stage)
{
    return stage.waitUntil([&stage] {
        stage.viewModel()->startSearchAll();
        return stage.viewModel()->isLoading();
    });
}

/// An airport that no server flies to; the results of the first search stay.
bool showError(Stage &stage)
{
    stage.viewModel()->setDestinationCode(u"ZZZ"_s);
    stage.viewModel()->startSearchAll();
    return stage.waitForSearch() && stage.viewModel()->hasErrorMessage();
}

/// The same with the page scrolled away from the banner.
bool showErrorBelow(Stage &stage)
{
    return showError(stage) && stage.waitUntilStill() && stage.scrollTo(u"flightResults"_s);
}

/// The cheapest day is the chosen one.
bool showBestDay(Stage &stage)
{
    stage.viewModel()->startSelectCalendarDate(stage.viewModel()->bestPriceOrEmpty().date);
    return stage.waitForSearch() && hasResults(stage) && stage.scrollTo(u"fareChart"_s);
}

/// A day that has passed has no flights.
bool showEmpty(Stage &stage)
{
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    stage.viewModel()->startSelectCalendarDate(stage.viewModel()->formatDate(yesterday));
    return stage.waitForSearch() && !stage.viewModel()->hasErrorMessage()
        && stage.viewModel()->filteredFlights().isEmpty() && stage.scrollTo(u"flightResults"_s);
}

bool showDirectOnly(Stage &stage)
{
    stage.viewModel()->applyFilter(FlightSortOption::directOnly);
    const auto &flights = stage.viewModel()->filteredFlights();
    return hasResults(stage)
        && std::all_of(flights.begin(), flights.end(),
                       [](const FlightOption &flight) { return flight.isDirect; })
        && stage.scrollTo(u"flightResults"_s);
}

/// The item is there, and the sheet that holds it has ended its opening motion.
bool isShown(const Stage &stage, const QString &objectName)
{
    QQuickItem *item = stage.named(objectName);
    for (const QQuickItem *ancestor = item; ancestor; ancestor = ancestor->parentItem()) {
        if (ancestor->opacity() < 1)
            return false;
    }
    return item;
}

/// Presses the button and waits for the item.
bool open(Stage &stage, const QString &button, const QString &shown)
{
    return stage.press(button) && stage.waitUntil([&] { return isShown(stage, shown); });
}

auto opened(const QString &button, const QString &shown)
{
    return [=](Stage &stage) { return open(stage, button, shown); };
}

/// What is opened has the keyboard. Then types the text, presses the key and waits for the last
/// item.
auto typed(const QString &button, const QString &opened, const QString &text, Qt::Key key,
           const QString &shown)
{
    return [=](Stage &stage) {
        if (!open(stage, button, opened))
            return false;
        stage.type(text);
        stage.key(key);
        return stage.waitUntil([&] { return isShown(stage, shown); });
    };
}

bool showRoundTrip(Stage &stage)
{
    stage.viewModel()->setTripType(TripType::roundTrip);
    return stage.waitUntil([&] { return isShown(stage, u"returnDate"_s); });
}

/// Tab goes from the top of the window to the search button.
bool showKeyboardFocus(Stage &stage)
{
    constexpr int mostTabs = 30;
    for (int i = 0; i < mostTabs; ++i) {
        stage.key(Qt::Key_Tab);
        const QQuickItem *item = stage.window()->activeFocusItem();
        if (item && item->objectName() == u"searchButton")
            return true;
    }
    return false;
}

/// An airport that no server knows: without a guide the sheet goes on loading.
bool showCityGuideLoading(Stage &stage)
{
    stage.viewModel()->setDestinationCode(u"LUX"_s);
    return open(stage, u"cityGuideButton"_s, u"guideLoadingPanel"_s);
}

} // namespace

const QList<Scene> &allScenes()
{
    const QString statusButton = u"flightStatusButton"_s;
    const QString statusPanel = u"statusEmptyPanel"_s;
    const QString guideButton = u"cityGuideButton"_s;
    const QString guidePage = u"cityGuidePage"_s;
    static const QList<Scene> scenes {
        { u"search"_s, u"the results of the search that the window starts by itself"_s,
          hasResults },
        { u"loading"_s, u"a search under way, over the results of the one before"_s, showLoading,
          true },
        { u"error"_s, u"a failed search, over the results of the one before"_s, showError },
        { u"error-below"_s, u"the same, seen from the flights below"_s, showErrorBelow },
        { u"best-day"_s, u"the flights of the cheapest day"_s, showBestDay },
        { u"empty"_s, u"a day without flights"_s, showEmpty },
        { u"direct-only"_s, u"the direct flights alone"_s, showDirectOnly },
        { u"round-trip"_s, u"the search card with a day of return"_s, showRoundTrip },
        { u"date-panel"_s, u"the month under the day of departure"_s,
          opened(u"departureDate"_s, u"monthView"_s) },
        { u"origin-picker"_s, u"the airports for the departure"_s,
          opened(u"originButton"_s, u"airportSearch"_s) },
        { u"picker-query"_s, u"the airports that match a text"_s,
          typed(u"originButton"_s, u"airportSearch"_s, u"lon"_s, Qt::Key_Down,
                u"airportSearch"_s) },
        { u"picker-empty"_s, u"a text that no airport matches"_s,
          typed(u"originButton"_s, u"airportSearch"_s, u"atlantis"_s, Qt::Key_Down,
                u"noAirports"_s) },
        { u"keyboard-focus"_s, u"the keyboard on the search button"_s, showKeyboardFocus },
        { u"flight-status"_s, u"the status of a punctual flight"_s,
          typed(statusButton, statusPanel, {}, Qt::Key_Return, u"statusResultCard"_s) },
        { u"flight-status-delayed"_s, u"the status of a delayed flight"_s,
          typed(statusButton, statusPanel, u"vq1907"_s, Qt::Key_Return, u"statusResultCard"_s) },
        { u"flight-status-empty"_s, u"the status sheet before a question"_s,
          opened(statusButton, statusPanel) },
        { u"flight-status-error"_s, u"a flight number that does not exist"_s,
          typed(statusButton, statusPanel, u"VQ404"_s, Qt::Key_Return, u"statusErrorPanel"_s) },
        { u"city-guide"_s, u"the guide of the destination"_s, opened(guideButton, guidePage) },
        { u"promotions"_s, u"the airline's promotions"_s,
          typed(guideButton, guidePage, {}, Qt::Key_Right, u"promotionsPage"_s) },
        { u"city-guide-loading"_s, u"a guide that does not come"_s, showCityGuideLoading, true },
    };
    return scenes;
}
