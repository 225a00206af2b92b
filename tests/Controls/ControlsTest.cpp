#include "Controls/Accessibility/QtInternals.h"
#include "Controls/Inputs/DateEditing.h"
#include "Controls/Look/ShownText.h"
#include "support/WindowTesting.h"

#include <QScreen>

#include <ctime>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const QByteArray segments = R"(
    property int choice: 0
    Row {
        ToolButton { objectName: "before"; icon.name: "map"; text: "Önce" }
        SegmentedControl {
            objectName: "segments"; Accessible.name: "Tür"; model: ["Bir", "İki", "Üç"]
            currentIndex: page.choice; onActivated: index => page.choice = index
        }
        ToolButton { icon.name: "map"; text: "Sonra" }
    })";

const QByteArray menu = R"(
    property int choice: 1
    property int choices: 0
    ComboBox {
        objectName: "menu"; Accessible.name: "Kabin"; model: ["Bir", "İki", "Üç"]; currentIndex: page.choice
        onActivated: index => { page.choice = index; ++page.choices }
    })";

const QByteArray cutTexts = R"(
    PlainText { objectName: "cut"; width: 60; elide: Text.ElideRight; text: "Uzun bir <b>ad</b>" }
    Column {
        y: 200
        ToolButton { objectName: "icon"; icon.name: "map"; text: "Harita" }
        Button {
            width: 60; text: "düğme"
            contentItem: PlainText { elide: Text.ElideRight; text: "Sığmayan bir metin" }
        }
        TextField { objectName: "number"; width: 200; clearable: true; Accessible.name: "Numara" }
    })";

const QByteArray surface = R"(
    property real rounding: 20
    RoundedSurface { x: 20; y: 20; width: 200; height: 90; radius: page.rounding; color: "red" })";

// On places and of sizes that are no whole number of pixels.
const QByteArray surfaces = R"(
    color: "#000000"
    VTRCard { x: 20.3; y: 17.6; width: 420.4; height: 101.7; Component.onCompleted: children[0].objectName = "card" }
    RoundedSurface { objectName: "chip"; x: 21; y: 150.3; width: 71.2; height: 26; radius: 13; color: "#e51a33" }
    RoundedSurface { objectName: "column"; x: 600; y: 20; width: 24; height: 87.3; radius: 12; color: "#0fb882" }
    PopupSurface { objectName: "month"; x: 120.7; y: 160.1; width: 264; height: 301.3 })";

const QByteArray everyKind = R"(
    MenuBarItem { objectName: "MenuItem"; Accessible.name: "MenuItem"; menu: Menu {} }
    Column {
        Button { objectName: "Button"; text: "Button" }
        RadioButton { objectName: "RadioButton"; text: "RadioButton" }
        ComboBox { objectName: "ComboBox"; Accessible.name: "ComboBox"; model: ["Bir"] }
        TextField { objectName: "TextField"; Accessible.name: "TextField" }
        PlainText { objectName: "Text"; text: "Text" }
    }
    Item { Menu { objectName: "Menu"; MenuItem { text: "Bir" } } })";

const QByteArray field = R"(
    property date day: new Date(2026, 11, 30, 14, 35)
    property int edits: 0
    DateField {
        objectName: "field"; label: "Gidiş Tarihi"; value: page.day
        onEdited: value => { page.day = value; ++page.edits }
    })";

QDateTime at(int year, int month, int day) { return { QDate(year, month, day), QTime(14, 35) }; }

} // namespace

/// The shared controls under keyboard, pointer and assistive technology, and their arithmetic.
class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setZone("Europe/Istanbul"); }

    void segmentsAreOneTabStop()
    {
        const TestWindow page(segments);
        page.focus(u"before"_s);
        for (const auto &[keys, focused, choice] : { std::tuple("Tab Left", u"Bir"_s, 0),
                                                     { "Right Down Right", u"Üç"_s, 2 },
                                                     { "Tab", u"Sonra"_s, 2 },
                                                     { "Shift+Backtab", u"Üç"_s, 2 } }) {
            page.press(keys);
            QCOMPARE(page.focusedName(), focused);
            QCOMPARE(page.state("choice"), choice);
            QVERIFY(page.focused()->property("visualFocus").toBool());
        }
        QCOMPARE(accessible(page.focused())->role(), QAccessible::RadioButton);
        QVERIFY(accessible(page.focused())->state().checked);
        pressAccessibly(page.called(u"Bir"_s));
        QCOMPARE(page.state("choice"), 0);
        QVERIFY(!accessible(page.focused())->state().checked);
    }

    void menuByKeyboardPointerAndAssistiveTechnology()
    {
        const TestWindow page(menu);
        const auto isOpen = [&page] { return page.told(u"Üç"_s) != nullptr; };
        // The value that is told, and the choices made since the window opened.
        const auto state = [&page] {
            return accessible(page.named(u"menu"_s))->text(QAccessible::Description) + u' '
                + page.state("choices").toString();
        };
        page.focus(u"menu"_s);
        QCOMPARE(page.focusedName(), u"Kabin"_s);
        const QPoint place(20, 15);
        QTest::mouseMove(page.window(), place);
        QWheelEvent wheel(place, page.window()->mapToGlobal(place), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(page.window(), &wheel);
        // Closed, the arrows choose at once.
        for (const auto &[keys, isOpenThen, then] : { std::tuple("Return", true, u"İki 0"_s),
                                                      { "Up Esc", false, u"İki 0"_s },
                                                      { "Alt+Down", true, u"İki 0"_s },
                                                      { "Esc", false, u"İki 0"_s },
                                                      { "Space", true, u"İki 0"_s },
                                                      { "Down Return", false, u"Üç 1"_s },
                                                      { "Up", false, u"İki 2"_s } }) {
            page.press(keys);
            QTRY_COMPARE(isOpen(), isOpenThen);
            QCOMPARE(state(), then);
        }
        // A change from outside is shown, after choices by hand, too.
        page.window()->setProperty("choice", 2);
        QCOMPARE(state(), u"Üç 2"_s);

        page.click(page.named(u"menu"_s));
        QTRY_VERIFY(page.called(u"Bir"_s) && page.called(u"Bir"_s)->height() > 0);
        page.click(page.called(u"Bir"_s));
        QTRY_COMPARE(state(), u"Bir 3"_s);
        QTRY_VERIFY(!isOpen());
        pressAccessibly(page.named(u"menu"_s));
        QTRY_VERIFY(isOpen());
        QVERIFY(page.told(u"Bir"_s)->state().selected);
        pressAccessibly(page.told(u"Üç"_s));
        QTRY_COMPARE(state(), u"Üç 4"_s);
    }

    /// A failure here is a change in Qt: see QtInternals.
    void namesOfQtsOwnClasses()
    {
        const TestWindow page(everyKind);
        for (const QString &name : { u"Button"_s, u"RadioButton"_s, u"MenuItem"_s, u"ComboBox"_s,
                                     u"TextField"_s, u"Text"_s }) {
            QQuickItem *item = page.named(name);
            QVERIFY2(item, qPrintable(name));
            const QObject *attached = QtInternals::accessibleAttached(item);
            QVERIFY2(attached, qPrintable(name));
            QCOMPARE(attached->property("name").toString(), name);
        }

        QVERIFY(QtInternals::isMenuTitle(page.named(u"MenuItem"_s)));

        QObject *menu = page.window()->findChild<QObject *>(u"Menu"_s);
        QVERIFY(menu);
        menu->setProperty("visible", true);
        const QList<QQuickItem *> layers = page.window()->contentItem()->childItems();
        const auto overlay = std::find_if(layers.begin(), layers.end(), QtInternals::isOverlay);
        QVERIFY(overlay != layers.end());
        const QList<QQuickItem *> popups = (*overlay)->childItems();
        QVERIFY(std::any_of(popups.begin(), popups.end(), [&](const QQuickItem *item) {
            return QtInternals::popupOf(item) == menu;
        }));
    }

    void aTipTellsWhatIsCutShort()
    {
        const TestWindow page(cutTexts);
        const auto tip = [&page] {
            const auto *shown = page.window()->property("toolTip").value<QObject *>();
            return shown->property("visible").toBool() ? shown->property("text").toString()
                                                       : QString();
        };
        const auto pointAt = [&page](const QString &name) {
            QTest::mouseMove(page.window(), page.named(name)->mapToScene({ 5, 5 }).toPoint());
        };
        pointAt(u"cut"_s);
        QTRY_COMPARE(tip(), u"Uzun bir <b>ad</b>"_s);
        pointAt(u"icon"_s);
        QCOMPARE(tip(), QString());
        QTRY_COMPARE(tip(), u"Harita"_s);
        page.press("Tab", u"icon"_s);
        QCOMPARE(tip(), QString());
        QTRY_COMPARE(tip(), u"Sığmayan bir metin"_s);
        page.press("A");
        QCOMPARE(tip(), QString());
        // What a control within a control does is told at that one alone.
        page.press("X Tab", u"number"_s);
        QTRY_COMPARE(tip(), u"Metni temizle"_s);
        page.press("Shift+Backtab");
        QTest::qWait(700);
        QCOMPARE(tip(), QString());
    }

    void surfacesAreWholeAtEveryScale()
    {
        const TestWindow page(surfaces);
        const QList<QScreen *> screens = QGuiApplication::screens();
        for (QScreen *screen : screens) {
            page.window()->setPosition(screen->geometry().topLeft());
            QTRY_COMPARE(page.window()->screen(), screen);
            const qreal scale = screen->devicePixelRatio();
            const QImage picture = page.window()->grabWindow();
            QCOMPARE(picture.size(), (QSizeF(900, 700) * scale).toSize());
            for (const QString &name : { u"card"_s, u"chip"_s, u"column"_s, u"month"_s }) {
                const QQuickItem *item = page.named(name);
                const QColor fill = item->property("color").value<QColor>();
                const auto colorAt = [&](qreal x, qreal y) {
                    return picture.pixelColor((item->mapToScene({ x, y }) * scale).toPoint());
                };
                const auto isFilled = [&](qreal x, qreal y) {
                    const QColor seen = colorAt(x, y);
                    return qAbs(seen.red() - fill.red()) < 3
                        && qAbs(seen.green() - fill.green()) < 3
                        && qAbs(seen.blue() - fill.blue()) < 3;
                };
                const qreal right = item->width() - 3;
                const qreal bottom = item->height() - 3;
                // Each pixel of the two lines through the middle, and none of the corners.
                const QByteArray where = (name + u" at "_s + QString::number(scale)).toUtf8();
                for (qreal x = 3; x < right; x += 1 / scale)
                    QVERIFY2(isFilled(x, item->height() / 2),
                             where + ", x " + QByteArray::number(x));
                for (qreal y = 3; y < bottom; y += 1 / scale)
                    QVERIFY2(isFilled(item->width() / 2, y),
                             where + ", y " + QByteArray::number(y));
                for (const QPointF corner :
                     { QPointF(1, 1), QPointF(right + 2, 1), QPointF(1, bottom + 2),
                       QPointF(right + 2, bottom + 2) })
                    QVERIFY2(!isFilled(corner.x(), corner.y()), where);
            }
        }
    }

    void surfacesAreDrawnAnewForAnotherScale()
    {
        const TestWindow page(surface);
        const auto picture = [&page] { return page.window()->grabWindow(); };
        QCOMPARE(picture().size(), QSize(900, 700));
        page.window()->setPosition(QGuiApplication::screens().constLast()->geometry().topLeft());
        QTRY_COMPARE(page.window()->devicePixelRatio(), 3.0);
        const QImage moved = picture();
        QCOMPARE(moved.size(), QSize(2700, 2100));
        page.window()->setProperty("rounding", 30);
        QVERIFY(picture() != moved);
        page.window()->setProperty("rounding", 20);
        QCOMPARE(picture(), moved);
    }

    void shownTexts()
    {
        const auto lines = [](const QString &text) { return ShownText::of(text, true); };
        const auto paragraphs = [](const QString &text) { return ShownText::of(text, false); };
        QCOMPARE(lines(u"İstanbul – 5 °C"_s), u"İstanbul – 5 °C"_s);
        QCOMPARE(lines(u"a\nb\rc\u2028d\u2029e\u0085f"_s), u"a b c d e f"_s);
        QCOMPARE(lines(u"\u202eVQ1\u2067 \u200fمطار"_s), u"VQ1 مطار"_s);
        QCOMPARE(paragraphs(u"a\n\nb\u2029c"_s), u"a\n\nb\nc"_s);
        QCOMPARE(paragraphs(QString(1'000'000, u'\n')).count(u'\n'), ShownText::mostParagraphs);
        QCOMPARE(lines(QString(1'000'000, u'\u202e')), u"…"_s);
        QCOMPARE(ShownText::of(QString(999, u'x'), true, true).size(), 41);
        // No half of a character is left at the end.
        const QString cut = lines(QString(ShownText::longestLine - 1, u'x') + u"🛫🛫"_s);
        QCOMPARE(cut, QString(ShownText::longestLine - 1, u'x') + u'…');
    }

    void movedDays()
    {
        for (const auto &[from, key, to] :
             { std::tuple(at(2028, 3, 1), Qt::Key_Left, at(2028, 2, 29)),
               { at(2026, 12, 31), Qt::Key_Right, at(2027, 1, 1) },
               { at(2026, 1, 28), Qt::Key_Down, at(2026, 2, 4) },
               { at(2026, 1, 3), Qt::Key_Up, at(2025, 12, 27) },
               { at(2026, 1, 31), Qt::Key_PageDown, at(2026, 2, 28) },
               { at(2026, 1, 31), Qt::Key_PageUp, at(2025, 12, 31) },
               { at(2028, 2, 10), Qt::Key_End, at(2028, 2, 29) },
               { at(2028, 2, 10), Qt::Key_Home, at(2028, 2, 1) },
               { at(2028, 2, 1), Qt::Key_Tab, at(2028, 2, 1) } })
            QCOMPARE(DateEditing().moved(from, key), to);
    }

    void clocksPutForward()
    {
        // A time that is skipped on that day, or there twice.
        for (const auto &[zone, day, time] :
             { std::tuple("America/New_York", QDate(2026, 3, 8), QTime(2, 30)),
               { "Asia/Beirut", QDate(2022, 3, 27), QTime(0, 0) },
               { "Europe/London", QDate(2026, 10, 25), QTime(1, 30) } }) {
            setZone(zone);
            // The day counts, forwards, backwards and past it.
            const DateEditing editing;
            const QDateTime eve(day.addDays(-1), time);
            const QDateTime morrow(day.addDays(1), time);
            QVERIFY(editing.addDays(eve, 1).isValid());
            QCOMPARE(editing.addDays(eve, 1).date(), day);
            QCOMPARE(editing.addDays(morrow, -1).date(), day);
            QCOMPARE(editing.addDays(eve, 2), morrow);
            QCOMPARE(editing.dayInGrid(eve, editing.gridRow(eve) + 1).date(), day);
        }
    }

    void textThatFits()
    {
        const TestWindow page(field); // which brings the application's font
        const DateEditing editing;
        const QFont font = QGuiApplication::font();
        const QDateTime moment = at(2026, 12, 5);
        // The full text of every day fits the room for the widest.
        const qreal widest = editing.widestFullText(font);
        for (QDateTime day = at(2026, 1, 1); day.date().year() == 2026; day = day.addDays(1))
            QCOMPARE(editing.fittingText(day, font, widest), editing.fullText(day));
        QCOMPARE(editing.fittingText(moment, font, 500), u"5 Aralık 2026 Cumartesi"_s);
        QCOMPARE(editing.fittingText(moment, font, 110), u"5 Ara 2026 Cmt"_s);
        QCOMPARE(editing.fittingText(moment, font, 0), u"5 Ara"_s);
    }

    void monthLeavesWithoutChange()
    {
        const TestWindow page(field);
        for (const bool isEscaped : { true, false }) {
            page.press("Space", u"field"_s);
            QTRY_VERIFY(isMonthOpen(page));
            // Every opening starts from the field's day.
            QTRY_VERIFY(page.told(u"30 Aralık 2026 Çarşamba"_s)->state().focused);
            // Tab goes round within the month: two buttons and the days.
            page.press("Right Tab Tab Tab");
            QVERIFY(page.told(u"31 Aralık 2026 Perşembe"_s)->state().focused);
            QVERIFY(page.told(u"30 Aralık 2026 Çarşamba"_s)->state().selected);
            if (isEscaped)
                page.press("Esc");
            else
                QTest::mouseClick(page.window(), Qt::LeftButton, {}, QPoint(700, 600));
            QTRY_COMPARE(page.focused(), page.named(u"field"_s));
            QTRY_VERIFY(!isMonthOpen(page));
        }
        QCOMPARE(page.state("edits").toInt(), 0);
    }

    void monthByPointerAndAssistiveTechnology()
    {
        const TestWindow page(field);
        page.click(page.named(u"field"_s));
        QTRY_VERIFY(page.called(u"Sonraki ay"_s));
        // The first day shown is the Monday before the month's first.
        QAccessibleInterface *days = accessible(page.focused());
        QCOMPARE(days->child(0)->text(QAccessible::Name), u"30 Kasım 2026 Pazartesi"_s);
        QCOMPARE(days->childCount(), 42);
        page.click(page.called(u"Sonraki ay"_s));
        // The days keep the keyboard.
        page.press("PgDown");
        QVERIFY(page.told(u"28 Şubat 2027 Pazar"_s)->state().focused);
        page.click(page.called(u"Önceki ay"_s));
        page.click(page.called(u"1 Ocak 2027 Cuma"_s));
        QTRY_COMPARE(page.state("day").toDateTime(), at(2027, 1, 1));
        QTRY_VERIFY(!isMonthOpen(page));

        pressAccessibly(page.named(u"field"_s));
        QTRY_VERIFY(isMonthOpen(page));
        // The arrows go on from where assistive technology went.
        focusAccessibly(page.told(u"12 Ocak 2027 Salı"_s));
        page.press("Right");
        QVERIFY(page.told(u"13 Ocak 2027 Çarşamba"_s)->state().focused);
        // A day of the month before, shown in the same grid.
        pressAccessibly(page.told(u"31 Aralık 2026 Perşembe"_s));
        QCOMPARE(page.state("day").toDateTime(), at(2026, 12, 31));
    }

private:
    static bool isMonthOpen(const TestWindow &page) { return page.called(u"Takvim"_s); }
    static void setZone(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        ::tzset();
    }
};

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
