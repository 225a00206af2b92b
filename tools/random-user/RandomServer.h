#pragma once

#include "support/ServerFaults.h"

#include <QElapsedTimer>
#include <QMap>
#include <QRandomGenerator>

/// A server that answers well or with any fault of ServerFaults, at random. What it sends can be
/// known by its length: every flight of a list is numbered with it, and the first day of a calendar
/// costs it.
class RandomServer
{
public:
    explicit RandomServer(quint32 seed);

    QUrl endpoint() const { return m_server.endpoint(); }
    /// How long it has had nothing to do.
    std::chrono::milliseconds idleTime();
    /// The last session was refused, which a client never asks for again.
    bool refusedSession() const { return m_refusedSession; }

    int emptyFlights = 0; ///< how many lists of flights without any were sent
    int emptyCalendars = 0;
    QMap<QString, int> answers; ///< how many, by what was asked for and by the fault

private:
    ScriptedAnswer open();
    ScriptedAnswer answer(const ReceivedRequest &request);
    ScriptedAnswer goodAnswer(const QString &tool);
    /// With one of the faults.
    const ServerFaults::Fault &oneOf(const QList<ServerFaults::Fault> &faults);
    /// Some of its members, lists of any length, with any text.
    QJsonValue strange(const QJsonValue &json);
    QString strangeText();
    bool oneIn(int count) { return m_random.bounded(count) == 0; }

    ScriptedServer m_server;
    QRandomGenerator m_random;
    QElapsedTimer m_idle;
    bool m_refusedSession = false;
};
