#pragma once

#include <QFont>
#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

/// Texts as the window draws them, wherever they come from. A server's text may be of any length,
/// and measuring a megabyte of it costs seconds.
class ShownText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// `text` as it is shown on one line or, wrapped, on several: cut to what a person would read,
    /// without the marks that turn the direction of what stands beside them. On one line every line
    /// break is a blank; wrapped, paragraphs stay. A text whose size is fitted to its room is
    /// measured a dozen times, and is the shortest.
    Q_INVOKABLE static QString of(const QString &text, bool isOneLine, bool isFitted = false);
    /// The first of a list's entries, as many as a person would read, and each as far. They are all
    /// laid out at once.
    Q_INVOKABLE static QStringList firstOf(const QStringList &entries);
    /// The width of the widest of `texts` on one line, wherever they are shown.
    Q_INVOKABLE static qreal widest(const QStringList &texts, const QFont &font);

    static constexpr qsizetype longestFitted = 40; ///< the dearest price has 26
    static constexpr qsizetype longestLine = 200;
    static constexpr qsizetype longestText = 4000;
    static constexpr qsizetype mostParagraphs = 40;
    static constexpr qsizetype mostEntries = 60;
    static constexpr qsizetype longestEntry = 400;
};
