#pragma once

#include <QFont>
#include <QObject>
#include <QQmlEngine>
#include <QStringList>

/// Room for texts that are not all on the screen, such as the entries of a closed menu.
class TextWidth : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The width of the widest of `texts` on one line.
    Q_INVOKABLE qreal widest(const QStringList &texts, const QFont &font) const;
};
