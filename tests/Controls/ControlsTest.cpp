#include "Controls/Look/Motion.h"
#include "Controls/Look/ShownText.h"
#include "support/WindowTesting.h"

#include <QRegularExpression>
#include <QScreen>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QByteArray segments = R"(
    property int choice: 0
    Row {
        IconButton { objectName: "before"; symbol: "map"; text: "Önce" }
        SegmentedControl {
            objectName: "segments"; label: "Tür"; titles: ["Bir", "İki", "Üç"]
            currentIndex: page.choice; onChosen: index => page.choice = index
        }
        IconButton { symbol: "map"; text: "Sonra" }
    })";

const QByteArray menu = R"(
    property int choice: 1
    property int choices: 0
    PopUpMenu {
        objectName: "menu"; label: "Kabin"; titles: ["Bir", "İki", "Üç"]; currentIndex: page.choice
        onActivated: index => { page.choice = index; ++page.choices }
    })";

const QByteArray cutTexts = R"(
    TextTip { window: page }
    PlainText { objectName: "cut"; width: 60; elide: Text.ElideRight; text: "Uzun bir <b>ad</b>" }
    Column {
        y: 200
        IconButton { objectName: "icon"; symbol: "map"; text: "Harita" }
        BaseButton {
            width: 60; text: "düğme"
            contentItem: PlainText { elide: Text.ElideRight; text: "Sığmayan bir metin" }
        }
    })";

const QByteArray surface = R"(
    property real rounding: 20
    RoundedSurface { x: 20; y: 20; width: 200; height: 90; radius: page.rounding; color: "red" })";

} // namespace

/// The shared controls under keyboard, pointer and assistive technology.
class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareWindows(); }
    void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }

    void segmentsAreOneTabStop()
    {
        const TestWindow page(segments);
        page.focus(u"before"_s);
        page.key(Qt::Key_Tab);
        QCOMPARE(page.focusedName(), u"Bir"_s);
        page.key(Qt::Key_Left);
        QCOMPARE(page.state("choice"), 0);
        page.key(Qt::Key_Right);
        page.key(Qt::Key_Down);
        page.key(Qt::Key_Right);
        QCOMPARE(page.state("choice"), 2);
        QCOMPARE(page.focusedName(), u"Üç"_s);
        QVERIFY(page.focused()->property("visualFocus").toBool());
        page.key(Qt::Key_Tab);
        QCOMPARE(page.focusedName(), u"Sonra"_s);
        page.key(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(page.focusedName(), u"Üç"_s);
    }

    void menuByKeyboardPointerAndAssistiveTechnology()
    {
        const TestWindow page(menu);
        const auto value = [&page] {
            return accessible(page.named(u"menu"_s))->text(QAccessible::Description);
        };
        page.focus(u"menu"_s);
        QCOMPARE(page.focusedName(), u"Kabin"_s);
        QCOMPARE(value(), u"İki"_s);
        const QPoint place(20, 15);
        QTest::mouseMove(page.window(), place);
        QWheelEvent wheel(place, page.window()->mapToGlobal(place), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(page.window(), &wheel);
        for (const Qt::Key opener : { Qt::Key_Return, Qt::Key_Space }) {
            page.key(opener);
            QTRY_VERIFY(page.told(u"Üç"_s));
            page.key(Qt::Key_Up);
            page.key(Qt::Key_Escape);
            QTRY_VERIFY(!page.told(u"Üç"_s));
        }
        QCOMPARE(page.state("choices"), 0);
        page.key(Qt::Key_Return);
        QTRY_VERIFY(page.told(u"Üç"_s));
        page.key(Qt::Key_Down);
        page.key(Qt::Key_Return);
        QTRY_VERIFY(!page.told(u"Üç"_s));
        QCOMPARE(page.state("choice"), 2);
        // Closed, the arrows choose at once.
        page.key(Qt::Key_Up);
        QCOMPARE(value(), u"İki"_s);
        QCOMPARE(page.state("choices"), 2);
        // A change from outside is shown, after choices by hand, too.
        page.window()->setProperty("choice", 2);
        QCOMPARE(value(), u"Üç"_s);

        page.click(page.named(u"menu"_s));
        QTRY_VERIFY(page.called(u"Bir"_s) && page.called(u"Bir"_s)->height() > 0);
        page.click(page.called(u"Bir"_s));
        QTRY_COMPARE(page.state("choice"), 0);
        QTRY_VERIFY(!page.told(u"Üç"_s));
        pressAccessibly(page.named(u"menu"_s));
        QTRY_VERIFY(page.told(u"Üç"_s));
        QVERIFY(page.told(u"Bir"_s)->state().selected);
        pressAccessibly(page.told(u"Üç"_s));
        QTRY_COMPARE(page.state("choice"), 2);
    }

    void aTipTellsWhatIsCutShort()
    {
        const TestWindow page(cutTexts);
        const auto tips = [&page] { return page.itemsOfType("TextTip"); };
        const auto pointAt = [&page](const QString &name) {
            QTest::mouseMove(page.window(), page.named(name)->mapToScene({ 5, 5 }).toPoint());
        };
        pointAt(u"cut"_s);
        QTRY_COMPARE(tips().size(), 1);
        QCOMPARE(page.textIn(tips().constFirst()), u"Uzun bir <b>ad</b>"_s);
        pointAt(u"icon"_s);
        QVERIFY(tips().isEmpty());
        QTRY_COMPARE(tips().size(), 1);
        QCOMPARE(page.textIn(tips().constFirst()), u"Harita"_s);
        page.focus(u"icon"_s);
        page.key(Qt::Key_Tab);
        QVERIFY(tips().isEmpty());
        QTRY_COMPARE(tips().size(), 1);
        QCOMPARE(page.textIn(tips().constFirst()), u"Sığmayan bir metin"_s);
    }

    void surfacesAreDrawnAnewForAnotherScale()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        const TestWindow page(surface);
        const auto picture = [&page] { return page.window()->grabWindow(); };
        QCOMPARE(picture().size(), QSize(900, 700));
        page.window()->setPosition(QGuiApplication::screens().at(1)->geometry().topLeft());
        QTRY_COMPARE(page.window()->devicePixelRatio(), 2.0);
        const QImage moved = picture();
        QCOMPARE(moved.size(), QSize(1800, 1400));
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

    void springCurveFollowsTheSpring()
    {
        const Spring spring(0.35, 0.7);
        const QVariantList curve = spring.bezierSpline();
        QCOMPARE(curve.size() % 6, 0);
        QCOMPARE(curve.at(curve.size() - 2).toDouble(), 1.0);
        QCOMPARE(curve.constLast().toDouble(), 1.0);
        // It overshoots by exp(-πd/√(1-d²)) of the way, as a spring of this damping does.
        double highest = 0;
        for (double t = 0; t < spring.settlingTime(); t += 0.001)
            highest = std::max(highest, spring.position(t));
        QVERIFY(std::abs(highest - 1 - std::exp(-M_PI * 0.7 / std::sqrt(1 - 0.49))) < 0.001);
    }
};

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
