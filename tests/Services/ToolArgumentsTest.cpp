#include "support/ClientTesting.h"
#include "support/ScriptedServer.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

/// The arguments of the five tools as the server receives them.
class ToolArgumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_server = std::make_unique<ScriptedServer>();
        m_client = &VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
    }
    void cleanup()
    {
        VTRMCPClientTestAccess::destroyShared();
        m_server.reset();
    }

    void priceCalendar();
    void flights();
    void flightStatus();
    void promotionsAndGuide();

private:
    template<typename T>
    void expect(QCoro::Task<T> task, const QString &tool, const char *arguments);

    std::unique_ptr<ScriptedServer> m_server;
    VTRMCPClient *m_client = nullptr;
};

template<typename T>
void ToolArgumentsTest::expect(QCoro::Task<T> task, const QString &tool, const char *arguments)
{
    const auto outcome = settle(std::move(task));
    QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
    const ReceivedRequest received = m_server->requests().constLast();
    QCOMPARE(received.tool(), tool);
    QCOMPARE(QJsonDocument(received.arguments()), QJsonDocument::fromJson(arguments));
}

void ToolArgumentsTest::priceCalendar()
{
    const QString tool = u"find_flight_price_calendar"_s;
    expect(m_client->fetchPriceCalendar(u"ist"_s, u"lhr"_s, u"2026-3-1"_s, TripType::oneWay,
                                        TimeRange::oneWeek, CabinClass::business),
           tool, R"({ "originAirportCode": "IST", "destinationAirportCode": "LHR",
                      "departureDate": "2026-3-1", "tripType": "ONE_WAY", "timeRange": "1_WEEK",
                      "cabinClass": "BUSINESS", "isReturnFlight": false, "stayDuration": 14 })");
    expect(m_client->fetchPriceCalendar(u" iı"_s, QString(), u"2026-03-01"_s, TripType::roundTrip,
                                        TimeRange::fourWeeks, CabinClass::economy),
           tool, R"({ "originAirportCode": " II", "destinationAirportCode": "",
                      "departureDate": "2026-03-01", "tripType": "ROUND_TRIP",
                      "timeRange": "4_WEEKS", "cabinClass": "ECONOMY", "isReturnFlight": false,
                      "stayDuration": 14 })");
}

void ToolArgumentsTest::flights()
{
    const QString tool = u"search_flights"_s;
    const auto search = [this](std::optional<QString> returnDate, TripType tripType, int count) {
        return m_client->searchFlights(u"ist"_s, u"Lhr"_s, u"2026-03-01"_s, returnDate, tripType,
                                       count);
    };
    expect(search(std::nullopt, TripType::oneWay, 1), tool,
           R"({ "from": "IST", "to": "LHR", "departureDate": "2026-03-01", "tripType": "one_way",
                "passengers": [{ "passengerType": "ADT", "quantity": 1 }] })");
    expect(search(u"2026-03-08"_s, TripType::roundTrip, 9), tool,
           R"({ "from": "IST", "to": "LHR", "departureDate": "2026-03-01", "tripType": "round",
                "returnDate": "2026-03-08",
                "passengers": [{ "passengerType": "ADT", "quantity": 9 }] })");
    // A return date makes the trip round, but only a round trip sends it.
    expect(search(u"2026-03-08"_s, TripType::oneWay, 2), tool,
           R"({ "from": "IST", "to": "LHR", "departureDate": "2026-03-01", "tripType": "round",
                "passengers": [{ "passengerType": "ADT", "quantity": 2 }] })");
    expect(search(std::nullopt, TripType::roundTrip, 0), tool,
           R"({ "from": "IST", "to": "LHR", "departureDate": "2026-03-01", "tripType": "round",
                "passengers": [{ "passengerType": "ADT", "quantity": 0 }] })");
}

void ToolArgumentsTest::flightStatus()
{
    const QString tool = u"flight-status"_s;
    expect(m_client->checkFlightStatus(u"  vq1983 \n"_s, std::nullopt), tool,
           R"({ "flightNumber": "VQ1983" })");
    expect(m_client->checkFlightStatus(u"vq 1983"_s, QString()), tool,
           R"({ "flightNumber": "VQ 1983" })");
    expect(m_client->checkFlightStatus(u"1983"_s, u"2026-03-01"_s), tool,
           R"({ "flightNumber": "1983", "flightDate": "2026-03-01" })");
}

void ToolArgumentsTest::promotionsAndGuide()
{
    expect(m_client->fetchPromotions(), u"get_airline_promotions"_s,
           R"({ "departureAirportCode": "IST", "countryCode": "TR" })");
    expect(m_client->fetchPromotions(u"esb"_s, u"tr"_s), u"get_airline_promotions"_s,
           R"({ "departureAirportCode": "ESB", "countryCode": "TR" })");
    expect(m_client->fetchCityGuide(u"fco"_s), u"get_city_guide"_s, R"({ "cityCode": "FCO" })");
}

QTEST_GUILESS_MAIN(ToolArgumentsTest)
#include "ToolArgumentsTest.moc"
