#include "Views/CityGuide/FirstRows.h"

#include <chrono>

FirstRows::FirstRows(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    m_clock.setInterval(std::chrono::milliseconds(16));
    connect(&m_clock, &QTimer::timeout, this, &FirstRows::showMore);
    // A list is there, or is empty and filled once.
    const auto grow = [this] {
        if (sourceModel())
            m_clock.start();
    };
    connect(this, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_shown = firstShown; });
    connect(this, &QAbstractItemModel::modelReset, this, grow);
    connect(this, &QAbstractItemModel::rowsInserted, this, grow);
}

bool FirstRows::filterAcceptsRow(int row, const QModelIndex &) const { return row < m_shown; }

void FirstRows::showMore()
{
    ++m_shown;
    invalidateFilter();
    if (!sourceModel() || m_shown >= mostShown || m_shown >= sourceModel()->rowCount())
        m_clock.stop();
}
