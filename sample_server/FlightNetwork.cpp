#include "sample_server/FlightNetwork.h"

#include "sample_server/StableRandom.h"

#include <algorithm>
#include <cmath>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

constexpr double shortestSectorKm = 120; ///< two airports of one city need no flight
constexpr double longestSectorKm = 12500;
constexpr double secondHubReachKm = 3500;
constexpr int firstDepartureMinute = 5 * 60 + 30;
constexpr int lastDepartureMinute = 23 * 60 + 55;
/// Often enough that nearly every arriving flight has a connection.
constexpr int transferDeparturesADay = 4;

/// Airports beyond the hubs where travellers change aircraft, and to where these fly from there.
constexpr struct TransferAirport
{
    QLatin1StringView code;
    QLatin1StringView outstations;
} regionalTransferAirports[] {
    { "ESB"_L1, "ADB AYT BJV DIY ERZ GZT TZX VAN ECN AMS BER BRU CDG DUS FRA LHR MUC VIE"_L1 },
    { "AYT"_L1, "ECN AMS ARN BER CPH DUS FRA HAM LHR MUC PRG VIE WAW ZRH"_L1 },
    { "VIE"_L1, "AMS ARN ATH BCN BEG BER BRU BUD CDG CPH DUB FCO FRA LHR MXP OTP SOF ZAG"_L1 },
    { "FRA"_L1, "ATL BOS CUN DFW DUB EWR IAD IAH JFK LAX LHR LIS MAD MEX MIA ORD YUL YYZ"_L1 },
    { "DXB"_L1, "BKK BOM CAN CGK CMB DEL DPS HKG HKT JNB KUL MLE NBO PEK PVG SIN ZNZ"_L1 },
    { "SIN"_L1, "BKK CGK DPS HKG HKT KUL MEL SYD"_L1 },
};

// clang-format off
constexpr AircraftType regionalJet { "E95"_L1, "Embraer 195"_L1, 0, 1600 };
constexpr AircraftType jets[] {
    { "738"_L1, "Boeing 737-800"_L1,            0,  4500 },
    { "73H"_L1, "Boeing 737-800"_L1,            0,  4500 },
    { "739"_L1, "Boeing 737-900ER"_L1,          0,  4800 },
    { "73J"_L1, "Boeing 737-900ER"_L1,          0,  4800 },
    { "7M8"_L1, "Boeing 737 MAX 8"_L1,        500,  5500 },
    { "7M9"_L1, "Boeing 737 MAX 9"_L1,        500,  5500 },
    { "MAX"_L1, "Boeing 737 MAX"_L1,          500,  5500 },
    { "320"_L1, "Airbus A320neo"_L1,            0,  4500 },
    { "321"_L1, "Airbus A321neo"_L1,            0,  5000 },
    { "32Q"_L1, "Airbus A321neo"_L1,          300,  6500 },
    { "332"_L1, "Airbus A330-200"_L1,        2400, 11000 },
    { "333"_L1, "Airbus A330-300"_L1,        2000,  9500 },
    { "787"_L1, "Boeing 787-9 Dreamliner"_L1, 5500, longestSectorKm },
    { "789"_L1, "Boeing 787-9 Dreamliner"_L1, 2400, longestSectorKm },
    { "350"_L1, "Airbus A350-900"_L1,        5500, longestSectorKm },
    { "359"_L1, "Airbus A350-900"_L1,        5500, longestSectorKm },
    { "773"_L1, "Boeing 777-300ER"_L1,       6500, longestSectorKm },
    { "777"_L1, "Boeing 777-300ER"_L1,       6500, longestSectorKm },
    { "77W"_L1, "Boeing 777-300ER"_L1,       6500, longestSectorKm },
};
// clang-format on

/// `choice` spreads the possible types over the network; thin short sectors get the smallest jets.
const AircraftType &aircraftFor(double sectorKm, int demand, quint64 choice)
{
    if (demand <= 2 && sectorKm <= regionalJet.longestKm && choice % 2 == 0)
        return regionalJet;
    QList<const AircraftType *> able;
    for (const AircraftType &type : jets) {
        if (sectorKm >= type.shortestKm && sectorKm <= type.longestKm)
            able.append(&type);
    }
    return *able.at(qsizetype(choice % quint64(able.size())));
}

bool isMainHub(const AirportSite &site) { return site.code == u"IST"; }

int roundedToFive(double minutes) { return int(std::lround(minutes / 5)) * 5; }

int slotsFor(const AirportSite &base, const AirportSite &outstation)
{
    constexpr int slotsOfDemand[] { 1, 2, 4, 6, 10 };
    const double km = distanceKm(base, outstation);
    const int usual = slotsOfDemand[outstation.demand - 1] / (km < 5000 ? 1 : km < 9000 ? 2 : 3);
    StableRandom random(u"slots", base.code, outstation.code);
    const int slots = usual + random.below(std::max(1, usual / 2)) - usual / 4;
    return std::max(1, isMainHub(base) ? slots : slots / 2);
}

/// Numbers that people know by heart are the first of a route; the others follow one another in
/// families.
int firstNumberOf(const AirportSite &base, const AirportSite &outstation, bool onlyForTransfers,
                  QHash<int, int> &used, int count)
{
    static const QHash<QString, int> famous {
        { u"JFK"_s, 1 }, // VQ1 and VQ2
        { u"CDG"_s, 1897 }, // holds VQ1907
        { u"LHR"_s, 1971 }, // holds VQ1983
    };
    if (isMainHub(base) && famous.contains(outstation.code))
        return famous.value(outstation.code);
    const int family = onlyForTransfers       ? 5001
        : !isMainHub(base)                    ? 7001
        : outstation.isDomestic()             ? 2101
        : distanceKm(base, outstation) > 5500 ? 21
                                              : 1001;
    return family + std::exchange(used[family], used[family] + count);
}

} // namespace

const FlightNetwork &FlightNetwork::shared()
{
    static const FlightNetwork network;
    return network;
}

FlightNetwork::FlightNetwork()
{
    for (const AirportSite &hub : airportSites()) {
        if (!hub.hub)
            continue;
        m_transferAirports.append(&hub);
        for (const AirportSite &site : airportSites()) {
            const double km = distanceKm(hub, site);
            const bool served = isMainHub(hub)
                ? km <= longestSectorKm
                : km <= secondHubReachKm && (site.isDomestic() || site.demand >= 3);
            if (!site.hub && km >= shortestSectorKm && served)
                add(hub, site, false);
        }
    }
    for (const TransferAirport &transfer : regionalTransferAirports) {
        const AirportSite *base = airportSite(transfer.code);
        if (!base)
            continue;
        m_transferAirports.append(base);
        for (const QLatin1StringView code : QStringTokenizer(transfer.outstations, u' ')) {
            if (const AirportSite *outstation = airportSite(code))
                add(*base, *outstation, true);
        }
    }
}

void FlightNetwork::add(const AirportSite &base, const AirportSite &outstation,
                        bool onlyForTransfers)
{
    const int slots = onlyForTransfers ? transferDeparturesADay : slotsFor(base, outstation);
    const int first = firstNumberOf(base, outstation, onlyForTransfers, m_usedNumbers, 2 * slots);
    m_services.append({ &base, &outstation, onlyForTransfers, slots, first });
}

const FlightNetwork::Service *FlightNetwork::serviceBetween(const AirportSite &from,
                                                            const AirportSite &to) const
{
    for (const Service &service : m_services) {
        if ((service.base == &from && service.outstation == &to)
            || (service.base == &to && service.outstation == &from))
            return &service;
    }
    return nullptr;
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

    StableRandom ofFlight(u"flight", flight.number);
    const double slotLength = double(lastDepartureMinute - firstDepartureMinute) / service.slots;
    const int minute =
        roundedToFive(firstDepartureMinute + slotLength * (slot + ofFlight.between(0.1, 0.9)));
    const double km = distanceKm(*service.base, *service.outstation);
    flight.departure = QDateTime(date, QTime(minute / 60, minute % 60), flight.origin->timeZone);
    flight.arrival = flight.departure.addSecs(60LL * roundedToFive(30 + km / 840 * 60))
                         .toTimeZone(flight.destination->timeZone);

    // Now and then another type flies.
    const quint64 usual = ofFlight.next();
    StableRandom ofDay(u"aircraft", flight.number, date);
    flight.aircraft =
        &aircraftFor(km, service.outstation->demand, ofDay.oneIn(8) ? ofDay.next() : usual);
    return flight;
}

QList<ScheduledFlight> FlightNetwork::flights(const AirportSite &from, const AirportSite &to,
                                              QDate date) const
{
    QList<ScheduledFlight> flights;
    const Service *service = serviceBetween(from, to);
    for (int slot = 0; service && slot < service->slots; ++slot)
        flights.append(makeFlight(*service, service->base == &from, slot, date));
    return flights;
}

std::optional<ScheduledFlight> FlightNetwork::flight(int number, QDate date) const
{
    for (const Service &service : m_services) {
        const int place = number - service.firstNumber;
        if (place >= 0 && place < 2 * service.slots)
            return makeFlight(service, place % 2 == 0, place / 2, date);
    }
    return std::nullopt;
}

} // namespace Sample
