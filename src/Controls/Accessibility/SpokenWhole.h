#pragma once

#include <QQmlEngine>
#include <QQuickItem>

/// An item that is one text for assistive technology, its `Accessible.name`. Its children are
/// ignored.
class SpokenWhole : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QQuickItem::QQuickItem;
};
