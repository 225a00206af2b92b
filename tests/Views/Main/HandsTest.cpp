#include "support/WindowTesting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointingDevice>

using namespace Qt::StringLiterals;

/// The window used by keyboard alone and by assistive technology. What is said by itself,
/// and what every control and panel tells, tools/walk-screen-reader tries: this platform sends no
/// events.
class HandsTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void aFreshPageScrollsByKeysAndFingerAlone()
    {
        m_window->window()->resize(1080, 720);
        QTRY_VERIFY(m_window->named(u"page"_s)->property("contentHeight").toReal() > 1400);
        m_window->press("Down");
        QCOMPARE(place(), 60.0);
        m_window->press("PgDown");
        QVERIFY(place() > 500);
        m_window->press("End Home");
        QCOMPARE(place(), 0.0);

        // On the button of a popular route, which is not pressed by it.
        QQuickItem *button = m_window->item(u"QuickRouteButton"_s);
        const QPoint from = button->mapToScene(QPointF(5, 5)).toPoint();
        m_window->drag(from, QPoint(0, -300));
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
        QTRY_VERIFY(place() > dragged);
        QVERIFY(questions().isEmpty());
    }

    void keysOfTheWindow()
    {
        for (const char *key : { "F5", "Ctrl+R" }) {
            const qsizetype asked = questions().size();
            m_window->press(key);
            QVERIFY(m_window->waitForSearch());
            QCOMPARE(questions().size(), asked + 2);
        }
        const auto expectMenu = [this](bool isOpen) {
            QTRY_COMPARE(m_window->called(u"Vantora MCP Sunucusu"_s) != nullptr, isOpen);
        };
        // What opens it closes it, too.
        for (const bool isOpen : { true, false }) {
            m_window->press("F10");
            expectMenu(isOpen);
        }
        for (const bool isOpen : { true, false }) {
            m_window->click(m_window->called(u"Yardım"_s));
            expectMenu(isOpen);
        }
        // A click beside the menu closes it and does nothing else.
        m_window->press("F10");
        QTRY_COMPARE(m_window->focusedName(), u"Vantora Resmi Web Sitesi"_s);
        m_window->click(m_window->item(u"QuickRouteButton"_s));
        expectMenu(false);
        QCOMPARE(questions().size(), 4);

        for (const bool byKeys : { false, true }) {
            m_window->press("Alt+Y");
            expectMenu(true);
            if (byKeys)
                m_window->press("Down Return");
            else
                pressAccessibly(m_window->called(u"Vantora Resmi Web Sitesi"_s));
            expectMenu(false);
        }
        QTRY_COMPARE(m_opened,
                     QStringList({ u"https://www.vantora-air.example"_s,
                                   u"https://mcp.vantora-air.example/"_s }));
        m_window->press("Ctrl+W");
        QVERIFY(!m_window->window()->isVisible());
    }

    void aStripStaysWhereItWasDragged()
    {
        m_answers.insert(calendarTool, calendarAnswer(100));
        find(flightsAnswer(3));
        waitForTheCalendar();
        QQuickItem *strip = m_window->item(u"DayStrip"_s);
        QMetaObject::invokeMethod(strip, "positionViewAtBeginning");
        const QPoint from = strip->mapToScene(QPointF(600, 280)).toPoint();
        m_window->drag(from, QPoint(-120, 0));
        QTRY_VERIFY(!strip->property("moving").toBool());
        const qreal dragged = strip->property("contentX").toReal();
        QCOMPARE_GT(dragged, 50.0);
        m_window->window()->resize(1281, 1200);
        m_window->layOut();
        QTest::qWait(0);
        QCOMPARE(strip->property("contentX").toReal(), dragged);
        QCOMPARE(questions().size(), 2);
    }

    void aTextFieldHasAMenu()
    {
        const QString field = u"Havalimanı ara"_s;
        m_window->press("Return", u"originButton"_s);
        QTRY_COMPARE(m_window->focusedName(), field);
        m_window->type(u"izmir"_s);
        for (const auto &[opener, entry] :
             { std::pair("Menu", u"Tümünü Seç"_s), std::pair("Shift+F10", u"Kes"_s) }) {
            m_window->press(opener);
            QTRY_VERIFY(m_window->called(entry));
            QTRY_VERIFY(m_window->focused() != nullptr);
            for (int i = 0; i < 4 && m_window->focusedName() != entry; ++i)
                m_window->press("Down");
            m_window->press("Return");
            QTRY_COMPARE(m_window->focusedName(), field);
        }
        QCOMPARE(QGuiApplication::clipboard()->text(), u"izmir"_s);
        QCOMPARE(m_window->focused()->property("text").toString(), QString());
        const QPointF middle(m_window->focused()->width() / 2, 5);
        QTest::mouseClick(m_window->window(), Qt::RightButton, {},
                          m_window->focused()->mapToScene(middle).toPoint());
        QTRY_VERIFY(m_window->called(u"Yapıştır"_s));
        m_window->click(m_window->called(u"Yapıştır"_s));
        QTRY_COMPARE(m_window->focusedName(), field);
        QCOMPARE(m_window->focused()->property("text").toString(), u"izmir"_s);
    }

    void aSheetHidesWhatLiesBehind()
    {
        const QString route = u"IST → JFK uçuşlarını ara"_s;
        const QString day = u"4 Ara Cuma, 4300 TRY"_s;
        QTRY_VERIFY(m_window->told(day));
        const QList<QAccessibleInterface *> behind { m_window->told(route), m_window->told(day) };
        QVERIFY(m_window->open(u"flightStatusButton"_s, u"flightStatusSheet"_s));
        QVERIFY(m_window->told(u"Canlı Uçuş Durumu Takibi"_s)->state().modal);
        QVERIFY(!m_window->told(route));
        QVERIFY(!m_window->told(day));
        // Assistive technology that has kept them cannot press them, and clicks beside the sheet or
        // on a button behind it do nothing.
        for (QAccessibleInterface *node : behind)
            pressAccessibly(node);
        QTest::mouseClick(m_window->window(), Qt::LeftButton, {}, QPoint(30, 600));
        m_window->click(m_window->named(u"cityGuideButton"_s));
        QVERIFY(m_window->isOpen(u"flightStatusSheet"_s));
        QVERIFY(m_window->isGone(u"cityGuideSheet"_s));
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(questions().size(), 0);

        // A menu over the sheet hides the sheet.
        pressAccessibly(m_window->told(u"Uçuş günü"_s));
        QTRY_VERIFY(m_window->told(u"Takvim"_s));
        QVERIFY(!m_window->told(u"Sorgula"_s));
        m_window->press("Esc");
        QTRY_VERIFY(m_window->told(u"Sorgula"_s));
        m_window->press("Esc");
        QTRY_VERIFY(m_window->told(route));
        pressAccessibly(behind.constFirst());
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(questions().size(), 2);
    }

    void listsTellAllTheirRows()
    {
        find(flightsAnswer(10'000));
        QTRY_VERIFY(m_window->told(u"Uçuşlar"_s));
        QAccessibleInterface *flights = m_window->told(u"Uçuşlar"_s);
        QTRY_COMPARE(flights->childCount(), 10'000);
        QAccessibleInterface *last = flights->child(9999);
        QVERIFY(last->text(QAccessible::Name).startsWith(u"VQ10099"));
        QCOMPARE(last->role(), QAccessible::ListItem);
        QCOMPARE(flights->indexOfChild(last), 9999);

        // The arrows go on from where assistive technology went.
        focusAccessibly(flights->child(500));
        QVERIFY(flights->child(500)->state().focused);
        m_window->press("Down Return");
        QVERIFY(flights->child(501)->state().focused);
        // These flights have no link of their own. However they are pressed, a page opens once in a
        // second.
        for (int i = 0; i < 20; ++i) {
            pressAccessibly(last);
            m_window->press("Return");
            m_window->click(m_window->called(u"VTR'de Satın Al"_s));
        }
        QCOMPARE(m_opened, QStringList(u"https://www.vantora-air.example"_s));
        QTest::qWait(1100);
        m_window->press("Return");
        QCOMPARE(m_opened, QStringList(2, u"https://www.vantora-air.example"_s));
        m_window->press("End");
        QTRY_VERIFY(last->state().focused);
        const qreal end = place();
        m_window->press("PgUp PgUp");
        QTRY_VERIFY(place() < end);
        // Only the cards in view exist.
        QVERIFY(m_window->count("FlightCardView") < 40);
        m_window->press("Home");
        QTRY_VERIFY(flights->child(0)->state().focused);

        // Days in their order, once.
        QAccessibleInterface *days = m_window->told(u"Günler"_s);
        QCOMPARE(days->childCount(), 14);
        focusAccessibly(days->child(3));
        m_window->press("Right");
        QVERIFY(m_window->told(u"5 Ara Cumartesi, 4400 TRY"_s)->state().focused);
        pressAccessibly(days->child(3));
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-04"_s);
        QVERIFY(days->child(3)->state().selected);
        QVERIFY(m_window->waitForSearch());
    }

    void tabReachesEveryControlOnceAndReturns()
    {
        QTRY_COMPARE(m_window->count("FlightCardView"), 3);
        QTRY_COMPARE(m_window->count("BestPriceBadge"), 1);
        m_window->press("Tab");
        QList<QQuickItem *> visited;
        do {
            QQuickItem *item = m_window->focused();
            QVERIFY2(!visited.contains(item),
                     qPrintable(u"Tab comes twice to "_s + accessibleName(item)));
            QVERIFY2(item->isVisible() && item->isEnabled(), qPrintable(accessibleName(item)));
            visited.append(item);
            m_window->press("Tab");
        } while (m_window->focused() != visited.constFirst());
        // The days, the chips and the cards are one stop each.
        QCOMPARE_LT(visited.size(), 30);

        // And back again by the same way.
        while (!visited.isEmpty()) {
            m_window->press("Shift+Backtab");
            QCOMPARE(m_window->focused(), visited.takeLast());
        }
    }
};

QTEST_MAIN(HandsTest)
#include "HandsTest.moc"
