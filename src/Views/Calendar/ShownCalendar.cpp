#include "Views/Calendar/ShownCalendar.h"

#include "Controls/Look/Motion.h"

#include <algorithm>

ShownCalendar::ShownCalendar(QObject *parent)
    : QObject(parent)
{
    m_arrival.setSingleShot(true);
    m_arrival.setInterval(Motion::ResultsDuration);
}

void ShownCalendar::setViewModel(FlightSearchViewModel *viewModel)
{
    if (m_viewModel == viewModel || !viewModel)
        return;
    m_viewModel = viewModel;
    for (const auto changed :
         { &FlightSearchViewModel::calendarPricesChanged, &FlightSearchViewModel::bestPriceChanged,
           &FlightSearchViewModel::currencyChanged })
        connect(viewModel, changed, this, &ShownCalendar::take);
    Q_EMIT viewModelChanged();
    take();
}

int ShownCalendar::bestDayIndex() const
{
    const QList<DailyPrice> &days = m_days.records();
    const auto best = std::find_if(days.begin(), days.end(), [this](const DailyPrice &day) {
        return day.date == m_bestPrice.date;
    });
    return best == days.end() ? -1 : static_cast<int>(best - days.begin());
}

void ShownCalendar::take()
{
    if (m_viewModel->calendarPrices().isEmpty())
        return;
    m_highestPrice = m_viewModel->highestPrice();
    m_currency = m_viewModel->currency();
    m_hasBestPrice = m_viewModel->hasBestPrice();
    if (m_hasBestPrice)
        m_bestPrice = m_viewModel->bestPriceOrEmpty();
    m_arrival.start();
    m_days.setRecords(m_viewModel->calendarPrices());
    Q_EMIT changed();
}
