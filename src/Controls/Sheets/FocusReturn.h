#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

/// Remembers which item had the keyboard when a sheet or a panel opened, and hands it back when
/// that closes, with its focus ring if it showed one.
class FocusReturn : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QObject::QObject;

    /// `item` is any item of the window in question.
    Q_INVOKABLE void remember(QQuickItem *item);
    /// Does nothing when the item has gone in the meantime.
    Q_INVOKABLE void restore();

private:
    QPointer<QQuickItem> m_item;
    Qt::FocusReason m_reason = Qt::OtherFocusReason;
};
