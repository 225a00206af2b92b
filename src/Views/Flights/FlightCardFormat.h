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

    /// Any flight that is not direct is shown as one stop, whatever its number of stops.
    Q_INVOKABLE QString stopsText(bool isDirect) const;
    /// "Son 3 Koltuk!" when few seats are left; empty when many are or their number is not known.
    Q_INVOKABLE QString lowSeatWarning(const FlightOption &flight) const;
    /// Everything that the card shows, for assistive technology.
    Q_INVOKABLE QString accessibleName(const FlightOption &flight) const;
    /// "8 uçuş bulundu", or that there is none.
    Q_INVOKABLE QString countText(int flights) const;
};
