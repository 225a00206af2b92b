#include "Views/Flights/VisibleFlights.h"

#include <algorithm>

void VisibleFlights::setViewModel(FlightSearchViewModel *viewModel)
{
    if (m_viewModel == viewModel)
        return;
    if (m_viewModel)
        m_viewModel->disconnect(this);
    m_viewModel = viewModel;
    if (m_viewModel) {
        connect(m_viewModel, &FlightSearchViewModel::filteredFlightsChanged, this,
                &VisibleFlights::rearrange);
    }
    Q_EMIT viewModelChanged();
    update();
}

void VisibleFlights::setInRange(int &field, int value)
{
    if (field == value)
        return;
    field = value;
    Q_EMIT rangeChanged();
    update();
}

void VisibleFlights::rearrange()
{
    m_isRearranging = true;
    Q_EMIT isRearrangingChanged();
    update();
    m_isRearranging = false;
    Q_EMIT isRearrangingChanged();
}

void VisibleFlights::update()
{
    QList<FlightRow> rows;
    if (m_viewModel) {
        const QList<FlightOption> &flights = m_viewModel->filteredFlights();
        const int count = int(flights.size());
        const int first = std::clamp(m_firstRow, 0, count);
        const int end = std::clamp(m_firstRow + m_rowsInView, first, count);
        const auto append = [&](int row) { rows.append({ row, flights.at(row) }); };
        if (m_currentRow >= 0 && m_currentRow < first)
            append(m_currentRow);
        for (int row = first; row < end; ++row)
            append(row);
        if (m_currentRow >= end && m_currentRow < count)
            append(m_currentRow);
    }
    m_rows.setRecords(rows);
}
