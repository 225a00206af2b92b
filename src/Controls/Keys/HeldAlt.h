#pragma once

#include "Controls/Keys/WindowWatcher.h"

/// Knows whether Alt is held down, which is when menus show their access keys.
class HeldAlt : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isHeld READ isHeld NOTIFY isHeldChanged)

public:
    using WindowWatcher::WindowWatcher;

    bool isHeld() const { return m_isHeld; }

Q_SIGNALS:
    void isHeldChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isHeld = false;
};
