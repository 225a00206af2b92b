#include "Controls/Sheets/FocusReturn.h"

#include <QQuickWindow>

void FocusReturn::remember(QQuickItem *item)
{
    const QQuickWindow *window = item ? item->window() : nullptr;
    m_item = window ? window->activeFocusItem() : nullptr;
    const bool showsRing = m_item && m_item->property("visualFocus").toBool();
    m_reason = showsRing ? Qt::TabFocusReason : Qt::OtherFocusReason;
}

void FocusReturn::restore()
{
    if (!m_item)
        return;
    m_item->forceActiveFocus(m_reason);
    // The window may have given the focus back already, for a reason that shows no ring.
    if (m_item->metaObject()->indexOfProperty("focusReason") >= 0)
        m_item->setProperty("focusReason", m_reason);
    m_item.clear();
}
