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

bool showSearch(Stage &stage) { return hasResults(stage); }

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

bool openSheet(Stage &stage, const QString &button, const QString &panel)
{
    return stage.press(button) && stage.waitUntil([&] { return isShown(stage, panel); });
}

bool showRoundTrip(Stage &stage)
{
    stage.viewModel()->setTripType(TripType::roundTrip);
    return stage.waitUntil([&] { return isShown(stage, u"returnDate"_s); });
}

bool showDatePanel(Stage &stage) { return openSheet(stage, u"departureDate"_s, u"monthView"_s); }

bool showOriginPicker(Stage &stage)
{
    return openSheet(stage, u"originButton"_s, u"airportPicker"_s);
}

/// The keyboard is in the picker's field.
bool showPickerQuery(Stage &stage)
{
    if (!showOriginPicker(stage))
        return false;
    stage.type(u"lon"_s);
    stage.key(Qt::Key_Down);
    return stage.waitUntil([&] { return isShown(stage, u"airportPicker"_s); });
}

bool showPickerEmpty(Stage &stage)
{
    if (!showOriginPicker(stage))
        return false;
    stage.type(u"atlantis"_s);
    return stage.waitUntil([&] { return isShown(stage, u"noAirports"_s); });
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

bool showStatusEmpty(Stage &stage)
{
    return openSheet(stage, u"flightStatusButton"_s, u"statusEmptyPanel"_s);
}

/// Types over the number that the sheet proposes.
bool askForStatus(Stage &stage, const QString &number, const QString &panel)
{
    if (!showStatusEmpty(stage))
        return false;
    stage.type(number);
    stage.key(Qt::Key_Return);
    return stage.waitUntil([&] { return isShown(stage, panel); });
}

bool showStatus(Stage &stage)
{
    return showStatusEmpty(stage) && stage.press(u"statusQueryButton"_s)
        && stage.waitUntil([&] { return isShown(stage, u"statusResultCard"_s); });
}

bool showStatusDelayed(Stage &stage)
{
    return askForStatus(stage, u"vq1907"_s, u"statusResultCard"_s);
}

bool showStatusError(Stage &stage)
{
    return askForStatus(stage, u"VQ404"_s, u"statusErrorPanel"_s);
}

bool showCityGuide(Stage &stage)
{
    return openSheet(stage, u"cityGuideButton"_s, u"cityGuidePage"_s);
}

bool showPromotions(Stage &stage)
{
    if (!showCityGuide(stage))
        return false;
    // The keyboard is on the tabs.
    stage.key(Qt::Key_Right);
    return stage.waitUntil([&] { return isShown(stage, u"promotionsPage"_s); });
}

/// An airport that no server knows: without a guide the sheet goes on loading.
bool showCityGuideLoading(Stage &stage)
{
    stage.viewModel()->setDestinationCode(u"LUX"_s);
    return openSheet(stage, u"cityGuideButton"_s, u"guideLoadingPanel"_s);
}

} // namespace

const QList<Scene> &allScenes()
{
    static const QList<Scene> scenes {
        { u"search"_s, u"the results of the search that the window starts by itself"_s,
          showSearch },
        { u"loading"_s, u"a search under way, over the results of the one before"_s, showLoading,
          true },
        { u"error"_s, u"a failed search, over the results of the one before"_s, showError },
        { u"error-below"_s, u"the same, seen from the flights below"_s, showErrorBelow },
        { u"best-day"_s, u"the flights of the cheapest day"_s, showBestDay },
        { u"empty"_s, u"a day without flights"_s, showEmpty },
        { u"direct-only"_s, u"the direct flights alone"_s, showDirectOnly },
        { u"round-trip"_s, u"the search card with a day of return"_s, showRoundTrip },
        { u"date-panel"_s, u"the month under the day of departure"_s, showDatePanel },
        { u"origin-picker"_s, u"the airports for the departure"_s, showOriginPicker },
        { u"picker-query"_s, u"the airports that match a text"_s, showPickerQuery },
        { u"picker-empty"_s, u"a text that no airport matches"_s, showPickerEmpty },
        { u"keyboard-focus"_s, u"the keyboard on the search button"_s, showKeyboardFocus },
        { u"flight-status"_s, u"the status of a punctual flight"_s, showStatus },
        { u"flight-status-delayed"_s, u"the status of a delayed flight"_s, showStatusDelayed },
        { u"flight-status-empty"_s, u"the status sheet before a question"_s, showStatusEmpty },
        { u"flight-status-error"_s, u"a flight number that does not exist"_s, showStatusError },
        { u"city-guide"_s, u"the guide of the destination"_s, showCityGuide },
        { u"promotions"_s, u"the airline's promotions"_s, showPromotions },
        { u"city-guide-loading"_s, u"a guide that does not come"_s, showCityGuideLoading, true },
    };
    return scenes;
}
