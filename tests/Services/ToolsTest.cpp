#include "Models/JsonReading.h"
#include "Services/ServiceAddresses.h"
#include "Services/ToolResults.h"
#include "support/ClientTesting.h"
#include "support/ParsedJson.h"
#include "support/ToolAnswers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// What QML sees; "<web site>" stands for the built-in address.
template<typename Record>
QJsonObject members(const Record &record)
{
    QJsonObject json = propertiesOf(record);
    for (QJsonValueRef value : json) {
        if (value == ServiceAddresses::webSite())
            value = u"<web site>"_s;
    }
    return json;
}

template<typename Record>
QJsonArray membersOfAll(const QList<Record> &records)
{
    QJsonArray list;
    for (const Record &record : records)
        list.append(members(record));
    return list;
}

/// What the reader named as the folder makes of a reply.
QJsonValue read(const QString &reader, const QJsonObject &reply, const QString &code)
{
    if (reader == u"calendar") {
        const PriceCalendar calendar = ToolResults::parsePriceCalendar(reply);
        const auto &best = calendar.bestPrice;
        return QJsonObject { { u"currency"_s, calendar.currency },
                             { u"bestPrice"_s, best ? members(*best) : QJsonValue() },
                             { u"prices"_s, membersOfAll(calendar.prices) } };
    }
    if (reader == u"flights")
        return membersOfAll(ToolResults::parseFlightOptions(reply, u"ist"_s, u"lhr"_s));
    if (reader == u"status")
        return members(ToolResults::parseFlightStatus(reply, u" vq12 "_s, u"2026-03-01"_s));
    if (reader == u"promotions")
        return membersOfAll(ToolResults::parsePromotions(reply));
    if (reader == u"guide")
        return members(ToolResults::parseCityGuide(reply, code));
    qFatal("No reader is called \"%s\".", qPrintable(reader));
}

/// What holds for every reply, however broken.
void checkWhatAlwaysHolds(const QString &reader, const QJsonObject &reply)
{
    if (reader == u"calendar") {
        for (const DailyPrice &day : ToolResults::parsePriceCalendar(reply).prices)
            QVERIFY2(day.currency, qPrintable(day.date));
        // What is read from what was written is the same.
        try {
            const QJsonObject written = PriceCalendarResult::fromJson(reply).toJson();
            QCOMPARE(PriceCalendarResult::fromJson(written).toJson(), written);
        } catch (const DecodingError &) { }
    } else if (reader == u"flights") {
        QSet<QString> ids;
        const auto flights = ToolResults::parseFlightOptions(reply, u"ist"_s, u"lhr"_s);
        for (const FlightOption &flight : flights) {
            ids.insert(flight.id);
            QVERIFY2(flight.price > 0, qPrintable(QString::number(flight.price)));
            QVERIFY(!flight.formattedPrice().isEmpty());
            QCOMPARE(flight.isDirect, flight.stopsCount == 0);
            QVERIFY(flight.seatAvailability);
            QVERIFY(flight.bookingURL);
        }
        QCOMPARE(ids.size(), flights.size());
    } else if (reader == u"status") {
        const auto status = ToolResults::parseFlightStatus(reply, u"vq12"_s, std::nullopt);
        for (const auto &text : { status.estimatedDeparture, status.estimatedArrival,
                                  status.terminal, status.gate, status.aircraftType })
            QVERIFY(text);
        QCOMPARE(status.originAirport, status.originCity);
    } else if (reader == u"promotions") {
        for (const PromotionItem &promotion : ToolResults::parsePromotions(reply))
            QVERIFY(!promotion.title.isEmpty());
    } else {
        QVERIFY(ToolResults::parseCityGuide(reply, u"xyz"_s).bestTimeToVisit);
    }
}

QRandomGenerator dice;

/// A good value with members dropped, renamed, retyped, nested and doubled.
QJsonValue changed(const QJsonValue &value)
{
    static const QJsonArray odd = QJsonDocument::fromJson(R"([
        null, true, false, 0, -1, 2.5, -0.0, 1e308, -1e308, 9007199254740993.0,
        -9223372036854775808, 9223372036854775807, "", "T", "T:", "xT1:2:3", " 5", "TRY",
        "\u2028\u202e", "\ud800", [], {}, [[]]])")
                                      .array();
    QJsonObject object = value.toObject();
    QJsonArray array = value.toArray();
    // Most changes are made deep inside.
    const bool isInside = dice.bounded(4) > 0;
    if (isInside && !object.isEmpty()) {
        const QString key = object.keys().at(dice.bounded(object.size()));
        const QJsonValue member = object.take(key);
        if (const int fate = dice.bounded(5); fate > 0)
            object.insert(fate == 1 ? key + u'_' : key, fate == 1 ? member : changed(member));
        return object;
    }
    if (isInside && !array.isEmpty()) {
        const QJsonValue element = array.takeAt(dice.bounded(array.size()));
        for (int copies = dice.bounded(4); copies > 0; --copies)
            array.append(copies == 1 ? changed(element) : element);
        return array;
    }
    switch (dice.bounded(5)) {
    case 0:
        return QJsonArray { value };
    case 1:
        return value.isString() ? QJsonValue(value.toString().toDouble())
                                : QJsonValue(QString::number(value.toDouble()));
    case 2:
        return QString(300, u'x');
    default:
        return odd.at(dice.bounded(odd.size()));
    }
}

QByteArray garbled(QByteArray bytes)
{
    const qsizetype at = dice.bounded(bytes.size());
    switch (dice.bounded(3)) {
    case 0:
        return bytes.replace(at, 1, QByteArray(1, static_cast<char>(dice.bounded(256))));
    case 1:
        return bytes.insert(at, bytes.mid(dice.bounded(bytes.size()), dice.bounded(40)));
    default:
        return bytes.left(at);
    }
}

/// Where `actual` lacks what `expected` lists; members that are not listed do not matter.
QStringList differences(const QJsonValue &actual, const QJsonValue &expected, const QString &path)
{
    QStringList found;
    const QJsonArray elements = expected.toArray();
    if (expected.isArray() && actual.toArray().size() == elements.size()) {
        for (int index = 0; index < elements.size(); ++index)
            found += differences(actual[index], elements[index], path + u"/%1"_s.arg(index));
    } else if (expected.isObject() && actual.isObject()) {
        const QJsonObject members = expected.toObject();
        for (auto it = members.begin(); it != members.end(); ++it)
            found += differences(actual[it.key()], it.value(), path + u'/' + it.key());
    } else if (actual != expected) {
        const QJsonDocument pair(QJsonArray { actual, expected });
        found += path + u": "_s + QString::fromUtf8(pair.toJson(QJsonDocument::Compact));
    }
    return found;
}

} // namespace

/// The tools: arguments that no view asks for, as the server receives them, and the lenient readers
/// on replies from data files, whole and changed at random.
class ToolsTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void arguments()
    {
        VTRMCPClient &client = VTRMCPClient::shared();
        expect(client.fetchPriceCalendar(u" iı"_s, QString(), u"2026-3-1"_s, TripType::oneWay,
                                         TimeRange::fourWeeks, CabinClass::economy),
               calendarTool,
               R"({ "originAirportCode": " II", "destinationAirportCode": "",
                "departureDate": "2026-3-1", "tripType": "ONE_WAY", "timeRange": "4_WEEKS",
                "cabinClass": "ECONOMY", "isReturnFlight": false, "stayDuration": 14 })");
        // A return date makes the trip round, but only a round trip sends it.
        expect(client.searchFlights(u"ist"_s, u"Lhr"_s, u"2026-03-01"_s, u"2026-03-08"_s,
                                    TripType::oneWay, 0),
               flightsTool,
               R"({ "from": "IST", "to": "LHR", "departureDate": "2026-03-01", "tripType": "round",
                "passengers": [{ "passengerType": "ADT", "quantity": 0 }] })");
        expect(client.checkFlightStatus(u"  vq 1983 \n"_s, QString()), statusTool,
               R"({ "flightNumber": "VQ 1983" })");
        expect(client.fetchPromotions(u"esb"_s, u"tr"_s), promotionsTool,
               R"({ "departureAirportCode": "ESB", "countryCode": "TR" })");
    }

    void replies_data()
    {
        QTest::addColumn<QString>("reader");
        QTest::addColumn<QJsonObject>("example");
        for (const auto &[reader, name, example] : examples())
            QTest::newRow(qPrintable(reader + u'/' + name)) << reader << example;
    }
    void replies()
    {
        QFETCH(QString, reader);
        QFETCH(QJsonObject, example);
        QVERIFY(example.contains("reply"_L1) && example.contains("expected"_L1));
        const QJsonObject reply = example.value("reply"_L1).toObject();
        const QJsonValue actual = read(reader, reply, example.value("code"_L1).toString());
        const QStringList found = differences(actual, example.value("expected"_L1), QString());
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u"\n"_s)));
    }

    /// VANTORA_SEED repeats a run, VANTORA_MUTATIONS makes a longer one.
    void changedReplies()
    {
        const quint32 other = QRandomGenerator::global()->generate();
        const quint32 seed = qEnvironmentVariable("VANTORA_SEED", QString::number(other)).toUInt();
        const int count = qEnvironmentVariable("VANTORA_MUTATIONS", u"25000"_s).toInt();
        dice.seed(seed);
        const QList<Example> originals = examples();
        for (int number = 0; number < count; ++number) {
            const Example &original = originals.at(number % originals.size());
            QJsonValue reply = original.json.value("reply"_L1);
            for (int changes = dice.bounded(5); changes > 0; --changes)
                reply = changed(reply);
            const QJsonObject result { { u"structuredContent"_s, reply } };
            const QByteArray bytes =
                QJsonDocument(QJsonObject { { u"result"_s, result } }).toJson();
            const QByteArray sent = dice.bounded(4) > 0 ? bytes : garbled(bytes);
            // It is read, or refused as the server's fault.
            try {
                checkWhatAlwaysHolds(original.reader, ToolResults::parseAnswer(sent));
            } catch (const McpError &error) {
                QVERIFY(error.domain() != McpError::Domain::Internal);
            }
            if (QTest::currentTestFailed()) {
                qInfo("VANTORA_SEED=%u, the reply %s", seed, sent.constData());
                return;
            }
        }
    }

private:
    /// A data file, in the folder that is named after its reader.
    struct Example
    {
        QString reader;
        QString name;
        QJsonObject json;
    };

    static QList<Example> examples()
    {
        QList<Example> examples;
        const QDir data(QFINDTESTDATA("data"));
        for (const QString &reader : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QDir folder(data.filePath(reader));
            for (const QString &name : folder.entryList({ u"*.json"_s })) {
                QFile file(folder.filePath(name));
                if (!file.open(QIODevice::ReadOnly))
                    qFatal("No data file %s", qPrintable(file.fileName()));
                examples.append({ reader, name, parsed(file.readAll()) });
            }
        }
        return examples;
    }

    /// Ends the task and compares what the server received with `arguments`.
    template<typename T>
    void expect(QCoro::Task<T> task, const QString &tool, const char *arguments)
    {
        const auto outcome = settle(std::move(task));
        QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
        const ReceivedRequest received = m_server->requests().constLast();
        QCOMPARE(received.tool(), tool);
        QCOMPARE(QJsonDocument(received.arguments()), QJsonDocument::fromJson(arguments));
    }
};

QTEST_GUILESS_MAIN(ToolsTest)
#include "ToolsTest.moc"
