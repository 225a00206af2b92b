#pragma once

#include "Models/Airport.h"

#include <QAbstractListModel>
#include <QQmlEngine>

/// The airports that match what was typed; all of them while nothing is.
class AirportListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    explicit AirportListModel(QObject *parent = nullptr);

    QString query() const { return m_query; }
    void setQuery(const QString &query);
    int count() const { return rowCount(); }

    /// The row of the airport with this code; -1 when it is not among the matches.
    Q_INVOKABLE int rowOf(const QString &code) const;
    Q_INVOKABLE QString codeAt(int row) const;
    /// Everything that the row shows, for assistive technology.
    Q_INVOKABLE QString accessibleName(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void queryChanged();
    void countChanged();

private:
    QString m_query;
    QList<Airport> m_matches;
};
