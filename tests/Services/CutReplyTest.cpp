#include "support/ClientTesting.h"
#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;
using ServerFaults::closed;

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
/// result.
class CutReplyTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void calls_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        for (const char *folder : { "calendar", "flights", "status", "promotions", "guide" }) {
            const ScriptedAnswer whole =
                recorded(QString::fromLatin1(folder) + u"/alternative-keys.json"_s);
            QTest::addRow("%s", folder) << whole;
            QTest::addRow("%s, in chunks", folder) << inChunks(whole);
        }
    }
    void calls()
    {
        QFETCH(ScriptedAnswer, answer);
        m_server->enqueue({ answer });
        const auto result = settle(call()).value;
        QVERIFY(result && !result->toJson().isEmpty());
        const qsizetype length = answer.bytes().size();
        for (qsizetype cutAt = 0; cutAt <= length; ++cutAt) {
            m_server->enqueue({ cut(answer, cutAt) });
            const auto outcome = settle(call());
            QCOMPARE(outcome.errorText(), cutAt < length ? closed : QString());
            QCOMPARE(outcome.value.value_or(*result).toJson(), result->toJson());
        }
        QCOMPARE(m_server->toolCalls().size(), length + 2);
    }

    void opening()
    {
        for (const ScriptedAnswer &answer :
             { ScriptedAnswer::session("s"), inChunks(ScriptedAnswer::session("s")) }) {
            const qsizetype length = answer.bytes().size();
            for (qsizetype cutAt = 0; cutAt <= length; ++cutAt) {
                VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
                m_server->onInitialize = [&](const ReceivedRequest &) {
                    return cut(answer, cutAt);
                };
                QCOMPARE(settle(call()).errorText(), cutAt < length ? closed : QString());
            }
        }
    }
};

QTEST_GUILESS_MAIN(CutReplyTest)
#include "CutReplyTest.moc"
