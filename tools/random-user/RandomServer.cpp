#include "RandomServer.h"

#include "support/ToolAnswers.h"

#include <QDate>

using namespace Qt::StringLiterals;

RandomServer::RandomServer(quint32 seed)
    : m_random(seed)
{
    m_server.onInitialize = [this] { return open(); };
    m_server.onToolCall = [this](const ReceivedRequest &request) { return answer(request); };
    m_idle.start();
}

std::chrono::milliseconds RandomServer::idleTime()
{
    if (m_server.openConnections() > 0)
        m_idle.restart();
    return std::chrono::milliseconds(m_idle.elapsed());
}

const ServerFaults::Fault &RandomServer::oneOf(const QList<ServerFaults::Fault> &faults)
{
    const auto &fault = faults.at(m_random.bounded(static_cast<int>(faults.size())));
    ++answers[QString::fromUtf8(fault.what)];
    return fault;
}

ScriptedAnswer RandomServer::open()
{
    m_idle.restart();
    ScriptedAnswer answer = ScriptedAnswer::session("s");
    if (oneIn(6))
        answer = oneOf(ServerFaults::inOpening()).change(answer);
    m_refusedSession = !answer.bytes().contains("mcp-session-id: s\r\n");
    return answer;
}

ScriptedAnswer RandomServer::answer(const ReceivedRequest &request)
{
    m_idle.restart();
    ++answers[request.tool()];
    const ScriptedAnswer good = goodAnswer(request.tool());
    if (oneIn(30))
        return ScriptedAnswer::text("{}", 404); // the session is lost
    return oneIn(3) ? oneOf(ServerFaults::inCalls()).change(good) : good;
}

ScriptedAnswer RandomServer::goodAnswer(const QString &tool)
{
    const bool isEmpty = oneIn(8);
    if (tool == calendarTool) {
        const QDate first(2026, 12, 1 + m_random.bounded(28));
        const int count = isEmpty ? 0 : 1 + m_random.bounded(28);
        emptyCalendars += isEmpty;
        return calendarAnswer(count, first, oneIn(4) ? strangeText() : u"TRY"_s, count);
    }
    if (tool == flightsTool) {
        // So many are read off the main thread.
        const int count = isEmpty ? 0 : oneIn(10) ? 1500 : 1 + m_random.bounded(40);
        emptyFlights += isEmpty;
        QList<Offer> offers;
        while (offers.size() < count) {
            offers.append({ .number = QString::number(count),
                            .price = 1000.0 + m_random.bounded(9000),
                            .minutes = m_random.bounded(2000),
                            .segments = 1 + m_random.bounded(3) });
        }
        return flightsAnswer(offers);
    }
    static const QJsonObject known = knownAnswers();
    return ScriptedAnswer::content(isEmpty ? QJsonObject() : strange(known[tool]).toObject());
}

QJsonValue RandomServer::strange(const QJsonValue &json)
{
    if (json.isString())
        return strangeText();
    QJsonArray array;
    for (int count = json.isArray() ? m_random.bounded(30) : 0; count > 0; --count)
        array.append(strange(json[0]));
    QJsonObject object = json.toObject();
    for (const QString &key : object.keys()) {
        if (oneIn(3))
            object.remove(key);
        else
            object[key] = strange(object[key]);
    }
    return json.isArray() ? QJsonValue(array) : object;
}

QString RandomServer::strangeText()
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
