#pragma once

#include "Models/FlightOption.h"

#include <QList>
#include <QObject>

/// Flights in an order, or some of them; a list that changes as a whole. QML hands it on and knows
/// its length; which of its flights get a card is decided where it is shown.
class FlightOptionList : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY changed)

public:
    using QObject::QObject;

    const QList<FlightOption> &flights() const { return m_flights; }
    /// An empty flight where there is no such row.
    Q_INVOKABLE FlightOption at(int row) const { return m_flights.value(row); }
    int count() const { return static_cast<int>(m_flights.size()); }
    /// The last change brought other flights, not the same ones in another order or selection.
    Q_INVOKABLE bool areNew() const { return m_areNew; }

    void set(const QList<FlightOption> &flights, bool areNew)
    {
        m_flights = flights;
        m_areNew = areNew;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();

private:
    QList<FlightOption> m_flights;
    bool m_areNew = false;
};
