#include "Controls/Pages/HeldKeys.h"

#include <QKeyEvent>
#include <QQuickItem>

bool HeldKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto &press = *static_cast<QKeyEvent *>(event);
        return acts(press) && isRepeat(press);
    }
    if (event->type() == QEvent::KeyRelease) {
        const auto &release = *static_cast<QKeyEvent *>(event);
        m_releasedKey = release.nativeScanCode();
        m_releasedAt = release.timestamp();
        return acts(release);
    }
    return WindowWatcher::eventFilter(watched, event);
}

bool HeldKeys::isRepeat(const QKeyEvent &press) const
{
    // A finger cannot lift a key and press it again within a millisecond.
    const bool followsItsRelease = press.nativeScanCode() != 0
        && press.nativeScanCode() == m_releasedKey && press.timestamp() - m_releasedAt <= 1;
    return press.isAutoRepeat() || followsItsRelease;
}

bool HeldKeys::acts(const QKeyEvent &key) const
{
    const QQuickItem *item = window()->activeFocusItem();
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Menu:
    case Qt::Key_F5:
    case Qt::Key_F10:
        return true;
    case Qt::Key_Space:
    case Qt::Key_R: // with Ctrl
        return !item || !item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
    default:
        return false;
    }
}
