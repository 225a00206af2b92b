#include "ViewModels/FlightStatusViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleCapture.h"

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 3, 1), QTime(23, 30));

ScriptedAnswer status(const QString &text)
{
    return ScriptedAnswer::content({ { u"status"_s, text } });
}

} // namespace

class FlightStatusViewModelTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ClientTest::init();
        m_model = std::make_unique<FlightStatusViewModel>(nullptr, now);
    }
    void cleanup()
    {
        m_model.reset();
        ClientTest::cleanup();
    }

    void aFreshObjectSearchesWithoutInput()
    {
        m_server->enqueue({ status(u"İndi"_s) });
        m_model->startSearchStatus();
        QVERIFY(m_model->isLoading());
        QTRY_VERIFY(!m_model->isLoading());
        const QJsonObject arguments { { u"flightNumber"_s, u"VQ1983"_s },
                                      { u"flightDate"_s, u"2026-03-01"_s } };
        QCOMPARE(m_server->toolCalls().first().arguments(), arguments);
        QCOMPARE(m_model->result()->status, u"İndi"_s);
        QCOMPARE(m_model->result()->id(), u"VQ19832026-03-01"_s);
    }

    void numbers()
    {
        for (const QString &number : { QString(), u" \n\t"_s, u"\u2028"_s }) {
            m_model->setFlightNumber(number);
            m_model->startSearchStatus();
            QCOMPARE(m_model->errorMessage(),
                     std::optional(u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s));
            QVERIFY(!m_model->isLoading());
        }
        const QString typed = u"\u00a0vqiıŞ 1\r\n"_s;
        m_model->setFlightNumber(typed);
        m_model->startSearchStatus();
        QVERIFY(!m_model->errorMessage());
        QTRY_VERIFY(!m_model->isLoading());
        QCOMPARE(m_server->toolCalls().size(), 1);
        const QJsonObject arguments = m_server->toolCalls().first().arguments();
        QCOMPARE(arguments.value("flightNumber"_L1).toString(), u"VQIIŞ 1"_s);
        QCOMPARE(m_model->flightNumber(), typed);
    }

    void aFailureKeepsTheLastResult()
    {
        const ScriptedAnswer failure = ScriptedAnswer::text(R"({"error":{"message":"olmadı"}})");
        m_server->enqueue({ status(u"Havada"_s), failure.held() });
        m_model->startSearchStatus();
        QTRY_VERIFY(m_model->result());
        ConsoleCapture console;
        m_model->startSearchStatus();
        QTRY_COMPARE(m_server->heldCount(), 1);
        QCOMPARE(m_model->result()->status, u"Havada"_s);
        m_server->release();
        QTRY_VERIFY(!m_model->isLoading());
        QCOMPARE(m_model->errorMessage(), std::optional(u"olmadı"_s));
        QCOMPARE(m_model->result()->status, u"Havada"_s);
        QCOMPARE(console.text(), QString());
    }

    void theObjectMayGoDuringAQuery()
    {
        m_server->onToolCall = [](const ReceivedRequest &) {
            return ScriptedAnswer::content().held();
        };
        m_model->startSearchStatus();
        QTRY_COMPARE(m_server->heldCount(), 1);
        m_model.reset();
        m_server->release();
        QVERIFY(settle(VTRMCPClient::shared().getSessionId()).value);
    }

private:
    std::unique_ptr<FlightStatusViewModel> m_model;
};

QTEST_GUILESS_MAIN(FlightStatusViewModelTest)
#include "FlightStatusViewModelTest.moc"
