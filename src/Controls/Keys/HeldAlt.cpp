#include "Controls/Keys/HeldAlt.h"

#include <QKeyEvent>

bool HeldAlt::eventFilter(QObject *watched, QEvent *event)
{
    const auto isAlt = [event] { return static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt; };
    bool isHeld = m_isHeld;
    if (event->type() == QEvent::KeyPress)
        isHeld = isHeld || isAlt();
    else if (event->type() == QEvent::KeyRelease)
        isHeld = isHeld && !isAlt();
    else if (event->type() == QEvent::FocusOut)
        isHeld = false; // its release goes to another window
    if (isHeld != m_isHeld) {
        m_isHeld = isHeld;
        Q_EMIT isHeldChanged();
    }
    return WindowWatcher::eventFilter(watched, event);
}
