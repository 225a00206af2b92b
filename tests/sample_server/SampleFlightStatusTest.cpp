#include "ToolCalls.h"

#include <QSet>
#include <QTest>

using namespace ToolCalls;

/// What the status of a flight says, by the clock and in words that clients search for stems.
class SampleFlightStatusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void demonstrationNumbers_data();
    void demonstrationNumbers();
    void followsTheClock();
    void agreesWithSearch();
    void everyStateAndGapOccurs();
    void spellingOfNumbers_data();
    void spellingOfNumbers();
};

namespace {

struct Flags
{
    bool delayed = false;
    bool landed = false;
    bool inAir = false;

    friend bool operator==(Flags, Flags) = default;
};

Flags flagsOf(const QJsonObject &data)
{
    QString status = data["status"_L1].toString();
    status.replace(u'İ', u'i');
    status = status.toLower();
    return { status.contains("delay"_L1) || status.contains("gecik"_L1),
             status.contains("land"_L1) || status.contains("indi"_L1),
             status.contains("air"_L1) || status.contains("flight"_L1)
                 || status.contains("hava"_L1) };
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
    const auto differs = [&data](QLatin1StringView planned, QLatin1StringView estimated,
                                 QLatin1StringView actual) {
        const QJsonValue known = data.contains(actual) ? data[actual] : data[estimated];
        return !known.isUndefined() && known != data[planned];
    };
    return differs("scheduledDeparture"_L1, "estimatedDeparture"_L1, "actualDeparture"_L1)
        || differs("scheduledArrival"_L1, "estimatedArrival"_L1, "actualArrival"_L1);
}

} // namespace

void SampleFlightStatusTest::demonstrationNumbers_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<int>("day");
    QTest::addColumn<bool>("delayed");
    QTest::addColumn<bool>("landed");
    QTest::addColumn<bool>("inAir");

    const auto row = [](const char *number, int day, bool delayed, bool landed, bool inAir) {
        QTest::addRow("%s, day %d", number, day)
            << QString::fromLatin1(number) << day << delayed << landed << inAir;
    };
    for (int day : { 0, 1, 7, 300 }) {
        row("VQ1983", day, false, false, false);
        row("VQ1907", day, true, false, false);
    }
    row("VQ1983", -2, false, true, false);
    row("VQ1907", -2, true, true, false);
    row("VQ1", 0, false, false, true);
    row("VQ1", 5, false, false, false);
    row("VQ1", -2, false, true, false);
    row("VQ2", 0, true, false, true);
    row("VQ2", 5, false, false, false);
}

void SampleFlightStatusTest::demonstrationNumbers()
{
    QFETCH(QString, number);
    QFETCH(int, day);
    QFETCH(bool, delayed);
    QFETCH(bool, landed);
    QFETCH(bool, inAir);
    for (int hour : { 0, 6, 12, 23 }) {
        const QDateTime now(fixedToday(), QTime(hour, 30), fixedNow().timeZone());
        const QJsonObject data = statusOf(number, dayText(day), now);
        QCOMPARE(flagsOf(data), (Flags { delayed, landed, inAir }));
        QCOMPARE(differsFromSchedule(data), delayed);
        if (number == "VQ1983"_L1)
            QVERIFY(data.contains("gate"_L1) && data.contains("terminal"_L1)
                    && data.contains("baggage"_L1));
    }
}

void SampleFlightStatusTest::followsTheClock()
{
    // VQ2115 flies from Istanbul to Ankara within an hour.
    const QString number = u"VQ2115"_s;
    int delayedDays = 0;
    for (int day = 0; day < 30; ++day) {
        const QString date = dayText(day);
        const QDateTime midnight(fixedToday().addDays(day), QTime(0, 0), fixedNow().timeZone());
        int stage = 0; // before, in the air, landed
        bool delayed = false;
        for (int minute = -24 * 60; minute < 48 * 60; minute += 10) {
            const QJsonObject data = statusOf(number, date, midnight.addSecs(60LL * minute));
            const Flags flags = flagsOf(data);
            QVERIFY(!(flags.landed && flags.inAir));
            const int now = flags.landed ? 2 : flags.inAir ? 1 : 0;
            QVERIFY2(now >= stage, "A flight does not go back in time.");
            stage = now;
            delayed = delayed || flags.delayed;
            if (minute < 0)
                QVERIFY(now == 0);
            QCOMPARE(data.contains("actualDeparture"_L1), now >= 1);
            QCOMPARE(data.contains("actualArrival"_L1), now == 2);
            if (now < 2)
                QCOMPARE(differsFromSchedule(data), flags.delayed);
            else
                QCOMPARE(differsFromSchedule(data), delayed);
        }
        QCOMPARE(stage, 2);
        delayedDays += delayed;
    }
    QVERIFY(delayedDays >= 3 && delayedDays <= 15);
}

void SampleFlightStatusTest::agreesWithSearch()
{
    for (const auto &to : { u"LHR"_s, u"JFK"_s, u"SYD"_s, u"TGD"_s }) {
        for (int day : { 1, 2, 130, 200 }) {
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

void SampleFlightStatusTest::everyStateAndGapOccurs()
{
    QSet<QString> texts;
    QSet<QString> gaps;
    for (int number = 1971; number <= 1986; ++number) {
        for (int day = -20; day <= 20; ++day) {
            const QJsonObject data = statusOf(u"VQ%1"_s.arg(number), dayText(day));
            QString text = data["status"_L1].toString();
            texts.insert(text.replace(QRegularExpression(u"[0-9]+"_s), u"N"_s));
            for (const auto &place : { "gate"_L1, "terminal"_L1, "baggage"_L1 }) {
                gaps.insert((data.contains(place) ? u"with "_s : u"without "_s) + place);
            }
            if (data.contains("estimatedDeparture"_L1) && flagsOf(data).delayed)
                QVERIFY(data["estimatedDeparture"_L1] != data["scheduledDeparture"_L1]);
        }
    }
    for (const auto &text :
         { u"Zamanında"_s, u"On Time"_s, u"Gecikmeli (N dk)"_s, u"Delayed (N min)"_s, u"Havada"_s,
           u"In Flight"_s, u"İndi"_s, u"Landed"_s })
        texts.remove(text);
    texts.remove(u"Havada, Gecikmeli (N dk)"_s);
    texts.remove(u"In Flight, Delayed (N min)"_s);
    QVERIFY2(texts.isEmpty(), qPrintable(texts.values().join(u", "_s)));
    QCOMPARE(gaps.size(), 6);
}

void SampleFlightStatusTest::spellingOfNumbers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("refused");

    const QString unknown = u"Bu numarada bir uçuş bulunamadı: VQ%1."_s;
    const QString malformed = u"\"%1\" geçerli bir uçuş numarası değil. Numara VQ ile başlamalı ve "
                              "ardından en çok dört rakam gelmeli (örnek: VQ1983)."_s;
    QTest::newRow("small letters") << u" vq1983\n"_s << QString();
    QTest::newRow("blank inside") << u"VQ 1983"_s << QString();
    QTest::newRow("zeros") << u"VQ0001"_s << QString();
    QTest::newRow("unknown") << u"VQ404"_s << unknown.arg(404);
    QTest::newRow("zero") << u"VQ0"_s << unknown.arg(0);
    QTest::newRow("five digits") << u"VQ19830"_s << malformed.arg(u"VQ19830"_s);
    QTest::newRow("other airline") << u"XQ12"_s << malformed.arg(u"XQ12"_s);
    QTest::newRow("only digits") << u"1983"_s << malformed.arg(u"1983"_s);
    QTest::newRow("two blanks") << u"VQ  12"_s << malformed.arg(u"VQ  12"_s);
    QTest::newRow("eastern digits") << u"VQ١٢"_s << malformed.arg(u"VQ١٢"_s);
    QTest::newRow("blank") << u"   "_s << malformed.arg(QString());
}

void SampleFlightStatusTest::spellingOfNumbers()
{
    QFETCH(QString, typed);
    QFETCH(QString, refused);
    QCOMPARE(refusal(u"flight-status"_s, { { u"flightNumber"_s, typed } }), refused);
}

QTEST_APPLESS_MAIN(SampleFlightStatusTest)
#include "SampleFlightStatusTest.moc"
