#include "sample_server/FlightNetwork.h"

#include "sample_server/StableRandom.h"

#include <QTimeZone>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

constexpr double shortestSectorKm = 120; ///< two airports of one city need no flight
constexpr double secondHubReachKm = 3500;
constexpr int firstDepartureMinute = 5 * 60 + 30;
constexpr int lastDepartureMinute = 23 * 60 + 55;
/// Often enough that nearly every arriving flight has a connection.
constexpr int transferDeparturesADay = 4;
constexpr int unassignedNumber = 404; ///< promised to be no flight

/// Flight numbers that people know by heart, and what demonstrations rely on: the first number of
/// the route's block.
struct FixedNumbers
{
    const char *base;
    const char *outstation;
    int firstNumber;
};
constexpr FixedNumbers fixedNumbers[] = {
    { "IST", "JFK", 1 }, // VQ1 and VQ2
    { "IST", "CDG", 1897 }, // holds VQ1907
    { "IST", "LHR", 1971 }, // holds VQ1983
};

/// An airport beyond the hubs where travellers of a region change aircraft.
struct TransferAirport
{
    const char *code;
    QStringList regions; ///< regions of the airports it is linked with; "" is domestic
    double reachKm;
    QStringList always; ///< links that always exist
};

const QList<TransferAirport> &regionalTransferAirports()
{
    static const QList<TransferAirport> airports {
        { "ESB", { QString(), u"Europe"_s }, 3000, { u"ECN"_s, u"LHR"_s } },
        { "AYT", { u"Europe"_s }, 3200, { u"ECN"_s } },
        { "VIE", { u"Europe"_s }, 1900, { u"LHR"_s, u"FRA"_s } },
        { "FRA", { u"Europe"_s, u"America"_s }, 9600, { u"JFK"_s, u"LHR"_s } },
        { "DXB", { u"Asia"_s, u"Africa"_s, u"Indian"_s }, 6500, { u"SIN"_s, u"BKK"_s } },
        { "SIN", { u"Asia"_s, u"Australia"_s }, 6500, { u"SYD"_s, u"MEL"_s } },
    };
    return airports;
}

int roundedToFive(double minutes) { return int(std::lround(minutes / 5)) * 5; }

int blockMinutes(double km) { return roundedToFive(30 + km / 840 * 60); }

int slotsFor(const AirportSite &base, const AirportSite &outstation, double km, bool forTransfers)
{
    if (forTransfers)
        return transferDeparturesADay;
    constexpr std::array shortHaul { 1, 2, 4, 6, 10 };
    constexpr std::array mediumHaul { 1, 1, 2, 3, 5 };
    constexpr std::array longHaul { 1, 1, 1, 2, 3 };
    const auto &table = km < 5000 ? shortHaul : km < 9000 ? mediumHaul : longHaul;
    StableRandom random = stableRandom(u"slots", base.code, outstation.code);
    int slots = table.at(size_t(outstation.demand - 1));
    if (slots >= 6)
        slots += random.below(slots >= 10 ? 5 : 3) - (slots >= 10 ? 2 : 1);
    return base.code == "IST"_L1 ? slots : std::max(1, slots / 2);
}

qint64 toUtcMinute(const QDateTime &local, const QTimeZone &zone)
{
    return QDateTime(local.date(), local.time(), zone).toSecsSinceEpoch() / 60;
}

QDateTime toLocal(qint64 utcMinute, const QTimeZone &zone)
{
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(utcMinute * 60, zone);
    return QDateTime(moment.date(), moment.time(), QTimeZone::utc());
}

} // namespace

QString ScheduledFlight::flightNumber() const { return u"VQ"_s + QString::number(number); }

const FlightNetwork &FlightNetwork::shared()
{
    static const FlightNetwork network;
    return network;
}

FlightNetwork::FlightNetwork()
{
    for (const AirportSite &site : airportSites()) {
        if (site.hub)
            m_transferAirports.append(&site);
    }
    for (const TransferAirport &transfer : regionalTransferAirports()) {
        if (const AirportSite *site = airportSite(QString::fromLatin1(transfer.code)))
            m_transferAirports.append(site);
    }
    addHubServices();
    addTransferServices();
}

void FlightNetwork::addHubServices()
{
    for (const AirportSite *base : std::as_const(m_transferAirports)) {
        if (!base->hub)
            continue;
        const bool mainHub = base->code == "IST"_L1;
        for (const AirportSite &site : airportSites()) {
            const double km = distanceKm(*base, site);
            const bool transfers = m_transferAirports.contains(&site);
            const bool served = mainHub ? km <= longestSectorKm
                                        : km <= secondHubReachKm
                    && (transfers || site.domestic || site.demand >= 4
                        || stableRandom(u"second hub", site.code).oneIn(2));
            if (!site.hub && km >= shortestSectorKm && served)
                add(*base, site, false);
        }
    }
}

void FlightNetwork::addTransferServices()
{
    for (const TransferAirport &transfer : regionalTransferAirports()) {
        const AirportSite *base = airportSite(QString::fromLatin1(transfer.code));
        if (!base)
            continue;
        for (const AirportSite &site : airportSites()) {
            const QString region = site.domestic ? QString() : site.region;
            const double km = distanceKm(*base, site);
            const bool chosen = transfer.always.contains(site.code)
                || (transfer.regions.contains(region) && site.demand >= 2
                    && stableRandom(u"link", base->code, site.code).below(5) < 3);
            if (!site.hub && chosen && km >= shortestSectorKm && km <= transfer.reachKm
                && !serviceBetween(*base, site))
                add(*base, site, true);
        }
    }
}

void FlightNetwork::add(const AirportSite &base, const AirportSite &outstation,
                        bool onlyForTransfers)
{
    Service service { .base = &base,
                      .outstation = &outstation,
                      .km = distanceKm(base, outstation),
                      .demand = outstation.demand,
                      .onlyForTransfers = onlyForTransfers };
    service.slots = slotsFor(base, outstation, service.km, onlyForTransfers);
    service.firstNumber = allocateNumbers(service);

    const int index = int(m_services.size());
    for (int number = service.firstNumber; number < service.firstNumber + 2 * service.slots;
         ++number)
        m_serviceOfNumber.insert(number, index);
    m_serviceOfPair.insert({ &base, &outstation }, index);
    m_serviceOfPair.insert({ &outstation, &base }, index);
    m_services.append(service);
}

/// The first free block of the route's family of numbers.
int FlightNetwork::allocateNumbers(const Service &service)
{
    const int count = 2 * service.slots;
    constexpr int blockOfFixedNumbers = 30; // no fixed route has more departures
    int start = service.km > 5500 ? 21 : 1001;
    for (const FixedNumbers &fixed : fixedNumbers) {
        if (service.base->code == QLatin1StringView(fixed.base)
            && service.outstation->code == QLatin1StringView(fixed.outstation))
            return fixed.firstNumber;
    }
    if (service.onlyForTransfers)
        start = 5001;
    else if (service.base->code != "IST"_L1)
        start = 7001;
    else if (service.outstation->domestic)
        start = 2101;

    const auto isTaken = [this](int number) {
        const bool fixed = std::any_of(std::begin(fixedNumbers), std::end(fixedNumbers),
                                       [number](const FixedNumbers &block) {
                                           return number >= block.firstNumber
                                               && number < block.firstNumber + blockOfFixedNumbers;
                                       });
        return fixed || number == unassignedNumber || m_serviceOfNumber.contains(number);
    };
    for (int free = 0; free < count; ++free) {
        if (isTaken(start + free)) {
            start += free + 1 + (free + 1) % 2;
            free = -1;
        }
    }
    return start;
}

const FlightNetwork::Service *FlightNetwork::serviceBetween(const AirportSite &from,
                                                            const AirportSite &to) const
{
    const int index = m_serviceOfPair.value({ &from, &to }, -1);
    return index < 0 ? nullptr : &m_services.at(index);
}

bool FlightNetwork::isServed(const AirportSite &from, const AirportSite &to) const
{
    const Service *service = serviceBetween(from, to);
    return service && !service->onlyForTransfers;
}

bool FlightNetwork::isConnected(const AirportSite &from, const AirportSite &to) const
{
    return serviceBetween(from, to);
}

ScheduledFlight FlightNetwork::makeFlight(const Service &service, bool outbound, int slot,
                                          QDate date) const
{
    ScheduledFlight flight;
    flight.number = service.firstNumber + 2 * slot + (outbound ? 0 : 1);
    flight.origin = outbound ? service.base : service.outstation;
    flight.destination = outbound ? service.outstation : service.base;

    StableRandom ofFlight = stableRandom(u"flight", quint64(flight.number));
    const double slotLength = double(lastDepartureMinute - firstDepartureMinute) / service.slots;
    const int minute = std::clamp(
        roundedToFive(firstDepartureMinute + slotLength * (slot + ofFlight.between(0.1, 0.9))),
        firstDepartureMinute, lastDepartureMinute);
    flight.departure = QDateTime(date, QTime(minute / 60, minute % 60), QTimeZone::utc());
    flight.departureMinute = toUtcMinute(flight.departure, flight.origin->timeZone);
    flight.arrivalMinute = flight.departureMinute + blockMinutes(service.km);
    flight.arrival = toLocal(flight.arrivalMinute, flight.destination->timeZone);

    const quint64 usualAircraft = ofFlight.next();
    StableRandom ofDay = stableRandom(u"aircraft", quint64(flight.number), date);
    flight.aircraft =
        &aircraftFor(service.km, service.demand, ofDay.oneIn(8) ? ofDay.next() : usualAircraft);
    return flight;
}

QList<ScheduledFlight> FlightNetwork::flights(const AirportSite &from, const AirportSite &to,
                                              QDate date) const
{
    QList<ScheduledFlight> flights;
    const Service *service = serviceBetween(from, to);
    if (!service)
        return flights;
    for (int slot = 0; slot < service->slots; ++slot)
        flights.append(makeFlight(*service, service->base == &from, slot, date));
    return flights;
}

std::optional<ScheduledFlight> FlightNetwork::flight(int number, QDate date) const
{
    const int index = m_serviceOfNumber.value(number, -1);
    if (index < 0)
        return std::nullopt;
    const Service &service = m_services.at(index);
    const int place = number - service.firstNumber;
    return makeFlight(service, place % 2 == 0, place / 2, date);
}

} // namespace Sample
