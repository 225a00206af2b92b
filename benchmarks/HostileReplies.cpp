#include "benchmarks/HostileReplies.h"

#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype megabyte = 1'000'000;
constexpr int mostRecords = 49'000; ///< as many objects as a reply may hold

/// The same with every value changed that holds no other.
QJsonValue changed(const QJsonValue &json,
                   const std::function<QJsonValue(const QJsonValue &)> &change)
{
    if (!json.isArray() && !json.isObject())
        return change(json);
    QJsonArray array = json.toArray();
    for (auto element : array)
        element = changed(element, change);
    QJsonObject object = json.toObject();
    for (auto member : object)
        member = changed(member, change);
    return json.isArray() ? QJsonValue(array) : object;
}

/// A day has to be one for its price or flight to be shown.
bool isText(const QJsonValue &value)
{
    return value.isString() && !value.toString().startsWith(u"2031-");
}

/// With this in place of every text, repeated: up to a megabyte each, six together.
QJsonValue withTexts(const QJsonValue &json, const QString &text)
{
    int count = 0;
    changed(json, [&count](const QJsonValue &value) {
        count += isText(value);
        return value;
    });
    const qsizetype size = std::min(megabyte, 6 * megabyte / count);
    const QString whole = text.repeated(size / text.toUtf8().size());
    return changed(json,
                   [&whole](const QJsonValue &value) { return isText(value) ? whole : value; });
}

/// With so many entries in each list that has several.
QJsonValue withEntries(const QJsonValue &json, int count)
{
    QJsonObject object = json.toObject();
    for (auto member : object)
        member = withEntries(member, count);
    const QJsonArray known = json.toArray();
    QJsonArray array;
    if (known.size() == 1)
        array.append(withEntries(known[0], count));
    while (known.size() > 1 && array.size() < count)
        array.append(known.at(array.size() % known.size()));
    return json.isArray() ? QJsonValue(array) : json.isObject() ? QJsonValue(object) : json;
}

QJsonValue withLeastNumbers(const QJsonValue &json)
{
    return changed(json, [](const QJsonValue &value) {
        return value.isDouble() ? std::numeric_limits<qint64>::min() : value;
    });
}

Sample::HttpAnswer answerOf(const ScriptedAnswer &answer) { return { 200, answer.body(), {} }; }

/// One after the other.
Sample::HttpAnswer days(bool isBackwards)
{
    const QDate first(2026, 12, 1);
    const QDate last = first.addDays(mostRecords - 1);
    return answerOf(isBackwards ? calendarAnswer(mostRecords, last, u"TRY"_s, 4000, -1)
                                : calendarAnswer(mostRecords, first));
}

} // namespace

QList<HostileReply> hostileReplies()
{
    QList<HostileReply> replies;
    const QJsonObject answers = knownAnswers();
    for (auto answer = answers.begin(); answer != answers.end(); ++answer) {
        const QString tool = answer.key();
        const QJsonValue known = answer.value();
        const auto add = [&](const QString &what, const std::function<QJsonValue()> &make) {
            replies.append({ what, tool, [make] {
                                return answerOf(ScriptedAnswer::content(make().toObject()));
                            } });
        };
        add(u"nothing unusual"_s, [=] { return known; });
        for (const auto &[what, text] : { std::pair(u"letters"_s, u"W"_s),
                                          { u"words"_s, u"söz "_s },
                                          { u"lines"_s, u"söz\u2028"_s },
                                          { u"marks that turn"_s, u"\u202e\u200fא"_s } })
            add(u"long texts: "_s + what, [known, text = text] { return withTexts(known, text); });
        if (withEntries(known, 9) != known) {
            const int most = tool == flightsTool ? 10'000
                : tool == guideTool              ? 400'000
                                                 : mostRecords;
            add(u"%1 of each"_s.arg(most), [=] { return withEntries(known, most); });
            add(u"400 of each with long texts"_s,
                [=] { return withTexts(withEntries(known, 400), u"söz "_s); });
        }
        if (withLeastNumbers(known) != known)
            add(u"-2^63 for every number"_s, [=] { return withLeastNumbers(known); });
    }
    // The guide tells no errors.
    for (const QString &tool : { calendarTool, flightsTool, statusTool })
        replies.append({ u"an error of 8 MB"_s, tool, [] {
                            return answerOf(ScriptedAnswer::failure(QString(8 * megabyte, u'W')));
                        } });
    for (const bool isBackwards : { false, true })
        replies.append({ isBackwards ? u"49,000 days backwards"_s : u"49,000 days in order"_s,
                         calendarTool, [=] { return days(isBackwards); } });
    for (const auto &[program, encoding] :
         { std::pair(u"gzip"_s, "gzip"_ba), { u"brotli"_s, "br"_ba }, { u"zstd"_s, "zstd"_ba } })
        replies.append({ u"64 MB of blanks, packed with "_s + program, flightsTool,
                         [program = program, encoding = encoding] {
                             const auto blanks =
                                 ScriptedAnswer::text(QByteArray(64 * megabyte, ' '));
                             auto answer = answerOf(ServerFaults::packed(blanks, program));
                             answer.headers.append({ "Content-Encoding", encoding });
                             return answer;
                         } });
    return replies;
}
