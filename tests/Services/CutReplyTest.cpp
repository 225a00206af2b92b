#include "support/ClientTesting.h"
#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

using namespace Qt::StringLiterals;
using namespace ServerFaults;

/// A connection that ends after any byte of an answer gives one error, and a whole answer the
/// result. Whether the very last byte of chunks may be missing depends on the version of libcurl.
class CutReplyTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void ends_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<bool>("isSession"); // or else of a tool
        QTest::addColumn<int>("spareBytes");
        const auto rows = [](const char *name, const ScriptedAnswer &whole, bool isSession) {
            QTest::newRow(name) << whole << isSession << 0;
            QTest::addRow("%s, in chunks", name) << whole.inChunks(100) << isSession << 1;
        };
        const QJsonObject answers = knownAnswers();
        for (auto answer = answers.begin(); answer != answers.end(); ++answer) {
            rows(qPrintable(answer.key()), ScriptedAnswer::content(answer.value().toObject()),
                 false);
        }
        rows("initialize", ScriptedAnswer::session("s"), true);
    }
    void ends()
    {
        QFETCH(ScriptedAnswer, answer);
        QFETCH(bool, isSession);
        QFETCH(int, spareBytes);
        const auto ask = [&](const ScriptedAnswer &sent) {
            if (isSession) {
                VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
                m_server->onInitialize = [sent] { return sent; };
            } else {
                m_server->enqueue({ sent });
            }
            return settle(call());
        };
        const auto result = ask(answer).value;
        QVERIFY(result);
        QCOMPARE(result->isEmpty(), isSession);
        const QString failure = isSession ? closedAtStart : closed;
        const qsizetype length = answer.bytes().size();
        for (qsizetype cutAt = 0; cutAt <= length; ++cutAt) {
            const auto outcome = ask(answer.cut(cutAt));
            const bool isSpare = cutAt < length && cutAt >= length - spareBytes;
            if (!isSpare || outcome.errorText() != failure)
                QCOMPARE(outcome.errorText(), cutAt < length - spareBytes ? failure : QString());
            QCOMPARE(outcome.value.value_or(*result), *result);
        }
        if (!isSession)
            QCOMPARE(m_server->toolCalls().size(), length + 2);
    }
};

QTEST_GUILESS_MAIN(CutReplyTest)
#include "CutReplyTest.moc"
