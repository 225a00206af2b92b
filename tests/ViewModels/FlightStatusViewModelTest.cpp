#include "ViewModels/FlightStatusViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleCapture.h"
#include "support/ScriptedServer.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 3, 1), QTime(23, 30));
const QString askForNumber = u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s;

ScriptedAnswer status(const QString &text)
{
    return ScriptedAnswer::content({ { u"status"_s, text } });
}
ScriptedAnswer failure()
{
    return ScriptedAnswer::json({ { u"error"_s, QJsonObject { { u"message"_s, u"olmadı"_s } } } });
}

} // namespace

class FlightStatusViewModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_server = std::make_unique<ScriptedServer>();
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
        m_model = std::make_unique<FlightStatusViewModel>(nullptr, now);
    }
    void cleanup()
    {
        m_model.reset();
        VTRMCPClientTestAccess::destroyShared();
        m_server.reset();
    }

    void aFreshObjectSearchesWithoutInput();
    void numbers();
    void aNumberOfBlanksIsNotSent();
    void aFailureKeepsTheLastResult();
    void theObjectMayGoDuringAQuery();

private:
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<FlightStatusViewModel> m_model;
};

void FlightStatusViewModelTest::aFreshObjectSearchesWithoutInput()
{
    QVERIFY(!m_model->result() && !m_model->isLoading() && !m_model->errorMessage());
    m_server->enqueue({ status(u"İndi"_s).held() });
    m_model->startSearchStatus();
    QVERIFY(m_model->isLoading());
    QTRY_COMPARE(m_server->heldCount(), 1);
    QVERIFY(m_model->isLoading());
    m_server->release();
    QTRY_VERIFY(!m_model->isLoading());

    const QJsonObject arguments { { u"flightNumber"_s, u"VQ1983"_s },
                                  { u"flightDate"_s, u"2026-03-01"_s } };
    QCOMPARE(m_server->toolCalls().first().arguments(), arguments);
    QCOMPARE(m_model->result()->status, u"İndi"_s);
    QCOMPARE(m_model->result()->id(), u"VQ19832026-03-01"_s);
}

void FlightStatusViewModelTest::numbers()
{
    const QList<std::pair<QString, QString>> typedAndSent {
        { u"  vq 1983\t"_s, u"VQ 1983"_s },
        { u"\nvq1\r\n"_s, u"VQ1"_s },
        { u"\u00a0vq1\u00a0"_s, u"VQ1"_s },
        { u"iıŞ"_s, u"IIŞ"_s },
    };
    for (const auto &[typed, sent] : typedAndSent) {
        m_model->setFlightNumber(typed);
        m_model->startSearchStatus();
        QTRY_VERIFY(!m_model->isLoading());
        const QJsonObject arguments = m_server->requests().constLast().arguments();
        QCOMPARE(arguments.value("flightNumber"_L1).toString(), sent);
        QCOMPARE(m_model->flightNumber(), typed);
    }
}

void FlightStatusViewModelTest::aNumberOfBlanksIsNotSent()
{
    QSignalSpy loading(m_model.get(), &FlightStatusViewModel::isLoadingChanged);
    for (const QString &number : { QString(), u" \n\t"_s, u"\u2028"_s }) {
        m_model->setFlightNumber(number);
        m_model->startSearchStatus();
        QCOMPARE(m_model->errorMessage(), std::optional(askForNumber));
    }
    QCOMPARE(loading.size(), 0);
    m_model->setFlightNumber(u"VQ1"_s);
    m_model->startSearchStatus();
    QVERIFY(!m_model->errorMessage());
    QTRY_VERIFY(!m_model->isLoading());
    QCOMPARE(m_server->toolCalls().size(), 1);
}

void FlightStatusViewModelTest::aFailureKeepsTheLastResult()
{
    m_server->enqueue({ status(u"Havada"_s), failure().held() });
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

void FlightStatusViewModelTest::theObjectMayGoDuringAQuery()
{
    m_server->onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::content().held(); };
    m_model->startSearchStatus();
    QTRY_COMPARE(m_server->heldCount(), 1);
    m_model.reset();
    m_server->release();
    QVERIFY(settle(VTRMCPClient::shared().getSessionId()).value);
    m_server->onToolCall = [](const ReceivedRequest &) { return failure(); };
    QVERIFY(settle(VTRMCPClient::shared().fetchPromotions()).error);
}

QTEST_GUILESS_MAIN(FlightStatusViewModelTest)
#include "FlightStatusViewModelTest.moc"
