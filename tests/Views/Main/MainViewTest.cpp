#include "support/WindowTesting.h"

#include <QClipboard>
#include <QRegion>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// The whole window: what a click does, what shows when.
class MainViewTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void aNewOrderMovesCards()
    {
        // All three are in view.
        m_window->window()->resize(1280, 1500);
        QTRY_COMPARE(shownFlights(), u"VQ100 VQ101 VQ102"_s);
        const QList<QQuickItem *> cards = m_window->itemsOfType("FlightCardView");
        m_window->viewModel()->applyFilter(FlightSortOption::fastest);
        QTRY_COMPARE(shownFlights(), u"VQ102 VQ101 VQ100"_s);
        // The same items in other places: nothing was built anew.
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView"))
            QVERIFY(cards.contains(card));
    }

    void longTextsFitTheSmallestWindow()
    {
        const QString text = u"Afyonkarahisar-Kütahya, Zafer Havalimanı "_s.repeated(8);
        // One of the longest names.
        m_window->viewModel()->setOriginCode(u"CPT"_s);
        m_window->viewModel()->setDestinationCode(u"CPT"_s);
        m_window->viewModel()->setTripType(TripType::roundTrip);
        find(flightsAnswer({ { text, 987'654'321.0, u"2026-12-05T23:55"_s, 99'999 } }));
        failToFind(text);
        m_window->window()->resize(m_window->window()->minimumSize());
        waitForTheCalendar();
        expectTextsInPlace({ "HeaderBar", "IntroView", "FlightSearchCardView", "ErrorBanner",
                             "CalendarBarColumn", "CalendarTileView", "FlightCardView" });

        QJsonObject status = knownAnswers()[statusTool]["flightData"_L1].toObject();
        for (QJsonValueRef field : status)
            field = text;
        m_answers.insert(statusTool, ScriptedAnswer::content({ { u"flightData"_s, status } }));
        pressAccessibly(m_window->named(u"flightStatusButton"_s));
        QTRY_VERIFY(m_window->isOpen(u"flightStatusSheet"_s));
        m_window->press("Return");
        QTRY_VERIFY(m_window->named(u"statusResultCard"_s));
        expectTextsInPlace({ "StatusResultCard" });
    }

    void anErrorIsSeenFromTheFlightsAndMovesNothing()
    {
        findAndScroll();
        QQuickItem *card = m_window->itemsOfType("FlightCardView").constLast();
        const qreal before = card->mapToScene({}).y();
        QVERIFY(!m_window->named(u"errorStrip"_s));
        QCOMPARE(m_window->count("ErrorBanner"), 0);

        const QString reason = u"Bakımdayız. "_s.repeated(80).trimmed();
        failToFind(reason);
        QTRY_COMPARE(m_window->item(u"errorSlot"_s)->property("openness"), 1.0);
        m_window->layOut();
        QCOMPARE(card->mapToScene({}).y(), before);
        QVERIFY(resultsText().contains(u"önceki aramaya ait: IST–LHR"));

        QQuickItem *strip = m_window->named(u"errorStrip"_s);
        QCOMPARE(m_window->textIn(strip).right(reason.size()), reason);
        QTRY_VERIFY(strip->y() > 0);
        pressAccessibly(strip);
        QTRY_VERIFY(!m_window->named(u"errorStrip"_s));
        const QString message = u"Seçilen tarih (2026-12-02) için uçuşlar yüklenemedi: "_s + reason;
        QQuickItem *banner = m_window->called(message);
        QVERIFY(banner);
        const qreal top = banner->mapToItem(page(), QPointF()).y();
        QVERIFY2(top >= 0 && top < page()->height() - 40, qPrintable(QString::number(top)));
        QCOMPARE(accessible(banner)->role(), QAccessible::AlertMessage);
        QCOMPARE(m_window->textIn(banner), message);

        const qreal fourLines = banner->height();
        pressAccessibly(m_window->called(u"İletinin tümünü göster"_s));
        QTRY_VERIFY(banner->height() > fourLines + 30);
        pressAccessibly(m_window->called(u"İletiyi kopyala"_s));
        QCOMPARE(QGuiApplication::clipboard()->text(), message);
    }

    void everyCardEndsInItsPlace()
    {
        // The order changes in mid-motion; the list, too, becomes shorter or longer.
        for (const int countAfterwards : { 40, 9, 80 }) {
            find(flightsAnswer(40));
            scrollToTheEnd();
            m_answers.insert(flightsTool, flightsAnswer(countAfterwards));
            m_window->viewModel()->startSelectCalendarDate(u"2026-12-03"_s);
            QVERIFY(m_window->waitForSearch());
            for (const auto order : { FlightSortOption::fastest, FlightSortOption::cheapest,
                                      FlightSortOption::fastest }) {
                m_window->viewModel()->applyFilter(order);
                QTest::qWait(60);
            }
            QTRY_VERIFY(hasAllCardsInView());
        }
    }

    void aFineWheelScrollsAsFarBothWays()
    {
        findAndScroll();
        // As on a screen that is too small.
        page()->setProperty("leastWidth", 2000);
        const QPointF pointer(400, 400);
        for (const auto &[place, turn] :
             { std::pair("contentY", QPoint(0, 1)), { "contentX", QPoint(-1, 0) } }) {
            const auto turnWheel = [&, step = turn](int direction) {
                for (int i = 0; i < 60; ++i) {
                    QWheelEvent wheel(pointer, m_window->window()->mapToGlobal(pointer), {},
                                      direction * step, Qt::NoButton, {}, Qt::NoScrollPhase, false);
                    QCoreApplication::sendEvent(m_window->window(), &wheel);
                }
            };
            const qreal before = page()->property(place).toReal();
            turnWheel(1);
            // 60 eighths of a degree are half a notch of the wheel.
            QCOMPARE(qAbs(page()->property(place).toReal() - before), 40.0);
            turnWheel(-1);
            QCOMPARE(page()->property(place).toReal(), before);
        }
    }

    void thePageAndTheListStayWhileDaysLoad()
    {
        const qreal before = findAndScroll();
        QVERIFY(before > 1000);
        m_answers.insert(flightsTool, flightsAnswer(20).held());
        for (const QString &day : { u"2026-12-02"_s, u"2026-12-03"_s })
            m_window->viewModel()->startSelectCalendarDate(day);
        QTRY_COMPARE(m_server->heldCount(), 2);
        QCOMPARE(m_window->count("LoadingPanel"), 1);
        m_window->layOut();
        QCOMPARE(place(), before);
        // The first end shows the flights, with a note while they are not those of the chosen day.
        m_server->release();
        QTRY_COMPARE(m_window->count("LoadingPanel"), 0);
        QVERIFY(!m_window->viewModel()->isSearchingFlightsOnly());
        QTRY_VERIFY(!shownFlights().isEmpty());
        const QString note = u"önceki aramaya ait: IST–LHR, 2026-12-02"_s;
        QVERIFY2(resultsText().contains(note), qPrintable(resultsText()));
        m_server->release();
        QTRY_VERIFY2(!resultsText().contains(note), qPrintable(resultsText()));
        m_window->layOut();
        QCOMPARE(place(), before);
    }

    void thePageStaysWhenTheKeyboardComesBack()
    {
        m_window->focus(u"searchButton"_s);
        const qreal before = findAndScroll();
        QWindow other;
        other.show();
        other.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        m_window->window()->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(m_window->window()));
        QCOMPARE(m_window->focused(), m_window->named(u"searchButton"_s));
        waitUntilStill();
        QCOMPARE(place(), before);
        // The user's own move is followed.
        m_window->press("Tab");
        QTRY_VERIFY(place() < 500);
    }

    /// The software renderer draws only what changed since the frame before.
    void aScrollLeavesNoOldPixels()
    {
        find(ScriptedAnswer::failure(u"Deneme hatası."_s));
        waitForTheCalendar();
        for (int height = 720; height <= 900; height += 20) {
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
                QVERIFY2(shown == drawnAfresh(),
                         qPrintable(u"There are old pixels after %1, height %2."_s
                                        .arg(QLatin1StringView(key))
                                        .arg(height)));
            }
        }
    }

private:
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
    void failToFind(const QString &reason)
    {
        m_answers.insert(flightsTool, ScriptedAnswer::failure(reason));
        m_window->viewModel()->startSelectCalendarDate(u"2026-12-02"_s);
        QVERIFY(m_window->waitForSearch());
    }
    /// No text leaves its view or covers another.
    void expectTextsInPlace(std::initializer_list<const char *> types) const
    {
        m_window->layOut();
        for (const char *type : types) {
            QVERIFY2(m_window->count(type) > 0, type);
            for (QQuickItem *view : m_window->itemsOfType(type)) {
                QRegion covered;
                for (QQuickItem *text : TestWindow::itemsIn(view, isText)) {
                    const QRectF place = text->mapRectToItem(view, text->boundingRect());
                    const QRect inner = place.adjusted(0.5, 0.5, -0.5, -0.5).toRect();
                    QVERIFY2(view->boundingRect().contains(place) && !covered.intersects(inner),
                             qPrintable(text->property("text").toString()));
                    covered += inner;
                }
            }
        }
    }
    /// To the end of a long page, the place of which it returns.
    qreal findAndScroll()
    {
        find(flightsAnswer(20));
        waitForTheCalendar();
        scrollToTheEnd();
        return place();
    }
    void scrollToTheEnd() const
    {
        m_window->layOut();
        QMetaObject::invokeMethod(page(), "scrollTo", Q_ARG(double, 1e9));
    }
    QQuickItem *page() const { return m_window->named(u"page"_s); }
    static FlightOption flightOf(QQuickItem *card)
    {
        return card->property("flight").value<FlightOption>();
    }
    QString resultsText() const { return m_window->textOf(u"flightResults"_s); }
    QString shownFlights() const
    {
        QMultiMap<qreal, QString> numbers;
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView"))
            numbers.insert(card->y(), flightOf(card).flightNumber);
        return numbers.values().join(u' ');
    }
    /// Whether every part of the list in view has its card, fully opaque.
    bool hasAllCardsInView() const
    {
        const double pitch = m_window->item(u"FlightList"_s)->property("cardPitch").toDouble();
        const QList<FlightOption> &flights = m_window->viewModel()->filteredFlights();
        QSet<qsizetype> shown;
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView")) {
            const qsizetype row = flights.indexOf(flightOf(card));
            if (row >= 0 && card->y() == double(row) * pitch && card->opacity() == 1)
                shown.insert(row);
        }
        const double top = m_window->item(u"FlightList"_s)->mapToItem(page(), QPointF()).y();
        for (qsizetype row = 0; row < flights.size(); ++row) {
            const double y = top + double(row) * pitch;
            if (y > -pitch && y < page()->height() && !shown.contains(row))
                return false;
        }
        return !shown.isEmpty();
    }
};

QTEST_MAIN(MainViewTest)
#include "MainViewTest.moc"
