#pragma once

#include "support/ScriptedServer.h"

#include <QDate>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

inline const QString calendarTool = QStringLiteral("find_flight_price_calendar");
inline const QString flightsTool = QStringLiteral("search_flights");
inline const QString statusTool = QStringLiteral("flight-status");
inline const QString guideTool = QStringLiteral("get_city_guide");
inline const QString promotionsTool = QStringLiteral("get_airline_promotions");

/// What data/known-answers.json holds: an answer of every tool, no two fields of which are alike.
inline QJsonObject knownAnswers()
{
    QFile file(QStringLiteral(":/tests/known-answers.json"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There are no known answers.");
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// A calendar of so many days one after the other, or backwards with a `step` of -1. Each is 100
/// dearer than the one before; the first is the best.
inline ScriptedAnswer calendarAnswer(int count = 14, const QDate &first = QDate(2026, 12, 1),
                                     const QString &currency = QStringLiteral("TRY"),
                                     int firstPrice = 4000, int step = 1)
{
    using namespace Qt::StringLiterals;
    QJsonArray prices;
    for (int day = 0; day < count; ++day) {
        prices.append(QJsonObject { { u"date"_s, first.addDays(step * day).toString(Qt::ISODate) },
                                    { u"amount"_s, firstPrice + 100 * day },
                                    { u"isBestPrice"_s, day == 0 } });
    }
    return ScriptedAnswer::content(
        { { u"prices"_s, prices }, { u"bestPrice"_s, prices.at(0) }, { u"currency"_s, currency } });
}

/// A flight of the answer to a search.
struct Offer
{
    QString number;
    double price = 1;
    QString departure = QStringLiteral("2026-03-06T10:00");
    int minutes = 60;
    int segments = 1; ///< all alike
    int seats = 7;
};

inline ScriptedAnswer flightsAnswer(const QList<Offer> &offers)
{
    using namespace Qt::StringLiterals;
    QJsonArray options;
    for (const Offer &offer : offers) {
        const QJsonObject segment { { u"flightNumber"_s, offer.number },
                                    { u"departureDateTime"_s, offer.departure },
                                    { u"availableSeatCount"_s, offer.seats } };
        QJsonArray segments;
        for (int index = 0; index < offer.segments; ++index)
            segments.append(segment);
        options.append(QJsonObject { { u"flightSegments"_s, segments },
                                     { u"journeyDuration"_s, offer.minutes * 60'000LL },
                                     { u"cheapestPriceAmount"_s, offer.price } });
    }
    const QJsonObject information { { u"originDestinationOptions"_s, options } };
    const QJsonObject data { { u"originDestinationInformations"_s, QJsonArray { information } } };
    return ScriptedAnswer::content({ { u"availabilityData"_s, data } });
}

/// So many flights; the dearer ones are the faster ones.
inline ScriptedAnswer flightsAnswer(int count)
{
    QList<Offer> offers;
    for (int i = 0; i < count; ++i) {
        offers.append({ .number = QStringLiteral("VQ%1").arg(100 + i),
                        .price = 4000.0 + i,
                        .minutes = 20'000 - i });
    }
    return flightsAnswer(offers);
}
