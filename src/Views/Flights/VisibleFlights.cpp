#include "Views/Flights/VisibleFlights.h"

#include "Controls/Look/Motion.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace {

/// Gives each row the place that its flight has among `flights`, if it is one of them.
void place(QList<FlightRow> &rows, const QList<FlightOption> &flights)
{
    for (FlightRow &row : rows) {
        const auto found = std::ranges::find(flights, row.id(), &FlightOption::id);
        if (found != flights.end())
            row.row = static_cast<int>(found - flights.begin());
    }
}

} // namespace

VisibleFlights::VisibleFlights(QObject *parent)
    : QObject(parent)
{
    m_rearrangement.setSingleShot(true);
    connect(&m_rearrangement, &QTimer::timeout, this, &VisibleFlights::endRearrangement);
}

void VisibleFlights::setFlights(FlightOptionList *flights)
{
    m_flights = flights;
    connect(flights, &FlightOptionList::changed, this, &VisibleFlights::rearrange);
    Q_EMIT flightsChanged();
    m_shown = flights->flights();
    update();
}

void VisibleFlights::setFirstRow(int row)
{
    if (std::exchange(m_firstRow, row) != row)
        update();
}

void VisibleFlights::setRowCount(int count)
{
    if (std::exchange(m_rowCount, count) != count)
        update();
}

void VisibleFlights::setCurrentRow(int row)
{
    if (m_currentRow == row)
        return;
    m_currentRow = row;
    Q_EMIT currentRowChanged();
    update();
}

void VisibleFlights::rearrange()
{
    m_rearrangement.start(m_flights->areNew() ? Motion::ResultsDuration : Motion::ResortDuration);
    Q_EMIT isRearrangingChanged();

    // On its way out a card moves towards its new place.
    m_leaving = m_rows.records();
    for (FlightRow &row : m_leaving)
        row.isLeaving = true;
    place(m_leaving, m_flights->flights());

    const QList<FlightOption> earlier = std::exchange(m_shown, m_flights->flights());
    if (std::exchange(m_currentRow, 0) != 0)
        Q_EMIT currentRowChanged();
    if (!m_flights->areNew()) {
        QList<FlightRow> start = wantedRows();
        place(start, earlier);
        // The page goes where the keyboard is: this one is in its place at once.
        if (!start.isEmpty())
            start.first().row = m_currentRow;
        show(start);
    }
    update();
}

void VisibleFlights::endRearrangement()
{
    m_leaving.clear();
    Q_EMIT isRearrangingChanged();
    update();
}

void VisibleFlights::update() { show(wantedRows()); }

void VisibleFlights::show(const QList<FlightRow> &rows)
{
    QSet<QString> staying;
    for (const FlightRow &row : rows)
        staying.insert(row.id());
    m_leaving.removeIf([&](const FlightRow &row) { return staying.contains(row.id()); });
    // The leaving ones come first, so that the others are drawn over them.
    m_rows.setRecords(m_leaving + rows);
}

QList<FlightRow> VisibleFlights::wantedRows() const
{
    QList<FlightRow> rows;
    const int count = static_cast<int>(m_shown.size());
    const int first = std::clamp(m_firstRow, 0, count);
    const int end = std::clamp(m_firstRow + m_rowCount, first, count);
    const auto append = [&](int row) { rows.append({ row, m_shown.at(row) }); };
    if (m_currentRow >= 0 && m_currentRow < first)
        append(m_currentRow);
    for (int row = first; row < end; ++row)
        append(row);
    if (m_currentRow >= end && m_currentRow < count)
        append(m_currentRow);
    return rows;
}
