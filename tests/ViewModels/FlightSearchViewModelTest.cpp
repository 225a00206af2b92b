#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleCapture.h"
#include "support/ToolAnswers.h"

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 2, 20), QTime(23, 30));
ScriptedAnswer failure() { return ScriptedAnswer::failure(u"%1\ndolu"_s); }

const QList<Offer> fourFlights {
    { u"1"_s, 300, u"2026-03-06T10:00"_s, 240 },
    { u"2"_s, 200, u"2026-03-06T09:00"_s, 250, 2 },
    { u"3"_s, 300, u"2026-03-06T08:00"_s, 240 },
    { u"4"_s, 100, u"2026-03-06T10:00"_s, 500, 2 },
};

QString numbers(const QList<FlightOption> &flights)
{
    QString text;
    for (const FlightOption &flight : flights)
        text += flight.flightNumber.mid(2);
    return text;
}

} // namespace

class FlightSearchViewModelTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ClientTest::init();
        m_calendar = [] { return calendarAnswer({ u"2026-03-06"_s, u"2026-03-07"_s }, u"EUR"_s); };
        m_flights = [] { return flightsAnswer(fourFlights); };
        m_server->onToolCall = [this](const ReceivedRequest &request) {
            return request.tool() == calendarTool ? m_calendar() : m_flights();
        };
        m_model = std::make_unique<FlightSearchViewModel>(nullptr, now);
    }
    void cleanup()
    {
        m_model.reset();
        ClientTest::cleanup();
    }

    void missingAirportsAreNotSent()
    {
        m_model->setDepartureDate(now);
        for (const auto &[origin, destination] : QList<std::pair<QString, QString>> {
                 { QString(), u"LHR"_s }, { u"IST"_s, QString() } }) {
            m_model->setOriginCode(origin);
            m_model->setDestinationCode(destination);
            m_model->startSearchAll();
            QCOMPARE(m_model->errorMessage(),
                     std::optional(u"Lütfen kalkış ve varış havalimanlarını seçin."_s));
            QVERIFY(!m_model->isLoading() && !m_model->hasSearched());
            QCOMPARE(m_model->selectedDate(), u"2026-03-06"_s);
        }
        m_model->swapAirports();
        m_model->setOriginCode(u" "_s); // a code like any other
        search();
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(lastArguments(flightsTool).value("to"_L1).toString(), u"IST"_s);
    }

    void aSearchPublishesInOrder()
    {
        using Model = FlightSearchViewModel;
        const QList<std::pair<QString, void (Model::*)()>> signalsByName {
            { u"isLoading"_s, &Model::isLoadingChanged },
            { u"hasSearched"_s, &Model::hasSearchedChanged },
            { u"calendarPrices"_s, &Model::calendarPricesChanged },
            { u"bestPrice"_s, &Model::bestPriceChanged },
            { u"currency"_s, &Model::currencyChanged },
            { u"filteredFlights"_s, &Model::filteredFlightsChanged },
        };
        QStringList log;
        QString before;
        connect(m_model.get(), &ObservableObject::objectWillChange, this,
                [&] { before = state(); });
        for (const auto &[name, changed] : signalsByName) {
            connect(m_model.get(), changed, this, [&, name = name] {
                log.append(name);
                QVERIFY2(before != state(), qPrintable(name)); // the notice came before the change
                before = state();
            });
        }

        m_flights = [] { return flightsAnswer(fourFlights).held(); };
        m_model->startSearchAll();
        QCOMPARE(log, QStringList({ u"isLoading"_s, u"hasSearched"_s }));
        QTRY_COMPARE(m_server->heldCount(), 1);
        QTRY_COMPARE(log.mid(2),
                     QStringList({ u"calendarPrices"_s, u"bestPrice"_s, u"currency"_s }));
        QVERIFY(m_model->isLoading());
        m_server->release();
        QTRY_COMPARE(log.mid(5), QStringList({ u"filteredFlights"_s, u"isLoading"_s }));
        QCOMPARE(m_model->highestPrice(), 4100.0);
    }

    void failures_data()
    {
        QTest::addColumn<QString>("banner");
        QTest::addColumn<QString>("console");
        QTest::addColumn<QString>("kept"); // flights, days and currency
        QTest::newRow("calendar") << QString() << u"Price calendar fetch error: %1 dolu\n"_s
                                  << u"9 2 EUR"_s;
        QTest::newRow("flights") << u"Uçuş bilgileri alınırken hata oluştu: %1\ndolu"_s
                                 << u"Flights search error: %1 dolu\n"_s << u"4213 1 USD"_s;
        QTest::newRow("day") << u"Seçilen tarih (%2) için uçuşlar yüklenemedi: %1\ndolu"_s
                             << QString() << u"4213 2 EUR"_s;
    }
    void failures()
    {
        QFETCH(QString, banner);
        QFETCH(QString, console);
        QFETCH(QString, kept);
        const QByteArray failing = QTest::currentDataTag();
        search();
        m_calendar = [=] {
            return failing == "calendar" ? failure()
                                         : calendarAnswer({ u"2026-04-01"_s }, u"USD"_s);
        };
        m_flights = [=] {
            return failing == "calendar" ? flightsAnswer({ { u"9"_s } }) : failure();
        };
        ConsoleCapture capture;
        if (failing == "day")
            m_model->startSelectCalendarDate(u"%2"_s);
        else
            m_model->startSearchAll();
        QTRY_VERIFY(!m_model->isLoading() && !m_model->isSearchingFlightsOnly());
        QCOMPARE(m_model->errorMessage().value_or(QString()), banner);
        QCOMPARE(capture.text(), console);
        QCOMPARE(state(), u"hasSearched hasBest "_s + kept);
    }

    void quittingPrintsNothing()
    {
        m_calendar = m_flights = [] { return ScriptedAnswer::content().held(); };
        ConsoleCapture capture;
        m_model->startSearchAll();
        QTRY_COMPARE(m_server->heldCount(), 2);
        QVERIFY(QMetaObject::invokeMethod(qApp, "aboutToQuit"));
        QVERIFY(!m_model->isLoading());
        QCOMPARE(capture.text(), QString());
    }

    void choosingADay()
    {
        search();
        const QDateTime departure = m_model->departureDate();
        m_model->setTripType(TripType::roundTrip);
        m_model->setPassengers(3);
        m_flights = [] { return flightsAnswer({ { u"7"_s } }).held(); };
        for (const QString &day : { u"2026-13-45"_s, u"2026-03-09"_s }) {
            m_model->startSelectCalendarDate(day);
            QCOMPARE(m_model->selectedDate(), day);
            QVERIFY(m_model->isSearchingFlightsOnly() && !m_model->isLoading());
            QTRY_COMPARE(m_server->heldCount(), 1);
            const QJsonObject arguments = lastArguments(flightsTool);
            QCOMPARE(arguments.value("departureDate"_L1), day);
            QCOMPARE(arguments.value("returnDate"_L1),
                     m_model->returnDate().toString(u"yyyy-MM-dd"_s));
            QCOMPARE(arguments["passengers"_L1][0]["quantity"_L1], 3);
            QCOMPARE(m_model->departureDate(),
                     day == u"2026-03-09" ? QDate(2026, 3, 9).startOfDay() : departure);
            m_server->release();
            QTRY_VERIFY(!m_model->isSearchingFlightsOnly());
        }
        QCOMPARE(numbers(m_model->filteredFlights()), u"7"_s);
    }

    void filters()
    {
        const QList<std::pair<FlightSortOption, QString>> orders {
            { FlightSortOption::cheapest, u"4213"_s },
            { FlightSortOption::earliest, u"3214"_s },
            { FlightSortOption::fastest, u"1324"_s },
            { FlightSortOption::directOnly, u"13"_s },
        };
        for (const auto &[option, shown] : orders) {
            // The new list is arranged on arrival; then again.
            m_model->applyFilter(option);
            search();
            QCOMPARE(numbers(m_model->filteredFlights()), shown);
            QVERIFY(m_model->filteredFlightsList()->areNew());
            m_model->applyFilter(FlightSortOption::directOnly);
            m_model->applyFilter(option);
            QCOMPARE(numbers(m_model->filteredFlights()), shown);
            QVERIFY(!m_model->filteredFlightsList()->areNew());
        }
        QCOMPARE(numbers(m_model->flights()), u"1234"_s);
    }

private:
    QString state() const
    {
        return u"%1%2%3%4 %5 %6"_s.arg(m_model->isLoading() ? u"isLoading "_s : QString())
            .arg(m_model->hasSearched() ? u"hasSearched "_s : QString())
            .arg(m_model->bestPrice() ? u"hasBest "_s : QString())
            .arg(numbers(m_model->filteredFlights()))
            .arg(m_model->calendarPrices().size())
            .arg(m_model->currency());
    }
    void search()
    {
        m_model->startSearchAll();
        QTRY_VERIFY(!m_model->isLoading());
    }
    QJsonObject lastArguments(const QString &tool) const
    {
        QJsonObject arguments;
        for (const ReceivedRequest &request : m_server->toolCalls()) {
            if (request.tool() == tool)
                arguments = request.arguments();
        }
        return arguments;
    }

    std::unique_ptr<FlightSearchViewModel> m_model;
    std::function<ScriptedAnswer()> m_calendar;
    std::function<ScriptedAnswer()> m_flights;
};

QTEST_GUILESS_MAIN(FlightSearchViewModelTest)
#include "FlightSearchViewModelTest.moc"
