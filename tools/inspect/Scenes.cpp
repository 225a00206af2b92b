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

bool showSearch(Stage &stage)
{
    return hasResults(stage);
}

bool showLoading(Stage &stage)
{
    stage.viewModel()->startSearchAll();
    return stage.viewModel()->isLoading();
}

/// An airport that no server flies to; the results of the first search stay.
bool showError(Stage &stage)
{
    stage.viewModel()->setDestinationCode(u"ZZZ"_s);
    stage.viewModel()->startSearchAll();
    return stage.waitForSearch() && stage.viewModel()->hasErrorMessage();
}

/// A day that has passed has no flights.
bool showEmpty(Stage &stage)
{
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    stage.viewModel()->startSelectCalendarDate(stage.viewModel()->formatDate(yesterday));
    return stage.waitForSearch() && !stage.viewModel()->hasErrorMessage()
           && stage.viewModel()->filteredFlights().isEmpty();
}

bool showDirectOnly(Stage &stage)
{
    stage.viewModel()->applyFilter(FlightSortOption::directOnly);
    const auto &flights = stage.viewModel()->filteredFlights();
    return hasResults(stage)
           && std::all_of(flights.begin(), flights.end(),
                          [](const FlightOption &flight) { return flight.isDirect; });
}

} // namespace

const QList<Scene> &allScenes()
{
    static const QList<Scene> scenes {
        { u"search"_s, u"the results of the search that the window starts by itself"_s, showSearch },
        { u"loading"_s, u"a search under way, over the results of the one before"_s, showLoading,
          true },
        { u"error"_s, u"a failed search, over the results of the one before"_s, showError },
        { u"empty"_s, u"a day without flights"_s, showEmpty },
        { u"direct-only"_s, u"the direct flights alone"_s, showDirectOnly },
    };
    return scenes;
}
