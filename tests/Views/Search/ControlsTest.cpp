#include "support/WindowTesting.h"

#include <QRegularExpression>

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
        QVERIFY(page.isReady());
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
        page.key(Qt::Key_Up);
        QCOMPARE(page.state("choice"), 1);
    }

    void menuByKeyboard()
    {
        const TestWindow page(menu);
        QVERIFY(page.isReady());
        page.focus(u"menu"_s);
        QCOMPARE(page.focusedName(), u"Kabin: İki"_s);
        for (const Qt::Key opener : { Qt::Key_Return, Qt::Key_Space }) {
            page.key(opener);
            QTRY_VERIFY(page.called(u"Üç"_s));
            page.key(Qt::Key_Up);
            page.key(Qt::Key_Escape);
            QTRY_VERIFY(!page.called(u"Üç"_s));
            QCOMPARE(page.state("choices"), 0);
        }
        page.key(Qt::Key_Return);
        QTRY_VERIFY(page.called(u"Üç"_s));
        page.key(Qt::Key_Down);
        page.key(Qt::Key_Return);
        QTRY_VERIFY(!page.called(u"Üç"_s));
        QCOMPARE(page.state("choice"), 2);
        // Closed, the arrows choose at once.
        page.key(Qt::Key_Up);
        QCOMPARE(page.focusedName(), u"Kabin: İki"_s);
        QCOMPARE(page.state("choices"), 2);
        // A change from outside is shown, after choices by hand, too.
        page.window()->setProperty("choice", 0);
        QCOMPARE(page.focusedName(), u"Kabin: Bir"_s);
    }

    void menuByPointerAndAssistiveTechnology()
    {
        const TestWindow page(menu);
        QVERIFY(page.isReady());
        page.focus(u"menu"_s);
        const QPoint place(20, 15);
        QTest::mouseMove(page.window(), place);
        QWheelEvent wheel(place, page.window()->mapToGlobal(place), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(page.window(), &wheel);
        QCOMPARE(page.state("choices"), 0);

        page.click(page.named(u"menu"_s));
        QTRY_VERIFY(page.called(u"Bir"_s));
        QTRY_VERIFY(page.called(u"Bir"_s)->height() > 0);
        page.click(page.called(u"Bir"_s));
        QTRY_COMPARE(page.state("choice"), 0);
        QTRY_VERIFY(!page.called(u"Üç"_s));

        pressAccessibly(page.named(u"menu"_s));
        QTRY_VERIFY(page.called(u"Üç"_s));
        pressAccessibly(page.called(u"Üç"_s));
        QTRY_COMPARE(page.state("choice"), 2);
    }
};

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
