#pragma once

#include "ViewModels/FlightSearchViewModel.h"

#include <QPointer>
#include <QQmlEngine>

/// A flight and its place in the whole list.
struct FlightRow
{
    Q_GADGET
    Q_PROPERTY(int row MEMBER row CONSTANT)
    Q_PROPERTY(FlightOption flight MEMBER flight CONSTANT)
    QML_VALUE_TYPE(flightRow)

public:
    int row = 0; ///< from 0
    FlightOption flight;

    friend bool operator==(const FlightRow &, const FlightRow &) = default;
};

inline QString identity(const FlightRow &row) { return row.flight.id; }

/// Those of a view model's `filteredFlights` that a view has to draw: the rows in its viewport and
/// the one with the keyboard, which has to exist wherever it is. Changes come row by row, so that a
/// card that stays is moved.
class VisibleFlights : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(FlightSearchViewModel *viewModel READ viewModel WRITE setViewModel NOTIFY
                   viewModelChanged REQUIRED)
    Q_PROPERTY(CountedListModel *rows READ rows CONSTANT)
    /// The rows in the viewport; they may lie outside the list.
    Q_PROPERTY(int firstRow READ firstRow WRITE setFirstRow NOTIFY rangeChanged)
    Q_PROPERTY(int rowsInView READ rowsInView WRITE setRowsInView NOTIFY rangeChanged)
    /// The row with the keyboard.
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY rangeChanged)
    /// True while rows appear because the list has changed, not because it is scrolled.
    Q_PROPERTY(bool isRearranging READ isRearranging NOTIFY isRearrangingChanged)

public:
    using QObject::QObject;

    FlightSearchViewModel *viewModel() const { return m_viewModel; }
    void setViewModel(FlightSearchViewModel *viewModel);
    CountedListModel *rows() { return &m_rows; }
    int firstRow() const { return m_firstRow; }
    void setFirstRow(int row) { setInRange(m_firstRow, row); }
    int rowsInView() const { return m_rowsInView; }
    void setRowsInView(int rows) { setInRange(m_rowsInView, rows); }
    int currentRow() const { return m_currentRow; }
    void setCurrentRow(int row) { setInRange(m_currentRow, row); }
    bool isRearranging() const { return m_isRearranging; }

Q_SIGNALS:
    void viewModelChanged();
    void rangeChanged();
    void isRearrangingChanged();

private:
    void setInRange(int &field, int value);
    void rearrange();
    void update();

    QPointer<FlightSearchViewModel> m_viewModel;
    RecordListModel<FlightRow> m_rows { "flightRow" };
    int m_firstRow = 0;
    int m_rowsInView = 0;
    int m_currentRow = 0;
    bool m_isRearranging = false;
};
