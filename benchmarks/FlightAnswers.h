#pragma once

#include "support/ScriptedServer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTime>

#include <random>

/// Many times what an airline flies between two cities in a day.
constexpr int manyFlights = 2'000;
/// About as many as the client takes in one reply: they have nearly 80,000 objects and arrays.
constexpr int mostFlights = 26'000;

/// The answer to a search with so many invented flights, in no order, of about 400 bytes each.
inline QByteArray flightsReply(int count)
{
    using namespace Qt::StringLiterals;
    std::minstd_rand random(7);
    const auto upTo = [&random](qint64 bound) { return qint64(random()) % bound; };
    QJsonArray options;
    for (int i = 0; i < count; ++i) {
        const int minute = static_cast<int>(upTo(1440));
        const QString time =
            u"2026-12-05T"_s + QTime(minute / 60, minute % 60).toString(u"HH:mm:ss"_s);
        const QJsonObject segment {
            { u"flightNumber"_s, u"VQ%1"_s.arg(i) }, { u"departureDateTime"_s, time },
            { u"arrivalDateTime"_s, time },          { u"equipmentCode"_s, u"b789"_s },
            { u"originLocationCode"_s, u"IST"_s },   { u"destinationLocationCode"_s, u"LHR"_s },
            { u"availableSeatCount"_s, i % 10 }
        };
        options.append(QJsonObject {
            { u"flightSegments"_s, QJsonArray { segment } },
            { u"journeyDuration"_s, 60'000 * (60 + upTo(900)) },
            { u"cheapestPriceAmount"_s, 1000 + upTo(20'000) },
            { u"cheapestPriceCurrency"_s, u"TRY"_s },
            { u"bookingUrl"_s, u"https://www.vantora-air.example/book?flight=VQ%1"_s.arg(i) } });
    }
    const QJsonObject information { { u"originDestinationOptions"_s, options } };
    return ScriptedAnswer::content({ { u"availabilityData"_s,
                                       QJsonObject { { u"originDestinationInformations"_s,
                                                       QJsonArray { information } } } } })
        .body();
}
