#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleCapture.h"
#include "support/ScriptedServer.h"

#include <QJsonArray>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 2, 20), QTime(23, 30));
const QString calendarTool = u"find_flight_price_calendar"_s;
const QString flightsTool = u"search_flights"_s;

ScriptedAnswer failure(const QString &message)
{
    return ScriptedAnswer::json({ { u"error"_s, QJsonObject { { u"message"_s, message } } } });
}

ScriptedAnswer calendar(const QStringList &days, const QString &currency = u"EUR"_s)
{
    QJsonArray prices;
    for (const QString &day : days)
        prices.append(QJsonObject { { u"date"_s, day }, { u"amount"_s, 100 + prices.size() } });
    const QJsonObject best { { u"date"_s, days.value(0) }, { u"amount"_s, 100 } };
    return ScriptedAnswer::content(
        { { u"prices"_s, prices }, { u"bestPrice"_s, best }, { u"currency"_s, currency } });
}

struct Offer
{
    const char *number;
    double price;
    const char *departure;
    int minutes;
    bool isDirect = true;
};

ScriptedAnswer flights(const QList<Offer> &offers)
{
    QJsonArray options;
    for (const Offer &offer : offers) {
        const QJsonObject segment {
            { u"flightNumber"_s, QString::fromLatin1(offer.number) },
            { u"departureDateTime"_s, u"2026-03-06T"_s + QString::fromLatin1(offer.departure) },
        };
        QJsonArray segments { segment };
        if (!offer.isDirect)
            segments.append(segment);
        options.append(QJsonObject { { u"flightSegments"_s, segments },
                                     { u"journeyDuration"_s, offer.minutes * 60'000 },
                                     { u"cheapestPriceAmount"_s, offer.price } });
    }
    const QJsonArray informations { QJsonObject { { u"originDestinationOptions"_s, options } } };
    return ScriptedAnswer::content(
        { { u"availabilityData"_s,
            QJsonObject { { u"originDestinationInformations"_s, informations } } } });
}

const QList<Offer> fourFlights {
    { "1", 300, "10:00", 240 },
    { "2", 200, "09:00", 250, false },
    { "3", 300, "08:00", 240 },
    { "4", 100, "10:00", 500, false },
};

QString numbers(const QList<FlightOption> &flights)
{
    QString text;
    for (const FlightOption &flight : flights)
        text += flight.flightNumber.mid(2);
    return text;
}

} // namespace

class FlightSearchViewModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFreshObject();
    void missingAirportsAreNotSent();
    void aSearchPublishesInOrder();
    void arguments_data();
    void arguments();
    void aFailedCalendarIsSilent();
    void failedFlightsAreTold();
    void choosingADay();
    void aFailedDayIsTold();
    void theLaterAnswerStays();
    void filters_data();
    void filters();
    void aResortMovesRows();
    void theObjectMayGoDuringASearch();

private:
    void search();
    QJsonObject lastArguments(const QString &tool) const;

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<FlightSearchViewModel> m_model;
    std::function<ScriptedAnswer()> m_calendar;
    std::function<ScriptedAnswer()> m_flights;
};

void FlightSearchViewModelTest::init()
{
    m_calendar = [] { return calendar({ u"2026-03-06"_s, u"2026-03-07"_s }); };
    m_flights = [] { return flights(fourFlights); };
    m_server = std::make_unique<ScriptedServer>();
    m_server->onToolCall = [this](const ReceivedRequest &request) {
        return request.tool() == calendarTool ? m_calendar() : m_flights();
    };
    VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
    m_model = std::make_unique<FlightSearchViewModel>(nullptr, now);
}

void FlightSearchViewModelTest::cleanup()
{
    m_model.reset();
    VTRMCPClientTestAccess::destroyShared();
    m_server.reset();
}

void FlightSearchViewModelTest::search()
{
    m_model->startSearchAll();
    QTRY_VERIFY(!m_model->isLoading());
}

QJsonObject FlightSearchViewModelTest::lastArguments(const QString &tool) const
{
    QJsonObject arguments;
    for (const ReceivedRequest &request : m_server->toolCalls()) {
        if (request.tool() == tool)
            arguments = request.arguments();
    }
    return arguments;
}

void FlightSearchViewModelTest::aFreshObject()
{
    QCOMPARE(m_model->originAirport().city, u"Istanbul"_s);
    QCOMPARE(m_model->destinationAirport().code, u"LHR"_s);
    QCOMPARE(m_model->departureDate(), now.addDays(14));
    QCOMPARE(m_model->returnDate(), now.addDays(21));
    QCOMPARE(m_model->selectedDate(), u"2026-03-06"_s);
    QCOMPARE(m_model->passengers(), 1);
    QCOMPARE(m_model->timeRange(), TimeRange::twoWeeks);
    QCOMPARE(m_model->currency(), u"TRY"_s);
    QCOMPARE(m_model->activeFilter(), FlightSortOption::cheapest);
    QCOMPARE(m_model->highestPrice(), 1.0);
    QVERIFY(!m_model->isRoundTrip() && !m_model->bestPrice() && !m_model->hasSearched());
    QVERIFY(!m_model->isLoading() && !m_model->isSearchingFlightsOnly());
    QVERIFY(!m_model->errorMessage() && m_model->filteredFlights().isEmpty());
}

void FlightSearchViewModelTest::missingAirportsAreNotSent()
{
    m_model->setDepartureDate(now);
    for (const auto &[origin, destination] :
         QList<std::pair<QString, QString>> { { QString(), u"LHR"_s }, { u"IST"_s, QString() } }) {
        m_model->setOriginCode(origin);
        m_model->setDestinationCode(destination);
        m_model->startSearchAll();
        QCOMPARE(m_model->errorMessage(),
                 std::optional(u"Lütfen kalkış ve varış havalimanlarını seçin."_s));
        QVERIFY(!m_model->isLoading() && !m_model->hasSearched());
        QCOMPARE(m_model->selectedDate(), u"2026-03-06"_s);
    }
    // Blanks are a code like any other, and a valid search clears the message.
    m_model->setDestinationCode(u" "_s);
    m_model->swapAirports();
    search();
    QVERIFY(!m_model->errorMessage());
    QCOMPARE(lastArguments(flightsTool).value("from"_L1).toString(), u" "_s);
    QCOMPARE(lastArguments(flightsTool).value("to"_L1).toString(), u"IST"_s);
    QCOMPARE(m_server->toolCalls().size(), 2);
}

void FlightSearchViewModelTest::aSearchPublishesInOrder()
{
    QStringList log;
    const auto state = [this] {
        return u"%1%2%3 %4 %5"_s.arg(m_model->isLoading())
            .arg(m_model->hasSearched())
            .arg(m_model->bestPrice().has_value())
            .arg(m_model->calendarPrices().size())
            .arg(m_model->currency() + numbers(m_model->filteredFlights()));
    };
    QString before;
    connect(m_model.get(), &ObservableObject::objectWillChange, this, [&] { before = state(); });
    const auto watch = [&](auto changed, const QString &name) {
        connect(m_model.get(), changed, this, [&, name] {
            log.append(name);
            QVERIFY2(before != state(), qPrintable(name + u" without a change after the notice"_s));
            before = state();
        });
    };
    using Model = FlightSearchViewModel;
    watch(&Model::isLoadingChanged, u"isLoading"_s);
    watch(&Model::hasSearchedChanged, u"hasSearched"_s);
    watch(&Model::calendarPricesChanged, u"calendarPrices"_s);
    watch(&Model::bestPriceChanged, u"bestPrice"_s);
    watch(&Model::currencyChanged, u"currency"_s);
    watch(&Model::filteredFlightsChanged, u"filteredFlights"_s);

    m_flights = [] { return flights(fourFlights).held(); };
    m_model->startSearchAll();
    QCOMPARE(log, QStringList({ u"isLoading"_s, u"hasSearched"_s }));
    QTRY_COMPARE(m_server->heldCount(), 1);
    QTRY_COMPARE(log.mid(2), QStringList({ u"calendarPrices"_s, u"bestPrice"_s, u"currency"_s }));
    QVERIFY(m_model->isLoading());
    m_server->release();
    QTRY_COMPARE(log.mid(5), QStringList({ u"filteredFlights"_s, u"isLoading"_s }));
    QCOMPARE(m_model->highestPrice(), 101.0);
}

void FlightSearchViewModelTest::arguments_data()
{
    QTest::addColumn<TripType>("tripType");
    QTest::addColumn<QString>("wireTripType");
    QTest::addColumn<QJsonValue>("returnDate");
    QTest::newRow("one way") << TripType::oneWay << u"one_way"_s
                             << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("round") << TripType::roundTrip << u"round"_s << QJsonValue(u"2026-03-13"_s);
}

void FlightSearchViewModelTest::arguments()
{
    QFETCH(TripType, tripType);
    QFETCH(QString, wireTripType);
    QFETCH(QJsonValue, returnDate);
    m_model->setTripType(tripType);
    m_model->setPassengers(3);
    m_model->setTimeRange(TimeRange::fourWeeks);
    m_model->setCabinClass(CabinClass::business);
    search();
    const QJsonObject asked = lastArguments(flightsTool);
    QCOMPARE(asked.value("departureDate"_L1), u"2026-03-06"_s);
    QCOMPARE(asked.value("tripType"_L1), wireTripType);
    QCOMPARE(asked.value("returnDate"_L1), returnDate);
    QCOMPARE(asked.value("passengers"_L1).toArray().at(0).toObject().value("quantity"_L1), 3);
    const QJsonObject calendarAsked = lastArguments(calendarTool);
    QCOMPARE(calendarAsked.value("departureDate"_L1), u"2026-03-06"_s);
    QCOMPARE(calendarAsked.value("timeRange"_L1), u"4_WEEKS"_s);
    QCOMPARE(calendarAsked.value("cabinClass"_L1), u"BUSINESS"_s);
    QCOMPARE(calendarAsked.value("tripType"_L1), SearchOptions::rawValue(tripType));
    QVERIFY(!calendarAsked.contains("returnDate"_L1));
}

void FlightSearchViewModelTest::aFailedCalendarIsSilent()
{
    search();
    ConsoleCapture console;
    m_calendar = [] { return failure(u"takvim yok"_s); };
    m_flights = [] { return flights({ { "9", 1, "01:00", 1 } }); };
    search();
    QCOMPARE(console.text(), u"Price calendar fetch error: takvim yok\n"_s);
    QVERIFY(!m_model->errorMessage());
    QCOMPARE(numbers(m_model->filteredFlights()), u"9"_s);
    QCOMPARE(m_model->calendarPrices().size(), 2);
    QVERIFY(m_model->bestPrice());
    QCOMPARE(m_model->currency(), u"EUR"_s);
}

void FlightSearchViewModelTest::failedFlightsAreTold()
{
    search();
    ConsoleCapture console;
    m_calendar = [] { return calendar({ u"2026-04-01"_s }, u"USD"_s); };
    m_flights = [] { return failure(u"uçuş yok"_s); };
    search();
    QCOMPARE(console.text(), u"Flights search error: uçuş yok\n"_s);
    QCOMPARE(m_model->errorMessage(),
             std::optional(u"Uçuş bilgileri alınırken hata oluştu: uçuş yok"_s));
    QCOMPARE(numbers(m_model->filteredFlights()), u"4213"_s);
    QCOMPARE(m_model->currency(), u"USD"_s);
    QVERIFY(m_model->hasSearched());
}

void FlightSearchViewModelTest::choosingADay()
{
    search();
    const QDateTime departure = m_model->departureDate();
    m_flights = [] { return flights({ { "7", 1, "01:00", 1 } }).held(); };
    for (const QString &day : { u"2026-13-45"_s, u"2026-03-09"_s }) {
        m_model->startSelectCalendarDate(day);
        QCOMPARE(m_model->selectedDate(), day);
        QVERIFY(m_model->isSearchingFlightsOnly() && !m_model->isLoading());
        QTRY_COMPARE(m_server->heldCount(), 1);
        QCOMPARE(lastArguments(flightsTool).value("departureDate"_L1), day);
        QCOMPARE(m_model->departureDate(),
                 day == u"2026-03-09" ? QDate(2026, 3, 9).startOfDay() : departure);
        m_server->release();
        QTRY_VERIFY(!m_model->isSearchingFlightsOnly());
    }
    QCOMPARE(numbers(m_model->filteredFlights()), u"7"_s);
    QCOMPARE(m_model->calendarPrices().size(), 2);
    QCOMPARE(m_server->toolCalls().size(), 4);
}

void FlightSearchViewModelTest::aFailedDayIsTold()
{
    search();
    ConsoleCapture console;
    m_flights = [] { return failure(u"%1 dolu"_s); };
    m_model->startSelectCalendarDate(u"%2"_s);
    QTRY_VERIFY(!m_model->isSearchingFlightsOnly());
    QCOMPARE(m_model->errorMessage(),
             std::optional(u"Seçilen tarih (%2) için uçuşlar yüklenemedi: %1 dolu"_s));
    QCOMPARE(console.text(), QString());
    QCOMPARE(numbers(m_model->filteredFlights()), u"4213"_s);
}

void FlightSearchViewModelTest::theLaterAnswerStays()
{
    search();
    m_server->onToolCall = [](const ReceivedRequest &request) {
        const bool isFirstDay = request.arguments().value("departureDate"_L1) == u"2026-03-01"_s;
        return flights({ { isFirstDay ? "1" : "2", 1, "01:00", 1 } }).held();
    };
    m_model->startSelectCalendarDate(u"2026-03-01"_s);
    QTRY_COMPARE(m_server->heldCount(), 1);
    m_model->startSelectCalendarDate(u"2026-03-02"_s);
    QTRY_COMPARE(m_server->heldCount(), 2);
    m_server->release(1);
    QTRY_COMPARE(numbers(m_model->flights()), u"2"_s);
    m_server->release(0);
    QTRY_COMPARE(numbers(m_model->flights()), u"1"_s);
    QCOMPARE(m_model->selectedDate(), u"2026-03-02"_s);
}

void FlightSearchViewModelTest::filters_data()
{
    QTest::addColumn<FlightSortOption>("option");
    QTest::addColumn<QString>("shown");
    QTest::newRow("cheapest") << FlightSortOption::cheapest << u"4213"_s;
    QTest::newRow("earliest") << FlightSortOption::earliest << u"3214"_s;
    QTest::newRow("fastest") << FlightSortOption::fastest << u"1324"_s;
    QTest::newRow("direct only") << FlightSortOption::directOnly << u"13"_s;
}

void FlightSearchViewModelTest::filters()
{
    QFETCH(FlightSortOption, option);
    QFETCH(QString, shown);
    // Before the search, so that the new list is arranged on arrival; then again on the list.
    m_model->applyFilter(option);
    search();
    QCOMPARE(numbers(m_model->filteredFlights()), shown);
    m_model->applyFilter(FlightSortOption::directOnly);
    QCOMPARE(numbers(m_model->filteredFlights()), u"13"_s);
    m_model->applyFilter(option);
    QCOMPARE(numbers(m_model->filteredFlights()), shown);
    QCOMPARE(numbers(m_model->flights()), u"1234"_s);
}

void FlightSearchViewModelTest::aResortMovesRows()
{
    search();
    QSignalSpy moves(m_model->filteredFlightsModel(), &QAbstractItemModel::rowsMoved);
    QSignalSpy resets(m_model->filteredFlightsModel(), &QAbstractItemModel::modelReset);
    QSignalSpy removals(m_model->filteredFlightsModel(), &QAbstractItemModel::rowsRemoved);
    m_model->applyFilter(FlightSortOption::earliest);
    QVERIFY(!moves.isEmpty());
    QVERIFY(resets.isEmpty() && removals.isEmpty());
}

void FlightSearchViewModelTest::theObjectMayGoDuringASearch()
{
    ConsoleCapture console;
    m_calendar = [] { return calendar({}).held(); };
    m_flights = [] { return failure(u"geç"_s).held(); };
    m_model->startSearchAll();
    m_model->startSelectCalendarDate(u"2026-03-09"_s);
    QTRY_COMPARE(m_server->heldCount(), 3);
    m_model.reset();
    while (m_server->heldCount() > 0)
        m_server->release();
    QTRY_COMPARE(console.text(), u"Flights search error: geç\n"_s);
    m_calendar = [] { return calendar({}); };
    m_model = std::make_unique<FlightSearchViewModel>(nullptr, now);
    m_flights = [] { return flights(fourFlights); };
    search();
    QCOMPARE(numbers(m_model->filteredFlights()), u"4213"_s);
}

QTEST_GUILESS_MAIN(FlightSearchViewModelTest)
#include "FlightSearchViewModelTest.moc"
