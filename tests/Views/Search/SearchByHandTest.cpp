#include "support/WindowTesting.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QString &json) { return QJsonDocument::fromJson(json.toUtf8()).object(); }

} // namespace

/// A search set up as a hand does it, from the picker to the arguments that the server receives.
class SearchByHandTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void wholeSearchByKeyboard()
    {
        const QString departure = QDate::currentDate().addDays(14).toString(Qt::ISODate);
        const QString homecoming = QDate::currentDate().addDays(28).toString(Qt::ISODate);
        openPicker(u"originButton"_s);
        m_window->type(u"izm"_s);
        m_window->key(Qt::Key_Return);
        QTRY_VERIFY(!isPickerOpen());
        QCOMPARE(m_window->viewModel()->originCode(), u"ADB"_s);
        QTRY_COMPARE(m_window->focused(), m_window->named(u"originButton"_s));

        m_window->focus(u"swapButton"_s);
        m_window->key(Qt::Key_Space);
        QCOMPARE(m_window->viewModel()->originCode(), u"LHR"_s);

        m_window->itemsOfType("ChoiceButton").constFirst()->forceActiveFocus(Qt::TabFocusReason);
        m_window->key(Qt::Key_Right);
        QVERIFY(m_window->viewModel()->isRoundTrip());
        QTRY_VERIFY(m_window->named(u"returnDate"_s));
        m_window->focus(u"returnDate"_s);
        m_window->key(Qt::Key_Space);
        QTRY_VERIFY(m_window->named(u"monthView"_s));
        QTRY_VERIFY(m_window->named(u"monthView"_s)->hasActiveFocus());
        m_window->key(Qt::Key_Down);
        m_window->key(Qt::Key_Return);
        QTRY_VERIFY(!m_window->named(u"monthView"_s));

        for (const QString &menu :
             { u"cabinClass"_s, u"timeRange"_s, u"passengers"_s, u"passengers"_s }) {
            m_window->focus(menu);
            m_window->key(Qt::Key_Down);
        }
        m_window->focus(u"searchButton"_s);
        m_window->key(Qt::Key_Return);
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(questions().size(), 2);
        const QJsonObject calendarArguments = parsed(uR"({
            "originAirportCode": "LHR", "destinationAirportCode": "ADB", "departureDate": "%1",
            "tripType": "ROUND_TRIP", "timeRange": "3_WEEKS", "cabinClass": "BUSINESS",
            "isReturnFlight": false, "stayDuration": 14 })"_s.arg(departure));
        QCOMPARE(questions().at(0).arguments(), calendarArguments);
        QJsonObject arguments = parsed(uR"({
            "from": "LHR", "to": "ADB", "departureDate": "%1", "returnDate": "%2",
            "tripType": "round", "passengers": [{ "passengerType": "ADT", "quantity": 3 }] })"_s
                                           .arg(departure, homecoming));
        QCOMPARE(questions().at(1).arguments(), arguments);
        // The button was disabled meanwhile; it keeps the keyboard and its ring.
        QTRY_COMPARE(m_window->focused(), m_window->named(u"searchButton"_s));
        QVERIFY(m_window->focused()->property("visualFocus").toBool());

        // One way forgets the return.
        m_window->itemsOfType("ChoiceButton").at(1)->forceActiveFocus(Qt::TabFocusReason);
        m_window->key(Qt::Key_Left);
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
        const QList<QQuickItem *> rows = m_window->itemsOfType("AirportRowView");
        QVERIFY(std::any_of(rows.begin(), rows.end(),
                            [](QQuickItem *row) { return row->property("isSelected").toBool(); }));

        m_window->type(u"<b>"_s);
        QTRY_VERIFY(m_window->named(u"noAirports"_s));
        m_window->key(Qt::Key_Return);
        QVERIFY(isPickerOpen());
        m_window->key(Qt::Key_Tab);
        QCOMPARE(m_window->focusedName(), u"Metni temizle"_s);
        m_window->key(Qt::Key_Space);
        QCOMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
        QTRY_VERIFY(!m_window->named(u"noAirports"_s));
        m_window->type(u"lon"_s);
        m_window->key(Qt::Key_Down);
        m_window->key(Qt::Key_Escape);
        QTRY_VERIFY(!isPickerOpen());
        QCOMPARE(m_window->viewModel()->destinationCode(), u"LHR"_s);

        // Every opening starts with an empty search.
        openPicker(u"destinationButton"_s);
        m_window->type(u"lon"_s);
        m_window->key(Qt::Key_Down);
        m_window->key(Qt::Key_Return);
        QTRY_VERIFY(!isPickerOpen());
        QCOMPARE(m_window->viewModel()->destinationCode(), u"LGW"_s);
        QVERIFY(questions().isEmpty());
    }

    void buttonWaitsAndPopularRoutesDoNot()
    {
        m_answers = { { calendarTool, calendarAnswer().held() },
                      { flightsTool, flightsAnswer(3).held() } };
        QQuickItem *button = m_window->named(u"searchButton"_s);
        const qreal width = button->width();
        m_window->focus(u"searchButton"_s);
        m_window->key(Qt::Key_Return);
        m_window->key(Qt::Key_Return);
        m_window->click(button);
        pressAccessibly(button);
        QTRY_COMPARE(m_server->heldCount(), 2);
        QVERIFY(!button->isEnabled());
        QCOMPARE(accessibleName(button), u"Aranıyor..."_s);
        QCOMPARE(button->width(), width);

        // Tab goes on from the button that waits.
        for (int route = 0; route < 3; ++route) {
            m_window->key(Qt::Key_Tab);
            QCOMPARE(m_window->focused(), m_window->itemsOfType("QuickRouteButton").at(route));
        }
        m_window->key(Qt::Key_Return);
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
    bool isPickerOpen() const { return m_window->named(u"airportPicker"_s); }
    /// Opens the picker with the keyboard on the button.
    void openPicker(const QString &button) const
    {
        m_window->focus(button);
        m_window->key(Qt::Key_Return);
        QTRY_VERIFY(isPickerOpen());
        QTRY_COMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
    }
};

QTEST_MAIN(SearchByHandTest)
#include "SearchByHandTest.moc"
