#include "Models/AirportDatabase.h"
#include "inspect/SeenTexts.h"
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
        m_window->press("Right", u"RadioButton"_s);
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
        QCOMPARE(questions().at(1).arguments(), parsed(flightsArguments.toUtf8()));
        // The button was disabled meanwhile; it keeps the keyboard and its ring.
        QTRY_COMPARE(m_window->focused(), m_window->named(u"searchButton"_s));
        QVERIFY(m_window->focused()->property("visualFocus").toBool());
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
        m_window->press("End");
        QVERIFY(rows->child(rows->childCount() - 1)->state().focused);
        m_window->press("Home");
        QVERIFY(rows->child(0)->state().focused);
        m_window->press("Backspace");
        QVERIFY(field->state().focused);
        QVERIFY(!rows->child(0)->state().focused);
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

    void everyChoiceAsSeenAndAsSent()
    {
        // In which order the choices come, and what each is on the wire.
        using Choices = QList<std::pair<QString, QJsonValue>>;
        const auto tryAll = [this](const QString &menu, const QString &tool,
                                   const QString &argument, const Choices &choices) {
            QStringList titles;
            for (const auto &choice : choices)
                titles.append(choice.first);
            for (const auto &[title, sent] : choices) {
                m_window->click(m_window->named(menu));
                QTRY_COMPARE(seenLines(m_window->window()).join(u'|'), titles.join(u'|'));
                m_window->click(m_window->saying(title));
                QTRY_COMPARE(m_window->textOf(menu), title);
                const QJsonValue value = search(tool).value(argument);
                QCOMPARE(value.isArray() ? value[0]["quantity"_L1] : value, sent);
            }
        };
        waitForTheCalendar();
        tryAll(u"cabinClass"_s, calendarTool, u"cabinClass"_s,
               { { u"Economy Class"_s, u"ECONOMY"_s }, { u"Business Class"_s, u"BUSINESS"_s } });
        tryAll(u"timeRange"_s, calendarTool, u"timeRange"_s,
               { { u"1 Haftalık Fiyatlar"_s, u"1_WEEK"_s },
                 { u"2 Haftalık Fiyatlar"_s, u"2_WEEKS"_s },
                 { u"3 Haftalık Fiyatlar"_s, u"3_WEEKS"_s },
                 { u"1 Aylık (En Geniş)"_s, u"4_WEEKS"_s } });
        tryAll(u"passengers"_s, flightsTool, u"passengers"_s,
               { { u"1 Yetişkin"_s, 1 },
                 { u"2 Yetişkin"_s, 2 },
                 { u"3 Yetişkin"_s, 3 },
                 { u"4 Yetişkin"_s, 4 } });
    }

    void daysAsSeenAndAsSent()
    {
        waitForTheCalendar();
        m_window->click(m_window->saying(u"Gidiş - Dönüş"_s));
        m_window->viewModel()->setDepartureDate(QDate(2031, 3, 10).startOfDay());
        m_window->viewModel()->setReturnDate(QDate(2031, 3, 20).startOfDay());
        expectSeen(
            u"Gidiş Tarihi / 10 Mart 2031 Pazartesi | Dönüş Tarihi / 20 Mart 2031 Perşembe"_s);

        // Only the days before the departure are dimmed, as those of another month are.
        const auto colour = [this](const QString &day) {
            return m_window->saying(day)->property("color").value<QColor>();
        };
        for (const auto &[field, firstDay] :
             { std::pair(u"20 Mart 2031 Perşembe"_s, 10), { u"10 Mart 2031 Pazartesi"_s, 1 } }) {
            m_window->click(m_window->saying(field));
            QTRY_VERIFY(m_window->saying(u"Mart 2031"_s));
            const QColor dimmed = colour(u"24"_s); // of February
            for (const int day : { 1, 9, 10, 11 })
                QCOMPARE(std::pair(day, colour(QString::number(day)) == dimmed),
                         std::pair(day, day < firstDay));
            // They can be chosen all the same.
            m_window->click(m_window->saying(u"9"_s));
            QTRY_VERIFY(m_window->saying(u"VANTORA"_s));
        }
        expectSeen(u"Gidiş Tarihi / 9 Mart 2031 Pazar | Dönüş Tarihi / 9 Mart 2031 Pazar"_s);

        // So can days that have passed.
        m_window->viewModel()->setDepartureDate(QDateTime::currentDateTime());
        m_window->press("Left", u"departureDate"_s);
        const QJsonObject sent = search(flightsTool);
        QCOMPARE(sent["departureDate"_L1].toString(), inDays(-1));
        QCOMPARE(sent["returnDate"_L1].toString(), u"2031-03-09"_s);
        m_window->click(m_window->saying(u"Tek Yön"_s));
        const QJsonObject oneWay = search(flightsTool);
        QCOMPARE(oneWay["tripType"_L1].toString(), u"one_way"_s);
        QVERIFY(!oneWay.contains(u"returnDate"_s));
    }

private:
    static QString inDays(int days)
    {
        return QDate::currentDate().addDays(days).toString(Qt::ISODate);
    }
    /// The line is seen, soon.
    void expectSeen(const QString &line) const
    {
        if (!QTest::qWaitFor([&] { return seenLines(m_window->window()).contains(line); }))
            QFAIL(qPrintable(line + u" is not among:\n"_s
                             + seenLines(m_window->window()).join(u'\n')));
    }
    /// What the button asks of the tool.
    QJsonObject search(const QString &tool) const
    {
        m_window->click(m_window->named(u"searchButton"_s));
        [&] { QVERIFY(m_window->waitForSearch()); }();
        return m_server->toolCalls(tool).constLast().arguments();
    }
    bool isPickerOpen() const { return m_window->named(u"airportSearch"_s); }
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
