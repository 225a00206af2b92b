#include "inspect/SeenTexts.h"

#include "Controls/Speech/TopLayer.h"

#include <QCoreApplication>
#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QQuickItem>
#include <QSocketNotifier>
#include <QTextStream>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool isSymbol(const QQuickItem *item)
{
    return item->property("font").value<QFont>().family().contains(u"Icons");
}

void collect(const QQuickItem *item, QRectF view, qreal opacity, QStringList &texts)
{
    opacity *= item->opacity();
    if (!item->isVisible() || opacity < 0.1)
        return;
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    if (item->clip())
        view &= place;
    const QVariant text = item->property("text");
    const bool isText = item->inherits("QQuickText") || item->inherits("QQuickTextInput")
        || item->inherits("GradientText");
    if (isText && !isSymbol(item) && view.contains(place.center())
        && !text.toString().trimmed().isEmpty())
        texts.append(text.toString().trimmed());
    const auto children = item->childItems();
    for (const QQuickItem *child : children)
        collect(child, view, opacity, texts);
}

} // namespace

QStringList seenTexts(QQuickWindow *window)
{
    QStringList texts;
    collect(TopLayer::of(window), QRectF(0, 0, window->width(), window->height()), 1, texts);
    return texts;
}

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
