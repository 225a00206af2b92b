#include "Views/FlightStatus/FlightStatusFormat.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString labelled(const QString &label, const QString &value)
{
    return value.isEmpty() ? QString() : label + value;
}

} // namespace

QString FlightStatusFormat::estimateText(const QString &scheduled, const QString &estimated) const
{
    return estimated.isEmpty() || estimated == scheduled ? QString() : u"Tahmini: "_s + estimated;
}

QString FlightStatusFormat::accessibleName(const FlightStatusResult &result) const
{
    const QString departureEstimate =
        estimateText(result.scheduledDeparture, result.estimatedDepartureText());
    const QString arrivalEstimate =
        estimateText(result.scheduledArrival, result.estimatedArrivalText());
    const auto airport = [](const QString &code, const QString &city) {
        return city.isEmpty() || city == code ? code : code + u' ' + city;
    };
    const QString origin = airport(result.originAirport, result.originCity);
    const QString destination = airport(result.destinationAirport, result.destinationCity);
    QStringList parts { u"Vantora "_s + result.flightNumber,
                        result.status,
                        u"%1 %2 kalkış"_s.arg(origin, result.scheduledDeparture),
                        departureEstimate,
                        u"%1 %2 varış"_s.arg(destination, result.scheduledArrival),
                        arrivalEstimate,
                        labelled(u"Terminal: "_s, result.terminalText()),
                        labelled(u"Kapı: "_s, result.gateText()),
                        labelled(u"Bagaj: "_s, result.baggageBeltText()) };
    parts.removeAll(QString());
    return parts.join(u", "_s);
}
