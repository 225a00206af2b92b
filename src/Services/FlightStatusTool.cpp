#include "Services/FlightStatusTool.h"

#include "Models/JsonReading.h"
#include "Services/ToolCall.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;
using namespace JsonReading;

namespace FlightStatusTool {

QJsonObject arguments(const QString &flightNumber, const std::optional<QString> &date)
{
    QJsonObject arguments { { u"flightNumber"_s, flightNumber.trimmed().toUpper() } };
    if (date && !date->isEmpty())
        arguments.insert("flightDate"_L1, *date);
    return arguments;
}

FlightStatusResult parseFlightStatus(const QJsonObject &result, const QString &requestedNumber,
                                     const std::optional<QString> &requestedDate)
{
    const QJsonObject source = object(result, u"flightData").value_or(result);
    const auto read = [&source](QStringView key, const QString &fallback) {
        return text(source, key).value_or(fallback);
    };

    FlightStatusResult status;
    status.flightNumber = read(u"flightNumber", requestedNumber.toUpper());
    status.date = requestedDate;
    status.status = read(u"status", u"Zamanında (On Time)"_s);
    status.originAirport = status.originCity = read(u"origin", u"IST"_s);
    status.destinationAirport = status.destinationCity = read(u"destination", u"LHR"_s);
    status.scheduledDeparture = read(u"scheduledDeparture", u"11:20"_s);
    status.estimatedDeparture =
        read(u"actualDeparture", read(u"estimatedDeparture", status.scheduledDeparture));
    status.scheduledArrival = read(u"scheduledArrival", u"14:05"_s);
    status.estimatedArrival =
        read(u"actualArrival", read(u"estimatedArrival", status.scheduledArrival));
    status.terminal = read(u"terminal", u"T1"_s);
    status.gate = read(u"gate", u"F12"_s);
    status.baggageBelt = text(source, u"baggage");
    if (!status.baggageBelt)
        status.baggageBelt = text(source, u"baggageBelt");
    status.aircraftType = read(u"aircraft", u"Boeing 787-9 Dreamliner"_s);
    return status;
}

} // namespace FlightStatusTool

QCoro::Task<FlightStatusResult> VTRMCPClient::checkFlightStatus(QString flightNumber,
                                                                std::optional<QString> date)
{
    const QString tool = u"flight-status"_s;
    const QJsonObject arguments = FlightStatusTool::arguments(flightNumber, date);
    const std::function<FlightStatusResult(const QJsonObject &)> reader =
        [flightNumber, date](const QJsonObject &result) {
            return FlightStatusTool::parseFlightStatus(result, flightNumber, date);
        };
    co_return co_await callTool<FlightStatusResult>(tool, arguments, reader);
}
