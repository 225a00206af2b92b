#pragma once

#include "Models/SearchOptions.h"
#include "Services/HttpTransport.h"
#include "Services/McpError.h"
#include "Services/ToolResults.h"

#include <QCoroFuture>
#include <QCoroTask>

#include <QFuture>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QScopeGuard>
#include <QThreadPool>
#include <QUrl>
#include <QtConcurrentRun>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

/// The program's only network component: a client of the airline's MCP server. It opens one session
/// on first use and shares it among all calls. It lives on the main thread.
///
/// Every operation ends in exactly one result or one McpError. Replies are read leniently: what is
/// missing or mistyped in them is filled, and only a failed call is an error.
///
/// A failed "initialize" is final: every later call fails at once with the same error.
class VTRMCPClient : public QObject
{
    Q_OBJECT

public:
    ~VTRMCPClient() override;

    /// The one client, made on first use with the endpoint of ServiceAddresses.
    static VTRMCPClient &shared();

    /// Opens the session if need be and returns its identifier.
    QCoro::Task<QString> getSessionId();

    /// Calls one tool of the server. Returns the result's "structuredContent", else the whole
    /// "result", else an empty object. A status of 400 or 404 means that the session is lost: the
    /// call is repeated in a new one, at first at once and then after pauses that grow to two
    /// seconds, without limit, until the server says something else or the application quits.
    QCoro::Task<QJsonObject> callTool(QString name, QJsonObject arguments);

    // Each of these is one tool, in a file of its own.

    /// The lowest fare of each day around `departureDate` ("yyyy-MM-dd").
    QCoro::Task<PriceCalendar> fetchPriceCalendar(QString origin, QString destination,
                                                  QString departureDate, TripType tripType,
                                                  TimeRange timeRange, CabinClass cabinClass);

    /// The flights of one day, in the server's order. Dates are "yyyy-MM-dd".
    QCoro::Task<QList<FlightOption>> searchFlights(QString from, QString to, QString departureDate,
                                                   std::optional<QString> returnDate,
                                                   TripType tripType, int passengers);

    /// The live status of one flight. `date` is "yyyy-MM-dd".
    QCoro::Task<FlightStatusResult> checkFlightStatus(QString flightNumber,
                                                      std::optional<QString> date);

    QCoro::Task<QList<PromotionItem>> fetchPromotions(
        QString departureAirportCode = QStringLiteral("IST"),
        QString countryCode = QStringLiteral("TR"));

    QCoro::Task<CityGuideInfo> fetchCityGuide(QString cityOrAirportCode);

    /// A larger body is parsed on the thread pool.
    static constexpr qsizetype largestBodyParsedOnMainThread = 256 * 1024;

Q_SIGNALS:
    void isShuttingDown();

private:
    friend struct VTRMCPClientTestAccess;

    VTRMCPClient(const QUrl &endpoint, const HttpSettings &settings);
    static std::unique_ptr<VTRMCPClient> &instance();

    /// Ends every exchange and starts no other. Tasks under way end before this returns: with an
    /// error, or with their result when its body was being read already.
    void shutDown();
    /// The body of the first answer that is neither 400 nor 404.
    QCoro::Task<QByteArray> exchangeToolCall(QString name, QJsonObject arguments);

    /// Calls a tool and reads its result, off the main thread when it is large. `reader` is a pure
    /// function.
    template<typename Record>
    QCoro::Task<Record> ask(QString name, QJsonObject arguments,
                            std::function<Record(const QJsonObject &)> reader);

    HttpTransport m_transport;
    QThreadPool m_readerPool; ///< where large bodies are read, one after the other
    std::optional<QString> m_sessionId;
    qint64 m_requestId = 1; ///< of the next tool call; "initialize" always has 1
    std::optional<QFuture<QString>> m_initTask;
    bool m_isInitialized = false;
    bool m_isShutDown = false;
    int m_callsUnderWay = 0;
    std::chrono::milliseconds m_longestPause = std::chrono::seconds(2);
};

template<typename Record>
QCoro::Task<Record> VTRMCPClient::ask(QString name, QJsonObject arguments,
                                      std::function<Record(const QJsonObject &)> reader)
{
    ++m_callsUnderWay;
    const auto leave = qScopeGuard([this] { --m_callsUnderWay; });
    try {
        const QByteArray body = co_await exchangeToolCall(name, arguments);
        const auto read = [body, reader] { return reader(ToolResults::parseAnswer(body)); };
        if (body.size() <= largestBodyParsedOnMainThread)
            co_return read();
        const QFuture<Record> reading = QtConcurrent::run(&m_readerPool, read);
        co_return co_await reading;
    } catch (...) {
        throw McpError::current();
    }
}
