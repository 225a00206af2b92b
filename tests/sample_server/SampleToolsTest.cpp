#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"
#include "sample_server/JsonSchema.h"

#include <QLocale>
#include <QSet>
#include <QTest>

using namespace Sample;
using namespace ToolCalls;

namespace {

/// Copies of the value in which one required member, at any depth, is gone or has another type.
QList<QJsonValue> damaged(const QJsonObject &schema, const QJsonValue &value)
{
    QList<QJsonValue> copies;
    if (value.isArray() && !value.toArray().isEmpty()) {
        for (const QJsonValue &item : damaged(schema["items"_L1].toObject(), value[0])) {
            QJsonArray copy = value.toArray();
            copy[0] = item;
            copies.append(copy);
        }
    }
    const QJsonObject object = value.toObject();
    for (const QJsonValue name : schema["required"_L1].toArray()) {
        QJsonObject copy = object;
        copy.remove(name.toString());
        if (value.isObject())
            copies.append(copy);
    }
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

/// All tools against their own descriptions; the promotions and the guides.
class SampleToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void schemasUseKnownKeywordsAlone()
    {
        QCOMPARE(registry().tools().size(), 5);
        for (const Tool &tool : registry().tools()) {
            QCOMPARE(JsonSchema::uncheckedKeywords(tool.inputSchema()), QStringList());
            QCOMPARE(JsonSchema::uncheckedKeywords(tool.outputSchema()), QStringList());
        }
        const QJsonObject careless {
            { u"oneOf"_s, QJsonArray() },
            { u"items"_s, QJsonObject { { u"format"_s, u"email"_s }, { u"minimum"_s, 0 } } },
        };
        QCOMPARE(JsonSchema::uncheckedKeywords(careless),
                 QStringList({ u"oneOf"_s, u"format: email"_s }));
    }

    void repliesSatisfyTheirSchemas()
    {
        QHash<QString, QList<QJsonObject>> questions;
        int day = 0;
        for (const AirportSite &site : airportSites()) {
            day = (day + 11) % 365;
            const QString other = site.code == "IST"_L1 ? u"SIN"_s : u"IST"_s;
            questions[u"find_flight_price_calendar"_s].append(
                calendarArguments(other, site.code, dayText(day), u"1_WEEK"_s));
            questions[u"search_flights"_s].append(
                searchArguments(site.code, other, dayText(day), 1 + day % 9));
            questions[u"get_airline_promotions"_s].append(
                { { u"departureAirportCode"_s, site.code },
                  { u"countryCode"_s, day % 2 ? u"TR"_s : u"DE"_s } });
            questions[u"get_city_guide"_s].append({ { u"cityCode"_s, site.code } });
        }
        for (const QString &number : { u"VQ0001"_s, u"VQ2"_s, u" vq 1907\n"_s, u"VQ1984"_s }) {
            for (int ahead = -5; ahead <= 5; ++ahead)
                questions[u"flight-status"_s].append(
                    { { u"flightNumber"_s, number }, { u"flightDate"_s, dayText(ahead) } });
        }
        for (const Tool &tool : registry().tools()) {
            const QJsonObject schema = tool.outputSchema();
            qsizetype copies = 0;
            for (const QJsonObject &question : questions.value(tool.name)) {
                const QJsonObject reply = call(tool.name, question);
                const QString complaint = JsonSchema::violation(schema, reply).value_or(QString());
                QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
                QCOMPARE(call(tool.name, question), reply); // the same question, the same answer
                for (const QJsonValue &copy : damaged(schema, reply)) {
                    ++copies;
                    QVERIFY(JsonSchema::violation(schema, copy));
                }
            }
            QVERIFY(copies > questions.value(tool.name).size());
        }
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("tool");
        QTest::addColumn<QJsonObject>("arguments");
        QTest::addColumn<QString>("message");

        QString tool = u"search_flights"_s;
        QJsonObject good = searchArguments(u"IST"_s, u"LHR"_s, dayText(5));
        const auto row = [&](const QString &path, const QJsonValue &value,
                             const QString &complaint) {
            QJsonObject arguments = good;
            arguments.insert(path.section(u'[', 0, 0), value); // an undefined value removes
            const QString message = u'"' + path + u'"' + complaint;
            QTest::newRow(qPrintable(message)) << tool << arguments << message;
        };
        const auto party = [](const QJsonValue &quantity) {
            return QJsonArray { QJsonObject { { u"passengerType"_s, u"ADT"_s },
                                              { u"quantity"_s, quantity } } };
        };
        const QString badDay = u": \"%1\" geçerli bir tarih değil; yyyy-aa-gg biçiminde, "
                               "takvimde var olan bir gün olmalı."_s;
        const QString badForm = u": \"%1\" beklenen biçimde değil (örnek: %2)."_s;
        const QString badCode = u": \"%1\" bilinen bir havalimanı kodu değil."_s;
        const QString badChoice = u": \"%1\" geçerli değil; şunlardan biri olmalı: %2."_s;
        row(u"from"_s, u"ZZZ"_s, badCode.arg(u"ZZZ"));
        row(u"from"_s, QJsonValue(), u" bir metin olmalı."_s);
        row(u"from"_s, u"LHR"_s, u" ve \"to\" aynı olamaz: ikisi de LHR."_s);
        row(u"to"_s, u"lhr"_s, badForm.arg(u"lhr", u"LHR"));
        row(u"to"_s, u"LHR\n"_s, badForm.arg(u"LHR\\n", u"LHR"));
        row(u"to"_s, u"%1%2"_s, badForm.arg(u"%1%2", u"LHR"));
        row(u"departureDate"_s, QJsonValue::Undefined, u" eksik."_s);
        for (const QString &day :
             { u"2026-11-31"_s, u"2026-2-9"_s, u"2026-12-01T10:00"_s, u"٢٠٢٦-١٢-٠٩"_s, QString() })
            row(u"departureDate"_s, day, badDay.arg(day));
        row(u"tripType"_s, u"ONE_WAY"_s, badChoice.arg(u"ONE_WAY", u"one_way, round"));
        row(u"passengers"_s, QJsonArray(), u" en az 1 öge içermeli."_s);
        row(u"passengers[0].quantity"_s, party(0), u": 0 çok küçük; en az 1 olmalı."_s);
        row(u"passengers[0].quantity"_s, party(10), u": 10 çok büyük; en çok 9 olmalı."_s);
        row(u"passengers[0].quantity"_s, party(1.5), u" bir tam sayı olmalı."_s);
        row(u"passengers[0].quantity"_s, party(QJsonValue::Undefined), u" eksik."_s);
        row(u"returnDate"_s, dayText(4),
            u": dönüş günü (25 Kasım 2026) gidiş gününden (26 Kasım 2026) önce olamaz."_s);
        row(u"cabin"_s, u"ECONOMY"_s, u" bilinmeyen bir alan."_s);

        tool = u"find_flight_price_calendar"_s;
        good = calendarArguments(u"IST"_s, u"LHR"_s, dayText(5));
        row(u"destinationAirportCode"_s, u"QQQ"_s, badCode.arg(u"QQQ"));
        row(u"timeRange"_s, u"1_WEEKS"_s,
            badChoice.arg(u"1_WEEKS", u"1_WEEK, 2_WEEKS, 3_WEEKS, 4_WEEKS"));
        row(u"isReturnFlight"_s, 0, u" true ya da false olmalı."_s);

        tool = u"flight-status"_s;
        good = { { u"flightNumber"_s, u"VQ1983"_s } };
        row(u"flightNumber"_s, QString(), u" boş olamaz."_s);
        const auto status = [&](const QString &number, const QString &date,
                                const QString &message) {
            QTest::newRow(qPrintable(number))
                << tool << QJsonObject { { u"flightNumber"_s, number }, { u"flightDate"_s, date } }
                << message;
        };
        status(u"VQ404"_s, dayText(1), u"Bu numarada bir uçuş bulunamadı: VQ404."_s);
        for (const QString &number :
             { u"VQ19830"_s, u"XQ12"_s, u"1983"_s, u"VQ  12"_s, u"VQ١٢"_s }) {
            status(number, dayText(1),
                   u"\"%1\" geçerli bir uçuş numarası değil. Numara VQ ile başlamalı ve ardından "
                   "en çok dört rakam gelmeli (örnek: VQ1983)."_s.arg(number));
        }
        status(u"VQ1"_s, u"2031-01-05"_s,
               u"5 Ocak 2031 günü için uçuş durumu yok: bugünden en çok 357 gün önceki ya da "
               "sonraki günler sorgulanabilir."_s);
    }
    void refusals()
    {
        QFETCH(QString, tool);
        QFETCH(QJsonObject, arguments);
        QFETCH(QString, message);
        QString refusal;
        try {
            call(tool, arguments);
        } catch (const JsonRpc::Error &error) {
            refusal = error.message;
        }
        QCOMPARE(refusal, message);
    }

    void promotionsOfEveryAirport()
    {
        const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
        for (const AirportSite &site : airportSites()) {
            const QJsonObject reply =
                call(u"get_airline_promotions"_s,
                     { { u"departureAirportCode"_s, site.code }, { u"countryCode"_s, u"TR"_s } });
            QSet<QString> titles; // are identities
            for (const QJsonValue promotion : reply["promotions"_L1].toArray()) {
                titles.insert(promotion["title"_L1].toString());
                const QString until = promotion["validUntil"_L1].toString();
                QVERIFY(until.isEmpty()
                        || turkish.toDate(until, u"d MMMM yyyy"_s) > fixedNow().date());
            }
            QVERIFY(titles.size() >= 4 && titles.size() == reply["promotions"_L1].toArray().size());
        }
    }

    void guidesOfEveryAirport()
    {
        QHash<QString, QJsonObject> guideOfCity;
        for (const AirportSite &site : airportSites()) {
            const QJsonObject reply = call(u"get_city_guide"_s, { { u"cityCode"_s, site.code } });
            const QJsonObject guide = reply.value("guide"_L1).toObject();
            if (guide.isEmpty() || site.city == u"Newark") // served by the guide of New York
                continue;
            QCOMPARE(guide, guideOfCity.value(site.city, guide)); // one city, one guide
            guideOfCity.insert(site.city, guide);
            QCOMPARE(guide["cityName"_L1].toString(), site.turkishCity);
            for (const auto key :
                 { "topAttractions"_L1, "culinaryHighlights"_L1, "localTips"_L1 }) {
                QSet<QString> texts;
                for (const QJsonValue text : guide[key].toArray())
                    texts.insert(text.toString());
                QCOMPARE(texts.size(), guide[key].toArray().size());
            }
        }
        QCOMPARE(guideOfCity.size(), 20);
    }
};

QTEST_APPLESS_MAIN(SampleToolsTest)
#include "SampleToolsTest.moc"
