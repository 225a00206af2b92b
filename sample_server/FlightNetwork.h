#pragma once

#include "sample_server/AirportGeography.h"
#include "sample_server/Fleet.h"

#include <QDateTime>
#include <QHash>

#include <optional>

/// The airline's timetable: which airports it connects non-stop, and with which flights a day.
namespace Sample {

/// One departure of one flight number. Local times carry no zone of their own: they are what the
/// airport's clock shows.
struct ScheduledFlight
{
    int number = 0; ///< without the airline's prefix; odd away from the hub, even towards it
    const AirportSite *origin = nullptr;
    const AirportSite *destination = nullptr;
    QDateTime departure; ///< local time of the origin
    QDateTime arrival; ///< local time of the destination
    qint64 departureMinute = 0; ///< minutes since 1970 in UTC
    qint64 arrivalMinute = 0; ///< minutes since 1970 in UTC
    const AircraftType *aircraft = nullptr;

    QDate date() const { return departure.date(); }
    /// "VQ1983"
    QString flightNumber() const;
    int durationMinutes() const { return int(arrivalMinute - departureMinute); }
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
    struct Service
    {
        const AirportSite *base = nullptr; ///< the hub or transfer airport
        const AirportSite *outstation = nullptr;
        double km = 0;
        int demand = 1;
        int slots = 1; ///< departures a day in each direction
        int firstNumber = 0; ///< odd
        bool onlyForTransfers = false;
    };
    using AirportPair = QPair<const AirportSite *, const AirportSite *>;

    FlightNetwork();
    void addHubServices();
    void addTransferServices();
    void add(const AirportSite &base, const AirportSite &outstation, bool onlyForTransfers);
    int allocateNumbers(const Service &service);
    const Service *serviceBetween(const AirportSite &from, const AirportSite &to) const;
    ScheduledFlight makeFlight(const Service &service, bool outbound, int slot, QDate date) const;

    QList<Service> m_services;
    QHash<AirportPair, int> m_serviceOfPair; ///< index into m_services, under both orders
    QHash<int, int> m_serviceOfNumber; ///< index into m_services
    QList<const AirportSite *> m_transferAirports;
};

} // namespace Sample
