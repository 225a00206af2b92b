#pragma once

#include "support/ServerFaults.h"

#include <QElapsedTimer>
#include <QHash>
#include <QMap>
#include <QRandomGenerator>

/// What a tool was sent that its asker may show: of each list a number of its own, and how long it
/// is.
struct SentLists
{
    QHash<int, qsizetype> sizes;
    int empty = 0; ///< without any row

    int add(qsizetype size);
};

/// A server that answers well or does anything that ServerFaults knows, at random.
class FickleServer
{
public:
    explicit FickleServer(quint32 seed);

    QUrl endpoint() const { return m_server.endpoint(); }
    /// How long it has had nothing to do.
    std::chrono::milliseconds idleTime();
    /// The last session was refused, which a client never asks for again.
    bool refusedSession() const { return m_refusedSession; }

    SentLists flights; ///< numbered by their flight number
    SentLists calendars; ///< numbered by the first amount
    const QMap<QString, int> &faultsMet() const { return m_faultsMet; }
    int callCount() const { return m_callCount; }

private:
    /// Notes that it was met.
    const ServerFaults::Fault &oneOf(const QList<ServerFaults::Fault> &faults);
    ScriptedAnswer open();
    ScriptedAnswer answer(const ReceivedRequest &request);
    ScriptedAnswer goodAnswer(const ReceivedRequest &request);
    /// Some of its members, lists of any length, with any text.
    QJsonValue strange(const QJsonValue &json);
    QString strangeText();
    bool oneIn(int count) { return m_random.bounded(count) == 0; }

    ScriptedServer m_server;
    QRandomGenerator m_random;
    QElapsedTimer m_idle;
    bool m_refusedSession = false;
    int m_callCount = 0;
    QMap<QString, int> m_faultsMet;
};
