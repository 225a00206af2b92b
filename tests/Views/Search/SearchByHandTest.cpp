#include "Models/AirportDatabase.h"
#include "support/ParsedJson.h"
#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

/// A search set up as a hand does it, from the picker to the arguments that the server receives.
class SearchByHandTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void wholeSearchByKeyboard()
    {
        choose(u"originButton"_s, u"izm"_s, "Return");
        QTRY_COMPARE(m_window->focused(), m_window->named(u"originButton"_s));
        m_window->press("Space", u"swapButton"_s);
        m_window->press("Right", u"ChoiceButton"_s);
        QTRY_VERIFY(m_window->named(u"returnDate"_s));
        m_window->press("Space", u"returnDate"_s);
        QTRY_VERIFY(m_window->named(u"monthView"_s));
        QTRY_VERIFY(m_window->named(u"monthView"_s)->hasActiveFocus());
        m_window->press("Down Return");
        QTRY_VERIFY(!m_window->named(u"monthView"_s));
        for (const QString &menu :
             { u"cabinClass"_s, u"timeRange"_s, u"passengers"_s, u"passengers"_s })
            m_window->press("Down", menu);
        m_window->press("Return", u"searchButton"_s);
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(questions().size(), 2);
        const QString calendarArguments = uR"({
            "originAirportCode": "LHR", "destinationAirportCode": "ADB", "departureDate": "%1",
            "tripType": "ROUND_TRIP", "timeRange": "3_WEEKS", "cabinClass": "BUSINESS",
            "isReturnFlight": false, "stayDuration": 14 })"_s.arg(inDays(14));
        QCOMPARE(questions().at(0).arguments(), parsed(calendarArguments.toUtf8()));
        const QString flightsArguments = uR"({
            "from": "LHR", "to": "ADB", "departureDate": "%1", "returnDate": "%2",
            "tripType": "round", "passengers": [{ "passengerType": "ADT", "quantity": 3 }] })"_s
                                             .arg(inDays(14), inDays(28));
        QJsonObject arguments = parsed(flightsArguments.toUtf8());
        QCOMPARE(questions().at(1).arguments(), arguments);
        // The button was disabled meanwhile; it keeps the keyboard and its ring.
        QTRY_COMPARE(m_window->focused(), m_window->named(u"searchButton"_s));
        QVERIFY(m_window->focused()->property("visualFocus").toBool());

        // One way forgets the return.
        m_window->itemsOfType("ChoiceButton").at(1)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press("Left");
        QTRY_VERIFY(!m_window->named(u"returnDate"_s));
        m_window->click(m_window->named(u"searchButton"_s));
        QVERIFY(m_window->waitForSearch());
        arguments.remove(u"returnDate"_s);
        arguments.insert(u"tripType"_s, u"one_way"_s);
        QCOMPARE(questions().at(3).arguments(), arguments);
    }

    void pickerKeepsItsPromises()
    {
        openPicker(u"destinationButton"_s);
        // The current airport is in view and marked.
        int marked = 0;
        for (QQuickItem *row : m_window->itemsOfType("AirportRowView"))
            marked += row->property("isSelected").toBool();
        QCOMPARE(marked, 1);

        m_window->type(u"<b>"_s);
        QTRY_VERIFY(m_window->named(u"noAirports"_s));
        m_window->press("Return Tab");
        QCOMPARE(m_window->focusedName(), u"Metni temizle"_s);
        m_window->press("Space");
        QCOMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
        QTRY_VERIFY(!m_window->named(u"noAirports"_s));
        // The rows are told, and marked while the keyboard stays in the field.
        m_window->type(u"lon"_s);
        QAccessibleInterface *field = accessible(m_window->focused());
        QCOMPARE(field->textInterface()->text(0, 3), u"lon"_s);
        QAccessibleInterface *rows = m_window->told(u"Havalimanları"_s);
        m_window->press("Down");
        QVERIFY(rows->child(1)->state().focused);
        m_window->press("Backspace");
        QVERIFY(field->state().focused && !rows->child(0)->state().focused);
        m_window->press("Esc");
        QTRY_VERIFY(!isPickerOpen());
        QCOMPARE(m_window->viewModel()->destinationCode(), u"LHR"_s);

        // Every opening starts with an empty search.
        choose(u"destinationButton"_s, u"lon"_s, "Down Return");
        QCOMPARE(m_window->viewModel()->destinationCode(), u"LGW"_s);
        openPicker(u"destinationButton"_s);
        rows = m_window->told(u"Havalimanları"_s);
        QCOMPARE(rows->childCount(), int(AirportDatabase::allAirports().size()));
        focusAccessibly(rows->child(0));
        QVERIFY(rows->child(0)->state().focused);
        pressAccessibly(rows->child(1));
        QTRY_VERIFY(!isPickerOpen());
        QCOMPARE(m_window->viewModel()->destinationCode(), u"SAW"_s);
        QVERIFY(questions().isEmpty());
    }

    void buttonWaitsAndPopularRoutesDoNot()
    {
        m_answers = { { calendarTool, calendarAnswer().held() },
                      { flightsTool, flightsAnswer(3).held() } };
        QQuickItem *button = m_window->named(u"searchButton"_s);
        const qreal width = button->width();
        m_window->press("Return Return", u"searchButton"_s);
        m_window->click(button);
        pressAccessibly(button);
        QTRY_COMPARE(m_server->heldCount(), 2);
        QVERIFY(!button->isEnabled());
        QCOMPARE(accessibleName(button), u"Aranıyor..."_s);
        QCOMPARE(button->width(), width);

        // Tab goes on from the button that waits.
        for (int route = 0; route < 3; ++route) {
            m_window->press("Tab");
            QCOMPARE(m_window->focused(), m_window->itemsOfType("QuickRouteButton").at(route));
        }
        m_window->press("Return");
        QTRY_COMPARE(m_server->heldCount(), 4);
        QVERIFY(!button->isEnabled());
        QCOMPARE(m_window->viewModel()->originCode(), u"SAW"_s);
        QCOMPARE(questions().constLast().arguments().value("to"_L1).toString(), u"AYT"_s);
        while (m_server->heldCount() > 0)
            m_server->release();
        QTRY_VERIFY(button->isEnabled());
        QCOMPARE(questions().size(), 4);
    }

private:
    static QString inDays(int days)
    {
        return QDate::currentDate().addDays(days).toString(Qt::ISODate);
    }
    bool isPickerOpen() const { return m_window->named(u"airportPicker"_s); }
    /// Opens the picker with the keyboard on the button.
    void openPicker(const QString &button) const
    {
        m_window->press("Return", button);
        QTRY_COMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
    }
    void choose(const QString &button, const QString &query, const char *keys) const
    {
        openPicker(button);
        m_window->type(query);
        m_window->press(keys);
        QTRY_VERIFY(!isPickerOpen());
    }
};

QTEST_MAIN(SearchByHandTest)
#include "SearchByHandTest.moc"
