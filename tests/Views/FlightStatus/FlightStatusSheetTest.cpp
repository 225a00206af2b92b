#include "ViewModels/FlightStatusViewModel.h"
#include "support/WindowTesting.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"flightStatusSheet"_s;
const QString cardName = u"statusResultCard"_s;

QJsonObject parsed(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }

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

/// The flight status sheet in the real window.
class FlightStatusSheetTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowTest::init();
        m_answers.insert(statusTool, status());
        QVERIFY(m_window->open(u"flightStatusButton"_s, sheetName));
    }

    void questionAsReceived()
    {
        const QDate today = QDate::currentDate();
        // Typing replaces the example, Return asks.
        m_window->type(u"\u00a0vqiıŞ 1 "_s);
        m_window->key(Qt::Key_Return);
        QTRY_COMPARE(questions().size(), 1);
        const QJsonObject first { { u"flightNumber"_s, u"VQIIŞ 1"_s },
                                  { u"flightDate"_s, today.toString(Qt::ISODate) } };
        QCOMPARE(questions().constLast().arguments(), first);
        QTRY_COMPARE(shownPanel(), cardName);

        // The day before, and the button.
        m_window->focus(u"statusDateField"_s);
        m_window->key(Qt::Key_Left);
        m_window->click(m_window->named(u"statusQueryButton"_s));
        QTRY_COMPARE(questions().size(), 2);
        QCOMPARE(questions().constLast().arguments().value("flightDate"_L1).toString(),
                 today.addDays(-1).toString(Qt::ISODate));
    }

    void oneOfFourPanels()
    {
        QCOMPARE(shownPanel(), u"statusEmptyPanel"_s);
        m_server->enqueue({ ScriptedAnswer::failure(u"olmadı"_s).held(), status().held(),
                            status({ { u"status"_s, u"İndi"_s } }).held() });
        m_window->key(Qt::Key_Return);
        QTRY_COMPARE(m_server->heldCount(), 1);
        QCOMPARE(shownPanel(), u"statusLoadingPanel"_s);
        m_server->release();
        QTRY_COMPARE(shownPanel(), u"statusErrorPanel"_s);
        QQuickItem *error = m_window->named(u"statusErrorPanel"_s);
        QCOMPARE(m_window->textIn(error), u"Uçuş bilgisi alınamadı|olmadı"_s);

        // While a question runs the button cannot be pressed again.
        QQuickItem *button = m_window->named(u"statusQueryButton"_s);
        m_window->click(button);
        QTRY_COMPARE(m_server->heldCount(), 1);
        QCOMPARE(shownPanel(), u"statusLoadingPanel"_s);
        m_window->click(button);
        pressAccessibly(button);
        m_server->release();
        QTRY_COMPARE(shownPanel(), cardName);
        QCOMPARE(questions().size(), 2);

        // The card stays while the next question is under way.
        m_window->click(button);
        QTRY_COMPARE(m_server->heldCount(), 1);
        QCOMPARE(shownPanel(), cardName);
        m_server->release();
        QTRY_VERIFY(cardText().contains(u"|İndi|"));

        // Failures leave it, too.
        m_server->enqueue({ ScriptedAnswer::failure(u"<b>yok</b>"_s) });
        m_window->click(button);
        QTRY_COMPARE(viewModel()->errorMessageText(), u"<b>yok</b>"_s);
        viewModel()->setFlightNumber(u" \u2028"_s);
        m_window->click(button);
        QCOMPARE(viewModel()->errorMessageText(),
                 u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s);
        QCOMPARE(questions().size(), 4);
        QVERIFY(cardText().contains(u"|İndi|"));
    }

    void card_data()
    {
        QTest::addColumn<QByteArray>("changes");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const QByteArray &changes, const QColor &colour,
                            const QString &text) {
            QTest::newRow(name) << changes << colour << u"VQ1983|VANTORA|"_s + text;
        };
        row("punctual, expected as scheduled", R"({"estimatedDeparture": "11:20"})",
            QColor::fromRgbF(0.06F, 0.72F, 0.51F),
            u"Zamanında|IST|IST|11:20|LHR|LHR|14:05|Terminal: 1|Kapı: F3"_s);
        row("delayed and in the air",
            R"({"status": "In Flight, Delayed 45 min", "actualDeparture": "12:05",
                "estimatedDeparture": "12:00", "estimatedArrival": "14:50", "baggage": "7"})",
            QColor::fromRgbF(0.91F, 0.1F, 0.2F),
            u"In Flight, Delayed 45 min|IST|IST|11:20|Tahmini: 12:05|LHR|LHR|"
            "14:05|Tahmini: 14:50|Terminal: 1|Kapı: F3|Bagaj: 7"_s);
        row("in the air, without details", R"({"status": "HAVADA", "terminal": "", "gate": ""})",
            QColor::fromRgbF(0.23F, 0.51F, 0.96F), u"HAVADA|IST|IST|11:20|LHR|LHR|14:05"_s);
    }
    void card()
    {
        QFETCH(const QByteArray, changes);
        QFETCH(const QColor, colour);
        QFETCH(const QString, text);
        m_answers.insert(statusTool, status(parsed(changes)));
        m_window->key(Qt::Key_Return);
        QTRY_COMPARE(cardText(), text);
        QCOMPARE(m_window->named(u"statusBadge"_s)->property("color").value<QColor>(), colour);
        QCOMPARE(m_window->named(u"statusDetails"_s) != nullptr, text.contains(u"Terminal"));
        const QString name = m_window->named(cardName)->property("spokenStatus").toString();
        for (const QString &part : text.split(u'|').sliced(2))
            QVERIFY2(name.contains(part), qPrintable(name + u" lacks "_s + part));
    }

    void longTextsKeepToTheirPlaces()
    {
        const QString text = u"Zafer Havalimanı, gecikme sebebiyle yönlendirildi "_s.repeated(6);
        QJsonObject data;
        for (const QString &key :
             { u"flightNumber"_s, u"status"_s, u"origin"_s, u"destination"_s,
               u"scheduledDeparture"_s, u"actualDeparture"_s, u"scheduledArrival"_s,
               u"estimatedArrival"_s, u"terminal"_s, u"gate"_s, u"baggage"_s })
            data.insert(key, key + text);
        m_answers.insert(statusTool, status(data));
        m_window->key(Qt::Key_Return);
        QTRY_COMPARE(shownPanel(), cardName);
        m_window->layOut();
        QQuickItem *card = m_window->named(cardName);
        QCOMPARE(TestWindow::misplacedTexts(card), QStringList());
        QVERIFY(card->parentItem()->width() >= card->width());
    }

    void keyboardAlone()
    {
        QVERIFY(m_window->close(sheetName));
        m_window->focus(u"cityGuideButton"_s);
        m_window->focus(u"flightStatusButton"_s);
        QQuickItem *header = m_window->focused();
        m_window->key(Qt::Key_Space);
        QTRY_VERIFY(m_window->isOpen(sheetName));
        QCOMPARE(m_window->focused()->property("selectedText").toString(), u"VQ1983"_s);

        // Tab goes round within the sheet and comes to every control once.
        QStringList names;
        for (int stop = 0; stop < 5; ++stop) {
            names.append(m_window->focusedName().section(u':', 0, 0));
            m_window->key(Qt::Key_Tab);
        }
        QCOMPARE(names.join(u'|'), u"Uçuş numarası|Uçuş günü|Sorgula|Kapat|Uçuş numarası"_s);

        // Escape closes even while the button that was pressed is disabled.
        m_server->enqueue({ status().held() });
        m_window->key(Qt::Key_Tab);
        QCOMPARE(m_window->focused(), m_window->named(u"statusQueryButton"_s));
        m_window->key(Qt::Key_Return);
        QTRY_COMPARE(m_server->heldCount(), 1);
        QVERIFY(m_window->close(sheetName));
        QCOMPARE(m_window->focused(), header);
        QVERIFY(header->property("visualFocus").toBool());
        QVERIFY(!m_window->viewModel()->isLoading());
    }

    void clicksBesideItDoNothing()
    {
        QCOMPARE(accessible(m_window->called(u"Canlı Uçuş Durumu Takibi"_s))->role(),
                 QAccessible::Dialog);
        QTest::mouseClick(m_window->window(), Qt::LeftButton, {}, QPoint(30, 600));
        m_window->click(m_window->named(u"cityGuideButton"_s));
        QVERIFY(m_window->isOpen(sheetName) && m_window->isGone(u"cityGuideSheet"_s));
    }

    void theWindowMayCloseDuringAQuery()
    {
        m_answers = { { statusTool, status().held() },
                      { calendarTool, calendarAnswer().held() },
                      { flightsTool, ScriptedAnswer::failure(u"olmadı"_s).held() } };
        const QPointer<FlightStatusViewModel> state = viewModel();
        QVERIFY(state);
        m_window->key(Qt::Key_Return);
        m_window->viewModel()->startSearchAll();
        m_window->viewModel()->startSelectCalendarDate(u"2026-12-03"_s);
        QTRY_COMPARE(m_server->heldCount(), 4);
        m_window.reset();
        QVERIFY(!state);
        while (m_server->heldCount() > 0)
            m_server->release();
        QVERIFY(settle(call()).value);
    }

private:
    FlightStatusViewModel *viewModel() const
    {
        return m_window->stateOf<FlightStatusViewModel>(sheetName);
    }
    QString shownPanel() const
    {
        QStringList shown;
        for (const QString &panel :
             { cardName, u"statusLoadingPanel"_s, u"statusErrorPanel"_s, u"statusEmptyPanel"_s }) {
            if (m_window->named(panel))
                shown.append(panel);
        }
        return shown.join(u'+');
    }
    QString cardText() const { return m_window->textOf(cardName); }
};

QTEST_MAIN(FlightStatusSheetTest)
#include "FlightStatusSheetTest.moc"
