#include "ToolCalls.h"

#include <QTest>

#include <tuple>

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
    return call(u"flight-status"_s, { { u"flightNumber"_s, number }, { u"flightDate"_s, date } },
                now)
        .value("flightData"_L1)
        .toObject();
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

/// What the status of a flight says, by the clock and in words that clients search for stems.
class SampleFlightStatusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void demonstrationNumbers()
    {
        using Row = std::tuple<QString, QList<int>, QString>;
        for (const auto &[number, days, meaning] :
             { Row(u"VQ1983"_s, { 0, 1, 300 }, QString()), Row(u"VQ1983"_s, { -2 }, u"l"_s),
               Row(u"VQ1907"_s, { 0, 1, 300 }, u"d"_s), Row(u"VQ1907"_s, { -2 }, u"dl"_s),
               Row(u"VQ1"_s, { 0 }, u"a"_s), Row(u"VQ1"_s, { 5 }, QString()),
               Row(u"VQ2"_s, { 0 }, u"da"_s), Row(u"VQ2"_s, { 5 }, QString()) }) {
            for (const int day : days) {
                for (const int hour : { 0, 12, 23 }) {
                    const QDateTime now(fixedNow().date(), QTime(hour, 30), fixedNow().timeZone());
                    const QJsonObject data = statusOf(number, dayText(day), now);
                    QVERIFY2(meaningOf(data) == meaning, qPrintable(number));
                    QCOMPARE(differsFromSchedule(data), meaning.contains(u'd'));
                    QVERIFY(number != u"VQ1983" || data.contains("baggage"_L1));
                }
            }
        }
    }

    void followsTheClock()
    {
        int delayedDays = 0;
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
                QCOMPARE(data.contains("actualDeparture"_L1), now >= 1);
                QCOMPARE(data.contains("actualArrival"_L1), now == 2);
                QCOMPARE(differsFromSchedule(data), now < 2 ? meaning.contains(u'd') : delayed);
            }
            QCOMPARE(stage, 2);
            delayedDays += delayed;
        }
        QVERIFY(delayedDays >= 3 && delayedDays <= 15);
    }

    void agreesWithSearch()
    {
        for (const QString &to : { u"LHR"_s, u"JFK"_s, u"SYD"_s, u"TGD"_s }) {
            for (const int day : { 1, 130, 200 }) {
                for (const QJsonValue option : options(u"IST"_s, to, dayText(day))) {
                    for (const QJsonValue segment : option["flightSegments"_L1].toArray()) {
                        const QString departure = segment["departureDateTime"_L1].toString();
                        const QString arrival = segment["arrivalDateTime"_L1].toString();
                        const QJsonObject data =
                            statusOf(segment["flightNumber"_L1].toString(), departure.left(10));
                        QCOMPARE(data["origin"_L1], segment["departureAirportCode"_L1]);
                        QCOMPARE(data["destination"_L1], segment["arrivalAirportCode"_L1]);
                        QCOMPARE(data["scheduledDeparture"_L1].toString(), departure.mid(11, 5));
                        QCOMPARE(data["scheduledArrival"_L1].toString(), arrival.mid(11, 5));
                    }
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(SampleFlightStatusTest)
#include "SampleFlightStatusTest.moc"
