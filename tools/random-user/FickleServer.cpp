#include "FickleServer.h"

#include "support/ToolAnswers.h"

#include <QDate>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostDays = 28;
constexpr int mostFlights = 40;
constexpr int manyFlights = 1500; ///< enough to be read off the main thread

} // namespace

int SentLists::add(qsizetype size)
{
    const int number = static_cast<int>(sizes.size()) + 1;
    sizes.insert(number, size);
    empty += size == 0 ? 1 : 0;
    return number;
}

FickleServer::FickleServer(quint32 seed)
    : m_random(seed)
{
    m_server.onInitialize = [this](const ReceivedRequest &) { return open(); };
    m_server.onToolCall = [this](const ReceivedRequest &request) { return answer(request); };
    m_idle.start();
}

std::chrono::milliseconds FickleServer::idleTime()
{
    if (m_server.openConnections() > 0)
        m_idle.restart();
    return std::chrono::milliseconds(m_idle.elapsed());
}

const ServerFaults::Fault &FickleServer::oneOf(const QList<ServerFaults::Fault> &faults)
{
    const auto &fault = faults.at(m_random.bounded(static_cast<int>(faults.size())));
    ++m_faultsMet[QString::fromUtf8(fault.what)];
    return fault;
}

ScriptedAnswer FickleServer::open()
{
    m_idle.restart();
    ScriptedAnswer answer = ScriptedAnswer::session("s");
    if (oneIn(6))
        answer = oneOf(ServerFaults::inOpening()).change(answer);
    m_refusedSession = !answer.bytes().contains("mcp-session-id: s\r\n");
    return answer;
}

ScriptedAnswer FickleServer::answer(const ReceivedRequest &request)
{
    m_idle.restart();
    ++m_callCount;
    ScriptedAnswer good = goodAnswer(request);
    if (oneIn(30)) {
        ++m_faultsMet[u"loses the session"_s];
        return ScriptedAnswer::text("{}", 404);
    }
    if (!oneIn(3))
        return good;
    return oneOf(ServerFaults::inCalls()).change(good);
}

ScriptedAnswer FickleServer::goodAnswer(const ReceivedRequest &request)
{
    const QString tool = request.tool();
    const bool isEmpty = oneIn(8);
    if (tool == calendarTool) {
        const QDate first(2026, 12, 1 + m_random.bounded(28));
        const int count = isEmpty ? 0 : 1 + m_random.bounded(mostDays);
        return calendarAnswer(count, first, oneIn(4) ? strangeText() : u"TRY"_s,
                              calendars.add(count));
    }
    if (tool == flightsTool) {
        const int count = isEmpty ? 0 : oneIn(10) ? manyFlights : 1 + m_random.bounded(mostFlights);
        const QString number = QString::number(flights.add(count));
        QList<Offer> offers;
        for (int index = 0; index < count; ++index) {
            offers.append({ .number = number,
                            .price = 1000.0 + m_random.bounded(9000),
                            .minutes = m_random.bounded(2000),
                            .segments = 1 + m_random.bounded(3) });
        }
        return flightsAnswer(offers);
    }
    static const QJsonObject known = knownAnswers();
    return ScriptedAnswer::content(isEmpty ? QJsonObject() : strange(known[tool]).toObject());
}

QJsonValue FickleServer::strange(const QJsonValue &json)
{
    if (json.isString())
        return strangeText();
    QJsonArray array;
    for (int count = json.isArray() ? m_random.bounded(30) : 0; count > 0; --count)
        array.append(strange(json[0]));
    QJsonObject object;
    const QStringList keys = json.toObject().keys();
    for (const QString &key : keys) {
        if (!oneIn(3))
            object.insert(key, strange(json[key]));
    }
    return json.isArray() ? QJsonValue(array) : object;
}

QString FickleServer::strangeText()
{
    const QString texts[] { u"Gecikmeli"_s,
                            u"İstanbul"_s,
                            u"Delayed\nin air\u2028\u202eters"_s,
                            QString(),
                            u"<img src='http://127.0.0.1:1/x.png'>"_s,
                            QString(300, u'W'),
                            u"uzun söz "_s.repeated(20'000) };
    return texts[m_random.bounded(static_cast<int>(std::size(texts)))];
}
