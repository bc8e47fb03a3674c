#include "platform/forms/calendar.h"
#include "platform/forms/form.h"
#include "platform/forms/listbox.h"
#include "platform/forms/mnemonics.h"
#include "platform/forms/theme/roles.h"
#include "platform/forms/wrongboxes.h"
#include "support/caughterrors.h"
#include "support/errorof.h"
#include "support/fixedclock.h"
#include "support/modaldriver.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A screen with one control of each kind that writes down what happens to it.
class Sample : public Form
{
public:
    Sample()
    {
        auto* column = new QVBoxLayout(this);
        QStringList names = {u"first"_s, u"second"_s, u"memo"_s, u"list"_s, u"button"_s};
        for (QWidget* control : std::initializer_list<QWidget*>{first, second, memo, list, button}) {
            control->setObjectName(names.takeFirst());
            column->addWidget(control);
        }
        onLostFocus(first, &Sample::first_LostFocus);
        onGotFocus(second, &Sample::second_GotFocus);
        onClick(button, &Sample::button_Click);
        onDblClick(list, &Sample::list_DblClick);
        onKey(Qt::Key_F2, &Sample::F2);
        onKeyPress(second, [this](int& code) {
            codes << code;
            if (code == 'X')
                code = 0;
        });
        selectOnFocus(second);
    }

    using Form::focusOn;
    using Form::hideFrame;
    using Form::onEnter;
    using Form::onKeyPress;
    void F2() { log << u"F2"_s; }

    QLineEdit* first = new QLineEdit;
    QLineEdit* second = new QLineEdit;
    QPlainTextEdit* memo = new QPlainTextEdit;
    ListBox* list = new ListBox;
    QPushButton* button = new QPushButton(u"OK"_s);
    QStringList log;
    QList<int> codes;
    std::function<void()> onLoss = [] {};

protected:
    void Form_Load() override
    {
        log << u"load"_s;
        first->clear();
    }
    void Form_Activate() override { log << u"activate"_s; }
    void Form_Unload() override { log << u"unload"_s; }

private:
    void first_LostFocus()
    {
        log << u"first lost"_s;
        onLoss();
    }
    void second_GotFocus() { log << u"second got"_s; }
    void button_Click() { log << u"click"_s; }
    void list_DblClick() { log << list->List(list->ListIndex()); }
};

class Forms : public testing::Test
{
protected:
    Forms()
    {
        form.Show();
        settle();
        form.log.clear();
    }

    /// Nothing is written down but what comes behind this.
    void focusAndForget(const QString& control)
    {
        screen.focus(control);
        form.log.clear();
    }

    static bool waits() { return QGuiApplication::overrideCursor(); }

    Sample form;
    ScreenDriver screen{form};
    const QStringList moved = {u"first lost"_s, u"second got"_s};
};

} // namespace

TEST_F(Forms, EnterMovesOnButPressesAButtonAndBreaksALine)
{
    screen.focus(u"first"_s);
    for (const QString& next : {u"second"_s, u"memo"_s, u"memo"_s}) {
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.focused(), next);
    }
    EXPECT_EQ(form.memo->toPlainText(), u"\n");
    focusAndForget(u"button"_s);
    screen.press(Qt::Key_Enter);
    EXPECT_EQ(form.log, QStringList{u"click"_s});

    form.onEnter(form.first, &Sample::F2);
    focusAndForget(u"first"_s);
    screen.press(Qt::Key_Return);
    EXPECT_EQ(form.log, QStringList{u"F2"_s}) << "Enter has a handler of its own there";
}

TEST_F(Forms, TheMenuBarKeepsItsKeys)
{
    auto* bar = new QMenuBar(&form);
    int runs = 0;
    const auto count = [&runs] { ++runs; };
    QObject::connect(bar->addAction(u"Agenda"_s), &QAction::triggered, &form, count);
    auto* menu = new LetterMenu(u"Outros"_s, &form);
    QObject::connect(menu->addAction(u"Ações"_s), &QAction::triggered, &form, count);
    bar->addMenu(menu);
    Mnemonics::assign(form);
    form.layout()->setMenuBar(bar);
    bar->show();
    bar->setFocus();
    bar->setActiveAction(bar->actions().first());
    screen.press(Qt::Key_Return);
    EXPECT_EQ(runs, 1);
    bar->setFocus();
    screen.press(Qt::Key_A);
    EXPECT_EQ(runs, 2) << "a letter does without Alt here";
    screen.focus(u"first"_s);
    screen.press(Qt::Key_O, Qt::AltModifier);
    ASSERT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_A);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(form.first->text(), u"");
    bar->setFocus();
    screen.press(Qt::Key_Escape);
    EXPECT_TRUE(form.isLoaded());
}

TEST_F(Forms, AltAndALetterPressAButtonAsTheMouseDoes)
{
    const auto letter = [this](Qt::Key key) { screen.press(key, Qt::AltModifier); };
    focusAndForget(u"first"_s);
    letter(Qt::Key_O);
    EXPECT_EQ(form.log, (QStringList{u"first lost"_s, u"click"_s}));

    focusAndForget(u"first"_s);
    form.onLoss = [this] { form.button->setEnabled(false); };
    letter(Qt::Key_O);
    EXPECT_EQ(form.log.count(u"click"_s), 0) << "it cannot be pressed any more";
    form.button->setEnabled(true);
    form.onLoss = [] { MsgBox(u"stop"_s, u"title"_s); };
    ScriptedDialogs dialogs;
    dialogs.expect(u"stop"_s);
    focusAndForget(u"first"_s);
    letter(Qt::Key_O);
    EXPECT_EQ(form.log, QStringList{u"first lost"_s}) << "the box was the answer";

    form.onLoss = [] {};
    screen.focus(u"first"_s);
    letter(Qt::Key_Q);
    screen.press(Qt::Key_2, Qt::AltModifier | Qt::ControlModifier);
    EXPECT_EQ(form.first->text(), u"2") << "the third level of a key types, Alt alone does not";
}

TEST_F(Forms, LettersAreUnderlinedWhileAltIsHeld)
{
    const QImage plain = form.button->grab().toImage();
    QTest::keyPress(form.first, Qt::Key_Alt);
    EXPECT_NE(form.button->grab().toImage(), plain);
    EXPECT_EQ(form.button->text(), u"OK");
    QTest::keyRelease(form.first, Qt::Key_Alt);
    EXPECT_EQ(form.button->grab().toImage(), plain);
    QTest::keyPress(form.first, Qt::Key_Alt);
    Sample other;
    other.Show();
    settle();
    EXPECT_EQ(form.button->grab().toImage(), plain) << "the key is released over another window";
    other.Unload();
}

TEST_F(Forms, ABoxIsPointedAtUntilItChanges)
{
    const auto pointed = [this] {
        QStringList names;
        for (const QWidget* box : form.findChildren<QWidget*>())
            if (box->property("wrong").toBool())
                names << box->objectName();
        return names.join(u' ');
    };
    QComboBox combo(&form);
    combo.setObjectName(u"combo"_s);
    combo.addItems({u"a"_s, u"b"_s});
    combo.show();
    screen.focus(u"first"_s);
    const QFont font = form.second->font();
    pointAt({form.second, form.memo, &combo});
    EXPECT_EQ(pointed(), u"second memo combo");
    EXPECT_EQ(form.second->font(), font);
    EXPECT_EQ(screen.focused(), u"first");
    screen.type(u"second"_s, u"a"_s);
    EXPECT_EQ(pointed(), u"memo combo");
    combo.setCurrentIndex(1);
    form.memo->setPlainText(u"b"_s);
    EXPECT_EQ(pointed(), u"");
    pointAtAnyOf({form.first, form.second});
    form.first->setText(u"c"_s);
    EXPECT_EQ(pointed(), u"") << "what one of them puts right";
    pointAt({form.first, form.memo});
    form.first->hide();
    EXPECT_EQ(pointed(), u"memo");
    form.Unload();
    EXPECT_EQ(pointed(), u"");
}

TEST_F(Forms, AComboBoxsListShowsItsRowsWholeAndTheFirstDownTakesTheFirst)
{
    QComboBox combo(&form);
    combo.setObjectName(u"combo"_s);
    combo.addItems({u"a"_s, u"b - a text that is far longer than the box is wide"_s});
    form.Unload();
    form.Show();
    combo.show();
    combo.resize(60, 40);
    combo.setCurrentIndex(-1);
    screen.focus(u"combo"_s);
    screen.press(Qt::Key_Down);
    EXPECT_EQ(combo.currentIndex(), 0);
    combo.setCurrentIndex(-1);
    for (const int chosen : {0, 1}) {
        const int height = chosen == 0 ? 64 : 30; // drawn larger and smaller than it was opened before
        combo.resize(60, height);
        combo.showPopup();
        settle();
        const QWidget& list = *combo.view()->viewport();
        EXPECT_EQ(combo.view()->visualRect(combo.model()->index(1, 0)),
                  QRect(0, height, list.width(), height));
        EXPECT_EQ(list.height(), 2 * height);
        EXPECT_GT(list.width(), combo.fontMetrics().horizontalAdvance(combo.itemText(1)));
        QTest::keyClick(combo.view(), Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Return);
        settle();
        EXPECT_EQ(combo.currentIndex(), chosen) << "in the list that it opens";
    }
}

TEST_F(Forms, FunctionKeysAndKeyHandlersComeBeforeTheControl)
{
    form.second->setText(u"abc"_s);
    screen.click(u"second"_s);
    EXPECT_EQ(form.second->selectedText(), u"abc") << "selected on focus";
    screen.typeOn(u"axb1"_s);
    screen.press(Qt::Key_Backspace);
    SendKeys(u"{HOME}{DEL}{F2}"_s);
    EXPECT_EQ(form.log, moved + QStringList{u"F2"_s});
    EXPECT_EQ(form.codes, (QList<int>{'A', 'X', 'B', '1', 8})) << "characters alone";
    EXPECT_EQ(form.second->text(), u"B") << "the X is swallowed";
}

TEST_F(Forms, AControlLosesTheFocusOnlyToAnotherOfItsForm)
{
    focusAndForget(u"first"_s);
    Sample other;
    other.Show();
    settle();
    EXPECT_TRUE(form.log.isEmpty()) << "another window in front is no loss of focus";
    other.Unload();
    form.activateWindow();
    settle();

    focusAndForget(u"first"_s);
    form.onLoss = [] { MsgBox(u"stop"_s, u"title"_s); };
    ScriptedDialogs dialogs;
    dialogs.expect(u"stop"_s);
    screen.click(u"button"_s);
    EXPECT_EQ(form.log, QStringList{u"first lost"_s}) << "the box was the answer to the click";
    screen.click(u"button"_s);
    EXPECT_EQ(form.log.takeLast(), u"click");

    form.onLoss = [] {};
    focusAndForget(u"first"_s);
    screen.click(u"button"_s);
    EXPECT_EQ(form.log, (QStringList{u"first lost"_s, u"click"_s}))
        << "the loss comes before the click that causes it";
}

TEST_F(Forms, LoadsOnceActivatesAndUnloads)
{
    Sample modal;
    modal.Load();
    modal.first->setText(u"written"_s);
    ModalDriver driver;
    driver.expect(u"Form"_s, [&](ScreenDriver& opened) {
        EXPECT_EQ(modal.log, (QStringList{u"load"_s, u"activate"_s}));
        EXPECT_EQ(modal.first->text(), u"written") << "by the caller, behind the loading";
        EXPECT_EQ(errorOf([&] { modal.ShowModal(); }), 400) << "it stands open already";
        // A window behind a modal one is not activated, whatever the window system says.
        form.activateWindow();
        settle();
        EXPECT_EQ(form.log, QStringList());
        opened.press(Qt::Key_Escape);
    });
    modal.ShowModal();
    EXPECT_EQ(modal.log.takeLast(), u"unload");
    EXPECT_FALSE(modal.isLoaded());

    Form* one = &Form::of<Sample>();
    EXPECT_EQ(one, &Form::of<Sample>()) << "one object a screen";
    one->Show();
    one->close();
    EXPECT_NE(one, &Form::of<Sample>()) << "fresh controls after an unloading";
    delete &Form::of<Sample>();
}

TEST_F(Forms, AWindowOpensOverItsOwnerAndWholeOnTheScreen)
{
    const QRect room = form.screen()->availableGeometry();
    const auto openOver = [&](const QRect& owner, const QSize& size) {
        form.setGeometry(owner);
        form.activateWindow();
        settle();
        Sample over;
        over.layout()->setSizeConstraint(QLayout::SetNoConstraint);
        over.first->setMinimumSize(size);
        over.Show();
        QTest::qWait(100); // for the frame
        EXPECT_TRUE(room.contains(over.frameGeometry())) << testing::PrintToString(over.frameGeometry());
        return over.frameGeometry().center();
    };
    const QPoint away = openOver({200, 150, 900, 700}, {300, 200}) - QRect(200, 150, 900, 700).center();
    EXPECT_LT(away.manhattanLength(), 30) << "in the middle of its owner, give or take a frame";
    openOver({0, 0, 200, 100}, {600, 400});
    openOver({room.width() - 200, room.height() - 200, 200, 100}, {600, 400});
    openOver(room, room.size() * 2);
}

TEST_F(Forms, ADisabledFormTakesEscAlone)
{
    screen.focus(u"first"_s);
    form.turnOff();
    form.log.clear();
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_A, Qt::Key_Return, Qt::Key_Tab})
        screen.press(key);
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_EQ(form.first->text(), u"");
    screen.press(Qt::Key_Escape);
    EXPECT_EQ(form.log.takeLast(), u"unload");
    form.Show();
    EXPECT_TRUE(form.isEnabled());
    form.setEnabled(false);
    form.close();
    EXPECT_EQ(form.log.takeLast(), u"unload");
}

TEST_F(Forms, TheFocusComesBackToWhereItWasOrWasGoing)
{
    const auto off = [this](const std::function<void()>& meanwhile) {
        const WindowOff window(form);
        EXPECT_FALSE(form.button->isEnabled());
        meanwhile();
    };
    focusAndForget(u"first"_s);
    off([] {});
    EXPECT_EQ(screen.focused(), u"first");
    EXPECT_TRUE(form.log.isEmpty()) << "nothing was lost or got";
    off([this] { form.focusOn(form.second); });
    EXPECT_EQ(screen.focused(), u"second");
    EXPECT_EQ(form.log, moved) << "asked for meanwhile";

    focusAndForget(u"first"_s);
    form.onLoss = [off] { off([] {}); };
    screen.press(Qt::Key_Tab);
    EXPECT_EQ(screen.focused(), u"second");
    EXPECT_EQ(form.log, moved) << "on its way when the window went off";
    off([this] { form.second->setEnabled(false); });
    EXPECT_EQ(screen.focused(), u"memo") << "its own control takes none any more";

    focusAndForget(u"first"_s);
    form.onLoss = [] {};
    form.second->setEnabled(true);
    form.hideFrame(form.first, form.button);
    EXPECT_EQ(screen.focused(), u"button");
    EXPECT_EQ(form.log, QStringList{u"first lost"_s}) << "the neighbour has not been asked";
}

TEST_F(Forms, AWaitPointerGoesWithItsWindow)
{
    try {
        const WindowOff off(form);
        EXPECT_TRUE(waits());
        throw RuntimeError(13, u"broken"_s);
    } catch (const RuntimeError&) {
        EXPECT_TRUE(form.isEnabled() && !waits());
    }
    form.turnOff();
    Sample search;
    ModalDriver driver;
    driver.expect(u"Form"_s, [&](ScreenDriver& opened) {
        EXPECT_FALSE(waits()) << "this one waits for the user";
        {
            const Hourglass own;
            EXPECT_TRUE(waits());
        }
        EXPECT_FALSE(waits());
        opened.press(Qt::Key_Escape);
    });
    search.ShowModal();
    EXPECT_TRUE(waits()) << "left standing";
    const WindowOff inside(form);
    form.Unload();
    EXPECT_FALSE(waits());
}

TEST_F(Forms, TheWheelLeavesAComboBoxWithoutTheFocusAlone)
{
    QScrollArea area(&form);
    auto* inside = new QWidget;
    inside->setFixedSize(200, 2000);
    auto* combo = new QComboBox(inside);
    combo->addItems({u"0"_s, u"1"_s, u"2"_s});
    area.setWidget(inside);
    area.show();
    screen.focus(u"first"_s);
    const auto turn = [combo] {
        QWheelEvent wheel({5, 5}, combo->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                          false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        qApp->notify(combo, &wheel);
    };
    turn();
    EXPECT_EQ(combo->currentIndex(), 0);
    EXPECT_EQ(screen.focused(), u"first");
    EXPECT_GT(area.verticalScrollBar()->value(), 0) << "what lies around scrolls";
    combo->setFocus();
    turn();
    EXPECT_EQ(combo->currentIndex(), 1);

    Form notLoaded;
    QComboBox early(&notLoaded);
    early.show();
    EXPECT_EQ(early.focusPolicy(), Qt::StrongFocus) << "also one that its screen shows before it is loaded";
}

TEST_F(Forms, ADoubleClickOnALineOfASortedListOpensItAndNothingElseDoes)
{
    form.list->setSorted(true);
    for (const QStringView line : {u"10:00|b", u"08:30", u"10:00|A", u"09:00"})
        form.list->AddItem(line.toString());
    focusAndForget(u"list"_s);
    const auto doubleClick = [this](Qt::MouseButton button, QPoint where) {
        QTest::mouseDClick(form.list->viewport(), button, {}, where);
        settle();
    };
    for (int row = 0; row < 4; ++row)
        doubleClick(Qt::LeftButton, form.list->visualItemRect(form.list->item(row)).center());
    doubleClick(Qt::RightButton, form.list->visualItemRect(form.list->item(0)).center());
    doubleClick(Qt::LeftButton, QPoint(5, form.list->viewport()->height() - 3));
    EXPECT_EQ(form.log.join(u' '), u"08:30 09:00 10:00|A 10:00|b");

    form.log.clear();
    form.list->setCurrentRow(0, QItemSelectionModel::Clear);
    screen.press(Qt::Key_Down);
    EXPECT_TRUE(form.list->Selected(0)) << "the first arrow takes the line where the focus stands";
    screen.press(Qt::Key_Down);
    screen.press(Qt::Key_Space);
    EXPECT_EQ(form.log.join(u' '), u"09:00") << "the blank key does the same";
    EXPECT_EQ(form.list->toolTip(), u"Espaço: o mesmo que o duplo clique");
    int codes = 0;
    form.onKeyPress(form.list, [&codes](int&) { ++codes; });
    screen.press(Qt::Key_Space);
    EXPECT_EQ(codes, 1);
    EXPECT_EQ(form.log.size(), 1) << "the key has another use";
}

TEST_F(Forms, AFailureInAHandlerReachesTheApplication)
{
    const CaughtErrors errors;
    const auto fail = [] { throw RuntimeError(13, u"broken"_s); };
    QMetaObject::invokeMethod(&form, fail, Qt::QueuedConnection);
    settle();
    EXPECT_EQ(errors.numbers().size(), 1);
    screen.focus(u"first"_s);
    form.onLoss = fail;
    {
        const WindowOff off(form);
        form.focusOn(form.second);
    }
    settle();
    EXPECT_EQ(errors.numbers().size(), 2) << "of the focus that comes back";
}

TEST(Calendar, ADayIsChosenByArrowsAndClicksAlone)
{
    FixedClock clock(QDateTime(QDate(2026, 3, 16), QTime(8, 0)));
    MonthCalendar calendar;
    QList<QDate> chosen;
    QObject::connect(&calendar, &MonthCalendar::dayChosen, &calendar, [&](QDate day) { chosen << day; });
    calendar.showNextMonth();
    EXPECT_EQ(calendar.Value(), QDate(2026, 3, 16)) << "turning the month is no choice";
    calendar.setValue(QDate(2026, 12, 31));
    EXPECT_EQ(calendar.monthShown(), 12);
    calendar.show();
    auto* days = calendar.findChild<QTableView*>(u"qt_calendar_calendarview"_s);
    QTest::keyClicks(days, u"2511 "_s);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_EQ(calendar.Value(), QDate(2026, 12, 31));
    EXPECT_TRUE(chosen.isEmpty()) << "neither is the program's own setting, nor a typed date";
    QTest::keyClick(days, Qt::Key_Left);
    EXPECT_EQ(chosen, QList<QDate>{QDate(2026, 12, 30)});
    settle();
    const QPoint chosenDay = days->visualRect(days->currentIndex()).center();
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, chosenDay);
    EXPECT_EQ(chosen.size(), 2) << "a click on the chosen day chooses it again";
    settle();
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, chosenDay + QPoint(-40, 0));
    EXPECT_EQ(chosen.size(), 3) << "a click on another one chooses it once";
}

TEST(Theme, EveryPairOfColoursIsLegible)
{
    using namespace Theme;
    double least[3] = {21, 21, 21};
    const auto meet = [&least](int kind, double limit, Role front, Role behind) {
        const double found = contrast(colour(front), colour(behind));
        EXPECT_GE(found, limit) << int(front) << " on " << int(behind);
        least[kind] = qMin(least[kind], found);
    };
    for (const Role surface : surfaces()) {
        for (const Role ink : inks())
            meet(0, 4.5, ink, surface);
        for (const Role mark : marks())
            meet(1, 3, mark, surface);
    }
    for (const Role solid : solids())
        meet(2, 4.5, Role::Paper, solid);
    EXPECT_GE(contrast(colour(Role::AccentRing), colour(Role::Accent)), 4.5);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    std::printf("least contrast: inks %.2f, marks %.2f, paper on solids %.2f\n", least[0], least[1],
                least[2]);
}
