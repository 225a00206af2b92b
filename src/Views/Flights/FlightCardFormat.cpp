#include "Views/Flights/FlightCardFormat.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostSeatsToWarnOf = 6;

} // namespace

QString FlightCardFormat::stopsText(bool isDirect) const
{
    return isDirect ? u"Direkt Uçuş"_s : u"1 Aktarma"_s;
}

QString FlightCardFormat::lowSeatWarning(const FlightOption &flight) const
{
    if (!flight.seatAvailability || *flight.seatAvailability > mostSeatsToWarnOf)
        return {};
    return u"Son %1 Koltuk!"_s.arg(*flight.seatAvailability);
}

QString FlightCardFormat::accessibleName(const FlightOption &flight) const
{
    QStringList parts { flight.flightNumber,
                        u"%1 %2 kalkış"_s.arg(flight.origin, flight.departureTime),
                        u"%1 %2 varış"_s.arg(flight.destination, flight.arrivalTime),
                        flight.duration,
                        stopsText(flight.isDirect),
                        flight.formattedPrice() };
    const QString warning = lowSeatWarning(flight);
    if (!warning.isEmpty())
        parts.append(warning);
    parts += { flight.aircraft, u"İkram"_s, u"23 kg"_s, u"VTR'de Satın Al"_s };
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

QString FlightCardFormat::countText(int flights) const
{
    return flights == 0 ? u"Bu tarihte tarifeli uçuş bulunamadı"_s
                        : u"%1 uçuş bulundu"_s.arg(flights);
}
