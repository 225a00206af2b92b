#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"
#include "sample_server/JsonSchema.h"

#include <QLocale>
#include <QSet>
#include <QTest>

using namespace Sample;
using namespace ToolCalls;

/// All tools against their own descriptions; the promotions and the guides.
class SampleToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repliesSatisfyTheirSchemas_data();
    void repliesSatisfyTheirSchemas();
    void refusals_data();
    void refusals();
    void promotionsOfEveryAirport();
    void guidesOfEveryAirport();
};

namespace {

const Tool &toolNamed(const QString &name)
{
    return *std::find_if(registry().tools().cbegin(), registry().tools().cend(),
                         [&name](const Tool &tool) { return tool.name == name; });
}

/// Copies of the value in which one required member, at any depth, is gone or has another type.
QList<QJsonValue> damaged(const QJsonObject &schema, const QJsonValue &value)
{
    QList<QJsonValue> copies;
    if (value.isArray() && !value.toArray().isEmpty()) {
        for (const QJsonValue &item :
             damaged(schema["items"_L1].toObject(), value.toArray().first())) {
            QJsonArray copy = value.toArray();
            copy[0] = item;
            copies.append(copy);
        }
    }
    if (!value.isObject())
        return copies;
    for (const QJsonValue name : schema["required"_L1].toArray()) {
        QJsonObject copy = value.toObject();
        copy.remove(name.toString());
        copies.append(copy);
    }
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QJsonObject memberSchema = schema["properties"_L1][member.key()].toObject();
        QJsonObject copy = object;
        copy[member.key()] = QJsonValue::Null;
        copies.append(copy);
        for (const QJsonValue &inner : damaged(memberSchema, member.value())) {
            copy[member.key()] = inner;
            copies.append(copy);
        }
    }
    return copies;
}

} // namespace

void SampleToolsTest::repliesSatisfyTheirSchemas_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QList<QJsonObject>>("questions");

    QList<QJsonObject> calendars;
    QList<QJsonObject> searches;
    QList<QJsonObject> states;
    QList<QJsonObject> promotions;
    QList<QJsonObject> guides;
    int day = 0;
    for (const AirportSite &site : airportSites()) {
        day = (day + 11) % 365;
        const QString other = site.code == "IST"_L1 ? u"SIN"_s : u"IST"_s;
        calendars.append(calendarArguments(other, site.code, dayText(day), u"1_WEEK"_s));
        searches.append(searchArguments(site.code, other, dayText(day), 1 + day % 9));
        promotions.append({ { u"departureAirportCode"_s, site.code },
                            { u"countryCode"_s, day % 2 ? u"TR"_s : u"DE"_s } });
        guides.append({ { u"cityCode"_s, site.code } });
    }
    for (const auto &number : { u"VQ1"_s, u"VQ2"_s, u"VQ1907"_s, u"VQ1975"_s, u"VQ1984"_s }) {
        states.append({ { u"flightNumber"_s, number } });
        for (int ahead = -5; ahead <= 5; ++ahead)
            states.append({ { u"flightNumber"_s, number }, { u"flightDate"_s, dayText(ahead) } });
    }
    QTest::newRow("calendar") << u"find_flight_price_calendar"_s << calendars;
    QTest::newRow("search") << u"search_flights"_s << searches;
    QTest::newRow("status") << u"flight-status"_s << states;
    QTest::newRow("promotions") << u"get_airline_promotions"_s << promotions;
    QTest::newRow("guide") << u"get_city_guide"_s << guides;
}

void SampleToolsTest::repliesSatisfyTheirSchemas()
{
    QFETCH(QString, tool);
    QFETCH(QList<QJsonObject>, questions);
    const QJsonObject schema = toolNamed(tool).outputSchema();
    qsizetype copies = 0;
    for (const QJsonObject &question : questions) {
        const QJsonObject reply = call(tool, question);
        const QString complaint = JsonSchema::violation(schema, reply).value_or(QString());
        QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
        QCOMPARE(call(tool, question), reply); // the same question, the same answer
        for (const QJsonValue &copy : damaged(schema, reply)) {
            ++copies;
            QVERIFY(JsonSchema::violation(schema, copy));
        }
    }
    QVERIFY(copies > questions.size());
}

void SampleToolsTest::refusals_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QJsonObject>("arguments");
    QTest::addColumn<QString>("message");

    const auto row = [](const char *name, const QString &tool, QJsonObject arguments,
                        const QString &key, const QJsonValue &value, const QString &message) {
        if (value.isUndefined())
            arguments.remove(key);
        else
            arguments.insert(key, value);
        QTest::newRow(name) << tool << arguments << message;
    };
    const QString search = u"search_flights"_s;
    const QString calendar = u"find_flight_price_calendar"_s;
    const QString status = u"flight-status"_s;
    const QJsonObject flight = searchArguments(u"IST"_s, u"LHR"_s, dayText(5));
    const QJsonObject fares = calendarArguments(u"IST"_s, u"LHR"_s, dayText(5));
    const QJsonObject state { { u"flightNumber"_s, u"VQ1983"_s } };

    row("unknown airport", search, flight, u"from"_s, u"ZZZ"_s,
        u"\"from\": \"ZZZ\" bilinen bir havalimanı kodu değil."_s);
    row("small letters", search, flight, u"to"_s, u"lhr"_s,
        u"\"to\": \"lhr\" beklenen biçimde değil (örnek: LHR)."_s);
    row("same airport", search, flight, u"to"_s, u"IST"_s,
        u"\"from\" ve \"to\" aynı olamaz: ikisi de IST."_s);
    row("missing date", search, flight, u"departureDate"_s, QJsonValue::Undefined,
        u"\"departureDate\" eksik."_s);
    row("impossible date", search, flight, u"departureDate"_s, u"2026-11-31"_s,
        u"\"departureDate\": \"2026-11-31\" geçerli bir tarih değil; yyyy-aa-gg biçiminde, "
        "takvimde var olan bir gün olmalı."_s);
    row("wire value of the other tool", search, flight, u"tripType"_s, u"ONE_WAY"_s,
        u"\"tripType\": \"ONE_WAY\" geçerli değil; şunlardan biri olmalı: one_way, round."_s);
    row("nobody travels", search, searchArguments(u"IST"_s, u"LHR"_s, dayText(5), 0), u"from"_s,
        u"ESB"_s, u"\"passengers[0].quantity\": 0 çok küçük; en az 1 olmalı."_s);
    row("ten travel", search, searchArguments(u"IST"_s, u"LHR"_s, dayText(5), 10), u"from"_s,
        u"ESB"_s, u"\"passengers[0].quantity\": 10 çok büyük; en çok 9 olmalı."_s);
    row("no passengers", search, flight, u"passengers"_s, QJsonArray(),
        u"\"passengers\" en az 1 öge içermeli."_s);
    row("back before there", search, flight, u"returnDate"_s, dayText(4),
        u"\"returnDate\": dönüş günü (25 Kasım 2026) gidiş gününden (26 Kasım 2026) önce olamaz."_s);
    row("argument too many", search, flight, u"cabin"_s, u"ECONOMY"_s,
        u"\"cabin\" bilinmeyen bir alan."_s);
    row("calendar: unknown airport", calendar, fares, u"destinationAirportCode"_s, u"QQQ"_s,
        u"\"destinationAirportCode\": \"QQQ\" bilinen bir havalimanı kodu değil."_s);
    row("calendar: plural week", calendar, fares, u"timeRange"_s, u"1_WEEKS"_s,
        u"\"timeRange\": \"1_WEEKS\" geçerli değil; şunlardan biri olmalı: 1_WEEK, 2_WEEKS, "
        "3_WEEKS, 4_WEEKS."_s);
    row("calendar: text for a truth value", calendar, fares, u"isReturnFlight"_s, u"false"_s,
        u"\"isReturnFlight\" true ya da false olmalı."_s);
    row("status: empty date", status, state, u"flightDate"_s, u""_s,
        u"\"flightDate\": \"\" geçerli bir tarih değil; yyyy-aa-gg biçiminde, takvimde var olan "
        "bir gün olmalı."_s);
    row("status: far future", status, state, u"flightDate"_s, u"2031-01-05"_s,
        u"5 Ocak 2031 günü için uçuş durumu yok: bugünden en çok 355 gün önceki ya da sonraki "
        "günler sorgulanabilir."_s);
    row("promotions: country name", u"get_airline_promotions"_s,
        { { u"departureAirportCode"_s, u"IST"_s } }, u"countryCode"_s, u"TUR"_s,
        u"\"countryCode\": \"TUR\" beklenen biçimde değil (örnek: TR)."_s);
    row("guide: unknown", u"get_city_guide"_s, {}, u"cityCode"_s, u"LON"_s,
        u"\"cityCode\": \"LON\" bilinen bir havalimanı kodu değil."_s);
}

void SampleToolsTest::refusals()
{
    QFETCH(QString, tool);
    QFETCH(QJsonObject, arguments);
    QFETCH(QString, message);
    QCOMPARE(refusal(tool, arguments), message);
}

void SampleToolsTest::promotionsOfEveryAirport()
{
    const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
    QSet<QString> present;
    QSet<QString> absent;
    for (const AirportSite &site : airportSites()) {
        const QJsonArray promotions =
            call(u"get_airline_promotions"_s,
                 { { u"departureAirportCode"_s, site.code }, { u"countryCode"_s, u"TR"_s } })
                .value("promotions"_L1)
                .toArray();
        QVERIFY(promotions.size() >= 4 && promotions.size() <= 6);
        QSet<QString> titles;
        for (const QJsonValue promotion : promotions) {
            titles.insert(promotion["title"_L1].toString());
            for (const auto &key : { u"discount"_s, u"route"_s, u"validUntil"_s })
                (promotion[key].isUndefined() ? absent : present).insert(key);
            const QJsonValue until = promotion["validUntil"_L1];
            if (!until.isUndefined())
                QVERIFY(turkish.toDate(until.toString(), u"d MMMM yyyy"_s) > fixedToday());
            const QString route = promotion["route"_L1].toString();
            QVERIFY2(route.count(site.turkishCity) <= 1, qPrintable(route));
        }
        QCOMPARE(titles.size(), promotions.size()); // titles are identities
        QVERIFY(!QJsonDocument(promotions).toJson().contains('{' + QByteArray("city")));
    }
    QCOMPARE(present.size(), 3);
    QCOMPARE(absent.size(), 3);
}

void SampleToolsTest::guidesOfEveryAirport()
{
    QHash<QString, QJsonObject> guideOfCity;
    for (const AirportSite &site : airportSites()) {
        const QJsonObject reply = call(u"get_city_guide"_s, { { u"cityCode"_s, site.code } });
        const QJsonObject guide = reply.value("guide"_L1).toObject();
        if (guide.isEmpty())
            continue;
        QCOMPARE(guide, guideOfCity.value(site.city, guide)); // one city, one guide
        guideOfCity.insert(site.city, guide);
        if (site.city != "Newark"_L1)
            QCOMPARE(guide["cityName"_L1].toString(), site.turkishCity);
        for (const auto &key : { "topAttractions"_L1, "culinaryHighlights"_L1, "localTips"_L1 }) {
            const QJsonArray texts = guide[key].toArray();
            QSet<QString> different;
            for (const QJsonValue text : texts)
                different.insert(text.toString());
            QCOMPARE(different.size(), texts.size());
        }
    }
    guideOfCity.remove(u"Newark"_s);
    QCOMPARE(guideOfCity.size(), 20);
}

QTEST_APPLESS_MAIN(SampleToolsTest)
#include "SampleToolsTest.moc"
