#pragma once

#include "Models/FlightStatusResult.h"
#include "ViewModels/ObservableObject.h"

#include <QCoroTask>

#include <QDateTime>

#include <optional>

/// The state behind the flight status sheet, one for each opening of it. It lives on the main
/// thread. A failed query keeps the last status.
class FlightStatusViewModel : public ObservableObject
{
    Q_OBJECT
    Q_PROPERTY(
        QString flightNumber READ flightNumber WRITE setFlightNumber NOTIFY flightNumberChanged)
    Q_PROPERTY(QDateTime flightDate READ flightDate WRITE setFlightDate NOTIFY flightDateChanged)
    Q_PROPERTY(bool hasResult READ hasResult NOTIFY resultChanged)
    Q_PROPERTY(FlightStatusResult result READ resultOrEmpty NOTIFY resultChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(bool hasErrorMessage READ hasErrorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(QString errorMessage READ errorMessageText NOTIFY errorMessageChanged)

public:
    /// `now` is the moment that `flightDate` starts from.
    explicit FlightStatusViewModel(QObject *parent = nullptr,
                                   const QDateTime &now = QDateTime::currentDateTime());

    /// As typed by the user; a query never rewrites it.
    QString flightNumber() const { return m_flightNumber; }
    void setFlightNumber(const QString &flightNumber);
    /// Only the day matters to a query.
    QDateTime flightDate() const { return m_flightDate; }
    void setFlightDate(const QDateTime &date);
    /// The last status received.
    std::optional<FlightStatusResult> result() const { return m_result; }
    bool isLoading() const { return m_isLoading; }
    std::optional<QString> errorMessage() const { return m_errorMessage; }

    // The shapes in which QML reads the state above.
    bool hasResult() const { return m_result.has_value(); }
    FlightStatusResult resultOrEmpty() const { return m_result.value_or(FlightStatusResult()); }
    bool hasErrorMessage() const { return m_errorMessage.has_value(); }
    QString errorMessageText() const { return m_errorMessage.value_or(QString()); }

    /// Asks for the status of `flightNumber`, without the blanks around it and in capitals, on
    /// `flightDate`.
    QCoro::Task<> searchStatus();
    /// For views, which start the task and do not wait for it.
    Q_INVOKABLE void startSearchStatus() { searchStatus(); }

Q_SIGNALS:
    void flightNumberChanged();
    void flightDateChanged();
    void resultChanged();
    void isLoadingChanged();
    void errorMessageChanged();

private:
    void setErrorMessage(const std::optional<QString> &message);

    QString m_flightNumber = QStringLiteral("VQ1983");
    QDateTime m_flightDate;
    std::optional<FlightStatusResult> m_result;
    bool m_isLoading = false;
    std::optional<QString> m_errorMessage;
};
