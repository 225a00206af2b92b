#include "support/Http2Front.h"

#include <QFile>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;

bool Http2Front::isInstalled() { return !QStandardPaths::findExecutable(u"nghttpx"_s).isEmpty(); }

Http2Front::Http2Front(const QUrl &behind)
    : m_behind(behind)
{
    QTcpServer port;
    port.listen(QHostAddress::LocalHost);
    m_port = port.serverPort();
    port.close();
    for (const QString &name : { u"trusted.crt"_s, u"test-fixture.key"_s })
        QFile::copy(u":/test-certificates/"_s + name, m_files.filePath(name));
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([] { ::setpgid(0, 0); });
    start();
}

void Http2Front::start()
{
    m_process.start(
        u"nghttpx"_s,
        { u"--conf=/dev/null"_s, u"--frontend=127.0.0.1,%1"_s.arg(m_port),
          u"--backend=127.0.0.1,%1"_s.arg(m_behind.port()), u"--workers=1"_s,
          u"--log-level=FATAL"_s, u"--errorlog-file=/dev/null"_s,
          u"--accesslog-file="_s + m_files.filePath(u"log"_s),
          u"--accesslog-format=$alpn $remote_port"_s, u"--response-header-field-buffer=1M"_s,
          u"--max-response-header-fields=20000"_s, m_files.filePath(u"test-fixture.key"_s),
          m_files.filePath(u"trusted.crt"_s) });
    m_group = static_cast<pid_t>(m_process.processId());
    if (!QTest::qWaitFor([this] { return listens(); }))
        qFatal("nghttpx does not start.");
}

bool Http2Front::listens() const
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_port);
    return socket.waitForConnected(100);
}

void Http2Front::stop()
{
    // The process that has the connections is its child, and may outlive it.
    ::kill(-m_group, SIGKILL);
    m_process.waitForFinished();
    if (!QTest::qWaitFor([this] { return !listens(); }))
        qFatal("nghttpx does not end.");
}

void Http2Front::retire() { ::kill(static_cast<pid_t>(m_process.processId()), SIGQUIT); }

qsizetype Http2Front::connections() const
{
    QFile log(m_files.filePath(u"log"_s));
    if (!log.open(QIODevice::ReadOnly))
        return 0;
    QStringList connections = QString::fromLatin1(log.readAll()).split(u'\n').filter(u"h2 "_s);
    connections.removeDuplicates();
    return connections.size();
}
