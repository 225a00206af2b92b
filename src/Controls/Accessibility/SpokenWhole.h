#pragma once

#include <QQmlEngine>
#include <QQuickItem>

/// An item that is told as one text, its `Accessible.name`; what lies in it is not told by itself.
class SpokenWhole : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QQuickItem::QQuickItem;
};
