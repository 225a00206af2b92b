#include "Controls/Keys/TabOrder.h"

#include <QKeyEvent>
#include <QQuickItem>

bool TabOrder::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return WindowWatcher::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const QQuickItem *scope = window()->activeFocusItem();
    const QQuickItem *left = scope ? scope->scopedFocusItem() : nullptr;
    if ((key != Qt::Key_Tab && key != Qt::Key_Backtab) || !left || left->isEnabled())
        return WindowWatcher::eventFilter(watched, event);

    const bool isForward = key == Qt::Key_Tab;
    QQuickItem *next = const_cast<QQuickItem *>(left)->nextItemInFocusChain(isForward);
    next->forceActiveFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
