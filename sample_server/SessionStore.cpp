#include "sample_server/SessionStore.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>

namespace Sample {

QByteArray SessionStore::open(const QString &protocolVersion, Moment now)
{
    dropIdle(now);
    while (!m_sessions.isEmpty() && m_sessions.size() >= m_maximumCount) {
        const auto oldest = std::min_element(
            m_sessions.cbegin(), m_sessions.cend(),
            [](const Session &left, const Session &right) { return left.lastUse < right.lastUse; });
        m_sessions.erase(oldest);
    }
    std::array<quint32, 4> random {};
    QRandomGenerator::system()->fillRange(random.data(), qsizetype(random.size()));
    QByteArray id =
        QByteArray(reinterpret_cast<const char *>(random.data()), sizeof(random)).toHex();
    m_sessions.insert(id, { protocolVersion, now });
    return id;
}

std::optional<QString> SessionStore::touch(const QByteArray &id, Moment now)
{
    dropIdle(now);
    const auto session = m_sessions.find(id);
    if (session == m_sessions.end())
        return std::nullopt;
    session->lastUse = now;
    return session->protocolVersion;
}

bool SessionStore::close(const QByteArray &id, Moment now)
{
    dropIdle(now);
    return m_sessions.remove(id);
}

int SessionStore::count(Moment now)
{
    dropIdle(now);
    return int(m_sessions.size());
}

void SessionStore::dropIdle(Moment now)
{
    m_sessions.removeIf(
        [this, now](const auto &entry) { return now - entry.value().lastUse >= m_idleTimeout; });
}

} // namespace Sample
