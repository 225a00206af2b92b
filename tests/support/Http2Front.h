#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

/// A real HTTP/2 server with TLS, nghttpx, before a server of the tests.
class Http2Front
{
public:
    static bool isInstalled();

    explicit Http2Front(const QUrl &behind);
    ~Http2Front() { stop(); }
    Q_DISABLE_COPY_MOVE(Http2Front)

    QUrl endpoint() const { return QUrl(QStringLiteral("https://127.0.0.1:%1/mcp").arg(m_port)); }
    void start();
    /// Drops every connection; `start` listens again, at the same port.
    void stop();
    /// Says that it goes away, ends what is under way and takes nothing new.
    void retire();
    /// How many connections have carried requests by HTTP/2.
    qsizetype connections() const;

private:
    bool listens() const;

    QTemporaryDir m_files;
    QProcess m_process;
    pid_t m_group = 0; ///< the process and its child
    QUrl m_behind;
    quint16 m_port = 0;
};
