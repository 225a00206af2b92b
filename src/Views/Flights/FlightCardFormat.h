#pragma once

#include "Models/FlightOption.h"

#include <QObject>
#include <QQmlEngine>

/// The texts of a flight's card.
class FlightCardFormat : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Any flight that is not direct is told as one stop, whatever its number of stops.
    Q_INVOKABLE QString stopsText(bool isDirect) const;
    /// "Son 3 Koltuk!" when few seats are left; empty when many are or their number is not known.
    Q_INVOKABLE QString lowSeatWarning(const FlightOption &flight) const;
    /// What a screen reader says of the flight: everything that its card shows.
    Q_INVOKABLE QString spokenFlight(const FlightOption &flight) const;
    /// "8 uçuş bulundu", or that there is none.
    Q_INVOKABLE QString spokenCount(int flights) const;
};
