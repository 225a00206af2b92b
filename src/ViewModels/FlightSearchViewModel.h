#pragma once

#include "Models/Airport.h"
#include "Models/FlightOption.h"
#include "Models/PriceCalendar.h"
#include "Models/SearchOptions.h"
#include "ViewModels/FlightOptionList.h"
#include "ViewModels/ObservableObject.h"
#include "ViewModels/RecordListModel.h"

#include <QCoroTask>

#include <QDateTime>

#include <optional>

using DailyPriceListModel = RecordListModel<DailyPrice>;

/// The state behind the main window: the search form, the results of the last search, progress and
/// the one error text. It lives on the main thread. Its tasks never throw: a failure becomes
/// `errorMessage` or a line on the console, and earlier results stay.
class FlightSearchViewModel : public ObservableObject
{
    Q_OBJECT
    Q_PROPERTY(QString originCode READ originCode WRITE setOriginCode NOTIFY originCodeChanged)
    Q_PROPERTY(QString destinationCode READ destinationCode WRITE setDestinationCode NOTIFY
                   destinationCodeChanged)
    Q_PROPERTY(
        SearchOptions::TripType tripType READ tripType WRITE setTripType NOTIFY tripTypeChanged)
    Q_PROPERTY(QDateTime departureDate READ departureDate WRITE setDepartureDate NOTIFY
                   departureDateChanged)
    Q_PROPERTY(QDateTime returnDate READ returnDate WRITE setReturnDate NOTIFY returnDateChanged)
    Q_PROPERTY(SearchOptions::CabinClass cabinClass READ cabinClass WRITE setCabinClass NOTIFY
                   cabinClassChanged)
    Q_PROPERTY(SearchOptions::TimeRange timeRange READ timeRange WRITE setTimeRange NOTIFY
                   timeRangeChanged)
    Q_PROPERTY(int passengers READ passengers WRITE setPassengers NOTIFY passengersChanged)
    Q_PROPERTY(CountedListModel *calendarPrices READ calendarPricesModel CONSTANT)
    Q_PROPERTY(bool hasBestPrice READ hasBestPrice NOTIFY bestPriceChanged)
    Q_PROPERTY(BestPrice bestPrice READ bestPriceOrEmpty NOTIFY bestPriceChanged)
    Q_PROPERTY(QString selectedDate READ selectedDate NOTIFY selectedDateChanged)
    Q_PROPERTY(QString currency READ currency NOTIFY currencyChanged)
    Q_PROPERTY(FlightOptionList *filteredFlights READ filteredFlightsList CONSTANT)
    Q_PROPERTY(
        SearchOptions::FlightSortOption activeFilter READ activeFilter NOTIFY activeFilterChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(bool isSearchingFlightsOnly READ isSearchingFlightsOnly NOTIFY
                   isSearchingFlightsOnlyChanged)
    Q_PROPERTY(bool hasErrorMessage READ hasErrorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(QString errorMessage READ errorMessageText NOTIFY errorMessageChanged)
    Q_PROPERTY(bool hasSearched READ hasSearched NOTIFY hasSearchedChanged)
    Q_PROPERTY(Airport originAirport READ originAirport NOTIFY originCodeChanged)
    Q_PROPERTY(Airport destinationAirport READ destinationAirport NOTIFY destinationCodeChanged)
    Q_PROPERTY(bool isRoundTrip READ isRoundTrip NOTIFY tripTypeChanged)
    Q_PROPERTY(double highestPrice READ highestPrice NOTIFY calendarPricesChanged)
    Q_PROPERTY(int selectedDayIndex READ selectedDayIndex NOTIFY selectedDayIndexChanged)
    Q_PROPERTY(QString earlierSearch READ earlierSearch NOTIFY earlierSearchChanged)

public:
    /// `now` is the moment from which the default dates are counted.
    explicit FlightSearchViewModel(QObject *parent = nullptr,
                                   const QDateTime &now = QDateTime::currentDateTime());

    QString originCode() const { return m_originCode; }
    void setOriginCode(const QString &code);
    QString destinationCode() const { return m_destinationCode; }
    void setDestinationCode(const QString &code);
    TripType tripType() const { return m_tripType; }
    void setTripType(TripType tripType);
    /// Only the day matters to a search; the time of day is kept as it is.
    QDateTime departureDate() const { return m_departureDate; }
    void setDepartureDate(const QDateTime &date);
    /// Used for a round trip alone.
    QDateTime returnDate() const { return m_returnDate; }
    void setReturnDate(const QDateTime &date);
    CabinClass cabinClass() const { return m_cabinClass; }
    void setCabinClass(CabinClass cabinClass);
    TimeRange timeRange() const { return m_timeRange; }
    void setTimeRange(TimeRange timeRange);
    int passengers() const { return m_passengers; }
    void setPassengers(int passengers);

    /// The days of the calendar, in the server's order.
    const QList<DailyPrice> &calendarPrices() const { return m_calendarPrices.records(); }
    std::optional<BestPrice> bestPrice() const { return m_bestPrice; }
    /// The day whose flights are shown, "yyyy-MM-dd".
    QString selectedDate() const { return m_selectedDate; }
    /// Currency code of the calendar's amounts.
    QString currency() const { return m_currency; }
    /// The flights of the selected day, in the server's order.
    const QList<FlightOption> &flights() const { return m_flights; }
    /// `flights` as sorted or reduced by `activeFilter`.
    QList<FlightOption> filteredFlights() const { return m_filteredFlights.flights(); }
    FlightSortOption activeFilter() const { return m_activeFilter; }
    /// A full search is running. When searches overlap, the first to finish clears this, though
    /// another still runs and its flights may come later. The same holds for the next one.
    bool isLoading() const { return m_isLoading; }
    /// The flights of another day are being loaded.
    bool isSearchingFlightsOnly() const { return m_isSearchingFlightsOnly; }
    /// What the user is told; absent when there is nothing to tell.
    std::optional<QString> errorMessage() const { return m_errorMessage; }
    /// True from the first search that passed validation on.
    bool hasSearched() const { return m_hasSearched; }

    Airport originAirport() const;
    Airport destinationAirport() const;
    bool isRoundTrip() const { return m_tripType == TripType::roundTrip; }
    /// The dearest day of the calendar; 1 when it is empty.
    double highestPrice() const;
    /// Where the selected day stands in the calendar; -1 when it is not one of its days.
    int selectedDayIndex() const;
    /// What `flights` were asked for, "IST–LHR, 2026-12-05", when they do not answer what is chosen
    /// now: the last request failed, an older one was answered later, or the airports were changed.
    /// Empty otherwise.
    QString earlierSearch() const;

    // The shapes in which QML reads the state above.
    CountedListModel *calendarPricesModel() { return &m_calendarPrices; }
    FlightOptionList *filteredFlightsList() { return &m_filteredFlights; }
    bool hasBestPrice() const { return m_bestPrice.has_value(); }
    BestPrice bestPriceOrEmpty() const { return m_bestPrice.value_or(BestPrice()); }
    bool hasErrorMessage() const { return m_errorMessage.has_value(); }
    QString errorMessageText() const { return m_errorMessage.value_or(QString()); }

    /// Exchanges the two airports. Results stay until the next search.
    Q_INVOKABLE void swapAirports();
    /// Loads the fare calendar and the flights of `departureDate` side by side.
    QCoro::Task<> searchAll();
    /// Makes `date` ("yyyy-MM-dd") the selected day and loads its flights only. A text that is no
    /// date leaves `departureDate` alone and is sent as it stands.
    QCoro::Task<> selectCalendarDate(QString date);
    Q_INVOKABLE void applyFilter(SearchOptions::FlightSortOption option);

    // For views, which start a task and do not wait for it.
    Q_INVOKABLE void startSearchAll() { searchAll(); }
    Q_INVOKABLE void startSelectCalendarDate(const QString &date) { selectCalendarDate(date); }

    /// "yyyy-MM-dd" in the user's time zone.
    QString formatDate(const QDateTime &date) const;
    /// Midnight in the user's time zone; absent when the text is not a "yyyy-MM-dd" date.
    std::optional<QDateTime> parseDate(const QString &text) const;

Q_SIGNALS:
    void originCodeChanged();
    void destinationCodeChanged();
    void tripTypeChanged();
    void departureDateChanged();
    void returnDateChanged();
    void cabinClassChanged();
    void timeRangeChanged();
    void passengersChanged();
    void calendarPricesChanged();
    void bestPriceChanged();
    void selectedDateChanged();
    void currencyChanged();
    void flightsChanged();
    void filteredFlightsChanged();
    void activeFilterChanged();
    void isLoadingChanged();
    void isSearchingFlightsOnlyChanged();
    void errorMessageChanged();
    void hasSearchedChanged();
    void selectedDayIndexChanged();
    void earlierSearchChanged();

private:
    QCoro::Task<> loadCalendar(QString searchDay);
    /// What an error says is told after `failure`, and on the console after `consoleLine` unless
    /// that is empty.
    QCoro::Task<> loadFlights(QString day, QString failure, QString consoleLine);
    /// The day sent as the return day; absent for a one-way trip.
    std::optional<QString> returnDay() const;
    /// "IST–LHR, 2026-12-05" for the airports chosen now.
    QString searchText(const QString &day) const;
    void setFlights(const QList<FlightOption> &flights, const QString &search);
    /// Makes `filteredFlights` of `flights`.
    void arrangeFlights(bool areNew);
    void setErrorMessage(const std::optional<QString> &message);
    void setSelectedDate(const QString &date);

    QString m_originCode = QStringLiteral("IST");
    QString m_destinationCode = QStringLiteral("LHR");
    TripType m_tripType = TripType::oneWay;
    QDateTime m_departureDate;
    QDateTime m_returnDate;
    CabinClass m_cabinClass = CabinClass::economy;
    TimeRange m_timeRange = TimeRange::twoWeeks;
    int m_passengers = 1;
    DailyPriceListModel m_calendarPrices { "price" };
    std::optional<BestPrice> m_bestPrice;
    QString m_selectedDate;
    QString m_currency = QStringLiteral("TRY");
    QList<FlightOption> m_flights;
    QString m_flightsSearch;
    FlightOptionList m_filteredFlights;
    FlightSortOption m_activeFilter = FlightSortOption::cheapest;
    bool m_isLoading = false;
    bool m_isSearchingFlightsOnly = false;
    std::optional<QString> m_errorMessage;
    bool m_hasSearched = false;
};
