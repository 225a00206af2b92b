#pragma once

#include "Controls/Look/ShownText.h"

#include <QQmlEngine>
#include <QSortFilterProxyModel>
#include <QTimer>

/// The first rows of a list whose rows are all laid out, as many as a person would read. A server
/// may list tens of thousands; even sixty cards at once would hold the window up, so that after the
/// first few they come one after the other.
class FirstRows : public QSortFilterProxyModel
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit FirstRows(QObject *parent = nullptr);

    static constexpr int firstShown = 3;
    static constexpr int mostShown = static_cast<int>(ShownText::mostEntries);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    void showMore();

    int m_shown = firstShown;
    QTimer m_clock;
};
