#include "ControlPage.h"

using namespace Qt::StringLiterals;

/// The shared controls under keyboard, pointer and assistive technology.
class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QAccessible::setActive(true);
        prepareApplication();
    }

    void segmentsAreOneTabStop();
    void segmentsPressed();
    void menuByKeyboard();
    void menuByPointerAndAssistiveTechnology();
    void menuIgnoresTheWheel();
    void sheetKeepsTheKeyboard();
    void sheetClosesOnlyOnPurpose();
    void sheetStartsAfresh();
    void inputField();
    void busyButtonIsNotPressed();
};

namespace {

const QByteArray segments = R"(
    property int choice: 0
    Row {
        IconButton { objectName: "before"; symbol: "map"; text: "Önce" }
        SegmentedControl {
            objectName: "segments"; label: "Tür"; titles: ["Bir", "İki", "Üç"]
            currentIndex: page.choice; onChosen: index => page.choice = index
        }
        IconButton { objectName: "after"; symbol: "map"; text: "Sonra" }
    })";

const QByteArray menu = R"(
    property int choice: 1
    property int choices: 0
    PopUpMenu {
        objectName: "menu"; label: "Kabin"; titles: ["Bir", "İki", "Üç"]; currentIndex: page.choice
        onActivated: index => { page.choice = index; ++page.choices }
    })";

const QByteArray sheet = R"(
    property int made: 0
    IconButton { objectName: "opener"; symbol: "map"; text: "Aç"; onClicked: modalSheet.open() }
    IconButton { y: 60; objectName: "behind"; symbol: "map"; text: "Arkada" }
    Sheet {
        id: modalSheet
        title: "Başlık"; sheetWidth: 400; sheetHeight: 300
        FocusScope {
            focus: true
            Component.onCompleted: ++page.made
            SheetHeader { id: header; width: parent.width; sheet: modalSheet }
            InputField { objectName: "field"; y: header.height; width: 300; label: "Alan"; focus: true }
            DateField {
                objectName: "date"; y: 150; label: "Gün"; value: new Date(2026, 11, 5)
            }
        }
    })";

} // namespace

void ControlsTest::segmentsAreOneTabStop()
{
    const WarningCatcher catcher;
    const ControlPage page(segments);
    QVERIFY(page.isReady());
    page.focus(u"before"_s);
    page.key(Qt::Key_Tab);
    QCOMPARE(page.focusedName(), u"Bir"_s);
    page.key(Qt::Key_Left);
    QCOMPARE(page.state("choice").toInt(), 0);
    page.key(Qt::Key_Right);
    page.key(Qt::Key_Down);
    page.key(Qt::Key_Right);
    QCOMPARE(page.state("choice").toInt(), 2);
    QCOMPARE(page.focusedName(), u"Üç"_s);
    QVERIFY(page.focused()->property("visualFocus").toBool());
    page.key(Qt::Key_Tab);
    QCOMPARE(page.focusedName(), u"Sonra"_s);
    page.key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(page.focusedName(), u"Üç"_s);
    page.key(Qt::Key_Up);
    QCOMPARE(page.state("choice").toInt(), 1);
    QCOMPARE(WarningCatcher::warnings(), QStringList());
}

void ControlsTest::segmentsPressed()
{
    const ControlPage page(segments);
    QVERIFY(page.isReady());
    page.click(page.called(u"İki"_s));
    QCOMPARE(page.state("choice").toInt(), 1);
    // The segment that holds stays chosen when it is pressed again.
    page.click(page.called(u"İki"_s));
    QCOMPARE(accessible(page.called(u"İki"_s))->role(), QAccessible::RadioButton);
    QVERIFY(accessible(page.called(u"İki"_s))->state().checked);
    pressAccessibly(page.called(u"Üç"_s));
    QCOMPARE(page.state("choice").toInt(), 2);
    QVERIFY(!accessible(page.called(u"İki"_s))->state().checked);
}

void ControlsTest::menuByKeyboard()
{
    const ControlPage page(menu);
    QVERIFY(page.isReady());
    page.focus(u"menu"_s);
    QCOMPARE(page.focusedName(), u"Kabin: İki"_s);
    for (const Qt::Key opener : { Qt::Key_Return, Qt::Key_Space }) {
        page.key(opener);
        QTRY_VERIFY(page.called(u"Üç"_s));
        page.key(Qt::Key_Up);
        page.key(Qt::Key_Escape);
        QTRY_VERIFY(!page.called(u"Üç"_s));
        QCOMPARE(page.state("choices").toInt(), 0);
    }
    page.key(Qt::Key_Return);
    QTRY_VERIFY(page.called(u"Üç"_s));
    page.key(Qt::Key_Down);
    page.key(Qt::Key_Return);
    QTRY_VERIFY(!page.called(u"Üç"_s));
    QCOMPARE(page.state("choice").toInt(), 2);
    // Closed, the arrows choose at once.
    page.key(Qt::Key_Up);
    QCOMPARE(page.focusedName(), u"Kabin: İki"_s);
    QCOMPARE(page.state("choices").toInt(), 2);
    // A change from outside is shown, after choices by hand, too.
    page.window()->setProperty("choice", 0);
    QCOMPARE(page.focusedName(), u"Kabin: Bir"_s);
}

void ControlsTest::menuByPointerAndAssistiveTechnology()
{
    const ControlPage page(menu);
    QVERIFY(page.isReady());
    page.click(page.named(u"menu"_s));
    QTRY_VERIFY(page.called(u"Bir"_s));
    QTRY_VERIFY(page.called(u"Bir"_s)->height() > 0);
    page.click(page.called(u"Bir"_s));
    QTRY_COMPARE(page.state("choice").toInt(), 0);
    QTRY_VERIFY(!page.called(u"Üç"_s));

    pressAccessibly(page.named(u"menu"_s));
    QTRY_VERIFY(page.called(u"Üç"_s));
    pressAccessibly(page.called(u"Üç"_s));
    QTRY_COMPARE(page.state("choice").toInt(), 2);
}

void ControlsTest::menuIgnoresTheWheel()
{
    const ControlPage page(menu);
    QVERIFY(page.isReady());
    page.focus(u"menu"_s);
    const QPoint place(20, 15);
    QTest::mouseMove(page.window(), place);
    QWheelEvent wheel(place, page.window()->mapToGlobal(place), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(page.window(), &wheel);
    QCOMPARE(page.state("choices").toInt(), 0);
}

void ControlsTest::sheetKeepsTheKeyboard()
{
    const WarningCatcher catcher;
    const ControlPage page(sheet);
    QVERIFY(page.isReady());
    page.focus(u"opener"_s);
    page.key(Qt::Key_Return);
    QTRY_COMPARE(page.focusedName(), u"Alan"_s);
    QCOMPARE(accessible(page.called(u"Başlık"_s))->role(), QAccessible::Dialog);
    QStringList round;
    for (int i = 0; i < 3; ++i) {
        page.key(Qt::Key_Tab);
        round.append(page.focusedName());
    }
    QCOMPARE(round, QStringList({ u"Gün: 5 Aralık 2026 Cumartesi"_s, u"Kapat"_s, u"Alan"_s }));
    page.key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(page.focusedName(), u"Kapat"_s);
    page.key(Qt::Key_Return);
    QTRY_COMPARE(page.focused(), page.named(u"opener"_s));
    QTRY_VERIFY(page.focused()->property("visualFocus").toBool());
    QCOMPARE(WarningCatcher::warnings(), QStringList());
}

void ControlsTest::sheetClosesOnlyOnPurpose()
{
    const ControlPage page(sheet);
    QVERIFY(page.isReady());
    page.click(page.named(u"opener"_s));
    QTRY_COMPARE(page.focusedName(), u"Alan"_s);
    // Neither a click beside it, nor what lies behind, nor the Escape of a panel in it closes it.
    QTest::mouseClick(page.window(), Qt::LeftButton, {}, QPoint(30, 600));
    page.click(page.named(u"behind"_s));
    page.focus(u"date"_s);
    page.key(Qt::Key_Space);
    QTRY_VERIFY(page.called(u"Takvim"_s));
    page.key(Qt::Key_Escape);
    QTRY_VERIFY(!page.called(u"Takvim"_s));
    QTRY_COMPARE(page.focused(), page.named(u"date"_s));
    QVERIFY(page.called(u"Başlık"_s));
    page.key(Qt::Key_Escape);
    QTRY_COMPARE(page.focused(), page.named(u"opener"_s));
}

void ControlsTest::sheetStartsAfresh()
{
    const ControlPage page(sheet);
    QVERIFY(page.isReady());
    QCOMPARE(page.state("made").toInt(), 0);
    page.focus(u"opener"_s);
    for (int opening = 1; opening <= 2; ++opening) {
        page.key(Qt::Key_Return);
        QTRY_COMPARE(page.focusedName(), u"Alan"_s);
        QCOMPARE(page.state("made").toInt(), opening);
        QCOMPARE(page.named(u"field"_s)->property("text").toString(), QString());
        QTest::keyClick(page.window(), 'a');
        QCOMPARE(page.named(u"field"_s)->property("text").toString(), u"a"_s);
        page.key(Qt::Key_Escape);
        QTRY_VERIFY(!page.named(u"field"_s));
        QTRY_COMPARE(page.focused(), page.named(u"opener"_s));
    }
}

void ControlsTest::inputField()
{
    const ControlPage page(R"(InputField {
        objectName: "field"; width: 200; label: "Ara"; prompt: "Şehir"; clearable: true
    })");
    QVERIFY(page.isReady());
    page.focus(u"field"_s);
    QCOMPARE(page.focusedName(), u"Ara"_s);
    QCOMPARE(accessible(page.focused())->role(), QAccessible::EditableText);
    QVERIFY(!page.called(u"Metni temizle"_s));
    for (const char letter : { 'a', '<', 'b', '>' })
        QTest::keyClick(page.window(), letter);
    page.key(Qt::Key_Tab);
    QCOMPARE(page.focusedName(), u"Metni temizle"_s);
    page.key(Qt::Key_Space);
    QCOMPARE(page.named(u"field"_s)->property("text").toString(), QString());
    QCOMPARE(page.focusedName(), u"Ara"_s);
}

void ControlsTest::busyButtonIsNotPressed()
{
    const ControlPage page(R"(
        property bool busy: false
        property int presses: 0
        PrimaryButton {
            objectName: "button"; symbol: "magnifyingglass"; text: "Bul"; busyText: "Aranıyor..."
            busy: page.busy; onClicked: { page.busy = true; ++page.presses }
        })");
    QVERIFY(page.isReady());
    QQuickItem *button = page.named(u"button"_s);
    const qreal width = button->width();
    page.focus(u"button"_s);
    page.key(Qt::Key_Return);
    page.key(Qt::Key_Return);
    page.click(button);
    pressAccessibly(button);
    QCOMPARE(page.state("presses").toInt(), 1);
    QCOMPARE(accessible(button)->text(QAccessible::Name), u"Aranıyor..."_s);
    QVERIFY(!button->isEnabled());
    QCOMPARE(button->width(), width);
    page.window()->setProperty("busy", false);
    QTRY_COMPARE(page.focused(), button);
    QVERIFY(button->property("visualFocus").toBool());
}

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
