#include "support/ReaderChecks.h"

#include "Models/PriceCalendar.h"
#include "Services/CityGuideTool.h"
#include "Services/FlightSearchTool.h"
#include "Services/FlightStatusTool.h"
#include "Services/McpError.h"
#include "Services/PriceCalendarTool.h"
#include "Services/PromotionsTool.h"
#include "Services/ToolResult.h"
#include "support/ParsedJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void require(bool holds, const char *what)
{
    if (!holds)
        qFatal("This does not hold: %s", what);
}

/// A reply is read, or refused as the server's fault.
void checkReply(const QByteArray &bytes)
{
    try {
        readToolResult(bytes);
    } catch (const McpError &error) {
        require(error.domain() != McpError::Domain::Internal, "an error of the server's");
    }
}

/// What is read from what was written is the same.
template<typename Record>
void checkRecord(const JsonObject &json)
{
    try {
        const QJsonObject written = Record::fromJson(json).toJson();
        const JsonObject read = received(QJsonDocument(written).toJson());
        require(Record::fromJson(read).toJson() == written, "a round trip");
    } catch (const DecodingError &) { }
}

void checkFlights(const JsonObject &reply)
{
    QSet<QString> ids;
    const auto flights = FlightSearchTool::parseFlightOptions(reply, u"ist"_s, u"lhr"_s);
    for (const FlightOption &flight : flights) {
        ids.insert(flight.id);
        require(flight.price > 0, "a price");
        require(!flight.formattedPrice().isEmpty(), "a price text");
        require(flight.isDirect == (flight.stopsCount == 0), "direct without stops");
        require(flight.seatAvailability && flight.bookingURL, "seats and a link");
    }
    require(ids.size() == flights.size(), "ids of their own");
}

void checkStatus(const JsonObject &reply)
{
    const auto status = FlightStatusTool::parseFlightStatus(reply, u"vq12"_s, u"2026-03-01"_s);
    require(status.estimatedDeparture && status.estimatedArrival && status.terminal && status.gate
                && status.aircraftType,
            "nothing but the belt is absent");
    require(status.originAirport == status.originCity, "the city is the airport's text");
    status.isDelayed();
    status.isInAir();
    status.isLanded();
}

using ObjectCheck = void (*)(const JsonObject &);
const std::pair<QString, ObjectCheck> objectChecks[] {
    { u"calendar"_s,
      [](const JsonObject &reply) {
          const PriceCalendar calendar = PriceCalendarTool::parsePriceCalendar(reply);
          for (const DailyPrice &day : calendar.prices)
              require(day.currency.has_value(), "a day has a currency");
      } },
    { u"flights"_s, checkFlights },
    { u"status"_s, checkStatus },
    { u"promotions"_s,
      [](const JsonObject &reply) {
          for (const PromotionItem &promotion : PromotionsTool::parsePromotions(reply))
              require(!promotion.title.isEmpty(), "a title");
      } },
    { u"guide"_s,
      [](const JsonObject &reply) {
          const CityGuideInfo guide = CityGuideTool::parseCityGuide(reply, u"xyz"_s);
          require(guide.bestTimeToVisit.has_value(), "a best time");
      } },
    { u"records"_s,
      [](const JsonObject &json) {
          checkRecord<DailyPrice>(json);
          checkRecord<BestPrice>(json);
          checkRecord<PriceCalendarResult>(json);
      } },
};

} // namespace

QStringList ReaderChecks::readers()
{
    QStringList names { u"reply"_s };
    for (const auto &[name, check] : objectChecks)
        names.append(name);
    return names;
}

void ReaderChecks::check(const QString &reader, const QByteArray &bytes)
{
    if (reader == u"reply")
        return checkReply(bytes);
    const JsonObject json = received(bytes);
    const JsonObject reply = json.object("reply").value_or(json);
    for (const auto &[name, checkObject] : objectChecks) {
        if (name == reader)
            checkObject(reply);
    }
}
