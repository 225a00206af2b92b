#pragma once

#include <QObject>
#include <QQmlEngine>

/// The durations of the window's motion, in milliseconds, each under one name.
namespace Motion {
Q_NAMESPACE
QML_ELEMENT

enum Duration {
    HoverDuration = 120, ///< a control answering the pointer
    SheetDuration = 180, ///< a sheet opening or closing
    ResortDuration = 200, ///< cards changing places when they are sorted or filtered
    /// A new calendar or new flights coming in: the chart opening, its bars growing, the cards.
    ResultsDuration = 300
};
Q_ENUM_NS(Duration)

} // namespace Motion
