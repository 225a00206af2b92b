#pragma once

#include <QDateTime>
#include <QFont>
#include <QObject>
#include <QQmlEngine>

/// The arithmetic and the texts of the date field. Days are counted here and not in the views: a
/// script's dates are instants, and an instant shifted by 24 hours is not always the next day.
///
/// Every result keeps the time of day of the moment it is made from. Where that time does not exist
/// on the new day, because clocks are put forward, the day counts and the time moves to one that
/// exists.
class DateEditing : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE QDateTime addDays(const QDateTime &moment, int days) const;
    /// The same day of another month, or its last day when the month is shorter.
    Q_INVOKABLE QDateTime addMonths(const QDateTime &moment, int months) const;
    /// Where `key` (a Qt::Key) leads in a month: the arrows by days and weeks, PageUp and PageDown
    /// by months, Home and End to the month's ends. `moment` itself for a key that does not move.
    Q_INVOKABLE QDateTime moved(const QDateTime &moment, int key) const;

    Q_INVOKABLE bool isSameDay(const QDateTime &moment, const QDateTime &other) const;
    Q_INVOKABLE bool isSameMonth(const QDateTime &moment, const QDateTime &other) const;
    /// Whether it lies on an earlier day; no day is earlier than an invalid one.
    Q_INVOKABLE bool isEarlier(const QDateTime &moment, const QDateTime &other) const;

    /// The place of a day, from 0, in the six weeks that a month grid shows. They begin on a
    /// Monday, and always with days of the month before.
    Q_INVOKABLE int gridRow(const QDateTime &moment) const;
    /// The day in that place of the grid of the month of `moment`.
    Q_INVOKABLE QDateTime dayInGrid(const QDateTime &moment, int row) const;

    /// "5 Aralık 2026 Cumartesi".
    Q_INVOKABLE QString fullText(const QDateTime &moment) const;
    /// The longest of "5 Aralık 2026 Cumartesi", "5 Ara 2026 Cmt" and "5 Ara" that fits `width`.
    Q_INVOKABLE QString fittingText(const QDateTime &moment, const QFont &font, qreal width) const;
    /// Room for the full text of any day.
    Q_INVOKABLE qreal widestFullText(const QFont &font) const;
    /// "Aralık 2026".
    Q_INVOKABLE QString monthText(const QDateTime &moment) const;
};
