#include "ViewModels/FlightStatusViewModel.h"

#include "Models/DateText.h"
#include "Services/VTRMCPClient.h"

#include <QPointer>

using namespace Qt::StringLiterals;

FlightStatusViewModel::FlightStatusViewModel(QObject *parent, const QDateTime &now)
    : ObservableObject(parent)
    , m_flightDate(now)
{ }

void FlightStatusViewModel::setFlightNumber(const QString &flightNumber)
{
    publish(m_flightNumber, flightNumber, &FlightStatusViewModel::flightNumberChanged);
}

void FlightStatusViewModel::setFlightDate(const QDateTime &date)
{
    publish(m_flightDate, date, &FlightStatusViewModel::flightDateChanged);
}

void FlightStatusViewModel::setErrorMessage(const std::optional<QString> &message)
{
    publish(m_errorMessage, message, &FlightStatusViewModel::errorMessageChanged);
}

QCoro::Task<> FlightStatusViewModel::searchStatus()
{
    const QString queryNumber = m_flightNumber.trimmed().toUpper();
    if (queryNumber.isEmpty()) {
        setErrorMessage(std::nullopt); // so that the same error is told again
        setErrorMessage(u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s);
        co_return;
    }
    // The sheet may close, and take this object with it, while the server answers.
    const QPointer<FlightStatusViewModel> self(this);
    const auto end = raise(m_isLoading, &FlightStatusViewModel::isLoadingChanged);
    setErrorMessage(std::nullopt);

    try {
        const std::optional<QString> day = DateText::day(m_flightDate);
        const FlightStatusResult result =
            co_await VTRMCPClient::shared().checkFlightStatus(queryNumber, day);
        if (!self)
            co_return;
        Q_EMIT objectWillChange();
        m_result = result;
        Q_EMIT resultChanged();
    } catch (...) {
        if (self)
            setErrorMessage(McpError::current().localizedDescription());
    }
}
