#include "support/WindowTesting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointingDevice>

using namespace Qt::StringLiterals;

/// The window under hands: the page scrolls, keys are short cuts, menus close, lists stay.
class HandsTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void aFreshPageScrollsByKeys()
    {
        makeThePageScroll();
        m_window->key(Qt::Key_Down);
        QCOMPARE(place(), 60.0);
        m_window->key(Qt::Key_PageDown);
        QVERIFY(place() > 500);
        m_window->key(Qt::Key_Home);
        QCOMPARE(place(), 0.0);
        m_window->key(Qt::Key_End);
        QVERIFY(place() > 500);
    }

    void aFingerDragsThePageAndAMouseDoesNot()
    {
        makeThePageScroll();
        // On the button of a popular route, which is not pressed by it.
        const QPoint from = m_window->itemsOfType("QuickRouteButton")
                                .constFirst()
                                ->mapToScene(QPointF(5, 5))
                                .toPoint();
        QTest::mousePress(m_window->window(), Qt::LeftButton, {}, from);
        for (int y = 30; y <= 300; y += 30)
            QTest::mouseMove(m_window->window(), from - QPoint(0, y));
        QTest::mouseRelease(m_window->window(), Qt::LeftButton, {}, from - QPoint(0, 300));
        QCOMPARE(place(), 0.0);

        const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
        const auto touch = [&] { return QTest::touchEvent(m_window->window(), finger.get()); };
        touch().press(0, from);
        for (int y = 30; y <= 300; y += 30) {
            QTest::qWait(20);
            touch().move(0, from - QPoint(0, y));
        }
        const qreal dragged = place();
        QVERIFY(dragged > 200);
        touch().release(0, from - QPoint(0, 300));
        // It goes on by itself for a while.
        QTRY_VERIFY(place() > dragged + 50);
        QVERIFY(questions().isEmpty());
    }

    void keysOfTheWindow()
    {
        for (const auto &[key, modifiers] :
             { std::pair(Qt::Key_F5, Qt::NoModifier), std::pair(Qt::Key_R, Qt::ControlModifier) }) {
            const qsizetype asked = questions().size();
            m_window->key(key, modifiers);
            QVERIFY(m_window->waitForSearch());
            QCOMPARE(questions().size(), asked + 2);
        }
        m_window->key(Qt::Key_F10);
        QTRY_COMPARE(m_window->focusedName(), u"Vantora Resmi Web Sitesi"_s);
        // A click beside the menu closes it and does nothing else.
        const qsizetype asked = questions().size();
        m_window->click(m_window->itemsOfType("QuickRouteButton").constFirst());
        QTRY_VERIFY(!m_window->called(u"Vantora Resmi Web Sitesi"_s));
        QCOMPARE(questions().size(), asked);
        m_window->key(Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!m_window->window()->isVisible());
    }

    void theKeyboardReachesBothEndsOfTheFlights()
    {
        m_answers.insert(flightsTool, flightsAnswer(40));
        m_window->key(Qt::Key_F5);
        QVERIFY(m_window->waitForSearch());
        m_window->layOut();
        m_window->itemsOfType("FlightList").constFirst()->forceActiveFocus(Qt::TabFocusReason);
        const auto focusedFlight = [this] {
            return m_window->focused()->property("flight").value<FlightOption>().flightNumber;
        };
        m_window->key(Qt::Key_End);
        QTRY_COMPARE(focusedFlight(), u"VQ139"_s);
        const qreal end = place();
        m_window->key(Qt::Key_PageUp);
        m_window->key(Qt::Key_PageUp);
        QTRY_VERIFY(place() < end);
        m_window->key(Qt::Key_Home);
        QTRY_COMPARE(focusedFlight(), u"VQ100"_s);
    }

    void aStripStaysWhereItWasDragged()
    {
        m_window->window()->resize(1080, 1200);
        m_window->layOut();
        QTRY_VERIFY(!m_window->itemsOfType("DayStrip").isEmpty());
        QQuickItem *tiles = m_window->itemsOfType("DayStrip").constLast();
        tiles->setProperty("contentX", 150);
        m_window->window()->resize(1081, 1200);
        m_window->layOut();
        QCOMPARE(tiles->property("contentX").toReal(), 150.0);
    }

    void listsDoNotComeAndGoWhileDaysAreClicked()
    {
        m_answers.insert(flightsTool, flightsAnswer(3).held());
        for (const QString &day : { u"2026-12-02"_s, u"2026-12-03"_s })
            m_window->viewModel()->startSelectCalendarDate(day);
        QTRY_COMPARE(m_server->heldCount(), 2);
        m_server->release();
        QTRY_VERIFY(!m_window->viewModel()->isSearchingFlightsOnly());
        QCOMPARE(m_window->itemsOfType("LoadingPanel").size(), 1);
        m_server->release();
        QTRY_VERIFY(m_window->itemsOfType("LoadingPanel").isEmpty());
    }

    void aTextFieldHasAMenu()
    {
        m_window->focus(u"originButton"_s);
        m_window->key(Qt::Key_Return);
        QTRY_COMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
        m_window->type(u"izmir"_s);
        const auto choose = [this](Qt::Key opener, Qt::KeyboardModifiers modifiers,
                                   const QString &entry) {
            m_window->key(opener, modifiers);
            QTRY_VERIFY(m_window->called(entry));
            QTRY_VERIFY(m_window->focused() != nullptr);
            for (int i = 0; i < 4 && m_window->focusedName() != entry; ++i)
                m_window->key(Qt::Key_Down);
            m_window->key(Qt::Key_Return);
            QTRY_COMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
        };
        choose(Qt::Key_Menu, Qt::NoModifier, u"Tümünü Seç"_s);
        choose(Qt::Key_F10, Qt::ShiftModifier, u"Kes"_s);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"izmir"_s);
        QCOMPARE(m_window->focused()->property("text").toString(), QString());
        const QPointF middle(m_window->focused()->width() / 2, 5);
        QTest::mouseClick(m_window->window(), Qt::RightButton, {},
                          m_window->focused()->mapToScene(middle).toPoint());
        QTRY_VERIFY(m_window->called(u"Yapıştır"_s));
        m_window->click(m_window->called(u"Yapıştır"_s));
        QTRY_COMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
        QCOMPARE(m_window->focused()->property("text").toString(), u"izmir"_s);
    }

private:
    void makeThePageScroll() const
    {
        m_window->window()->resize(1080, 720);
        QTRY_VERIFY(m_window->named(u"page"_s)->property("contentHeight").toReal() > 1400);
    }
    qreal place() const { return m_window->named(u"page"_s)->property("contentY").toReal(); }
};

QTEST_MAIN(HandsTest)
#include "HandsTest.moc"
