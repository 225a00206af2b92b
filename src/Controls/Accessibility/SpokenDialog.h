#pragma once

#include <QQmlEngine>
#include <QQuickItem>

/// A focus scope that assistive technology has as a modal dialog, named `Accessible.name`.
class SpokenDialog : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SpokenDialog(QQuickItem *parent = nullptr)
        : QQuickItem(parent)
    {
        setFlag(ItemIsFocusScope);
    }
};
