#pragma once

#include "Models/MoneyText.h"
#include "Models/Record.h"

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>

/// One bookable itinerary of a day.
struct FlightOption
{
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id CONSTANT)
    Q_PROPERTY(QString flightNumber MEMBER flightNumber CONSTANT)
    Q_PROPERTY(QString origin MEMBER origin CONSTANT)
    Q_PROPERTY(QString destination MEMBER destination CONSTANT)
    Q_PROPERTY(QString departureTime MEMBER departureTime CONSTANT)
    Q_PROPERTY(QString arrivalTime MEMBER arrivalTime CONSTANT)
    Q_PROPERTY(QString duration MEMBER duration CONSTANT)
    Q_PROPERTY(qint64 durationMinutes MEMBER durationMinutes CONSTANT)
    Q_PROPERTY(bool isDirect MEMBER isDirect CONSTANT)
    Q_PROPERTY(qint64 stopsCount MEMBER stopsCount CONSTANT)
    Q_PROPERTY(QString aircraft MEMBER aircraft CONSTANT)
    Q_PROPERTY(QVariant seatAvailability READ seatAvailabilityValue CONSTANT)
    Q_PROPERTY(double price MEMBER price CONSTANT)
    Q_PROPERTY(QString currency MEMBER currency CONSTANT)
    Q_PROPERTY(QString cabinClass MEMBER cabinClass CONSTANT)
    Q_PROPERTY(QString bookingURL READ bookingURLText CONSTANT)
    Q_PROPERTY(QString formattedPrice READ formattedPrice CONSTANT)
    Q_PROPERTY(QString lowSeatWarning READ lowSeatWarning CONSTANT)

public:
    QString id; ///< unique within one answer
    QString flightNumber; ///< marketing flight number, e.g. "VQ1983"
    QString origin; ///< airport code
    QString destination; ///< airport code
    QString departureTime; ///< local time of the airport, as displayed
    QString arrivalTime; ///< local time of the airport, as displayed
    QString duration; ///< the whole journey's, as displayed
    qint64 durationMinutes = 0;
    bool isDirect = true; ///< no change of aircraft
    qint64 stopsCount = 0;
    QString aircraft; ///< type of the first segment, as displayed
    /// Seats left in the first segment; absent when not known, which no answer leads to: a reader
    /// that was not told assumes a number.
    std::optional<qint64> seatAvailability;
    double price = 0; ///< total fare in units of `currency`
    QString currency; ///< ISO 4217 code, e.g. "TRY"
    QString cabinClass; ///< as reported by the server
    /// Where this offer is booked; absent when there is no link, which no answer leads to: without
    /// one the airline's site serves.
    std::optional<QString> bookingURL;

    /// The price as currency text in the user's locale, without fraction digits.
    QString formattedPrice() const { return MoneyText::currency(price, currency); }
    /// "Son 3 Koltuk!" when few seats are left; empty when many are or their number is not known.
    QString lowSeatWarning() const
    {
        constexpr qint64 mostToWarnOf = 6;
        return seatAvailability && *seatAvailability <= mostToWarnOf
            ? QStringLiteral("Son %1 Koltuk!").arg(*seatAvailability)
            : QString();
    }
    /// Null when the number of seats is not known.
    QVariant seatAvailabilityValue() const
    {
        return seatAvailability ? QVariant(*seatAvailability) : QVariant();
    }
    /// Empty when there is no link.
    QString bookingURLText() const { return bookingURL.value_or(QString()); }

    friend bool operator==(const FlightOption &, const FlightOption &) = default;
};
