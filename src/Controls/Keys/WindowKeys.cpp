#include "Controls/Keys/WindowKeys.h"

#include <QCoreApplication>
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

void WindowKeys::setWindow(QQuickWindow *window)
{
    m_window = window;
    window->installEventFilter(this);
    Q_EMIT windowChanged();
}

bool WindowKeys::eventFilter(QObject *, QEvent *event)
{
    if (m_isPressing)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (event->type() == QEvent::KeyPress)
            Q_EMIT acted();
        return handleKey(*static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
        Q_EMIT acted();
        return false;
    case QEvent::FocusOut: // another window gets the release
        Q_EMIT acted();
        setAltHeld(false);
        return false;
    default:
        return false;
    }
}

bool WindowKeys::handleKey(QKeyEvent &key)
{
    switch (key.type()) {
    case QEvent::ShortcutOverride:
        // An override that is accepted is delivered again as a press, which is filtered below.
        if (!isRepeat(key) || (key.key() != m_actingKey && !acts(key)))
            return false;
        key.accept();
        return true;
    case QEvent::KeyPress:
        setAltHeld(m_isAltHeld || key.key() == Qt::Key_Alt);
        return handlePress(key) || moveFromDisabledControl(key.key());
    default:
        setAltHeld(m_isAltHeld && key.key() != Qt::Key_Alt);
        m_releasedKey = key.nativeScanCode();
        m_releasedAt = momentOf(key);
        return key.key() == m_actingKey || acts(key);
    }
}

bool WindowKeys::handlePress(const QKeyEvent &press)
{
    // A press may have opened a sheet with a text field in it, which is not to be typed into.
    if (isRepeat(press) && (press.key() == m_actingKey || acts(press)))
        return true;
    m_actingKey = acts(press) ? press.key() : 0;
    const bool isButtonKey = press.key() == Qt::Key_Space || press.key() == Qt::Key_Return
        || press.key() == Qt::Key_Enter;
    const auto modifiers = press.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (!isButtonKey || modifiers != Qt::NoModifier || isTyping())
        return false;
    m_isPressing = true;
    for (const auto type : { QEvent::KeyPress, QEvent::KeyRelease }) {
        QKeyEvent space(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
        QCoreApplication::sendEvent(window(), &space);
    }
    m_isPressing = false;
    return true;
}

bool WindowKeys::moveFromDisabledControl(int key)
{
    const QQuickItem *scope = window()->activeFocusItem();
    const QQuickItem *left = scope ? scope->scopedFocusItem() : nullptr;
    if ((key != Qt::Key_Tab && key != Qt::Key_Backtab) || !left || left->isEnabled())
        return false;
    const bool isForward = key == Qt::Key_Tab;
    QQuickItem *next = const_cast<QQuickItem *>(left)->nextItemInFocusChain(isForward);
    next->forceActiveFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void WindowKeys::setAltHeld(bool isHeld)
{
    if (m_isAltHeld == isHeld)
        return;
    m_isAltHeld = isHeld;
    Q_EMIT isAltHeldChanged();
}

bool WindowKeys::isRepeat(const QKeyEvent &press) const
{
    // A finger cannot lift a key and press it again within five milliseconds.
    const bool followsItsRelease = press.nativeScanCode() != 0
        && press.nativeScanCode() == m_releasedKey && momentOf(press) - m_releasedAt <= 5;
    return press.isAutoRepeat() || followsItsRelease;
}

bool WindowKeys::isTyping() const
{
    const QQuickItem *item = window()->activeFocusItem();
    return item && item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
}

bool WindowKeys::acts(const QKeyEvent &key) const
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
        return false;
    default:
        return !isTyping() || key.text().isEmpty();
    }
}
