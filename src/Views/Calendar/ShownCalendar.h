#pragma once

#include "ViewModels/FlightSearchViewModel.h"

#include <QQmlEngine>
#include <QTimer>

/// The last calendar that had days, which the fare chart shows: when a calendar without any comes,
/// the chart fades out with these.
class ShownCalendar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Set once.
    Q_PROPERTY(FlightSearchViewModel *viewModel READ viewModel WRITE setViewModel NOTIFY
                   viewModelChanged REQUIRED)
    Q_PROPERTY(CountedListModel *days READ days CONSTANT)
    Q_PROPERTY(double highestPrice MEMBER m_highestPrice NOTIFY changed)
    Q_PROPERTY(QString currency MEMBER m_currency NOTIFY changed)
    Q_PROPERTY(bool hasBestPrice MEMBER m_hasBestPrice NOTIFY changed)
    /// The last one there was, for a badge that fades out.
    Q_PROPERTY(BestPrice bestPrice READ bestPrice NOTIFY changed)
    /// Where its day stands in `days`; -1 when it is not one of them.
    Q_PROPERTY(int bestDayIndex READ bestDayIndex NOTIFY changed)

public:
    explicit ShownCalendar(QObject *parent = nullptr);

    FlightSearchViewModel *viewModel() const { return m_viewModel; }
    void setViewModel(FlightSearchViewModel *viewModel);
    CountedListModel *days() { return &m_days; }
    BestPrice bestPrice() const { return m_bestPrice; }
    int bestDayIndex() const;

    /// The day in this row of `days`.
    Q_INVOKABLE DailyPrice at(int row) const { return m_days.records().value(row); }
    /// Whether a day that appears now does so because it is new, not because it is scrolled to.
    Q_INVOKABLE bool isArriving() const { return m_arrival.isActive(); }

Q_SIGNALS:
    void viewModelChanged();
    void changed();

private:
    void take();

    FlightSearchViewModel *m_viewModel = nullptr;
    DailyPriceListModel m_days { "price" };
    double m_highestPrice = 1;
    QString m_currency;
    bool m_hasBestPrice = false;
    BestPrice m_bestPrice;
    QTimer m_arrival;
};
