#include "support/ClientTesting.h"
#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;
using namespace ServerFaults;

namespace {

/// The reply of a data file, small enough to be cut everywhere.
ScriptedAnswer recorded(const QString &file)
{
    QFile data(QFINDTESTDATA(u"data/"_s + file));
    if (!data.open(QIODevice::ReadOnly))
        qFatal("No data file %s", qPrintable(file));
    return ScriptedAnswer::content(
        QJsonDocument::fromJson(data.readAll()).object().value("reply"_L1).toObject());
}

ScriptedAnswer inChunks(const ScriptedAnswer &answer)
{
    ScriptedAnswer chunked = answer;
    chunked.pieceSize = 100;
    return { .raw = chunked.bytes() };
}

/// The first bytes of it, and then the end of the connection.
ScriptedAnswer cut(const ScriptedAnswer &answer, qsizetype length)
{
    ScriptedAnswer cut { .ending = ScriptedAnswer::Ending::close, .cutAfter = 0 };
    if (length > 0)
        cut.raw = answer.bytes().first(length);
    return cut;
}

} // namespace

/// A connection that ends after any byte of an answer gives one error, and a whole answer the
/// result. Whether the very last byte of chunks may be missing depends on the version of libcurl.
class CutReplyTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void calls_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<int>("spareBytes");
        for (const char *folder : { "calendar", "flights", "status", "promotions", "guide" }) {
            const ScriptedAnswer whole =
                recorded(QString::fromLatin1(folder) + u"/alternative-keys.json"_s);
            QTest::addRow("%s", folder) << whole << 0;
            QTest::addRow("%s, in chunks", folder) << inChunks(whole) << 1;
        }
    }
    void calls()
    {
        QFETCH(ScriptedAnswer, answer);
        QFETCH(int, spareBytes);
        m_server->enqueue({ answer });
        const auto result = settle(call()).value;
        QVERIFY(result && !result->toJson().isEmpty());
        const qsizetype length = answer.bytes().size();
        for (qsizetype cutAt = 0; cutAt <= length; ++cutAt) {
            m_server->enqueue({ cut(answer, cutAt) });
            const auto outcome = settle(call());
            const bool isSpare = cutAt < length && cutAt >= length - spareBytes;
            if (!isSpare || outcome.errorText() != closed)
                QCOMPARE(outcome.errorText(), cutAt < length - spareBytes ? closed : QString());
            QCOMPARE(outcome.value.value_or(*result).toJson(), result->toJson());
        }
        QCOMPARE(m_server->toolCalls().size(), length + 2);
    }

    void opening()
    {
        for (const bool isInChunks : { false, true }) {
            const ScriptedAnswer session = ScriptedAnswer::session("s");
            const ScriptedAnswer answer = isInChunks ? inChunks(session) : session;
            const qsizetype length = answer.bytes().size();
            for (qsizetype cutAt = 0; cutAt <= length; ++cutAt) {
                VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
                m_server->onInitialize = [&](const ReceivedRequest &) {
                    return cut(answer, cutAt);
                };
                const QString text = settle(call()).errorText();
                const bool isSpare = isInChunks && cutAt == length - 1;
                if (!isSpare || text != closedAtStart)
                    QCOMPARE(text, cutAt < length && !isSpare ? closedAtStart : QString());
            }
        }
    }
};

QTEST_GUILESS_MAIN(CutReplyTest)
#include "CutReplyTest.moc"
