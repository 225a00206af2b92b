#include "inspect/SeenTexts.h"

#include "Controls/Accessibility/AccessibleTree.h"
#include "inspect/WindowDriver.h"

#include <QCoreApplication>
#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QQuickItem>
#include <QSocketNotifier>
#include <QTextStream>

#include <algorithm>
#include <utility>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// What is seen of an item and of all below it.
struct Seen
{
    QRectF place; ///< in the window
    QStringList texts;
    QStringList lines;
};

/// Parts that stand side by side, from left to right.
using Row = QList<Seen>;

QList<Row> rowsOf(QList<Seen> parts)
{
    std::ranges::stable_sort(parts, {}, [](const Seen &part) { return part.place.top(); });
    QList<Row> rows;
    QRectF place;
    for (const Seen &part : std::as_const(parts)) {
        if (rows.isEmpty() || part.place.center().y() > place.bottom()) {
            rows.append(Row());
            place = QRectF();
        }
        rows.last().append(part);
        place |= part.place;
    }
    for (Row &row : rows)
        std::ranges::stable_sort(row, {}, [](const Seen &part) { return part.place.left(); });
    return rows;
}

QString lineOf(const Row &row)
{
    QString line;
    for (qsizetype i = 0; i < row.size(); ++i) {
        // A word may be made of several texts.
        if (i > 0 && row.at(i).place.left() - row.at(i - 1).place.right() >= 1)
            line += u" | "_s;
        line += row.at(i).lines.join(u" / "_s).replace(u" | "_s, u" · "_s);
    }
    return line;
}

Seen read(QQuickItem *item, QRectF view, qreal opacity)
{
    Seen seen;
    opacity *= item->opacity();
    if (!item->isVisible() || opacity < 0.1)
        return seen;
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    if (item->clip())
        view &= place;
    const QString text =
        (item->inherits("GradientText") ? item->property("text").toString() : drawnText(item))
            .trimmed();
    if (view.contains(place.center()) && !text.isEmpty())
        seen = { place, { text }, { text } };
    QList<Seen> parts;
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (Seen part = read(child, view, opacity); !part.texts.isEmpty())
            parts.append(std::move(part));
    }
    for (const Row &row : rowsOf(parts)) {
        for (const Seen &part : row) {
            seen.texts += part.texts;
            seen.place |= part.place;
        }
        seen.lines += row.size() == 1 ? row.first().lines : QStringList(lineOf(row));
    }
    return seen;
}

Seen readAll(const QQuickWindow *window)
{
    return read(AccessibleTree::top(window), QRectF(0, 0, window->width(), window->height()), 1);
}

} // namespace

QStringList seenTexts(const QQuickWindow *window) { return readAll(window).texts; }
QStringList seenLines(const QQuickWindow *window) { return readAll(window).lines; }

void answerWithSeenTexts(QQuickWindow *window)
{
    auto *input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, window);
    QObject::connect(input, &QSocketNotifier::activated, window, [window] {
        char bytes[64];
        if (::read(STDIN_FILENO, bytes, sizeof bytes) <= 0) {
            QCoreApplication::quit();
            return;
        }
        const QJsonArray texts = QJsonArray::fromStringList(seenTexts(window));
        QTextStream(stdout) << QJsonDocument(texts).toJson(QJsonDocument::Compact) << Qt::endl;
    });
}
