#include "ViewModels/FlightSearchViewModel.h"

#include "Models/AirportDatabase.h"
#include "Models/DateText.h"
#include "Services/PlatformErrorText.h"
#include "Services/VTRMCPClient.h"

#include <QPointer>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int defaultDaysToDeparture = 14;
constexpr int defaultDaysToReturn = 21;

/// An error's description may hold what a server sent: it is cut to one line, without control
/// characters. An error that only says that the application quits is not written.
void writeConsoleLine(const QString &failure, const McpError &error)
{
    if (error.localizedDescription() == PlatformErrorText::applicationQuits())
        return;
    QString line = failure + u": "_s + error.localizedDescription();
    constexpr qsizetype longestLine = 1000;
    if (line.size() > longestLine)
        line = line.left(longestLine) + u'…';
    std::replace_if(
        line.begin(), line.end(),
        [](QChar character) { return character.category() == QChar::Other_Control; }, u' ');
    QTextStream(stdout) << line << Qt::endl;
}

} // namespace

FlightSearchViewModel::FlightSearchViewModel(QObject *parent, const QDateTime &now)
    : ObservableObject(parent)
    , m_departureDate(now.addDays(defaultDaysToDeparture))
    , m_returnDate(now.addDays(defaultDaysToReturn))
    , m_selectedDate(formatDate(m_departureDate))
{
    connect(this, &FlightSearchViewModel::selectedDateChanged, this,
            &FlightSearchViewModel::selectedDayIndexChanged);
    connect(this, &FlightSearchViewModel::calendarPricesChanged, this,
            &FlightSearchViewModel::selectedDayIndexChanged);
    for (const auto changed : { &FlightSearchViewModel::originCodeChanged,
                                &FlightSearchViewModel::destinationCodeChanged,
                                &FlightSearchViewModel::selectedDateChanged,
                                &FlightSearchViewModel::errorMessageChanged })
        connect(this, changed, this, &FlightSearchViewModel::earlierSearchChanged);
}

void FlightSearchViewModel::setOriginCode(const QString &code)
{
    publish(m_originCode, code, &FlightSearchViewModel::originCodeChanged);
}

void FlightSearchViewModel::setDestinationCode(const QString &code)
{
    publish(m_destinationCode, code, &FlightSearchViewModel::destinationCodeChanged);
}

void FlightSearchViewModel::setTripType(TripType tripType)
{
    publish(m_tripType, tripType, &FlightSearchViewModel::tripTypeChanged);
}

void FlightSearchViewModel::setDepartureDate(const QDateTime &date)
{
    publish(m_departureDate, date, &FlightSearchViewModel::departureDateChanged);
}

void FlightSearchViewModel::setReturnDate(const QDateTime &date)
{
    publish(m_returnDate, date, &FlightSearchViewModel::returnDateChanged);
}

void FlightSearchViewModel::setCabinClass(CabinClass cabinClass)
{
    publish(m_cabinClass, cabinClass, &FlightSearchViewModel::cabinClassChanged);
}

void FlightSearchViewModel::setTimeRange(TimeRange timeRange)
{
    publish(m_timeRange, timeRange, &FlightSearchViewModel::timeRangeChanged);
}

void FlightSearchViewModel::setPassengers(int passengers)
{
    publish(m_passengers, passengers, &FlightSearchViewModel::passengersChanged);
}

void FlightSearchViewModel::setErrorMessage(const std::optional<QString> &message)
{
    publish(m_errorMessage, message, &FlightSearchViewModel::errorMessageChanged);
}

void FlightSearchViewModel::setSelectedDate(const QString &date)
{
    publish(m_selectedDate, date, &FlightSearchViewModel::selectedDateChanged);
}

Airport FlightSearchViewModel::originAirport() const
{
    return AirportDatabase::airport(m_originCode);
}

Airport FlightSearchViewModel::destinationAirport() const
{
    return AirportDatabase::airport(m_destinationCode);
}

double FlightSearchViewModel::highestPrice() const
{
    const QList<DailyPrice> &days = calendarPrices();
    const auto highest = std::max_element(
        days.begin(), days.end(),
        [](const DailyPrice &left, const DailyPrice &right) { return left.amount < right.amount; });
    return highest == days.end() ? 1.0 : highest->amount;
}

int FlightSearchViewModel::selectedDayIndex() const
{
    const QList<DailyPrice> &days = calendarPrices();
    const auto selected = std::find_if(days.begin(), days.end(), [this](const DailyPrice &day) {
        return day.date == m_selectedDate;
    });
    return selected == days.end() ? -1 : static_cast<int>(selected - days.begin());
}

QString FlightSearchViewModel::searchText(const QString &day) const
{
    return m_originCode + u'–' + m_destinationCode + u", "_s + day;
}

QString FlightSearchViewModel::earlierSearch() const
{
    const bool areCurrent = !m_errorMessage && m_flightsSearch == searchText(m_selectedDate);
    return areCurrent ? QString() : m_flightsSearch;
}

void FlightSearchViewModel::swapAirports()
{
    const QString origin = m_originCode;
    setOriginCode(m_destinationCode);
    setDestinationCode(origin);
}

QCoro::Task<> FlightSearchViewModel::searchAll()
{
    if (m_originCode.isEmpty() || m_destinationCode.isEmpty()) {
        setErrorMessage(u"Lütfen kalkış ve varış havalimanlarını seçin."_s);
        co_return;
    }
    const QString searchDay = formatDate(m_departureDate);
    setSelectedDate(searchDay);
    const auto end = raise(m_isLoading, &FlightSearchViewModel::isLoadingChanged);
    setErrorMessage(std::nullopt);
    publish(m_hasSearched, true, &FlightSearchViewModel::hasSearchedChanged);

    const QCoro::Task<> calendar = loadCalendar(searchDay);
    const QCoro::Task<> flights = loadFlights(
        searchDay, u"Uçuş bilgileri alınırken hata oluştu: "_s, u"Flights search error"_s);
    co_await calendar;
    co_await flights;
}

QCoro::Task<> FlightSearchViewModel::loadCalendar(QString searchDay)
{
    const QPointer<FlightSearchViewModel> self(this);
    try {
        const PriceCalendar calendar = co_await VTRMCPClient::shared().fetchPriceCalendar(
            m_originCode, m_destinationCode, searchDay, m_tripType, m_timeRange, m_cabinClass);
        if (!self)
            co_return;
        Q_EMIT objectWillChange();
        m_calendarPrices.setRecords(calendar.prices);
        Q_EMIT calendarPricesChanged();
        Q_EMIT objectWillChange();
        m_bestPrice = calendar.bestPrice;
        Q_EMIT bestPriceChanged();
        publish(m_currency, calendar.currency, &FlightSearchViewModel::currencyChanged);
    } catch (...) {
        writeConsoleLine(u"Price calendar fetch error"_s, McpError::current());
    }
}

QCoro::Task<> FlightSearchViewModel::loadFlights(QString day, QString failure, QString consoleLine)
{
    const QPointer<FlightSearchViewModel> self(this);
    try {
        const std::optional<QString> returnDate = returnDay();
        const QString search = searchText(day);
        const QList<FlightOption> flights = co_await VTRMCPClient::shared().searchFlights(
            m_originCode, m_destinationCode, day, returnDate, m_tripType, m_passengers);
        if (self)
            setFlights(flights, search);
    } catch (...) {
        const McpError error = McpError::current();
        if (!consoleLine.isEmpty())
            writeConsoleLine(consoleLine, error);
        if (self)
            setErrorMessage(failure + error.localizedDescription());
    }
}

QCoro::Task<> FlightSearchViewModel::selectCalendarDate(QString date)
{
    setSelectedDate(date);
    if (const auto parsed = parseDate(date))
        setDepartureDate(*parsed);
    const auto end =
        raise(m_isSearchingFlightsOnly, &FlightSearchViewModel::isSearchingFlightsOnlyChanged);
    setErrorMessage(std::nullopt);
    const QCoro::Task<> flights =
        loadFlights(date, u"Seçilen tarih (%1) için uçuşlar yüklenemedi: "_s.arg(date), {});
    co_await flights;
}

void FlightSearchViewModel::applyFilter(FlightSortOption option)
{
    publish(m_activeFilter, option, &FlightSearchViewModel::activeFilterChanged);
    arrangeFlights(false);
}

std::optional<QString> FlightSearchViewModel::returnDay() const
{
    return isRoundTrip() ? std::optional(formatDate(m_returnDate)) : std::nullopt;
}

void FlightSearchViewModel::setFlights(const QList<FlightOption> &flights, const QString &search)
{
    m_flightsSearch = search;
    Q_EMIT earlierSearchChanged();
    publish(m_flights, flights, &FlightSearchViewModel::flightsChanged);
    arrangeFlights(true);
}

void FlightSearchViewModel::arrangeFlights(bool areNew)
{
    Q_EMIT objectWillChange();
    m_filteredFlights.set(SearchOptions::row(m_activeFilter).arranged(m_flights), areNew);
    Q_EMIT filteredFlightsChanged();
}

QString FlightSearchViewModel::formatDate(const QDateTime &date) const
{
    return DateText::day(date);
}

std::optional<QDateTime> FlightSearchViewModel::parseDate(const QString &text) const
{
    return DateText::parseDay(text);
}
