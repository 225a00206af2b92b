#include "Controls/Pages/HeldKeys.h"

#include <QKeyEvent>
#include <QQuickItem>

#include <chrono>

namespace {

/// In milliseconds. With a screen reader at work Qt sends copies of the events, which have no time.
quint64 momentOf(const QKeyEvent &key)
{
    using namespace std::chrono;
    const auto now = steady_clock::now().time_since_epoch();
    return key.timestamp() != 0 ? key.timestamp()
                                : quint64(duration_cast<milliseconds>(now).count());
}

} // namespace

bool HeldKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto &press = *static_cast<QKeyEvent *>(event);
        // A press may have opened a sheet with a text field in it, which is not to be typed into.
        if (isRepeat(press) && (press.key() == m_actingKey || acts(press)))
            return true;
        m_actingKey = acts(press) ? press.key() : 0;
        return false;
    }
    if (event->type() == QEvent::KeyRelease) {
        const auto &release = *static_cast<QKeyEvent *>(event);
        m_releasedKey = release.nativeScanCode();
        m_releasedAt = momentOf(release);
        return release.key() == m_actingKey || acts(release);
    }
    return WindowWatcher::eventFilter(watched, event);
}

bool HeldKeys::isRepeat(const QKeyEvent &press) const
{
    // A finger cannot lift a key and press it again within five milliseconds.
    const bool followsItsRelease = press.nativeScanCode() != 0
        && press.nativeScanCode() == m_releasedKey && momentOf(press) - m_releasedAt <= 5;
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
