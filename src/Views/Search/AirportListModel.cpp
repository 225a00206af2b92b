#include "Views/Search/AirportListModel.h"

#include "Models/AirportDatabase.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int airportRole = Qt::UserRole;

} // namespace

AirportListModel::AirportListModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_matches(AirportDatabase::allAirports())
{ }

void AirportListModel::setQuery(const QString &query)
{
    if (m_query == query)
        return;
    m_query = query;
    beginResetModel();
    m_matches = AirportDatabase::search(query);
    endResetModel();
    Q_EMIT queryChanged();
    Q_EMIT countChanged();
}

int AirportListModel::rowOf(const QString &code) const
{
    for (int row = 0; row < m_matches.size(); ++row) {
        if (m_matches.at(row).code == code)
            return row;
    }
    return -1;
}

QString AirportListModel::codeAt(int row) const
{
    return row >= 0 && row < m_matches.size() ? m_matches.at(row).code : QString();
}

QString AirportListModel::accessibleName(int row) const
{
    if (row < 0 || row >= m_matches.size())
        return {};
    const Airport &airport = m_matches.at(row);
    const QString hub = airport.hub ? u", HUB"_s : QString();
    return QStringList { airport.code, airport.city, airport.country, airport.name }.join(u", "_s)
        + hub;
}

int AirportListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_matches.size());
}

QVariant AirportListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != airportRole)
        return {};
    return QVariant::fromValue(m_matches.at(index.row()));
}

QHash<int, QByteArray> AirportListModel::roleNames() const
{
    return { { airportRole, "airport" } };
}
