#include "Services/FlightStatusTool.h"

#include "Models/JsonObject.h"
#include "Services/ToolCall.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace FlightStatusTool {

QJsonObject arguments(const QString &flightNumber, const std::optional<QString> &date)
{
    QJsonObject arguments { { u"flightNumber"_s, flightNumber.trimmed().toUpper() } };
    if (date && !date->isEmpty())
        arguments.insert("flightDate"_L1, *date);
    return arguments;
}

FlightStatusResult parseFlightStatus(const JsonObject &result, const QString &requestedNumber,
                                     const std::optional<QString> &requestedDate)
{
    const JsonObject source = result.object("flightData").value_or(result);
    const auto read = [&source](std::string_view key, const QString &fallback) {
        return source.text(key).value_or(fallback);
    };

    FlightStatusResult status;
    status.flightNumber = read("flightNumber", requestedNumber.toUpper());
    status.date = requestedDate;
    status.status = read("status", u"Zamanında (On Time)"_s);
    status.originAirport = status.originCity = read("origin", u"IST"_s);
    status.destinationAirport = status.destinationCity = read("destination", u"LHR"_s);
    status.scheduledDeparture = read("scheduledDeparture", u"11:20"_s);
    status.estimatedDeparture =
        read("actualDeparture", read("estimatedDeparture", status.scheduledDeparture));
    status.scheduledArrival = read("scheduledArrival", u"14:05"_s);
    status.estimatedArrival =
        read("actualArrival", read("estimatedArrival", status.scheduledArrival));
    status.terminal = read("terminal", u"T1"_s);
    status.gate = read("gate", u"F12"_s);
    status.baggageBelt = source.text("baggage");
    if (!status.baggageBelt)
        status.baggageBelt = source.text("baggageBelt");
    status.aircraftType = read("aircraft", u"Boeing 787-9 Dreamliner"_s);
    return status;
}

} // namespace FlightStatusTool

QCoro::Task<FlightStatusResult> VTRMCPClient::checkFlightStatus(QString flightNumber,
                                                                std::optional<QString> date)
{
    const QString tool = u"flight-status"_s;
    const QJsonObject arguments = FlightStatusTool::arguments(flightNumber, date);
    const std::function<FlightStatusResult(const JsonObject &)> reader =
        [flightNumber, date](const JsonObject &result) {
            return FlightStatusTool::parseFlightStatus(result, flightNumber, date);
        };
    co_return co_await callTool<FlightStatusResult>(tool, arguments, reader);
}
