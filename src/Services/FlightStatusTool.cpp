#include "Models/JsonReading.h"
#include "Services/VTRMCPClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<FlightStatusResult> VTRMCPClient::checkFlightStatus(QString flightNumber,
                                                                std::optional<QString> date)
{
    QJsonObject arguments { { u"flightNumber"_s, flightNumber.trimmed().toUpper() } };
    if (date && !date->isEmpty())
        arguments.insert("flightDate"_L1, *date);
    return ask<FlightStatusResult>(
        u"flight-status"_s, arguments, [flightNumber, date](const QJsonObject &result) {
            return ToolResults::parseFlightStatus(result, flightNumber, date);
        });
}

FlightStatusResult ToolResults::parseFlightStatus(const QJsonObject &result,
                                                  const QString &requestedNumber,
                                                  const std::optional<QString> &requestedDate)
{
    using JsonReading::text;
    const QJsonObject source = result["flightData"_L1].toObject(result);
    FlightStatusResult status;
    status.flightNumber = source["flightNumber"_L1].toString(requestedNumber.toUpper());
    status.date = requestedDate;
    status.status = source["status"_L1].toString(u"Zamanında (On Time)"_s);
    status.originAirport = status.originCity = source["origin"_L1].toString(u"IST"_s);
    status.destinationAirport = status.destinationCity =
        source["destination"_L1].toString(u"LHR"_s);
    status.scheduledDeparture = source["scheduledDeparture"_L1].toString(u"11:20"_s);
    status.estimatedDeparture = text(source, { "actualDeparture"_L1, "estimatedDeparture"_L1 })
                                    .value_or(status.scheduledDeparture);
    status.scheduledArrival = source["scheduledArrival"_L1].toString(u"14:05"_s);
    status.estimatedArrival = text(source, { "actualArrival"_L1, "estimatedArrival"_L1 })
                                  .value_or(status.scheduledArrival);
    status.terminal = source["terminal"_L1].toString(u"T1"_s);
    status.gate = source["gate"_L1].toString(u"F12"_s);
    status.baggageBelt = text(source, { "baggage"_L1, "baggageBelt"_L1 });
    status.aircraftType = source["aircraft"_L1].toString(u"Boeing 787-9 Dreamliner"_s);
    return status;
}
