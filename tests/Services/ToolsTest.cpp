#include "Services/CityGuideTool.h"
#include "Services/FlightSearchTool.h"
#include "Services/FlightStatusTool.h"
#include "Services/PriceCalendarTool.h"
#include "Services/PromotionsTool.h"
#include "Services/ServiceAddresses.h"
#include "support/ClientTesting.h"
#include "support/ParsedJson.h"
#include "support/ToolAnswers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

/// What QML sees; "<web site>" stands for the built-in address.
template<typename Record>
QJsonObject members(const Record &record)
{
    QJsonObject json = propertiesOf(record);
    for (QJsonValueRef value : json) {
        if (value == ServiceAddresses::webSite())
            value = u"<web site>"_s;
    }
    return json;
}

template<typename Record>
QJsonArray membersOfAll(const QList<Record> &records)
{
    QJsonArray list;
    for (const Record &record : records)
        list.append(members(record));
    return list;
}

/// What the reader named as the folder makes of a reply.
QJsonValue read(const QString &reader, const JsonObject &reply, const QString &code)
{
    if (reader == u"calendar") {
        const PriceCalendar calendar = PriceCalendarTool::parsePriceCalendar(reply);
        const auto &best = calendar.bestPrice;
        return QJsonObject { { u"currency"_s, calendar.currency },
                             { u"bestPrice"_s, best ? members(*best) : QJsonValue() },
                             { u"prices"_s, membersOfAll(calendar.prices) } };
    }
    if (reader == u"flights")
        return membersOfAll(FlightSearchTool::parseFlightOptions(reply, u"ist"_s, u"lhr"_s));
    if (reader == u"status")
        return members(FlightStatusTool::parseFlightStatus(reply, u" vq12 "_s, u"2026-03-01"_s));
    if (reader == u"promotions")
        return membersOfAll(PromotionsTool::parsePromotions(reply));
    return members(CityGuideTool::parseCityGuide(reply, code));
}

/// Where `actual` lacks what `expected` lists; members that are not listed do not matter.
QStringList differences(const QJsonValue &actual, const QJsonValue &expected, const QString &path)
{
    QStringList found;
    const QJsonArray elements = expected.toArray();
    if (expected.isArray() && actual.toArray().size() == elements.size()) {
        for (int index = 0; index < elements.size(); ++index)
            found += differences(actual[index], elements[index], path + u"/%1"_s.arg(index));
    } else if (expected.isObject() && actual.isObject()) {
        const QJsonObject members = expected.toObject();
        for (auto it = members.begin(); it != members.end(); ++it)
            found += differences(actual[it.key()], it.value(), path + u'/' + it.key());
    } else if (actual != expected) {
        const QJsonDocument pair(QJsonArray { actual, expected });
        found += path + u": "_s + QString::fromUtf8(pair.toJson(QJsonDocument::Compact));
    }
    return found;
}

} // namespace

/// The tools: arguments that no view asks for, as the server receives them, and the lenient readers
/// on replies from data files.
class ToolsTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void arguments()
    {
        VTRMCPClient &client = VTRMCPClient::shared();
        expect(client.fetchPriceCalendar(u" iı"_s, QString(), u"2026-3-1"_s, TripType::oneWay,
                                         TimeRange::fourWeeks, CabinClass::economy),
               calendarTool,
               R"({ "originAirportCode": " II", "destinationAirportCode": "",
                "departureDate": "2026-3-1", "tripType": "ONE_WAY", "timeRange": "4_WEEKS",
                "cabinClass": "ECONOMY", "isReturnFlight": false, "stayDuration": 14 })");
        // A return date makes the trip round, but only a round trip sends it.
        expect(client.searchFlights(u"ist"_s, u"Lhr"_s, u"2026-03-01"_s, u"2026-03-08"_s,
                                    TripType::oneWay, 0),
               flightsTool,
               R"({ "from": "IST", "to": "LHR", "departureDate": "2026-03-01", "tripType": "round",
                "passengers": [{ "passengerType": "ADT", "quantity": 0 }] })");
        expect(client.checkFlightStatus(u"  vq 1983 \n"_s, QString()), statusTool,
               R"({ "flightNumber": "VQ 1983" })");
        expect(client.fetchPromotions(u"esb"_s, u"tr"_s), promotionsTool,
               R"({ "departureAirportCode": "ESB", "countryCode": "TR" })");
    }

    void replies_data()
    {
        QTest::addColumn<QString>("reader");
        QTest::addColumn<QString>("path");
        const QDir data(QFINDTESTDATA("data"));
        for (const QString &reader : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QDir folder(data.filePath(reader));
            for (const QString &file : folder.entryList({ u"*.json"_s }))
                QTest::newRow(qPrintable(reader + u'/' + file)) << reader << folder.filePath(file);
        }
    }
    void replies()
    {
        QFETCH(QString, reader);
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray json = file.readAll();
        const QJsonObject example = parsed(json);
        const auto reply = received(json).object("reply");
        QVERIFY(reply && example.contains("expected"_L1));

        const QJsonValue actual = read(reader, *reply, example.value("code"_L1).toString());
        const QStringList found = differences(actual, example.value("expected"_L1), QString());
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u"\n"_s)));
    }

private:
    /// Ends the task and compares what the server received with `arguments`.
    template<typename T>
    void expect(QCoro::Task<T> task, const QString &tool, const char *arguments)
    {
        const auto outcome = settle(std::move(task));
        QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
        const ReceivedRequest received = m_server->requests().constLast();
        QCOMPARE(received.tool(), tool);
        QCOMPARE(QJsonDocument(received.arguments()), QJsonDocument::fromJson(arguments));
    }
};

QTEST_GUILESS_MAIN(ToolsTest)
#include "ToolsTest.moc"
