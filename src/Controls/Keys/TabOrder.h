#pragma once

#include "Controls/Keys/WindowWatcher.h"

/// Lets Tab go on from a control that was disabled while it had the keyboard, as a button that
/// starts something does. Qt gives the keyboard to the scope around it, and Tab would begin anew.
class TabOrder : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT

public:
    using WindowWatcher::WindowWatcher;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
