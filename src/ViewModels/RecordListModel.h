#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QSet>

#include <algorithm>

/// The part of RecordListModel that QML sees.
class CountedListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    using QAbstractListModel::QAbstractListModel;

    int count() const { return rowCount(); }

Q_SIGNALS:
    void countChanged();
};

/// A list of records that changes row by row: a new list is reached by removing, moving and
/// inserting rows, so that a view moves its delegates instead of making them again. Records are
/// told apart by `record.id()`; a list in which two are the same, or that is longer than any
/// view would move, is replaced at once.
/// Delegates read the record under one role name.
template<typename Record>
class RecordListModel : public CountedListModel
{
public:
    static constexpr int recordRole = Qt::UserRole;
    /// The time to find the changes grows with the square of it.
    static constexpr qsizetype mostRowsMoved = 500;

    explicit RecordListModel(const QByteArray &roleName, QObject *parent = nullptr)
        : CountedListModel(parent)
        , m_roleName(roleName)
    { }

    const QList<Record> &records() const { return m_records; }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_records.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != recordRole)
            return {};
        return QVariant::fromValue(m_records.at(index.row()));
    }

    QHash<int, QByteArray> roleNames() const override { return { { recordRole, m_roleName } }; }

    void setRecords(const QList<Record> &records)
    {
        if (records == m_records)
            return;
        const qsizetype oldCount = m_records.size();
        const bool isShort = std::max(oldCount, records.size()) <= mostRowsMoved;
        if (isShort && areDistinct(m_records) && areDistinct(records))
            changeRowByRow(records);
        else
            replaceAll(records);
        if (m_records.size() != oldCount)
            Q_EMIT countChanged();
    }

private:
    static QSet<QString> identities(const QList<Record> &records)
    {
        QSet<QString> set;
        set.reserve(records.size());
        for (const Record &record : records)
            set.insert(record.id());
        return set;
    }

    static bool areDistinct(const QList<Record> &records)
    {
        return identities(records).size() == records.size();
    }

    void replaceAll(const QList<Record> &records)
    {
        beginResetModel();
        m_records = records;
        endResetModel();
    }

    void changeRowByRow(const QList<Record> &records)
    {
        const QSet<QString> wanted = identities(records);
        for (int row = rowCount() - 1; row >= 0; --row) {
            if (wanted.contains(m_records.at(row).id()))
                continue;
            beginRemoveRows({}, row, row);
            m_records.removeAt(row);
            endRemoveRows();
        }
        for (int row = 0; row < records.size(); ++row)
            settleRow(row, records.at(row));
    }

    /// Brings `record` to `row`; the rows above are settled already.
    void settleRow(int row, const Record &record)
    {
        int from = row;
        while (from < m_records.size() && m_records.at(from).id() != record.id())
            ++from;
        if (from == m_records.size()) {
            beginInsertRows({}, row, row);
            m_records.insert(row, record);
            endInsertRows();
            return;
        }
        if (from != row) {
            beginMoveRows({}, from, from, {}, row);
            m_records.move(from, row);
            endMoveRows();
        }
        if (m_records.at(row) != record) {
            m_records[row] = record;
            Q_EMIT dataChanged(index(row), index(row));
        }
    }

    QByteArray m_roleName;
    QList<Record> m_records;
};
