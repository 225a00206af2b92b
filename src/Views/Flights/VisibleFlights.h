#pragma once

#include "Models/FlightOption.h"
#include "ViewModels/FlightOptionList.h"
#include "ViewModels/RecordListModel.h"

#include <QQmlEngine>
#include <QTimer>

/// A flight and its place in the whole list.
struct FlightRow
{
    Q_GADGET
    Q_PROPERTY(int row MEMBER row CONSTANT)
    Q_PROPERTY(FlightOption flight MEMBER flight CONSTANT)
    Q_PROPERTY(bool isLeaving MEMBER isLeaving CONSTANT)
    QML_VALUE_TYPE(flightRow)

public:
    int row = 0; ///< from 0
    FlightOption flight;
    bool isLeaving = false; ///< no longer to be drawn, once its motion has ended

    QString id() const { return flight.id; }

    friend bool operator==(const FlightRow &, const FlightRow &) = default;
};

/// The flights of a list that have a card: those in view, the one with the keyboard, wherever it
/// is, and, while cards move, those that a new order has moved out of view. A card that a new order
/// moves into view starts from the former row of its flight.
class VisibleFlights : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Set once.
    Q_PROPERTY(
        FlightOptionList *flights READ flights WRITE setFlights NOTIFY flightsChanged REQUIRED)
    Q_PROPERTY(CountedListModel *rows READ rows CONSTANT)
    /// The rows in view; they may lie outside the list.
    Q_PROPERTY(int firstRow MEMBER m_firstRow WRITE setFirstRow)
    Q_PROPERTY(int rowCount MEMBER m_rowCount WRITE setRowCount)
    /// The row with the keyboard; the first one after every change of the list.
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    /// How long the motion of a change takes, in milliseconds.
    Q_PROPERTY(int motionDuration READ motionDuration NOTIFY isRearrangingChanged)
    /// Rows are moving. One that appears now does so because the list has changed, not
    /// because it is scrolled.
    Q_PROPERTY(bool isRearranging READ isRearranging NOTIFY isRearrangingChanged)

public:
    explicit VisibleFlights(QObject *parent = nullptr);

    FlightOptionList *flights() const { return m_flights; }
    void setFlights(FlightOptionList *flights);
    CountedListModel *rows() { return &m_rows; }
    void setFirstRow(int row);
    void setRowCount(int count);
    int currentRow() const { return m_currentRow; }
    void setCurrentRow(int row);
    int motionDuration() const { return m_rearrangement.interval(); }

    bool isRearranging() const { return m_rearrangement.isActive(); }

Q_SIGNALS:
    void flightsChanged();
    void currentRowChanged();
    void isRearrangingChanged();

private:
    void rearrange();
    void endRearrangement();
    void update();
    void show(const QList<FlightRow> &rows);
    QList<FlightRow> wantedRows() const;

    FlightOptionList *m_flights = nullptr;
    RecordListModel<FlightRow> m_rows { "flightRow" };
    QList<FlightOption> m_shown; ///< the list as last shown
    QList<FlightRow> m_leaving;
    QTimer m_rearrangement;
    int m_firstRow = 0;
    int m_rowCount = 0;
    int m_currentRow = 0;
};
