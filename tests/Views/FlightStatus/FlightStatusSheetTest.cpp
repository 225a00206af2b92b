#include "support/ParsedJson.h"
#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"flightStatusSheet"_s;
const QString cardName = u"statusResultCard"_s;

/// A punctual flight, but for these changes.
ScriptedAnswer status(const QJsonObject &changes = {})
{
    QJsonObject data = parsed(R"({ "flightNumber": "VQ1983", "status": "Zamanında",
        "origin": "IST", "destination": "LHR", "scheduledDeparture": "11:20",
        "scheduledArrival": "14:05", "terminal": "1", "gate": "F3" })");
    for (auto change = changes.begin(); change != changes.end(); ++change)
        data.insert(change.key(), change.value());
    return ScriptedAnswer::content({ { u"flightData"_s, data } });
}

} // namespace

/// A flight's live status in the real window.
class FlightStatusSheetTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowTest::init();
        m_answers.insert(statusTool, status());
    }

    void questionAsReceived()
    {
        QVERIFY(openSheet());
        const QDate today = QDate::currentDate();
        const auto question = [](const QDate &day) {
            return QJsonObject { { u"flightNumber"_s, u"VQIIŞ 1"_s },
                                 { u"flightDate"_s, day.toString(Qt::ISODate) } };
        };
        // Typing replaces the example, Return asks.
        m_window->type(u"\u00a0vqiıŞ 1 "_s);
        m_window->press("Return");
        QTRY_COMPARE(shownPanel(), cardName);
        // The day before, and the button.
        m_window->press("Left", u"statusDateField"_s);
        m_window->click(m_window->named(u"statusQueryButton"_s));
        QTRY_COMPARE(questions().size(), 2);
        QCOMPARE(questions().at(0).arguments(), question(today));
        QCOMPARE(questions().at(1).arguments(), question(today.addDays(-1)));
    }

    void theCardStaysWhileMoreIsAsked()
    {
        QVERIFY(openSheet());
        m_server->enqueue({ status().held(), status({ { u"status"_s, u"İndi"_s } }).held(),
                            ScriptedAnswer::failure(u"<b>yok</b>"_s) });
        QQuickItem *button = m_window->named(u"statusQueryButton"_s);
        for (const QString &meanwhile : { u"statusLoadingPanel"_s, cardName }) {
            m_window->click(button);
            QTRY_COMPARE(m_server->heldCount(), 1);
            QCOMPARE(shownPanel(), meanwhile);
            // While a question runs no other one is asked.
            m_window->click(button);
            pressAccessibly(button);
            m_window->press("Return", u"TextField"_s);
            m_server->release();
            QTRY_COMPARE(shownPanel(), cardName);
            QTRY_VERIFY(button->isEnabled());
        }
        QTRY_VERIFY2(cardText().contains(u"|İndi|"), qPrintable(cardText()));
        QCOMPARE(questions().size(), 2);

        // Failures leave it, too, and are told above it.
        const QString banner = u"statusErrorBanner"_s;
        QCOMPARE(m_window->textOf(banner), QString());
        m_window->click(button);
        QTRY_COMPARE(m_window->textOf(banner), u"<b>yok</b>"_s);
        QVERIFY2(cardText().contains(u"|İndi|"), qPrintable(cardText()));
        m_window->layOut();
        const auto top = [this](const QString &name) {
            return m_window->named(name)->mapToScene({}).y();
        };
        QCOMPARE_GT(top(cardName), top(banner));
        QCOMPARE_GT(top(banner), top(u"statusDateField"_s));
        m_window->press("Ctrl+A", u"TextField"_s);
        m_window->type(u" \u00a0"_s);
        m_window->click(button);
        QCOMPARE(m_window->textOf(banner),
                 u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s);
        QCOMPARE(questions().size(), 3);
    }

    void cards()
    {
        QVERIFY(openSheet());
        expectCard(R"({"estimatedDeparture": "11:20"})", QColor::fromRgbF(0.06F, 0.72F, 0.51F),
                   u"Zamanında|IST|IST|11:20|LHR|LHR|14:05|Terminal: 1|Kapı: F3"_s);
        expectCard(R"({"status": "In Flight, Delayed 45 min", "actualDeparture": "12:05",
                       "estimatedDeparture": "12:00", "estimatedArrival": "14:50", "baggage": "7"})",
                   QColor::fromRgbF(0.91F, 0.1F, 0.2F),
                   u"In Flight, Delayed 45 min|IST|IST|11:20|Tahmini: 12:05|LHR|LHR|"
                   "14:05|Tahmini: 14:50|Terminal: 1|Kapı: F3|Bagaj: 7"_s);
        expectCard(R"({"status": "HAVADA", "terminal": "", "gate": ""})",
                   QColor::fromRgbF(0.23F, 0.51F, 0.96F), u"HAVADA|IST|IST|11:20|LHR|LHR|14:05"_s);
    }

    void byKeyboardAlone()
    {
        m_window->focus(u"cityGuideButton"_s);
        m_window->focus(u"flightStatusButton"_s);
        QQuickItem *header = m_window->focused();
        m_window->press("Space");
        QTRY_VERIFY(m_window->isOpen(sheetName));
        QCOMPARE(m_window->focused()->property("selectedText").toString(), u"VQ1983"_s);

        // Tab goes round within the sheet and comes to every control once.
        for (const QString &stop : { u"Uçuş numarası"_s, u"Uçuş günü"_s, u"Sorgula"_s, u"Kapat"_s,
                                     u"Uçuş numarası"_s, u"Uçuş günü"_s }) {
            QCOMPARE(m_window->focusedName().section(u':', 0, 0), stop);
            m_window->press("Tab");
        }

        // Escape closes even while the button that was pressed is disabled.
        m_server->enqueue({ status().held() });
        m_window->press("Return");
        QTRY_COMPARE(m_server->heldCount(), 1);
        QVERIFY(m_window->close(sheetName));
        QCOMPARE(m_window->focused(), header);
        QVERIFY(header->property("visualFocus").toBool());
        QVERIFY(!m_window->viewModel()->isLoading());
    }

private:
    bool openSheet() const { return m_window->open(u"flightStatusButton"_s, sheetName); }
    void expectCard(const QByteArray &changes, const QColor &colour, const QString &text)
    {
        m_answers.insert(statusTool, status(parsed(changes)));
        m_window->press("Return");
        QTRY_COMPARE(cardText(), u"VQ1983|VANTORA|"_s + text);
        QCOMPARE(m_window->named(u"statusBadge"_s)->property("color").value<QColor>(), colour);
        QCOMPARE(m_window->named(u"statusDetails"_s) != nullptr, text.contains(u"Terminal"));
        const QString name = m_window->named(cardName)->property("accessibleName").toString();
        for (const QString &part : text.split(u'|'))
            QVERIFY2(name.contains(part), qPrintable(name + u" lacks "_s + part));
    }
    QString shownPanel() const
    {
        QStringList panels { cardName, u"statusLoadingPanel"_s, u"statusErrorPanel"_s,
                             u"statusEmptyPanel"_s };
        panels.removeIf([this](const QString &panel) { return !m_window->named(panel); });
        return panels.join(u'+');
    }
    QString cardText() const { return m_window->textOf(cardName); }
};

QTEST_MAIN(FlightStatusSheetTest)
#include "FlightStatusSheetTest.moc"
