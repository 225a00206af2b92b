#include "sample_server/ItineraryPlanner.h"
#include "sample_server/StableRandom.h"
#include "sample_server/Tool.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

enum Phase { BeforeDeparture, InAir, Landed };

/// A flight whose state of today is the same at any hour.
struct KnownFlight
{
    int number;
    Phase today;
    bool isDelayed; ///< on every day
};

constexpr KnownFlight knownFlights[] { { 1983, BeforeDeparture, false },
                                       { 1907, BeforeDeparture, true },
                                       { 1, InAir, false },
                                       { 2, InAir, true } };

/// Null for all other flights.
const KnownFlight *knownFlight(int number)
{
    const auto *found = std::ranges::find(knownFlights, number, &KnownFlight::number);
    return found == std::end(knownFlights) ? nullptr : found;
}

constexpr int secondsDelayIsKnownAhead = 6 * 60 * 60;
/// How far from today a flight has a status. An itinerary of the last day on sale may end later.
constexpr int daysWithStatus = ItineraryPlanner::daysOnSale + 2;

struct FlightState
{
    Phase phase = BeforeDeparture;
    int delayMinutes = 0; ///< as far as it is known yet
};

/// The number behind the airline's prefix; blanks around it and small letters are forgiven.
int parsedNumber(const QString &typed)
{
    static const QRegularExpression shape(uR"(^VQ ?([0-9]{1,4})\z)"_s);
    const QRegularExpressionMatch match = shape.match(typed.trimmed().toUpper());
    if (!match.hasMatch())
        throw RpcError {
            u"\"%1\" geçerli bir uçuş numarası değil. Numara VQ ile başlamalı ve ardından "
            "en çok dört rakam gelmeli (örnek: VQ1983)."_s.arg(typed.trimmed().left(20))
        };
    return match.captured(1).toInt();
}

ScheduledFlight flightOf(int number, QDate date, QDate today)
{
    if (std::abs(today.daysTo(date)) > daysWithStatus)
        throw RpcError { u"%1 günü için uçuş durumu yok: bugünden en çok %2 gün önceki ya da "
                         "sonraki günler sorgulanabilir."_s.arg(turkishDate(date))
                             .arg(daysWithStatus) };
    if (const auto flight = FlightNetwork::shared().flight(number, date))
        return *flight;
    throw RpcError { u"Bu numarada bir uçuş bulunamadı: VQ%1."_s.arg(number) };
}

FlightState stateOf(const ScheduledFlight &flight, const QDateTime &now)
{
    StableRandom random(u"delay", flight.number, flight.date());
    const int minutes = 15 + 5 * random.below(18);
    const KnownFlight *known = knownFlight(flight.number);
    const int delay = (known ? known->isDelayed : random.oneIn(4)) ? minutes : 0;
    if (known && flight.date() == now.date())
        return { known->today, delay };
    if (now >= flight.arrival.addSecs(60LL * delay))
        return { Landed, delay };
    if (now >= flight.departure.addSecs(60LL * delay))
        return { InAir, delay };
    const bool isToldEarly = known && known->today == BeforeDeparture;
    const bool isTold = isToldEarly || now.secsTo(flight.departure) <= secondsDelayIsKnownAhead;
    return { BeforeDeparture, isTold ? delay : 0 };
}

/// The state in words. Clients look for the stems "delay" and "gecik", "land" and "indi", "air",
/// "flight" and "hava" in them, so no text may hold one that it does not mean.
QString statusText(const ScheduledFlight &flight, FlightState state)
{
    const bool turkish = StableRandom(u"language", flight.number, flight.date()).oneIn(2);
    const QString phases[] { turkish ? u"Zamanında"_s : u"On Time"_s,
                             turkish ? u"Havada"_s : u"In Flight"_s,
                             turkish ? u"İndi"_s : u"Landed"_s };
    const QString delay =
        (turkish ? u"Gecikmeli (%1 dk)"_s : u"Delayed (%1 min)"_s).arg(state.delayMinutes);
    if (state.delayMinutes == 0)
        return phases[state.phase];
    return state.phase == BeforeDeparture ? delay : phases[state.phase] + u", "_s + delay;
}

QString clockText(const QDateTime &moment) { return moment.toString(u"HH:mm"); }

/// What is expected while it lies ahead and has happened once it lies behind.
void insertTimes(QJsonObject &data, const ScheduledFlight &flight, FlightState state)
{
    data.insert(u"scheduledDeparture"_s, clockText(flight.departure));
    data.insert(u"scheduledArrival"_s, clockText(flight.arrival));
    if (state.phase == BeforeDeparture && state.delayMinutes == 0)
        return;
    const qint64 delaySeconds = 60LL * state.delayMinutes;
    data.insert(state.phase == BeforeDeparture ? u"estimatedDeparture"_s : u"actualDeparture"_s,
                clockText(flight.departure.addSecs(delaySeconds)));
    data.insert(state.phase == Landed ? u"actualArrival"_s : u"estimatedArrival"_s,
                clockText(flight.arrival.addSecs(delaySeconds)));
}

/// Gate, terminal and belt, of which now and then one is missing; of known flights none.
void insertPlaces(QJsonObject &data, const ScheduledFlight &flight, FlightState state)
{
    StableRandom random(u"places", flight.number, flight.date());
    const QString terminal = QString::number(1 + random.below(3));
    const QString gate = QChar(u'A' + random.below(7)) + QString::number(1 + random.below(24));
    const QString belt = QString::number(1 + random.below(18));
    const bool all = knownFlight(flight.number);
    if (all || !random.oneIn(6))
        data.insert(u"terminal"_s, terminal);
    if (all || !random.oneIn(5))
        data.insert(u"gate"_s, gate);
    // A belt is assigned to flights on their way.
    if (all || (state.phase != BeforeDeparture && !random.oneIn(5)))
        data.insert(u"baggage"_s, belt);
}

} // namespace

QJsonObject flightStatus(const QJsonObject &arguments, const ToolContext &context)
{
    const int number = parsedNumber(arguments.value("flightNumber"_L1).toString());
    const QDate asked = dateArgument(arguments, "flightDate"_L1);
    const QDate date = asked.isValid() ? asked : context.today();
    const ScheduledFlight flight = flightOf(number, date, context.today());
    const FlightState state = stateOf(flight, context.now);

    QJsonObject data { { u"flightNumber"_s, flight.flightNumber() },
                       { u"flightDate"_s, date.toString(Qt::ISODate) },
                       { u"status"_s, statusText(flight, state) },
                       { u"origin"_s, flight.origin->code },
                       { u"destination"_s, flight.destination->code },
                       { u"aircraft"_s, QString(flight.aircraft->name) } };
    insertTimes(data, flight, state);
    insertPlaces(data, flight, state);
    return { { u"flightData"_s, data } };
}

} // namespace Sample
