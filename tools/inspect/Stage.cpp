#include "inspect/Stage.h"

#include <QCursor>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int stillness = 350; // milliseconds without a frame

} // namespace

Stage::Stage(QQuickWindow *window, std::chrono::milliseconds timeout)
    : WindowDriver(window)
    , m_deadline(timeout)
{
    // A pointer that happens to rest over the window would show its hover states.
    QCursor::setPos(0, 0);
    // Without a window manager nobody else gives it the keyboard.
    m_window->requestActivate();
    m_lastFrame.start();
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [this] { m_lastFrame.restart(); },
        Qt::QueuedConnection);
}

bool Stage::waitUntil(const std::function<bool()> &condition) const
{
    return QTest::qWaitFor(condition, static_cast<int>(m_deadline.remainingTime()));
}

bool Stage::waitUntilStill()
{
    m_lastFrame.restart();
    return waitUntil([this] { return m_lastFrame.elapsed() > stillness; });
}

bool Stage::scrollTo(const QString &objectName) const
{
    QQuickItem *page = named(u"page"_s);
    QQuickItem *wanted = named(objectName);
    if (!page || !wanted)
        return false;
    const qreal distance = wanted->mapToItem(page, QPointF()).y();
    return QMetaObject::invokeMethod(page, "scrollBy", Q_ARG(double, distance));
}
