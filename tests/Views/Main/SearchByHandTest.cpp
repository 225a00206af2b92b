#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

/// A search set up as a hand does it, from the picker to the arguments that the server receives.
class SearchByHandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareApplication(); }
    void init();
    void cleanup();
    void wholeSearchByKeyboard();
    void pickerKeepsItsPromises();
    void buttonWaitsAndPopularRoutesDoNot();
    void oneWayForgetsTheReturn();

private:
    QQuickItem *item(const QString &objectName) const;
    void focus(const QString &objectName) const;
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_window->window(), key, modifiers);
    }
    void type(const char *text) const;
    /// Opens the picker with the keyboard on the button.
    void openPicker(const QString &button) const;
    bool isPickerOpen() const { return item(u"airportPicker"_s); }

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<TestWindow> m_window;
};

namespace {

QString dayFromToday(int days)
{
    return QDate::currentDate().addDays(days).toString(u"yyyy-MM-dd"_s);
}

} // namespace

void SearchByHandTest::init()
{
    m_server = std::make_unique<ScriptedServer>();
    m_server->onToolCall = [](const ReceivedRequest &request) {
        return ScriptedAnswer::content(request.tool() == u"search_flights" ? flightsContent(3)
                                                                           : calendarContent(14));
    };
    m_window = std::make_unique<TestWindow>(*m_server);
    QVERIFY(m_window->waitForSearch());
    m_window->window()->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(m_window->window()));
}

void SearchByHandTest::cleanup()
{
    m_window.reset();
    m_server.reset();
}

QQuickItem *SearchByHandTest::item(const QString &objectName) const
{
    return m_window->named(objectName);
}

void SearchByHandTest::focus(const QString &objectName) const
{
    QQuickItem *wanted = item(objectName);
    QVERIFY2(wanted, qPrintable(objectName));
    wanted->forceActiveFocus(Qt::TabFocusReason);
}

void SearchByHandTest::type(const char *text) const
{
    for (const char *letter = text; *letter; ++letter)
        QTest::keyClick(m_window->window(), *letter);
}

void SearchByHandTest::openPicker(const QString &button) const
{
    focus(button);
    key(Qt::Key_Return);
    QTRY_VERIFY(isPickerOpen());
    QTRY_VERIFY(qobject_cast<QQuickItem *>(m_window->window()->activeFocusItem())
                    ->property("text")
                    .isValid());
}

void SearchByHandTest::wholeSearchByKeyboard()
{
    const WarningCatcher catcher;
    openPicker(u"originButton"_s);
    type("izm");
    key(Qt::Key_Return);
    QTRY_VERIFY(!isPickerOpen());
    QCOMPARE(m_window->viewModel()->originCode(), u"ADB"_s);
    QTRY_COMPARE(m_window->window()->activeFocusItem(), item(u"originButton"_s));

    focus(u"swapButton"_s);
    key(Qt::Key_Space);
    QCOMPARE(m_window->viewModel()->originCode(), u"LHR"_s);

    m_window->itemsOfType("ChoiceButton").constFirst()->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Right);
    QVERIFY(m_window->viewModel()->isRoundTrip());

    QTRY_VERIFY(item(u"returnDate"_s));
    focus(u"returnDate"_s);
    key(Qt::Key_Space);
    QTRY_VERIFY(item(u"monthView"_s) && item(u"monthView"_s)->hasActiveFocus());
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    QTRY_VERIFY(!item(u"monthView"_s));

    focus(u"passengers"_s);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    QCOMPARE(m_window->viewModel()->passengers(), 3);

    focus(u"searchButton"_s);
    key(Qt::Key_Return);
    QVERIFY(m_window->waitForSearch());
    const QList<ReceivedRequest> calls = m_server->toolCalls();
    QCOMPARE(calls.size(), 4);
    QCOMPARE(calls.at(2).arguments(),
             QJsonObject({ { u"originAirportCode"_s, u"LHR"_s },
                           { u"destinationAirportCode"_s, u"ADB"_s },
                           { u"departureDate"_s, dayFromToday(14) },
                           { u"tripType"_s, u"ROUND_TRIP"_s },
                           { u"timeRange"_s, u"2_WEEKS"_s },
                           { u"cabinClass"_s, u"ECONOMY"_s },
                           { u"isReturnFlight"_s, false },
                           { u"stayDuration"_s, 14 } }));
    const QJsonObject adults { { u"passengerType"_s, u"ADT"_s }, { u"quantity"_s, 3 } };
    QCOMPARE(calls.at(3).arguments(),
             QJsonObject({ { u"from"_s, u"LHR"_s },
                           { u"to"_s, u"ADB"_s },
                           { u"departureDate"_s, dayFromToday(14) },
                           { u"returnDate"_s, dayFromToday(28) },
                           { u"tripType"_s, u"round"_s },
                           { u"passengers"_s, QJsonArray { adults } } }));
    QCOMPARE(WarningCatcher::warnings(), QStringList());
}

void SearchByHandTest::pickerKeepsItsPromises()
{
    openPicker(u"destinationButton"_s);
    // The current airport is in view and marked.
    const QList<QQuickItem *> rows = m_window->itemsOfType("AirportRowView");
    QVERIFY(std::any_of(rows.begin(), rows.end(),
                        [](QQuickItem *row) { return row->property("isSelected").toBool(); }));

    type("qqq");
    QTRY_VERIFY(item(u"noAirports"_s));
    key(Qt::Key_Return);
    QVERIFY(isPickerOpen());
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Backspace);
    QTRY_VERIFY(!item(u"noAirports"_s));
    type("lon");
    key(Qt::Key_Down);
    key(Qt::Key_Escape);
    QTRY_VERIFY(!isPickerOpen());
    QCOMPARE(m_window->viewModel()->destinationCode(), u"LHR"_s);

    // Every opening starts with an empty search.
    openPicker(u"destinationButton"_s);
    type("lon");
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    QTRY_VERIFY(!isPickerOpen());
    QCOMPARE(m_window->viewModel()->destinationCode(), u"LGW"_s);
    QCOMPARE(m_server->toolCalls().size(), 2);
}

void SearchByHandTest::buttonWaitsAndPopularRoutesDoNot()
{
    m_server->onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::content().held(); };
    QQuickItem *button = item(u"searchButton"_s);
    m_window->click(button);
    QTRY_COMPARE(m_server->heldCount(), 2);
    QVERIFY(!button->isEnabled());
    m_window->click(button);

    // Tab goes on from the button that waits.
    for (int route = 0; route < 3; ++route) {
        QTest::keyClick(m_window->window(), Qt::Key_Tab);
        QCOMPARE(m_window->window()->activeFocusItem(),
                 m_window->itemsOfType("QuickRouteButton").at(route));
    }
    QTest::keyClick(m_window->window(), Qt::Key_Return);
    QTRY_COMPARE(m_server->heldCount(), 4);
    QCOMPARE(m_window->viewModel()->originCode(), u"SAW"_s);
    QCOMPARE(m_server->toolCalls().constLast().arguments().value(u"to").toString(), u"AYT"_s);
    while (m_server->heldCount() > 0)
        m_server->release();
    QTRY_VERIFY(button->isEnabled());
}

void SearchByHandTest::oneWayForgetsTheReturn()
{
    m_window->viewModel()->setTripType(TripType::roundTrip);
    QTRY_VERIFY(item(u"returnDate"_s));
    m_window->viewModel()->setTripType(TripType::oneWay);
    QTRY_VERIFY(!item(u"returnDate"_s));
    m_window->click(item(u"searchButton"_s));
    QVERIFY(m_window->waitForSearch());
    QVERIFY(!m_server->toolCalls().constLast().arguments().contains(u"returnDate"));
}

QTEST_MAIN(SearchByHandTest)
#include "SearchByHandTest.moc"
