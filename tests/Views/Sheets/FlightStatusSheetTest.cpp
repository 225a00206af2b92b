#include "SheetTesting.h"
#include "ViewModels/FlightStatusViewModel.h"

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"flightStatusSheet"_s;
const QStringList panels { u"statusResultCard"_s, u"statusLoadingPanel"_s, u"statusErrorPanel"_s,
                           u"statusEmptyPanel"_s };

ScriptedAnswer status(const QJsonObject &data)
{
    return ScriptedAnswer::content({ { u"flightData"_s, data } });
}

const QJsonObject punctual { { u"flightNumber"_s, u"VQ1983"_s },
                             { u"status"_s, u"Zamanında"_s },
                             { u"origin"_s, u"IST"_s },
                             { u"destination"_s, u"LHR"_s },
                             { u"scheduledDeparture"_s, u"11:20"_s },
                             { u"scheduledArrival"_s, u"14:05"_s },
                             { u"terminal"_s, u"1"_s },
                             { u"gate"_s, u"F3"_s } };

QJsonObject with(QJsonObject data, const QJsonObject &changes)
{
    for (auto change = changes.begin(); change != changes.end(); ++change)
        data.insert(change.key(), change.value());
    return data;
}

} // namespace

/// The flight status sheet in the real window, on a scripted server.
class FlightStatusSheetTest : public SheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void questionAsReceived();
    void oneOfFourPanels();
    void failureAfterAnAnswerStandsAboveTheCard();
    void card_data();
    void card();
    void absentDetailsAreNotShown();
    void longTextsKeepToTheirPlaces();
    void keyboardAlone();
    void assistiveTechnologyFindsEverything();
    void aSheetThatClosedGetsNoAnswer();
    void theWindowMayCloseDuringAQuery();

private:
    /// Opens the sheet by a click on its header button and waits until it stands still.
    bool open(const SheetWindow &window) const
    {
        window.click(window.named(u"flightStatusButton"_s));
        return QTest::qWaitFor([&] { return window.isOpen(sheetName); });
    }
    static QString shownPanel(const SheetWindow &window)
    {
        QStringList shown;
        for (const QString &panel : panels) {
            if (window.named(panel))
                shown.append(panel);
        }
        return shown.join(u'+');
    }
    QList<ReceivedRequest> questions() const
    {
        QList<ReceivedRequest> calls = m_server->toolCalls();
        calls.removeIf([](const ReceivedRequest &call) { return call.tool() != u"flight-status"; });
        return calls;
    }
};

void FlightStatusSheetTest::questionAsReceived()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    const WarningCatcher catcher;
    const QDate today = QDate::currentDate();
    QVERIFY(open(window));

    // Typing replaces the example, Return asks.
    window.type(u" vq 1907 "_s);
    window.key(Qt::Key_Return);
    QTRY_COMPARE(questions().size(), 1);
    const QJsonObject first { { u"flightNumber"_s, u"VQ 1907"_s },
                              { u"flightDate"_s, today.toString(Qt::ISODate) } };
    QCOMPARE(questions().constLast().arguments(), first);
    QTRY_COMPARE(shownPanel(window), panels.at(0));

    // The day before yesterday, and the button.
    window.key(Qt::Key_Tab);
    QCOMPARE(window.focused(), window.named(u"statusDateField"_s));
    window.key(Qt::Key_Left);
    window.key(Qt::Key_Left);
    window.click(window.named(u"statusQueryButton"_s));
    QTRY_COMPARE(questions().size(), 2);
    const QJsonObject second { { u"flightNumber"_s, u"VQ 1907"_s },
                               { u"flightDate"_s, today.addDays(-2).toString(Qt::ISODate) } };
    QCOMPARE(questions().constLast().arguments(), second);
    QCOMPARE(WarningCatcher::warnings().join(u"; "_s), QString());
}

void FlightStatusSheetTest::oneOfFourPanels()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady() && open(window));
    QCOMPARE(shownPanel(window), u"statusEmptyPanel"_s);

    m_server->enqueue({ refusal(u"olmadı"_s).held(), status(punctual).held(),
                        status(with(punctual, { { u"status"_s, u"İndi"_s } })).held() });
    window.key(Qt::Key_Return);
    QTRY_COMPARE(m_server->heldCount(), 1);
    QCOMPARE(shownPanel(window), u"statusLoadingPanel"_s);
    m_server->release();
    QTRY_COMPARE(shownPanel(window), u"statusErrorPanel"_s);
    const QStringList error = window.textsIn(window.named(u"statusErrorPanel"_s));
    QCOMPARE(error, QStringList({ u"Uçuş bilgisi alınamadı"_s, u"olmadı"_s }));

    // A new question takes the message away; while it runs the button cannot be pressed again.
    QQuickItem *button = window.named(u"statusQueryButton"_s);
    window.click(button);
    QTRY_COMPARE(m_server->heldCount(), 1);
    QCOMPARE(shownPanel(window), u"statusLoadingPanel"_s);
    QVERIFY(!button->isEnabled());
    window.click(button);
    pressAccessibly(button);
    m_server->release();
    QTRY_COMPARE(shownPanel(window), u"statusResultCard"_s);
    QCOMPARE(questions().size(), 2);

    // The card stays while the next question is under way.
    window.click(button);
    QTRY_COMPARE(m_server->heldCount(), 1);
    QCOMPARE(shownPanel(window), u"statusResultCard"_s);
    QVERIFY(window.textsIn(window.named(panels.at(0))).contains(u"Zamanında"_s));
    m_server->release();
    QTRY_VERIFY(window.textsIn(window.named(panels.at(0))).contains(u"İndi"_s));
    QCOMPARE(shownPanel(window), u"statusResultCard"_s);
}

void FlightStatusSheetTest::failureAfterAnAnswerStandsAboveTheCard()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady() && open(window));
    m_server->enqueue({ status(punctual), refusal(u"<b>yok</b>"_s) });
    window.key(Qt::Key_Return);
    QTRY_COMPARE(shownPanel(window), u"statusResultCard"_s);
    QVERIFY(!window.named(u"statusInlineError"_s));

    window.key(Qt::Key_Return);
    QTRY_VERIFY(window.named(u"statusInlineError"_s));
    QQuickItem *line = window.named(u"statusInlineError"_s);
    QCOMPARE(window.textsIn(line), QStringList { u"<b>yok</b>"_s });
    QCOMPARE(accessible(line)->role(), QAccessible::AlertMessage);
    QCOMPARE(shownPanel(window), u"statusResultCard"_s);

    // Nor is an empty number lost on the user.
    window.key(Qt::Key_Backspace);
    window.key(Qt::Key_Return);
    QTRY_COMPARE(window.textsIn(line),
                 QStringList { u"Lütfen geçerli bir uçuş numarası girin (örn: VQ1983)."_s });
    QCOMPARE(questions().size(), 2);
    QCOMPARE(shownPanel(window), u"statusResultCard"_s);
}

void FlightStatusSheetTest::card_data()
{
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QStringList>("texts");
    const QColor red = QColor::fromRgbF(0.91F, 0.1F, 0.2F);
    const QColor blue = QColor::fromRgbF(0.23F, 0.51F, 0.96F);
    const QColor green = QColor::fromRgbF(0.06F, 0.72F, 0.51F);
    const QString vantora = u"VANTORA"_s;

    QTest::newRow("punctual, expected as scheduled")
        << with(punctual, { { u"estimatedDeparture"_s, u"11:20"_s } }) << green
        << QStringList { u"VQ1983"_s, vantora,          u"Zamanında"_s, u"IST"_s,
                         u"IST"_s,    u"11:20"_s,       u"LHR"_s,       u"LHR"_s,
                         u"14:05"_s,  u"Terminal: 1"_s, u"Kapı: F3"_s };
    QTest::newRow("delayed and in the air")
        << with(punctual,
                { { u"status"_s, u"In Flight, Delayed (45 min)"_s },
                  { u"actualDeparture"_s, u"12:05"_s },
                  { u"estimatedDeparture"_s, u"12:00"_s },
                  { u"estimatedArrival"_s, u"14:50"_s },
                  { u"baggage"_s, u"7"_s } })
        << red
        << QStringList { u"VQ1983"_s,
                         vantora,
                         u"In Flight, Delayed (45 min)"_s,
                         u"IST"_s,
                         u"IST"_s,
                         u"11:20"_s,
                         u"Tahmini: 12:05"_s,
                         u"LHR"_s,
                         u"LHR"_s,
                         u"14:05"_s,
                         u"Tahmini: 14:50"_s,
                         u"Terminal: 1"_s,
                         u"Kapı: F3"_s,
                         u"Bagaj: 7"_s };
    QTest::newRow("in the air") << with(
        punctual,
        { { u"status"_s, u"HAVADA"_s }, { u"terminal"_s, QString() }, { u"gate"_s, QString() } })
                                << blue << QStringList { u"VQ1983"_s, vantora,  u"HAVADA"_s,
                                                         u"IST"_s,    u"IST"_s, u"11:20"_s,
                                                         u"LHR"_s,    u"LHR"_s, u"14:05"_s };
}

void FlightStatusSheetTest::card()
{
    QFETCH(const QJsonObject, data);
    QFETCH(const QColor, colour);
    QFETCH(const QStringList, texts);
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady() && open(window));
    m_server->enqueue({ status(data) });
    window.key(Qt::Key_Return);
    QTRY_COMPARE(shownPanel(window), u"statusResultCard"_s);

    QQuickItem *card = window.named(u"statusResultCard"_s);
    QCOMPARE(window.textsIn(card), texts);
    QCOMPARE(window.named(u"statusBadge"_s)->property("color").value<QColor>(), colour);
    const QString name = accessible(card)->text(QAccessible::Name);
    for (const QString &text : texts.mid(2))
        QVERIFY2(name.contains(text), qPrintable(name + u" lacks "_s + text));
}

void FlightStatusSheetTest::absentDetailsAreNotShown()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady() && open(window));
    m_server->enqueue({ status(punctual) });
    window.key(Qt::Key_Return);
    QTRY_COMPARE(shownPanel(window), u"statusResultCard"_s);
    window.settle();

    FlightStatusResult bare;
    bare.flightNumber = u"VQ1"_s;
    bare.status = u"Zamanında"_s;
    bare.scheduledDeparture = u"08:00"_s;
    bare.scheduledArrival = u"09:00"_s;
    QQuickItem *card = window.named(u"statusResultCard"_s);
    const qreal before = card->implicitHeight();
    QVERIFY(card->setProperty("result", QVariant::fromValue(bare)));
    window.settle();
    QVERIFY(card->implicitHeight() < before);
    QVERIFY(!window.named(u"statusDetails"_s));
    QVERIFY(window.textsIn(card).filter(u":"_s) == QStringList({ u"08:00"_s, u"09:00"_s }));
}

void FlightStatusSheetTest::longTextsKeepToTheirPlaces()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady() && open(window));
    const QString text =
        u"Afyonkarahisar-Kütahya Zafer Havalimanı, gecikme sebebiyle yönlendirildi "_s.repeated(4);
    QJsonObject data;
    for (const QString &key :
         { u"flightNumber"_s, u"status"_s, u"origin"_s, u"destination"_s, u"scheduledDeparture"_s,
           u"actualDeparture"_s, u"scheduledArrival"_s, u"estimatedArrival"_s, u"terminal"_s,
           u"gate"_s, u"baggage"_s })
        data.insert(key, key + text);
    m_server->enqueue({ status(data) });
    window.key(Qt::Key_Return);
    QTRY_COMPARE(shownPanel(window), u"statusResultCard"_s);
    window.settle();

    QQuickItem *card = window.named(u"statusResultCard"_s);
    QList<QRectF> places;
    window.visit(card, [&](QQuickItem *item) {
        if (item->inherits("QQuickText"))
            places.append(item->mapRectToItem(card, item->boundingRect()));
    });
    QVERIFY(places.size() > 14);
    const QRectF inside(0, 0, card->width(), card->height());
    for (qsizetype i = 0; i < places.size(); ++i) {
        QVERIFY2(inside.contains(places.at(i)), qPrintable(QString::number(i)));
        for (qsizetype j = 0; j < i; ++j) {
            const QRectF common = places.at(i).intersected(places.at(j));
            QVERIFY2(common.width() < 1 || common.height() < 1,
                     qPrintable(u"%1 and %2 overlap"_s.arg(i).arg(j)));
        }
    }
    QVERIFY(card->parentItem()->width() >= card->width());
}

void FlightStatusSheetTest::keyboardAlone()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    QQuickItem *header = window.named(u"flightStatusButton"_s);
    header->forceActiveFocus(Qt::TabFocusReason);
    window.key(Qt::Key_Space);
    QTRY_VERIFY(window.isOpen(sheetName));
    QQuickItem *field = window.focused();
    QCOMPARE(field->property("selectedText").toString(), u"VQ1983"_s);

    // Tab goes round within the sheet and comes to every control once.
    QStringList names;
    do {
        names.append(accessible(window.focused())->text(QAccessible::Name));
        window.key(Qt::Key_Tab);
    } while (window.focused() != field && names.size() < 10);
    QCOMPARE(names.size(), 4);
    QCOMPARE(names.filter(u"Uçuş"_s).size(), 2);
    QVERIFY(names.contains(u"Sorgula"_s) && names.contains(u"Kapat"_s));

    // Escape closes even while the button that was pressed is disabled.
    m_server->enqueue({ status(punctual).held() });
    window.key(Qt::Key_Tab);
    window.key(Qt::Key_Tab);
    QCOMPARE(window.focused(), window.named(u"statusQueryButton"_s));
    window.key(Qt::Key_Return);
    QTRY_COMPARE(m_server->heldCount(), 1);
    window.key(Qt::Key_Escape);
    QTRY_VERIFY(window.isGone(sheetName));
    QCOMPARE(window.focused(), header);
    QVERIFY(header->property("visualFocus").toBool());
    QVERIFY(!window.viewModel()->isLoading());
}

void FlightStatusSheetTest::assistiveTechnologyFindsEverything()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    pressAccessibly(window.named(u"flightStatusButton"_s));
    QTRY_VERIFY(window.isOpen(sheetName));
    QQuickItem *content = window.itemsOfType("FlightStatusQuery").constFirst();
    QCOMPARE(accessibilityFaults(content), QStringList());

    m_server->enqueue({ refusal(u"olmadı"_s).held() });
    pressAccessibly(window.named(u"statusQueryButton"_s));
    QTRY_COMPARE(m_server->heldCount(), 1);
    QAccessibleInterface *loading = accessible(window.named(u"statusLoadingPanel"_s));
    QCOMPARE(loading->text(QAccessible::Name),
             u"Vantora Hava Yolları MCP sunucusundan canlı durum çekiliyor..."_s);
    m_server->release();
    QTRY_VERIFY(window.named(u"statusErrorPanel"_s));
    QAccessibleInterface *error = accessible(window.named(u"statusErrorPanel"_s));
    QCOMPARE(error->role(), QAccessible::AlertMessage);
    QVERIFY(error->text(QAccessible::Name).contains(u"olmadı"));
}

void FlightStatusSheetTest::aSheetThatClosedGetsNoAnswer()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady() && open(window));
    m_server->enqueue({ status(punctual).held() });
    window.type(u"VQ7"_s);
    window.key(Qt::Key_Return);
    QTRY_COMPARE(m_server->heldCount(), 1);
    window.key(Qt::Key_Escape);
    QTRY_VERIFY(window.isGone(sheetName));

    QVERIFY(open(window));
    m_server->release();
    QVERIFY(settle(VTRMCPClient::shared().fetchPromotions()).value);
    QCOMPARE(shownPanel(window), u"statusEmptyPanel"_s);
    window.key(Qt::Key_Return);
    QTRY_COMPARE(questions().size(), 2);
    QCOMPARE(questions().constLast().arguments().value("flightNumber"_L1).toString(), u"VQ1983"_s);
}

void FlightStatusSheetTest::theWindowMayCloseDuringAQuery()
{
    VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
    QPointer<FlightStatusViewModel> state;
    {
        QQmlApplicationEngine engine;
        QVERIFY(loadMainWindow(engine, u"Test"_s));
        auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
        QObject *view = mainView(window);
        QVERIFY(view && view->setProperty("showFlightStatusSheet", true));
        state = stateOf<FlightStatusViewModel>(window, sheetName, "viewModel");
        QVERIFY(state);
        m_server->onToolCall = [](const ReceivedRequest &) {
            return ScriptedAnswer::content().held();
        };
        state->startSearchStatus();
        // The question, and the two of the window's first search.
        QTRY_COMPARE(m_server->heldCount(), 3);
    }
    QVERIFY(!state);
    for (int i = 0; i < 3; ++i)
        m_server->release();
    serve(*m_server, {});
    QVERIFY(settle(VTRMCPClient::shared().fetchPromotions()).value);
    VTRMCPClientTestAccess::destroyShared();
}

QTEST_MAIN(FlightStatusSheetTest)
#include "FlightStatusSheetTest.moc"
