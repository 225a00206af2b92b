#include "Views/Flights/VisibleFlights.h"

#include "Controls/Look/Motion.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

constexpr int mostRowsBeyond = 4;
/// Longer than two frames: cards that nobody sees are made one at a time, and delay none.
constexpr int growthInterval = 40;

} // namespace

VisibleFlights::VisibleFlights(QObject *parent)
    : QObject(parent)
{
    m_rearrangement.setSingleShot(true);
    connect(&m_rearrangement, &QTimer::timeout, this, &VisibleFlights::endRearrangement);
    m_growth.setInterval(growthInterval);
    connect(&m_growth, &QTimer::timeout, this, &VisibleFlights::growBeyond);
}

void VisibleFlights::setFlights(FlightOptionList *flights)
{
    m_flights = flights;
    connect(flights, &FlightOptionList::changed, this, &VisibleFlights::rearrange);
    Q_EMIT flightsChanged();
    update();
}

void VisibleFlights::setFirstRow(int row)
{
    if (m_firstRow == row)
        return;
    m_firstRow = row;
    Q_EMIT firstRowChanged();
    update();
}

void VisibleFlights::setRowCount(int count)
{
    if (m_rowCount == count)
        return;
    m_rowCount = count;
    Q_EMIT rowCountChanged();
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
    const Motion motion;
    m_rearrangement.start(m_flights->areNew() ? motion.resultsDuration() : motion.resortDuration());
    Q_EMIT motionDurationChanged();
    Q_EMIT isRearrangingChanged();
    if (m_flights->areNew())
        m_rowsBeyond = 0;
    m_growth.stop();
    QHash<QString, FlightRow *> leaving;
    m_leaving = m_rows.records();
    for (FlightRow &row : m_leaving) {
        row.isLeaving = true;
        leaving.insert(row.id(), &row);
    }
    // On its way out a card moves towards its new place.
    for (int row = 0; !leaving.isEmpty() && row < m_flights->count(); ++row) {
        if (FlightRow *moved = leaving.take(m_flights->flight(row).id))
            moved->row = row;
    }
    if (m_currentRow == 0)
        update();
    else
        setCurrentRow(0);
}

void VisibleFlights::endRearrangement()
{
    m_leaving.clear();
    Q_EMIT isRearrangingChanged();
    m_growth.start();
    update();
}

void VisibleFlights::growBeyond()
{
    m_rowsBeyond = std::min(m_rowsBeyond + 1, mostRowsBeyond);
    if (m_rowsBeyond == mostRowsBeyond)
        m_growth.stop();
    update();
}

void VisibleFlights::update()
{
    const QList<FlightRow> wanted = wantedRows();
    QSet<QString> staying;
    for (const FlightRow &row : wanted)
        staying.insert(row.id());
    m_leaving.removeIf([&](const FlightRow &row) { return staying.contains(row.id()); });
    // The leaving ones come first, so that the others are drawn over them.
    m_rows.setRecords(m_leaving + wanted);
}

QList<FlightRow> VisibleFlights::wantedRows() const
{
    QList<FlightRow> rows;
    if (!m_flights)
        return rows;
    const int count = m_flights->count();
    const int first = std::clamp(m_firstRow - m_rowsBeyond, 0, count);
    const int end = std::clamp(m_firstRow + m_rowCount + m_rowsBeyond, first, count);
    const auto append = [&](int row) { rows.append({ row, m_flights->flight(row) }); };
    if (m_currentRow >= 0 && m_currentRow < first)
        append(m_currentRow);
    for (int row = first; row < end; ++row)
        append(row);
    if (m_currentRow >= end && m_currentRow < count)
        append(m_currentRow);
    return rows;
}
