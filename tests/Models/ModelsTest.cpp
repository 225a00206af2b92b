#include "Models/AirportDatabase.h"
#include "Models/DateText.h"
#include "Models/FlightOption.h"
#include "Models/FlightStatusResult.h"
#include "Models/PriceCalendar.h"
#include "Models/SearchOptions.h"
#include "support/ParsedJson.h"

#include <QFile>
#include <QJsonArray>
#include <QLocale>
#include <QSet>
#include <QTest>
#include <QTimeZone>

#include <cmath>
#include <ctime>
#include <limits>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

/// Airports; what the records make of their texts and JSON; dates and prices as people read them,
/// whatever the system's time zone and locale.
class ModelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        setZone("Europe/Istanbul");
    }

    void theAirports()
    {
        QSet<QString> codes;
        QString hubs;
        for (const Airport &airport : AirportDatabase::allAirports()) {
            codes.insert(airport.code);
            hubs += airport.hub ? airport.code : QString();
            QVERIFY2(airport.code.size() == 3 && !airport.city.isEmpty() && !airport.name.isEmpty(),
                     qPrintable(airport.code + u' ' + airport.city + u' ' + airport.name));
        }
        QCOMPARE(codes.size(), AirportDatabase::allAirports().size());
        QCOMPARE(hubs, u"ISTSAW"_s);

        QCOMPARE(AirportDatabase::airport(u"Jfk"_s).city, u"New York"_s);
        const Airport unknown { u"XYZ"_s, u"XYZ"_s, u"XYZ Airport"_s, QString(), false };
        QCOMPARE(AirportDatabase::airport(u"xyz"_s), unknown);
        QCOMPARE(AirportDatabase::airport(u"IST "_s).city, u"IST "_s);
    }

    void searchForAirports()
    {
        const qsizetype all = AirportDatabase::allAirports().size();
        QCOMPARE(AirportDatabase::search(QString()).size(), all);
        QCOMPARE(AirportDatabase::search(u" \t\n"_s).size(), all);
        for (const QString &none : { u"turk"_s, u"%"_s, u"[a-z]*"_s })
            QVERIFY2(AirportDatabase::search(none).isEmpty(), qPrintable(none));
        // By code, city, country and name; some of those that are found, in their order.
        for (const auto &[query, some] : { std::pair(u"jnb"_s, u"JNB"_s),
                                           { u"  lon\n"_s, u"LHR LGW BCN SKG"_s },
                                           { u"TÜRK"_s, u"IST SAW ESB"_s },
                                           { u"united kingdom"_s, u"LHR LGW MAN"_s },
                                           { u"o.r. tambo"_s, u"JNB"_s } }) {
            const QList<Airport> airports = AirportDatabase::search(query);
            QStringList found;
            for (const Airport &airport : airports) {
                if (some.contains(airport.code))
                    found.append(airport.code);
            }
            QCOMPARE(query + u": "_s + found.join(u' '), query + u": "_s + some);
            QVERIFY2(airports.size() < all / 2, qPrintable(query));
        }
    }

    void turkishNames()
    {
        QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
        QCOMPARE(DateText::shortDate(u"2026-08-30"_s), u"30 Ağu"_s);
        QCOMPARE(DateText::shortWeekday(u"2026-12-05"_s), u"Cmt"_s);
        QCOMPARE(DateText::weekday(u"2026-12-02"_s), u"Çarşamba"_s);
        QCOMPARE(DateText::day(QDateTime(QDate(2026, 12, 5), QTime(9, 0))), u"2026-12-05"_s);
    }

    void noDates()
    {
        for (const QString &text :
             { QString(), u"2025-13-45"_s, u"2025-02-29"_s, u"2025-12-05T08:00"_s, u" 2025-12-05"_s,
               u"2025/12/05"_s, u"20251205"_s, u"2025-12"_s })
            QVERIFY2(!DateText::parseDay(text) && DateText::shortDate(text).isEmpty(),
                     qPrintable(text));
    }

    void dayIsThatOfTheUsersZone()
    {
        const QDateTime moment(QDate(2026, 3, 28), QTime(22, 30), QTimeZone::utc());
        for (const auto &[zone, day] : { std::pair("Europe/Istanbul", u"2026-03-29"_s),
                                         { "America/Los_Angeles", u"2026-03-28"_s },
                                         // The clock goes forward at midnight: there is no 0:00.
                                         { "Asia/Beirut", u"2026-03-29"_s } }) {
            setZone(zone);
            QCOMPARE(DateText::day(moment), day);
            const auto start = DateText::parseDay(day);
            QVERIFY(start && start->isValid());
            QCOMPARE(DateText::day(*start), day);
            QVERIFY(DateText::day(start->addSecs(-1)) < day);
        }
    }

    void currency()
    {
        const auto text = [](double amount, const QString &code,
                             const QString &locale = u"tr_TR"_s) {
            QLocale::setDefault(QLocale(locale));
            FlightOption flight;
            flight.price = amount;
            flight.currency = code;
            return flight.formattedPrice().replace(QChar::Nbsp, u' ');
        };
        QCOMPARE(text(4850, u"TRY"_s, u"C"_s), u"₺4.850"_s); // no language means Turkish
        QCOMPARE(text(4850, u"EUR"_s, u"de_DE"_s), u"4.850 €"_s);
        QCOMPARE(text(2.5, u"TRY"_s), u"₺2"_s); // half to even
        QCOMPARE(text(2.5000001, u"TRY"_s), u"₺3"_s);
        QCOMPARE(text(12.345, u"KWD"_s), u"KWD 12"_s);
        QCOMPARE(text(-12.7, u"TRY"_s), u"-₺13"_s);
        for (const QString &code : { QString(), u"Lira"_s, u"₺"_s, u"ŞĞÜ"_s, u"ŞĞÜ"_s })
            QCOMPARE(text(1999.9, code), u"1999 "_s + code);
        QCOMPARE(text(1e300, u"-"_s), u"9223372036854775807 -"_s);
        QCOMPARE(text(-1e300, u"-"_s), u"-9223372036854775808 -"_s);
        QCOMPARE(text(std::nextafter(std::exp2(63), 0), u"-"_s), u"9223372036854774784 -"_s);
        QCOMPARE(text(std::numeric_limits<double>::quiet_NaN(), u"-"_s), u"0 -"_s);
    }

    void statusStems()
    {
        for (const auto &[status, meaning] :
             { std::pair(u"Zamanında (On Time)"_s, QString()),
               { QString(), QString() },
               { u"GECİKTİ"_s, u" delayed"_s },
               { u"GECIKMELI"_s, u" delayed"_s },
               { u"RÖTARLI"_s, QString() },
               { u"İNDİ"_s, u" landed"_s },
               { u"INDI"_s, u" landed"_s },
               { u"Indi\u0307"_s, u" landed"_s },
               { u"Flight delayed"_s, u" delayed inAir"_s },
               { u"Repaired"_s, u" inAir"_s },
               { u"HAVALİMANINA İNDİ, GECİKMELİ"_s, u" delayed landed inAir"_s } }) {
            FlightStatusResult result;
            result.status = status;
            const QString found = (result.isDelayed() ? u" delayed"_s : QString())
                + (result.isLanded() ? u" landed"_s : QString())
                + (result.isInAir() ? u" inAir"_s : QString());
            QCOMPARE(status + found, status + meaning);
        }
    }

    void integers()
    {
        const auto read = [](const QByteArray &number) {
            return parsed("{\"n\": " + number + "}")["n"_L1].toInteger(-1);
        };
        using Limits = std::numeric_limits<qint64>;
        QCOMPARE(read("-0.0"), 0);
        QCOMPARE(read("54e5"), 5'400'000);
        QCOMPARE(read("9007199254740993"), 9'007'199'254'740'993);
        QCOMPARE(read("9223372036854775807"), Limits::max());
        QCOMPARE(read("-9223372036854775808"), Limits::min());
        for (const char *other : { "9223372036854775808", "1e300", "2.5", "true", "\"2\"", "null" })
            QVERIFY2(read(other) == -1, other);
    }

    void searchOptionsAcceptTheirRawValuesAlone()
    {
        QCOMPARE(SearchOptions::fromJson<CabinClass>(u"ECONOMY"_s), CabinClass::economy);
        QCOMPARE(SearchOptions::fromRawValue<TimeRange>(u"4_WEEKS"_s), TimeRange::fourWeeks);
        for (const QJsonValue &value : { QJsonValue(u"economy"_s), QJsonValue(u"ECONOMY "_s),
                                         QJsonValue(), QJsonValue(0), QJsonValue(u""_s) })
            QVERIFY_THROWS_EXCEPTION(DecodingError, SearchOptions::fromJson<CabinClass>(value));
    }

    /// Each is read, and written as it says; one that says nothing is refused.
    void calendarDocuments()
    {
        QFile file(QFINDTESTDATA("calendar-documents.json"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonArray documents = QJsonDocument::fromJson(file.readAll()).array();
        QVERIFY(!documents.isEmpty());
        for (const QJsonValue document : documents) {
            const QString name = document["name"_L1].toString() + u": "_s;
            const auto text = [&name](const QJsonValue &json) {
                const QByteArray bytes =
                    QJsonDocument(json.toObject()).toJson(QJsonDocument::Compact);
                return name + (json.isObject() ? QString::fromUtf8(bytes) : u"refused"_s);
            };
            QJsonValue written;
            try {
                const QJsonObject read = document["read"_L1].toObject();
                written = PriceCalendarResult::fromJson(read).toJson();
            } catch (const DecodingError &) { }
            QCOMPARE(text(written), text(document["written"_L1]));
        }
        QVERIFY_THROWS_EXCEPTION(DecodingError, DailyPrice::fromJson(parsed(R"({"date": null})")));
    }

private:
    static void setZone(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        ::tzset();
    }
};

QTEST_GUILESS_MAIN(ModelsTest)
#include "ModelsTest.moc"
