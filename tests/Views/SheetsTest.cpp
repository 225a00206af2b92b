#include "ViewModels/FlightStatusViewModel.h"
#include "support/ParsedJson.h"
#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

namespace {

const QString guideSheet = u"cityGuideSheet"_s;

ScriptedAnswer guideOf(const QString &city, const QString &bestTime = u"Mayıs - Eylül"_s)
{
    QJsonObject guide = parsed(R"({ "countryName": "Birleşik Krallık",
        "overview": "Thames'in iki yakası.", "topAttractions": ["Kule"],
        "culinaryHighlights": ["Börek"], "localTips": ["Kart alın."] })");
    guide.insert(u"cityName"_s, city);
    guide.insert(u"bestTimeToVisit"_s, bestTime);
    return ScriptedAnswer::content(guide);
}

const ScriptedAnswer promotions = ScriptedAnswer::content(parsed(R"({ "promotions": [
    { "title": "Erken", "description": "<img src='http://127.0.0.1/x'>", "discount": "%25",
      "route": "İstanbul ⇄ Avrupa", "validUntil": "30 Eylül" },
    { "title": "Erken", "description": "Yalın" }] })"));

const QString listsText = u"Görülmesi Gereken Yerler|Kule|Yerel Seyahat İpuçları|Kart alın."_s;
const QString guideText =
    u"Londra, Birleşik Krallık|Thames'in iki yakası.|En İdeal Ziyaret Zamanı|Mayıs - Eylül|"_s
    + listsText;
const QString promotionsText = u"Erken|%25|<img src='http://127.0.0.1/x'>|İstanbul ⇄ Avrupa|"
                               "Son Geçerlilik: 30 Eylül|Erken|Yalın"_s;

const QString statusSheet = u"flightStatusSheet"_s;
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

/// The city guide and the flight status in the real window.
class SheetsTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowTest::init();
        m_answers.insert(guideTool, guideOf(u"Londra"_s));
        m_answers.insert(promotionsTool, promotions);
        m_answers.insert(statusTool, status());
    }

    void guideAndPromotionsAreAskedForAndShownAtOnce()
    {
        m_answers = { { guideTool, guideOf(u"Londra"_s).held() },
                      { promotionsTool, promotions.held() } };
        m_window->viewModel()->setOriginCode(u"fco"_s);
        m_window->viewModel()->swapAirports();
        QVERIFY(openGuide());

        // Both are on their way before either is answered.
        QTRY_COMPARE(m_server->heldCount(), 2);
        for (const ReceivedRequest &question : questions()) {
            QCOMPARE(question.arguments(),
                     parsed(question.tool() == guideTool
                                ? R"({"cityCode": "FCO"})"
                                : R"({"departureAirportCode": "IST", "countryCode": "TR"})"));
        }
        // The destination is that of the opening.
        m_window->viewModel()->setDestinationCode(u"CDG"_s);
        QCOMPARE(m_window->textOf(u"guideTabs"_s), u"fco Şehir Rehberi|Aktif Kampanyalar"_s);
        // The first answer has long come when a further call has ended.
        m_server->release();
        QVERIFY(settle(call()).value);
        QVERIFY(isGuideLoading());
        m_server->release();
        QTRY_COMPARE(shownPage(), guideText);

        pressAccessibly(m_window->called(u"Aktif Kampanyalar"_s));
        QTRY_COMPARE(shownPage(), promotionsText);
        m_window->click(m_window->called(u"fco Şehir Rehberi"_s));
        QTRY_COMPARE(shownPage(), guideText);
        QCOMPARE(questions().size(), 3);
        pressAccessibly(m_window->called(u"Kapat"_s));
        QTRY_VERIFY(m_window->isGone(guideSheet));
    }

    void aFailureLeavesTheGuideLoading()
    {
        for (const QString &failing : { guideTool, promotionsTool }) {
            const ScriptedAnswer answer = m_answers.value(failing);
            const qsizetype before = questions().size();
            m_answers.insert(failing, ScriptedAnswer::failure(u"olmadı"_s));
            QVERIFY(openGuide());
            QTRY_COMPARE(questions().size(), before + 2);
            QVERIFY(settle(call()).value);
            m_window->press("Right");
            QTest::qWait(50);
            QVERIFY(isGuideLoading());

            // Only opening the sheet again asks again.
            m_answers.insert(failing, answer);
            QVERIFY(m_window->close(guideSheet) && openGuide());
            QTRY_COMPARE(shownPage(), guideText);
            QVERIFY(m_window->close(guideSheet));
        }
    }

    void absentPartsOfTheGuideAreNotShown()
    {
        m_answers = { { guideTool, guideOf(u"Londra"_s, QString()) },
                      { promotionsTool,
                        ScriptedAnswer::content(parsed(R"({"promotions": []})")) } };
        QVERIFY(openGuide());
        QTRY_COMPARE(shownPage(), u"Londra, Birleşik Krallık|Thames'in iki yakası.|"_s + listsText);
        m_window->press("Right");
        QTRY_COMPARE(shownPage(), QString());
        QVERIFY(!m_window->named(u"guideLoadingPanel"_s));
    }

    void ofLongListsOnlyTheBeginningIsLaidOut()
    {
        QJsonArray many;
        for (int number = 0; number < 100; ++number)
            many.append(QJsonObject { { u"title"_s, QString::number(number) } });
        const QStringList sights(100, u"yer"_s);
        m_answers = { { promotionsTool, ScriptedAnswer::content({ { u"promotions"_s, many } }) },
                      { guideTool,
                        ScriptedAnswer::content(
                            { { u"topAttractions"_s, QJsonArray::fromStringList(sights) } }) } };
        QVERIFY(openGuide());
        QTRY_COMPARE(shownPage().count(u"yer"_s), 60);
        m_window->press("Right");
        QTRY_VERIFY(shownPage().contains(u"59"));
        QTest::qWait(100); // they come one after the other
        QVERIFY(!shownPage().contains(u"60"));
    }

    void theGuideScrollsByKeyboard()
    {
        m_answers.insert(guideTool, guideOf(u"Londra "_s.repeated(60)));
        QVERIFY(openGuide());
        QTRY_VERIFY(m_window->named(u"cityGuidePage"_s));
        // The keyboard is on the tabs and scrolls the page from there.
        QQuickItem *page = m_window->named(u"sheetPage"_s);
        QVERIFY(page->property("contentHeight").toReal() > page->height());
        m_window->press("PgDown");
        QVERIFY(page->property("contentY").toReal() > 0);
        m_window->press("Right");
        QTRY_COMPARE(shownPage(), promotionsText);
        QCOMPARE(page->property("contentY").toReal(), 0.0);
        for (const QString &stop : { u"Aktif Kampanyalar"_s, u"Kapat"_s, u"Aktif Kampanyalar"_s }) {
            QCOMPARE(m_window->focusedName(), stop);
            m_window->press("Tab");
        }
    }

    void statusQuestionAsReceived()
    {
        QVERIFY(openStatus());
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

    void oneOfFourStatusPanels()
    {
        QVERIFY(openStatus());
        QCOMPARE(shownPanel(), u"statusEmptyPanel"_s);
        m_server->enqueue({ ScriptedAnswer::failure(u"olmadı"_s).held(), status().held(),
                            status({ { u"status"_s, u"İndi"_s } }).held(),
                            ScriptedAnswer::failure(u"<b>yok</b>"_s) });
        QQuickItem *button = m_window->named(u"statusQueryButton"_s);
        const auto ask = [&](const QString &panelMeanwhile) {
            m_window->click(button);
            QTRY_COMPARE(m_server->heldCount(), 1);
            QCOMPARE(shownPanel(), panelMeanwhile);
        };
        ask(u"statusLoadingPanel"_s);
        m_server->release();
        QTRY_COMPARE(shownPanel(), u"statusErrorPanel"_s);
        QCOMPARE(m_window->textOf(u"statusErrorPanel"_s), u"Uçuş bilgisi alınamadı|olmadı"_s);

        // While a question runs the button cannot be pressed again.
        ask(u"statusLoadingPanel"_s);
        m_window->click(button);
        pressAccessibly(button);
        m_server->release();
        QTRY_COMPARE(shownPanel(), cardName);
        QCOMPARE(questions().size(), 2);

        // The card stays while the next question is under way.
        ask(cardName);
        m_server->release();
        QTRY_VERIFY(cardText().contains(u"|İndi|"));

        // Failures leave it, too.
        auto *state = m_window->stateOf<FlightStatusViewModel>(statusSheet);
        m_window->click(button);
        QTRY_COMPARE(state->errorMessageText(), u"<b>yok</b>"_s);
        state->setFlightNumber(u" \u2028"_s);
        m_window->click(button);
        QCOMPARE(state->errorMessageText(),
                 u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s);
        QCOMPARE(questions().size(), 4);
        QVERIFY(cardText().contains(u"|İndi|"));
    }

    void statusCard()
    {
        QVERIFY(openStatus());
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

    void statusByKeyboardAlone()
    {
        m_window->focus(u"cityGuideButton"_s);
        m_window->focus(u"flightStatusButton"_s);
        QQuickItem *header = m_window->focused();
        m_window->press("Space");
        QTRY_VERIFY(m_window->isOpen(statusSheet));
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
        QVERIFY(m_window->close(statusSheet));
        QCOMPARE(m_window->focused(), header);
        QVERIFY(header->property("visualFocus").toBool());
        QVERIFY(!m_window->viewModel()->isLoading());
    }

private:
    bool openGuide() const { return m_window->open(u"cityGuideButton"_s, guideSheet); }
    /// The page that is shown, of the two.
    QString shownPage() const
    {
        return m_window->textOf(u"cityGuidePage"_s) + m_window->textOf(u"promotionsPage"_s);
    }
    /// Whether the guide says that it loads, and shows nothing else.
    bool isGuideLoading() const
    {
        const QString text = u"Rehber bilgileri yükleniyor..."_s;
        return m_window->textOf(u"guideLoadingPanel"_s) == text && m_window->called(text)
            && shownPage().isEmpty();
    }
    bool openStatus() const { return m_window->open(u"flightStatusButton"_s, statusSheet); }
    void expectCard(const QByteArray &changes, const QColor &colour, const QString &text)
    {
        m_answers.insert(statusTool, status(parsed(changes)));
        m_window->press("Return");
        QTRY_COMPARE(cardText(), u"VQ1983|VANTORA|"_s + text);
        QCOMPARE(m_window->named(u"statusBadge"_s)->property("color").value<QColor>(), colour);
        QCOMPARE(m_window->named(u"statusDetails"_s) != nullptr, text.contains(u"Terminal"));
        const QString name = m_window->named(cardName)->property("spokenStatus").toString();
        for (const QString &part : text.split(u'|'))
            QVERIFY2(name.contains(part), qPrintable(name + u" lacks "_s + part));
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

QTEST_MAIN(SheetsTest)
#include "SheetsTest.moc"
