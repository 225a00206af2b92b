#pragma once

#include "sample_server/AirportGeography.h"

#include <QDateTime>
#include <QHash>

#include <optional>

/// The airline's timetable: which airports it connects non-stop, and with which flights a day.
namespace Sample {

struct AircraftType
{
    QLatin1StringView code; ///< as timetables write it; two codes may mean one type
    QLatin1StringView name; ///< as a traveller reads it
    double shortestKm = 0; ///< sectors below this are flown by smaller types
    double longestKm = 0;
};

/// One departure of one flight number.
struct ScheduledFlight
{
    int number = 0; ///< without the airline's prefix; odd away from the hub, even towards it
    const AirportSite *origin = nullptr;
    const AirportSite *destination = nullptr;
    QDateTime departure; ///< in the time zone of the origin
    QDateTime arrival; ///< in the time zone of the destination
    const AircraftType *aircraft = nullptr;

    QDate date() const { return departure.date(); }
    /// "VQ1983"
    QString flightNumber() const { return QStringLiteral("VQ%1").arg(number); }
};

/// Immutable after construction and safe to use from several threads at once.
class FlightNetwork
{
public:
    /// The one timetable of the process.
    static const FlightNetwork &shared();

    /// Whether flights are sold non-stop between the two.
    bool isServed(const AirportSite &from, const AirportSite &to) const;
    /// Whether there is an aircraft between the two, be it only for travellers who connect.
    bool isConnected(const AirportSite &from, const AirportSite &to) const;
    /// Airports at which travellers change aircraft, in a fixed order: the hubs first.
    const QList<const AirportSite *> &transferAirports() const { return m_transferAirports; }

    /// The flights of a local day in order of departure; none when the two are not connected.
    QList<ScheduledFlight> flights(const AirportSite &from, const AirportSite &to,
                                   QDate date) const;

    /// The flight of this number that departs on the local day `date`; none when no flight has it.
    std::optional<ScheduledFlight> flight(int number, QDate date) const;

private:
    /// One direction's flights have the odd numbers from the first on, those back the even ones.
    struct Service
    {
        const AirportSite *base = nullptr; ///< the hub or transfer airport
        const AirportSite *outstation = nullptr;
        bool onlyForTransfers = false;
        int slots = 1; ///< departures a day in each direction
        int firstNumber = 0;
    };

    FlightNetwork();
    void add(const AirportSite &base, const AirportSite &outstation, bool onlyForTransfers);
    const Service *serviceBetween(const AirportSite &from, const AirportSite &to) const;
    ScheduledFlight makeFlight(const Service &service, bool outbound, int slot, QDate date) const;

    QList<Service> m_services;
    QHash<int, int> m_usedNumbers; ///< how many, by the first number of the family
    QList<const AirportSite *> m_transferAirports;
};

} // namespace Sample
