#pragma once

#include "Controls/Keys/WindowWatcher.h"

#include <QQuickItem>
#include <QRectF>
#include <QTimer>

/// Finds what a tool tip should show: the whole of a text that is cut short, or what an item says
/// of itself in its property `toolTip`. It looks where the pointer rests, and in the control that
/// the keyboard has come to.
class ToolTipFinder : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT
    /// Empty while there is nothing to show.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// What the text belongs to, in the window.
    Q_PROPERTY(QRectF place READ place NOTIFY changed)
    /// The item that fills the window.
    Q_PROPERTY(QQuickItem *root READ root NOTIFY windowChanged)

public:
    explicit ToolTipFinder(QObject *parent = nullptr);

    QString text() const { return m_text; }
    QRectF place() const { return m_place; }
    QQuickItem *root() const { return window() ? window()->contentItem() : nullptr; }

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void waitAt(const QPointF &pointer);
    void waitAtFocus();
    void hide();
    void find();
    void show(const QString &text, const QQuickItem *item);

    QTimer m_delay;
    QPointF m_pointer;
    QPointer<QQuickItem> m_focused; ///< null while the pointer was the last to move
    bool m_keyboardActedLast = false;
    QString m_text;
    QRectF m_place;
};
