#include "Models/PriceCalendar.h"
#include "Services/CityGuideTool.h"
#include "Services/FlightSearchTool.h"
#include "Services/FlightStatusTool.h"
#include "Services/McpError.h"
#include "Services/PriceCalendarTool.h"
#include "Services/PromotionsTool.h"
#include "Services/ToolResult.h"
#include "support/ParsedJson.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

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

/// A reply is read, or refused as the server's fault.
void checkReply(const QByteArray &bytes)
{
    try {
        readToolResult(bytes);
    } catch (const McpError &error) {
        QVERIFY(error.domain() != McpError::Domain::Internal);
    }
}

void checkCalendar(const QByteArray &bytes)
{
    const JsonObject reply = received(bytes);
    for (const DailyPrice &day : PriceCalendarTool::parsePriceCalendar(reply).prices)
        QVERIFY2(day.currency, qPrintable(day.date));
    // What is read from what was written is the same.
    try {
        const QJsonObject written = PriceCalendarResult::fromJson(reply).toJson();
        const JsonObject read = received(QJsonDocument(written).toJson());
        QCOMPARE(PriceCalendarResult::fromJson(read).toJson(), written);
    } catch (const DecodingError &) { }
}

void checkFlights(const QByteArray &bytes)
{
    QSet<QString> ids;
    const auto flights = FlightSearchTool::parseFlightOptions(received(bytes), u"ist"_s, u"lhr"_s);
    for (const FlightOption &flight : flights) {
        ids.insert(flight.id);
        QVERIFY2(flight.price > 0, qPrintable(QString::number(flight.price)));
        QVERIFY(!flight.formattedPrice().isEmpty());
        QCOMPARE(flight.isDirect, flight.stopsCount == 0);
        QVERIFY(flight.seatAvailability.has_value());
        QVERIFY(flight.bookingURL.has_value());
    }
    QCOMPARE(ids.size(), flights.size());
}

void checkStatus(const QByteArray &bytes)
{
    const auto status =
        FlightStatusTool::parseFlightStatus(received(bytes), u"vq12"_s, u"2026-03-01"_s);
    for (const auto &text : { status.estimatedDeparture, status.estimatedArrival, status.terminal,
                              status.gate, status.aircraftType })
        QVERIFY(text.has_value());
    QCOMPARE(status.originAirport, status.originCity);
}

void checkPromotions(const QByteArray &bytes)
{
    for (const PromotionItem &promotion : PromotionsTool::parsePromotions(received(bytes)))
        QVERIFY(!promotion.title.isEmpty());
}

void checkGuide(const QByteArray &bytes)
{
    const auto guide = CityGuideTool::parseCityGuide(received(bytes), u"xyz"_s);
    QVERIFY(guide.bestTimeToVisit.has_value());
}

} // namespace

/// Good replies, changed at random, through each reader. VANTORA_SEED repeats a run,
/// VANTORA_MUTATIONS makes a longer one.
class MutatedRepliesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readers()
    {
        const quint32 other = QRandomGenerator::global()->generate();
        const quint32 seed = qEnvironmentVariable("VANTORA_SEED", QString::number(other)).toUInt();
        const int count = qEnvironmentVariable("VANTORA_MUTATIONS", u"5000"_s).toInt();
        dice.seed(seed);
        for (const auto &[reader, check] : { std::pair(QString(), &checkReply),
                                             { u"calendar"_s, &checkCalendar },
                                             { u"flights"_s, &checkFlights },
                                             { u"status"_s, &checkStatus },
                                             { u"promotions"_s, &checkPromotions },
                                             { u"guide"_s, &checkGuide } }) {
            const QList<QJsonObject> originals = repliesIn(u"data/"_s + reader);
            QVERIFY2(!originals.isEmpty(), qPrintable(reader));
            for (int number = 0; number < count; ++number) {
                QJsonValue json = originals.at(number % originals.size());
                for (int changes = dice.bounded(5); changes > 0; --changes)
                    json = changed(json);
                // What is read from bytes has these about it.
                const QJsonObject result { { u"structuredContent"_s, json } };
                const QJsonObject reply =
                    reader.isEmpty() ? QJsonObject { { u"result"_s, result } } : json.toObject();
                const QByteArray bytes = QJsonDocument(reply).toJson(QJsonDocument::Compact);
                const QByteArray sent = dice.bounded(4) > 0 ? bytes : garbled(bytes);
                check(sent);
                if (QTest::currentTestFailed()) {
                    qInfo("VANTORA_SEED=%u, the reply %s", seed, sent.constData());
                    return;
                }
            }
        }
    }

private:
    static QList<QJsonObject> repliesIn(const QString &folder)
    {
        QList<QJsonObject> replies;
        QDirIterator files(QFINDTESTDATA(folder), { u"*.json"_s }, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                replies.append(parsed(file.readAll()).value("reply"_L1).toObject());
        }
        return replies;
    }
};

QTEST_GUILESS_MAIN(MutatedRepliesTest)
#include "MutatedRepliesTest.moc"
