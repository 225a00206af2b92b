#include "Controls/Pages/TabOrder.h"

#include <QKeyEvent>
#include <QQuickItem>

void TabOrder::setWindow(QQuickWindow *window)
{
    if (m_window == window)
        return;
    m_window = window;
    m_window->installEventFilter(this);
    Q_EMIT windowChanged();
}

bool TabOrder::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const QQuickItem *scope = m_window->activeFocusItem();
    const QQuickItem *left = scope ? scope->scopedFocusItem() : nullptr;
    if ((key != Qt::Key_Tab && key != Qt::Key_Backtab) || !left || left->isEnabled())
        return QObject::eventFilter(watched, event);

    const bool isForward = key == Qt::Key_Tab;
    QQuickItem *next = const_cast<QQuickItem *>(left)->nextItemInFocusChain(isForward);
    next->forceActiveFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
