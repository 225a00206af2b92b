#include "Services/CityGuideTool.h"
#include "Services/FlightSearchTool.h"
#include "Services/FlightStatusTool.h"
#include "Services/PriceCalendarTool.h"
#include "Services/PromotionsTool.h"
#include "Services/ServiceAddresses.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMetaProperty>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The members that QML sees; "<web site>" stands for the built-in address.
template<typename Record>
QJsonObject members(const Record &record)
{
    QJsonObject json;
    const QMetaObject &type = Record::staticMetaObject;
    for (int index = 0; index < type.propertyCount(); ++index) {
        const QMetaProperty property = type.property(index);
        QJsonValue value = QJsonValue::fromVariant(property.readOnGadget(&record));
        if (value == ServiceAddresses::webSite())
            value = u"<web site>"_s;
        json.insert(QString::fromLatin1(property.name()), value);
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

QJsonValue readCalendar(const QJsonObject &reply)
{
    const PriceCalendar calendar = PriceCalendarTool::parsePriceCalendar(reply);
    return QJsonObject {
        { u"currency"_s, calendar.currency },
        { u"bestPrice"_s, calendar.bestPrice ? members(*calendar.bestPrice) : QJsonValue() },
        { u"prices"_s, membersOfAll(calendar.prices) },
    };
}

/// What the reader named as the folder makes of a reply.
QJsonValue read(const QString &reader, const QJsonObject &reply, const QString &code)
{
    if (reader == u"calendar")
        return readCalendar(reply);
    if (reader == u"flights")
        return membersOfAll(FlightSearchTool::parseFlightOptions(reply, u"ist"_s, u"lhr"_s));
    if (reader == u"status")
        return members(FlightStatusTool::parseFlightStatus(reply, u" vq12 "_s, u"2026-03-01"_s));
    if (reader == u"promotions")
        return membersOfAll(PromotionsTool::parsePromotions(reply));
    return members(CityGuideTool::parseCityGuide(reply, code));
}

/// Where `actual` lacks what `expected` lists; members that are not listed do not matter.
QStringList differences(const QJsonValue &actual, const QJsonValue &expected, const QString &path)
{
    QStringList found;
    const QJsonArray elements = expected.toArray();
    if (expected.isArray() && actual.toArray().size() == elements.size()) {
        for (int index = 0; index < elements.size(); ++index)
            found += differences(actual.toArray().at(index), elements.at(index),
                                 path + u"/%1"_s.arg(index));
    } else if (expected.isObject() && actual.isObject()) {
        const QJsonObject members = expected.toObject();
        for (auto it = members.begin(); it != members.end(); ++it)
            found +=
                differences(actual.toObject().value(it.key()), it.value(), path + u'/' + it.key());
    } else if (actual != expected) {
        const QJsonArray pair { actual, expected };
        found +=
            path + u": "_s + QString::fromUtf8(QJsonDocument(pair).toJson(QJsonDocument::Compact));
    }
    return found;
}

} // namespace

/// The lenient readers on replies from data files: "expected" lists what "reply" is read as.
class ToolReadersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replies_data();
    void replies();
    void absentStaysAbsent();
};

void ToolReadersTest::replies_data()
{
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QString>("path");
    const QDir data(QFINDTESTDATA("data"));
    for (const QString &reader : data.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir folder(data.filePath(reader));
        for (const QString &file : folder.entryList({ u"*.json"_s }))
            QTest::newRow(qPrintable(reader + u'/' + file)) << reader << folder.filePath(file);
    }
}

void ToolReadersTest::replies()
{
    QFETCH(QString, reader);
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject example = QJsonDocument::fromJson(file.readAll()).object();
    QVERIFY(example.contains("reply"_L1) && example.contains("expected"_L1));

    const QJsonValue actual =
        read(reader, example.value("reply"_L1).toObject(), example.value("code"_L1).toString());
    const QStringList found = differences(actual, example.value("expected"_L1), QString());
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u"\n"_s)));
}

void ToolReadersTest::absentStaysAbsent()
{
    // QML reads an absent text as an empty one; here the two differ.
    const auto status = FlightStatusTool::parseFlightStatus({}, u"VQ1"_s, std::nullopt);
    QVERIFY(!status.date);
    QVERIFY(!status.baggageBelt);
    QCOMPARE(status.id(), u"VQ1"_s);
    const QJsonObject promotion { { u"title"_s, u"A"_s }, { u"route"_s, QString() } };
    const auto items =
        PromotionsTool::parsePromotions({ { u"promotions"_s, QJsonArray { promotion } } });
    QCOMPARE(items.size(), 1);
    QVERIFY(!items.first().discount && !items.first().validUntil);
    QCOMPARE(items.first().route, std::optional(QString()));
}

QTEST_GUILESS_MAIN(ToolReadersTest)
#include "ToolReadersTest.moc"
