#include "Models/FlightOption.h"

#include "Models/MoneyText.h"

QString FlightOption::formattedPrice() const { return MoneyText::currency(price, currency); }

QVariant FlightOption::seatAvailabilityValue() const
{
    return seatAvailability ? QVariant(*seatAvailability) : QVariant();
}

size_t qHash(const FlightOption &flight, size_t seed)
{
    // Adding zero turns -0.0, which equals 0.0, into the value of the same hash.
    return qHashMulti(seed, flight.id, flight.flightNumber, flight.origin, flight.destination,
                      flight.departureTime, flight.arrivalTime, flight.duration,
                      flight.durationMinutes, flight.isDirect, flight.stopsCount, flight.aircraft,
                      flight.seatAvailability.has_value(), flight.seatAvailability.value_or(0),
                      flight.price + 0.0, flight.currency, flight.cabinClass,
                      flight.bookingURL.has_value(), flight.bookingURLText());
}
