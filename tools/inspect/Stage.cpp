#include "inspect/Stage.h"

#include <QCursor>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int stillness = 350; // milliseconds without a frame

} // namespace

Stage::Stage(QQuickWindow *window, std::chrono::milliseconds timeout)
    : WindowDriver(window)
    , m_timeout(timeout)
{
    // A pointer that happens to rest over the window would show its hover states.
    QCursor::setPos(0, 0);
    // Without a window manager nobody else gives it the keyboard.
    m_window->requestActivate();
    m_clock.start();
    m_lastFrame.start();
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [this] { m_lastFrame.restart(); },
        Qt::QueuedConnection);
}

std::chrono::milliseconds Stage::remaining() const
{
    return m_timeout - std::chrono::milliseconds(m_clock.elapsed());
}

bool Stage::waitUntil(const std::function<bool()> &condition) const
{
    return QTest::qWaitFor(condition, static_cast<int>(remaining().count()));
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
