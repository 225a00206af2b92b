#include "support/WindowTesting.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// The software renderer draws only what changed since the frame before.
class RepaintTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void aScrollLeavesNoOldPixels_data()
    {
        QTest::addColumn<bool>("hasError");
        QTest::newRow("with results") << false;
        QTest::newRow("with the error banner") << true;
    }

    void aScrollLeavesNoOldPixels()
    {
        QFETCH(bool, hasError);
        if (hasError)
            find(ScriptedAnswer::failure(u"Deneme hatası."_s));
        waitForTheCalendar();
        for (int height = 720; height <= 900; height += 10) {
            m_window->window()->resize(1280, height);
            m_window->itemsOfType("QuickRouteButton")
                .constLast()
                ->forceActiveFocus(Qt::TabFocusReason);
            m_window->press("Home"); // from there it scrolls to the top
            QCOMPARE(place(), 0.0);
            waitUntilStill();
            for (const char *key : { "Tab", "PgDown" }) {
                m_window->press(key);
                waitUntilStill();
                const QImage shown = picture();
                const QRect old = difference(shown, drawnAfresh());
                QVERIFY2(
                    old.isEmpty(),
                    qPrintable(u"old pixels in %1 after %2, height %3"_s.arg(QDebug::toString(old))
                                   .arg(QLatin1StringView(key))
                                   .arg(height)));
            }
        }
    }

private:
    /// The rectangle around all pixels that differ; empty when none does.
    static QRect difference(const QImage &one, const QImage &other)
    {
        QRect differing;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                if (one.pixel(x, y) != other.pixel(x, y))
                    differing |= QRect(x, y, 1, 1);
            }
        }
        return differing;
    }

    /// Waits until nothing has been drawn for a while.
    void waitUntilStill() const
    {
        QSignalSpy frames(m_window->window(), &QQuickWindow::frameSwapped);
        do {
            frames.clear();
            QTest::qWait(40);
        } while (!frames.isEmpty());
    }
    QImage picture() const { return m_window->window()->grabWindow(); }
    /// Another background has the whole window drawn.
    QImage drawnAfresh() const
    {
        QQuickWindow *window = m_window->window();
        const QColor background = window->color();
        window->setColor(Qt::white);
        picture();
        window->setColor(background);
        return picture();
    }
};

QTEST_MAIN(RepaintTest)
#include "RepaintTest.moc"
