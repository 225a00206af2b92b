#pragma once

#include "ViewModels/FlightSearchViewModel.h"

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

    friend bool operator==(const FlightRow &, const FlightRow &) = default;
};

inline QString identity(const FlightRow &row) { return row.flight.id; }

/// Those of a view model's `filteredFlights` that are worth a card: the rows that a view wants to
/// draw, the one with the keyboard, which has to exist wherever it is, and for the length of a
/// motion those that a new order has driven out.
class VisibleFlights : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Set once.
    Q_PROPERTY(FlightSearchViewModel *viewModel READ viewModel WRITE setViewModel NOTIFY
                   viewModelChanged REQUIRED)
    Q_PROPERTY(CountedListModel *rows READ rows CONSTANT)
    /// The rows to draw; they may lie outside the list.
    Q_PROPERTY(int firstRow READ firstRow WRITE setFirstRow NOTIFY firstRowChanged)
    Q_PROPERTY(int rowCount READ rowCount WRITE setRowCount NOTIFY rowCountChanged)
    /// The row with the keyboard; the first one after every change of the list.
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)

public:
    explicit VisibleFlights(QObject *parent = nullptr);

    FlightSearchViewModel *viewModel() const { return m_viewModel; }
    void setViewModel(FlightSearchViewModel *viewModel);
    CountedListModel *rows() { return &m_rows; }
    int firstRow() const { return m_firstRow; }
    void setFirstRow(int row);
    int rowCount() const { return m_rowCount; }
    void setRowCount(int count);
    int currentRow() const { return m_currentRow; }
    void setCurrentRow(int row);

    /// Whether a row that appears now does so because the list has changed, not because it is
    /// scrolled.
    Q_INVOKABLE bool isRearranging() const { return m_rearrangement.isActive(); }

Q_SIGNALS:
    void viewModelChanged();
    void firstRowChanged();
    void rowCountChanged();
    void currentRowChanged();

private:
    void rearrange();
    void update();
    QList<FlightRow> wantedRows() const;

    FlightSearchViewModel *m_viewModel = nullptr;
    RecordListModel<FlightRow> m_rows { "flightRow" };
    QList<FlightRow> m_leaving;
    QTimer m_rearrangement;
    int m_firstRow = 0;
    int m_rowCount = 0;
    int m_currentRow = 0;
};
