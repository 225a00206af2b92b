#pragma once

#include <QObject>
#include <QQmlEngine>

/// Where the window's symbols are found in the icon font, under the names the design gives them.
class SymbolCatalogue : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The character that draws the symbol; empty, with a warning, for a name that is not known.
    Q_INVOKABLE QString character(const QString &name) const;
    /// How far the glyph is turned clockwise, in degrees.
    Q_INVOKABLE qreal rotation(const QString &name) const;
    /// The glyph stands in an outlined circle.
    Q_INVOKABLE bool isCircled(const QString &name) const;
    /// The glyph stands on a filled circle.
    Q_INVOKABLE bool isDisc(const QString &name) const;
};
