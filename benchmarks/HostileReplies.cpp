#include "benchmarks/HostileReplies.h"

#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype megabyte = 1'000'000;
constexpr int mostRecords = 49'000; ///< as many objects as a reply may hold

QString longText() { return QString(megabyte, u'W'); }
QString longWords() { return u"söz "_s.repeated(megabyte / 4); }
QString lines() { return u"söz\u2028"_s.repeated(megabyte / 8); }
QString turningText() { return u"\u202e\u200fא"_s.repeated(megabyte / 12); }

/// Every one of these members with the same text.
QJsonObject members(const QStringList &keys, const QString &text)
{
    QJsonObject object;
    for (const QString &key : keys)
        object.insert(key, text);
    return object;
}

ScriptedAnswer flights(const QJsonObject &segment, const QJsonObject &more, int count = 3)
{
    QJsonObject option = more;
    option.insert(u"flightSegments"_s, QJsonArray { segment });
    QJsonArray options;
    for (int index = 0; index < count; ++index)
        options.append(option);
    const QJsonObject information { { u"originDestinationOptions"_s, options } };
    const QJsonObject data { { u"originDestinationInformations"_s, QJsonArray { information } } };
    return ScriptedAnswer::content({ { u"availabilityData"_s, data } });
}

ScriptedAnswer promotions(const QString &text, int count)
{
    QJsonArray list;
    for (int index = 0; index < count; ++index) {
        QJsonObject promotion =
            members({ u"description"_s, u"discount"_s, u"validUntil"_s, u"route"_s }, text);
        promotion.insert(u"title"_s, text + QString::number(index));
        list.append(promotion);
    }
    return ScriptedAnswer::content({ { u"promotions"_s, list } });
}

ScriptedAnswer guide(const QString &text, int entries, const QString &entry = u"yer"_s)
{
    QJsonObject guide =
        members({ u"cityName"_s, u"countryName"_s, u"overview"_s, u"bestTimeToVisit"_s }, text);
    QJsonArray list;
    for (int index = 0; index < entries; ++index)
        list.append(entry);
    guide.insert(u"topAttractions"_s, list);
    guide.insert(u"localTips"_s, list);
    return ScriptedAnswer::content(guide);
}

ScriptedAnswer status(const QString &text)
{
    return ScriptedAnswer::content(
        members({ u"origin"_s, u"destination"_s, u"status"_s, u"gate"_s, u"aircraft"_s }, text));
}

/// Packed, it is a few hundred bytes to some kilobytes.
ScriptedAnswer bomb(const QString &program)
{
    return ServerFaults::packed(ScriptedAnswer::text(QByteArray(64 * megabyte, ' ')), program);
}

/// Backwards when `count` is negative.
ScriptedAnswer days(int count, const QString &currency)
{
    QStringList days;
    for (int day = 0; day < std::abs(count); ++day)
        days.append(QDate(2026, 12, 1).addDays(day).toString(Qt::ISODate));
    if (count < 0)
        std::reverse(days.begin(), days.end());
    return calendarAnswer(days, currency);
}

} // namespace

const QList<HostileReply> &hostileReplies()
{
    static const QList<HostileReply> all {
        { u"flights: nothing unusual"_s, flightsTool, [] { return flights({}, {}); } },
        { u"flights: a currency of 1 MB"_s, flightsTool,
          [] {
              return flights({}, { { u"cheapestPriceCurrency"_s, longText() } }, 1);
          } },
        { u"flights: three currencies of 1 MB"_s, flightsTool,
          [] {
              return flights({}, { { u"cheapestPriceCurrency"_s, longText() } });
          } },
        { u"flights: numbers and aircraft of 1 MB"_s, flightsTool,
          [] {
              return flights(members({ u"flightNumber"_s, u"equipment"_s }, longWords()), {}, 1);
          } },
        { u"flights: airports of marks that turn"_s, flightsTool,
          [] {
              return flights(
                  members({ u"departureAirportCode"_s, u"arrivalAirportCode"_s }, turningText()),
                  {}, 1);
          } },
        { u"flights: -2^63 seats"_s, flightsTool,
          [] {
              const qint64 least = std::numeric_limits<qint64>::min();
              return flights({ { u"availableSeatCount"_s, least } }, {});
          } },
        { u"flights: 10,000"_s, flightsTool, [] { return flights({}, {}, 10'000); } },
        { u"flights: an error of 8 MB"_s, flightsTool,
          [] { return ScriptedAnswer::failure(QString(8'000'000, u'W')); } },
        { u"flights: 64 MB, packed with gzip"_s, flightsTool, [] { return bomb(u"gzip"_s); } },
        { u"flights: 64 MB, packed with brotli"_s, flightsTool, [] { return bomb(u"brotli"_s); } },
        { u"flights: 64 MB, packed with zstd"_s, flightsTool, [] { return bomb(u"zstd"_s); } },
        { u"calendar: a currency of 1 MB"_s, calendarTool, [] { return days(28, longText()); } },
        { u"calendar: 3,000 days"_s, calendarTool, [] { return days(3000, u"TRY"_s); } },
        { u"calendar: as many days as may be"_s, calendarTool,
          [] { return days(mostRecords, u"TRY"_s); } },
        { u"calendar: the same, the other way about"_s, calendarTool,
          [] { return days(-mostRecords, u"TRY"_s); } },
        { u"status: nothing unusual"_s, statusTool, [] { return ScriptedAnswer::content(); } },
        { u"status: texts of 1 MB"_s, statusTool, [] { return status(longText()); } },
        { u"status: words of 1 MB"_s, statusTool, [] { return status(longWords()); } },
        { u"status: 125,000 lines"_s, statusTool, [] { return status(lines()); } },
        { u"status: 250,000 marks that turn"_s, statusTool, [] { return status(turningText()); } },
        { u"status: an error of 8 MB"_s, statusTool,
          [] { return ScriptedAnswer::failure(QString(8'000'000, u'W')); } },
        { u"promotions: nothing unusual"_s, promotionsTool,
          [] { return ScriptedAnswer::content(); } },
        { u"promotions: texts of 1 MB"_s, promotionsTool,
          [] { return promotions(longText(), 1); } },
        { u"promotions: words of 1 MB"_s, promotionsTool,
          [] { return promotions(longWords(), 1); } },
        { u"promotions: 125,000 lines"_s, promotionsTool, [] { return promotions(lines(), 1); } },
        { u"promotions: 250,000 marks that turn"_s, promotionsTool,
          [] { return promotions(turningText(), 1); } },
        { u"promotions: 400 of 16 KB"_s, promotionsTool,
          [] { return promotions(longWords().left(3200), 400); } },
        { u"promotions: as many as may be"_s, promotionsTool,
          [] { return promotions(u"x"_s, mostRecords); } },
        { u"guide: texts of 1 MB"_s, guideTool, [] { return guide(longWords(), 3); } },
        { u"guide: 400,000 sights and tips"_s, guideTool, [] { return guide(u"x"_s, 400'000); } },
        { u"guide: 400 sights and tips of 8 KB"_s, guideTool,
          [] { return guide(u"x"_s, 400, longWords().left(6000)); } },
    };
    return all;
}
