#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"
#include "sample_server/JsonSchema.h"

#include <QLocale>
#include <QTest>

#include <tuple>

using namespace Sample;
using namespace ToolCalls;

namespace {

/// The meaning of a status by the stems that clients look for: d: delayed, l: landed, a: in the
/// air.
QString meaningOf(const QJsonObject &data)
{
    QString status = data["status"_L1].toString();
    status = status.replace(u'İ', u'i').toLower();
    const auto has = [&status](auto... stems) { return (status.contains(stems) || ...); };
    return (has("delay"_L1, "gecik"_L1) ? u"d"_s : QString())
        + (has("land"_L1, "indi"_L1) ? u"l"_s : QString())
        + (has("air"_L1, "flight"_L1, "hava"_L1) ? u"a"_s : QString());
}

QJsonObject statusOf(const QString &number, const QString &date, const QDateTime &now = fixedNow())
{
    const QJsonObject arguments { { u"flightNumber"_s, number }, { u"flightDate"_s, date } };
    return flightStatus(arguments, { now, {} })["flightData"_L1].toObject();
}

/// Whether any departure or arrival differs from the schedule.
bool differsFromSchedule(const QJsonObject &data)
{
    for (const QString &what : { u"Departure"_s, u"Arrival"_s }) {
        const QJsonValue actual = data[u"actual"_s + what];
        const QJsonValue known = actual.isUndefined() ? data[u"estimated"_s + what] : actual;
        if (!known.isUndefined() && known != data[u"scheduled"_s + what])
            return true;
    }
    return false;
}

} // namespace

/// All tools against their own descriptions, what they refuse, and the status of flights.
class SampleToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repliesSatisfyTheirSchemas()
    {
        QCOMPARE(toolDescriptions().size(), 5);
        int day = 0;
        int guides = 0;
        const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
        for (const AirportSite &site : airportSites()) {
            day = (day + 11) % 365;
            const QString other = site.code == "IST"_L1 ? u"SIN"_s : u"IST"_s;
            const QJsonArray questions {
                calendarArguments(other, site.code, dayText(day), u"1_WEEK"_s),
                searchArguments(site.code, other, dayText(day), 1 + day % 9),
                QJsonObject { { u"flightNumber"_s, u" vq %1\n"_s.arg(1971 + day % 10) },
                              { u"flightDate"_s, dayText(day % 11 - 5) } },
                QJsonObject { { u"departureAirportCode"_s, site.code },
                              { u"countryCode"_s, day % 2 ? u"TR"_s : u"DE"_s } },
                QJsonObject { { u"cityCode"_s, site.code } },
            };
            for (qsizetype i = 0; i < questions.size(); ++i) {
                const QJsonValue tool = toolDescriptions().at(i);
                const QJsonObject reply =
                    call(tool["name"_L1].toString(), questions.at(i).toObject());
                const QString complaint =
                    JsonSchema::violation(tool["outputSchema"_L1].toObject(), reply)
                        .value_or(u""_s);
                QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
                guides += reply.contains("guide"_L1);
                for (const QJsonValue promotion : reply["promotions"_L1].toArray()) {
                    const QString until = promotion["validUntil"_L1].toString();
                    QVERIFY(until.isEmpty()
                            || turkish.toDate(until, u"d MMMM yyyy"_s) > fixedNow().date());
                }
            }
        }
        QVERIFY(guides > 20 && guides < airportSites().size());
    }

    void refusals()
    {
        QString tool = u"search_flights"_s;
        QJsonObject good = searchArguments(u"IST"_s, u"LHR"_s, dayText(5));
        const auto row = [&](const QString &key, const QJsonValue &value, const QString &message) {
            QJsonObject arguments = good;
            arguments.insert(key, value); // an undefined value removes
            try {
                call(tool, arguments);
                QFAIL(qPrintable(message));
            } catch (const RpcError &error) {
                QCOMPARE(error.message, message);
            }
        };
        const auto party = [](double quantity) {
            return QJsonArray { QJsonObject { { u"passengerType"_s, u"ADT"_s },
                                              { u"quantity"_s, quantity } } };
        };
        // What a traveller can bring about names no argument.
        row(u"from"_s, u"ZZZ"_s, u"\"ZZZ\" bilinen bir havalimanı kodu değil."_s);
        row(u"from"_s, u"LHR"_s, u"Kalkış ve varış havalimanı aynı olamaz (LHR)."_s);
        row(u"departureDate"_s, u"2026-11-31"_s, u"2026-11-31 takvimde olmayan bir gün."_s);
        row(u"returnDate"_s, dayText(4),
            u"Dönüş günü (25 Kasım 2026) gidiş gününden (26 Kasım 2026) önce olamaz."_s);
        // What only a client can.
        const QString form = u"\"%1\": %2 uygun değil; beklenen biçimde olmalı (örnek: %3)."_s;
        row(u"to"_s, u"LHR\n"_s, form.arg(u"to", u"\"LHR\\n\"", u"LHR"));
        row(u"to"_s, QString(1000, u'%'), form.arg(u"to", u'"' + QString(39, u'%') + u'…', u"LHR"));
        row(u"departureDate"_s, u"٢٠٢٦-١٢-٠٩"_s,
            form.arg(u"departureDate", u"\"٢٠٢٦-١٢-٠٩\"", u"2027-03-15"));
        row(u"departureDate"_s, QJsonValue::Undefined, u"\"departureDate\" eksik."_s);
        row(u"cabin"_s, u"ECONOMY"_s, u"\"cabin\" bilinmeyen bir alan."_s);
        row(u"tripType"_s, u"ONE_WAY"_s,
            u"\"tripType\": \"ONE_WAY\" uygun değil; şunlardan biri olmalı: one_way, round."_s);
        row(u"passengers"_s, QJsonArray(),
            u"\"passengers\": [] uygun değil; uygun uzunlukta bir liste olmalı."_s);
        for (const double quantity : { 0.0, 10.0, 1.5 })
            row(u"passengers"_s, party(quantity),
                u"\"passengers[0].quantity\": %1 uygun değil; 1 ile 9 arasında bir tam sayı olmalı."_s
                    .arg(quantity));

        tool = u"find_flight_price_calendar"_s;
        good = calendarArguments(u"IST"_s, u"LHR"_s, dayText(5));
        row(u"isReturnFlight"_s, 0,
            u"\"isReturnFlight\": 0 uygun değil; true ya da false olmalı."_s);

        tool = u"flight-status"_s;
        good = {};
        row(u"flightNumber"_s, u"VQ404"_s, u"Bu numarada bir uçuş bulunamadı: VQ404."_s);
        for (const QString &number : { QString(), u"VQ19830"_s, u"XQ12"_s, u"VQ  12"_s, u"VQ١٢"_s })
            row(u"flightNumber"_s, number,
                u"\"%1\" geçerli bir uçuş numarası değil. Numara VQ ile başlamalı ve ardından en "
                "çok dört rakam gelmeli (örnek: VQ1983)."_s.arg(number));
        good = { { u"flightNumber"_s, u"VQ1"_s } };
        row(u"flightDate"_s, u"2031-01-05"_s,
            u"5 Ocak 2031 günü için uçuş durumu yok: bugünden en çok 357 gün önceki ya da sonraki "
            "günler sorgulanabilir."_s);
    }

    void demonstrationNumbers()
    {
        for (const auto &[number, day, meaning] : { std::tuple(u"VQ1983"_s, 0, u""_s),
                                                    { u"VQ1983"_s, 300, u""_s },
                                                    { u"VQ1983"_s, -2, u"l"_s },
                                                    { u"VQ1907"_s, 0, u"d"_s },
                                                    { u"VQ1907"_s, 300, u"d"_s },
                                                    { u"VQ1907"_s, -2, u"dl"_s },
                                                    { u"VQ1"_s, 0, u"a"_s },
                                                    { u"VQ1"_s, 5, u""_s },
                                                    { u"VQ2"_s, 0, u"da"_s },
                                                    { u"VQ2"_s, 5, u""_s } }) {
            for (const int hour : { 0, 12, 23 }) {
                const QDateTime now(fixedNow().date(), QTime(hour, 30), fixedNow().timeZone());
                const QJsonObject data = statusOf(number, dayText(day), now);
                QVERIFY2(meaningOf(data) == meaning, qPrintable(number));
                QCOMPARE(differsFromSchedule(data), meaning.contains(u'd'));
                QVERIFY(number != u"VQ1983" || data.contains("baggage"_L1));
            }
        }
    }

    void statusFollowsTheClock()
    {
        for (int day = 0; day < 30; ++day) {
            const QDateTime midnight = fixedNow().addDays(day).addSecs(-12 * 3600);
            int stage = 0; // before, in the air, landed
            bool delayed = false;
            for (int minute = -24 * 60; minute < 48 * 60; minute += 10) {
                // VQ2115 flies from Istanbul to Ankara within an hour.
                const QJsonObject data =
                    statusOf(u"VQ2115"_s, dayText(day), midnight.addSecs(60LL * minute));
                const QString meaning = meaningOf(data);
                const int now = meaning.contains(u'l') ? 2 : meaning.contains(u'a') ? 1 : 0;
                QVERIFY2(now >= stage, "A flight does not go back in time.");
                stage = now;
                delayed = delayed || meaning.contains(u'd');
                QVERIFY(minute >= 0 || now == 0);
                const QString clock = midnight.addSecs(60LL * minute).toString(u"HH:mm");
                QVERIFY(now != 1 || data["actualDeparture"_L1].toString() <= clock);
                QCOMPARE(data.contains("actualDeparture"_L1), now >= 1);
                QCOMPARE(data.contains("actualArrival"_L1), now == 2);
                QCOMPARE(differsFromSchedule(data), now < 2 ? meaning.contains(u'd') : delayed);
            }
            QCOMPARE(stage, 2);
        }
    }
};

QTEST_APPLESS_MAIN(SampleToolsTest)
#include "SampleToolsTest.moc"
