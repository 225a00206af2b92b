#pragma once

#include "Models/FlightOption.h"

#include <QList>
#include <QObject>

#include <utility>

/// Flights in an order, or some of them; a list that changes as a whole. QML hands it on and knows
/// its length; which of its flights get a card is decided where it is shown.
class FlightOptionList : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY changed)

public:
    using QObject::QObject;

    /// `row` has to be one of the list.
    const FlightOption &flight(qsizetype row) const { return m_flights.at(m_order.at(row)); }
    Q_INVOKABLE FlightOption at(int row) const
    {
        return row >= 0 && row < count() ? flight(row) : FlightOption();
    }
    int count() const { return static_cast<int>(m_order.size()); }
    /// A copy, for those who want all of them.
    QList<FlightOption> flights() const
    {
        QList<FlightOption> flights;
        flights.reserve(m_order.size());
        for (const int place : m_order)
            flights.append(m_flights.at(place));
        return flights;
    }
    /// The last change brought other flights, not the same ones in another order or selection.
    bool areNew() const { return m_areNew; }

    /// `order` has the places of the listed ones among `flights`.
    void set(const QList<FlightOption> &flights, QList<int> order, bool areNew)
    {
        m_flights = flights;
        m_order = std::move(order);
        m_areNew = areNew;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();

private:
    QList<FlightOption> m_flights;
    QList<int> m_order;
    bool m_areNew = false;
};
