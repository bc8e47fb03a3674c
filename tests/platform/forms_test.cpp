#include "platform/forms/application.h"
#include "platform/forms/calendar.h"
#include "platform/forms/form.h"
#include "platform/forms/listbox.h"
#include "platform/forms/statusbar.h"
#include "support/errorof.h"
#include "support/fixedclock.h"
#include "support/modaldriver.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenuBar>
#include <QPushButton>
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
        const auto add = [&](QWidget* control, const QString& name) {
            control->setObjectName(name);
            column->addWidget(control);
        };
        add(first, u"first"_s);
        add(second, u"second"_s);
        add(memo, u"memo"_s);
        add(list, u"list"_s);
        add(button, u"button"_s);
        onLostFocus(first, &Sample::first_LostFocus);
        onGotFocus(second, &Sample::second_GotFocus);
        onClick(button, &Sample::button_Click);
        onDblClick(list, &Sample::list_DblClick);
        onKey(Qt::Key_F2, &Sample::F2);
        onKeyPress(second, [this](int& code) {
            codes << code;
            if (code == 'X' || swallowAll)
                code = 0;
        });
        selectOnFocus(second);
    }

    QLineEdit* first = new QLineEdit;
    QLineEdit* second = new QLineEdit;
    QPlainTextEdit* memo = new QPlainTextEdit;
    ListBox* list = new ListBox;
    QPushButton* button = new QPushButton(u"OK"_s);
    QStringList log;
    QList<int> codes;
    std::function<void()> onLoss;
    bool swallowAll = false;
    using Form::focusOn;
    using Form::hideFrame;
    using Form::onEnter;
    void F2() { log << u"F2"_s; }

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
        if (onLoss)
            onLoss();
    }
    void second_GotFocus() { log << u"second got"_s; }
    void button_Click() { log << u"click"_s; }
    void list_DblClick() { log << u"double "_s + list->List(list->ListIndex()); }
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

    Sample form;
    ScreenDriver screen{form};
};

} // namespace

TEST_F(Forms, LettersBecomeUpperCaseHoweverTheyComeIn)
{
    screen.type(u"first"_s, u"ana ção"_s);
    EXPECT_EQ(form.first->text(), u"ANA ÇÃO");

    QGuiApplication::clipboard()->setText(u"josé"_s);
    form.first->clear();
    screen.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.first->text(), u"JOSÉ");

    QInputMethodEvent composed;
    composed.setCommitString(u"â"_s);
    QApplication::sendEvent(form.first, &composed);
    EXPECT_EQ(form.first->text(), u"JOSÉÂ");

    screen.type(u"memo"_s, u"linha"_s);
    EXPECT_EQ(form.memo->toPlainText(), u"LINHA");

    form.first->setText(u"loaded"_s);
    EXPECT_EQ(form.first->text(), u"loaded") << "what the program puts in stays as it is";
    form.setUpperCase(false);
    screen.type(u"first"_s, u"abc"_s);
    EXPECT_EQ(form.first->text(), u"abc");
}

TEST_F(Forms, EnterMovesOnButPressesAButtonAndBreaksALine)
{
    screen.focus(u"first"_s);
    screen.press(Qt::Key_Return);
    EXPECT_EQ(screen.focused(), u"second");
    screen.press(Qt::Key_Enter);
    EXPECT_EQ(screen.focused(), u"memo");
    screen.press(Qt::Key_Return);
    EXPECT_EQ(screen.focused(), u"memo");
    EXPECT_EQ(form.memo->toPlainText(), u"\n");
    screen.focus(u"list"_s);
    screen.press(Qt::Key_Return);
    EXPECT_EQ(screen.focused(), u"button");
    form.log.clear();
    screen.press(Qt::Key_Return);
    EXPECT_EQ(form.log, QStringList{u"click"_s});
}

TEST_F(Forms, TheMenuBarKeepsItsKeys)
{
    auto* bar = new QMenuBar(&form);
    int runs = 0;
    QObject::connect(bar->addAction(u"Agenda"_s), &QAction::triggered, &form, [&] { ++runs; });
    form.layout()->setMenuBar(bar);
    bar->show();
    bar->setFocus();
    ASSERT_EQ(form.focusWidget(), bar);
    bar->setActiveAction(bar->actions().first());
    screen.press(Qt::Key_Return);
    EXPECT_EQ(runs, 1);
    bar->setFocus();
    screen.press(Qt::Key_Escape);
    EXPECT_TRUE(form.isLoaded());
}

TEST_F(Forms, FunctionKeysAndKeyHandlersComeBeforeTheControl)
{
    form.second->setText(u"abc"_s);
    screen.click(u"second"_s);
    EXPECT_EQ(form.second->selectedText(), u"abc") << "selected on focus";
    EXPECT_EQ(form.log.takeLast(), u"second got") << "beside the handler";
    form.log.clear();
    screen.press(Qt::Key_F2);
    EXPECT_EQ(form.log, QStringList{u"F2"_s});
    form.codes.clear();
    screen.typeOn(u"ax1"_s);
    screen.press(Qt::Key_Backspace);
    EXPECT_EQ(form.codes, (QList<int>{'A', 'X', '1', 8}));
    EXPECT_EQ(form.second->text(), u"A") << "the X is swallowed, the 1 erased again";

    form.swallowAll = true;
    form.second->setCursorPosition(0);
    screen.press(Qt::Key_Delete);
    EXPECT_EQ(form.second->text(), u"") << "no character: it reaches the control all the same";
    screen.press(Qt::Key_Return);
    EXPECT_EQ(screen.focused(), u"memo");

    form.onEnter(form.first, &Sample::F2);
    focusAndForget(u"first"_s);
    screen.press(Qt::Key_Return);
    EXPECT_EQ(form.log, QStringList{u"F2"_s});
    EXPECT_EQ(screen.focused(), u"first") << "Enter has a handler of its own there";
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
    EXPECT_FALSE(form.button->isDown());
    form.log.clear();
    screen.click(u"button"_s);
    EXPECT_EQ(form.log, QStringList{u"click"_s});

    form.onLoss = nullptr;
    focusAndForget(u"first"_s);
    screen.click(u"button"_s);
    EXPECT_EQ(form.log, (QStringList{u"first lost"_s, u"click"_s}))
        << "the loss comes before the click that causes it";
}

TEST_F(Forms, LoadsOnceActivatesAndUnloads)
{
    form.log.clear();
    Sample* modal = new Sample;
    ModalDriver driver;
    driver.expect(u"Form"_s, [&](ScreenDriver& opened) {
        EXPECT_EQ(modal->log, (QStringList{u"load"_s, u"activate"_s}));
        EXPECT_EQ(errorOf([&] { modal->ShowModal(); }), 400) << "it stands open already";
        // A window behind a modal one is not activated, whatever the window system says.
        form.activateWindow();
        settle();
        EXPECT_EQ(form.log, QStringList());
        opened.press(Qt::Key_Escape);
    });
    modal->ShowModal();
    EXPECT_EQ(modal->log, (QStringList{u"load"_s, u"activate"_s, u"unload"_s}));
    EXPECT_FALSE(modal->isLoaded());
    delete modal;

    Form* one = &Form::of<Sample>();
    EXPECT_EQ(one, &Form::of<Sample>()) << "one object a screen";
    one->Show();
    one->close();
    EXPECT_NE(one, &Form::of<Sample>()) << "fresh controls after an unloading";
    delete &Form::of<Sample>();
}

TEST_F(Forms, ACallerWritesBehindTheLoading)
{
    Sample other;
    other.Load();
    other.first->setText(u"written"_s);
    other.Show();
    settle();
    EXPECT_EQ(other.log.count(u"load"_s), 1);
    EXPECT_EQ(other.first->text(), u"written");
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
    focusAndForget(u"first"_s);
    {
        const WindowOff off(form);
        EXPECT_FALSE(form.button->isEnabled());
    }
    EXPECT_EQ(screen.focused(), u"first");
    EXPECT_TRUE(form.log.isEmpty()) << "nothing was lost or got";

    const QStringList moved = {u"first lost"_s, u"second got"_s};
    {
        const WindowOff off(form);
        form.focusOn(form.second);
        EXPECT_TRUE(form.log.isEmpty());
    }
    EXPECT_EQ(screen.focused(), u"second");
    EXPECT_EQ(form.log, moved) << "asked for meanwhile";

    focusAndForget(u"first"_s);
    form.onLoss = [this] { const WindowOff off(form); };
    screen.press(Qt::Key_Tab);
    EXPECT_EQ(screen.focused(), u"second");
    EXPECT_EQ(form.log, moved) << "on its way when the window went off";

    form.turnOff();
    form.second->setEnabled(false);
    form.turnOn();
    EXPECT_EQ(screen.focused(), u"memo") << "its own control takes none any more";
}

TEST_F(Forms, AFrameIsHiddenBehindTheFocus)
{
    focusAndForget(u"first"_s);
    form.hideFrame(form.first, form.button);
    EXPECT_EQ(screen.focused(), u"button");
    EXPECT_EQ(form.log, QStringList{u"first lost"_s}) << "the neighbour has not been asked";
}

TEST_F(Forms, AWaitPointerGoesWithItsWindow)
{
    const auto waits = [] { return QGuiApplication::overrideCursor() != nullptr; };
    try {
        const WindowOff off(form);
        EXPECT_TRUE(waits());
        throw RuntimeError(13, u"broken"_s);
    } catch (const RuntimeError&) {
        EXPECT_TRUE(form.isEnabled() && !waits());
    }
    {
        const WindowOff off(form);
        form.Unload();
        EXPECT_FALSE(waits());
    }
    form.Show();
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
    form.Unload();
    EXPECT_FALSE(waits());
}

TEST_F(Forms, AFailureOfTheFocusThatComesBackIsTold)
{
    QString told;
    Application::setFailureHandler(
        [&](const std::exception& error) { told = QString::fromUtf8(error.what()); });
    screen.focus(u"first"_s);
    form.onLoss = [] { throw RuntimeError(13, u"broken"_s); };
    {
        const WindowOff off(form);
        form.focusOn(form.second);
    }
    settle();
    Application::setFailureHandler(
        [](const std::exception& error) { ADD_FAILURE() << "uncaught in a handler: " << error.what(); });
    EXPECT_EQ(told, u"broken");
}

TEST_F(Forms, TheWheelLeavesAComboBoxWithoutTheFocusAlone)
{
    auto* area = new QScrollArea(&form);
    auto* inside = new QWidget;
    inside->setFixedSize(200, 2000);
    auto* combo = new QComboBox(inside);
    combo->addItems({u"0"_s, u"1"_s, u"2"_s});
    area->setWidget(inside);
    form.layout()->addWidget(area);
    area->show();
    settle();
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
    EXPECT_GT(area->verticalScrollBar()->value(), 0) << "what lies around scrolls";
    combo->setFocus();
    turn();
    EXPECT_EQ(combo->currentIndex(), 1);
}

TEST_F(Forms, SendKeysReachesTheFocusedControl)
{
    screen.focus(u"first"_s);
    SendKeys(u"ab{TAB}c{F2}"_s);
    settle();
    EXPECT_EQ(form.first->text(), u"AB");
    EXPECT_EQ(form.second->text(), u"C");
    EXPECT_EQ(form.log.last(), u"F2");
    EXPECT_THROW(SendKeys(u"{NONE}"_s), RuntimeError);
}

TEST_F(Forms, AFailureInAHandlerReachesTheApplication)
{
    QString told;
    Application::setFailureHandler(
        [&](const std::exception& error) { told = QString::fromUtf8(error.what()); });
    QMetaObject::invokeMethod(
        &form, [] { throw RuntimeError(13, u"broken"_s); }, Qt::QueuedConnection);
    settle();
    Application::setFailureHandler(
        [](const std::exception& error) { ADD_FAILURE() << "uncaught in a handler: " << error.what(); });
    EXPECT_EQ(told, u"broken");
}

TEST_F(Forms, ListsKeepTheirOrderAndTheirChoice)
{
    form.list->setSorted(true);
    for (const QStringView line : {u"10:00|B", u"08:30", u"10:00|A", u"09:00", u"10:00|B second"})
        form.list->AddItem(line.toString());
    EXPECT_EQ(screen.list(u"list"_s),
              (QStringList{u"08:30"_s, u"09:00"_s, u"10:00|A"_s, u"10:00|B"_s, u"10:00|B second"_s}));
    screen.doubleClickRow(u"list"_s, 2);
    EXPECT_EQ(form.log.last(), u"double 10:00|A");
    form.list->RemoveItem(0);
    EXPECT_EQ(form.list->ListCount(), 4);
    EXPECT_THROW(form.list->List(4), RuntimeError);

    form.list->setMultiSelect(true);
    form.list->clearSelection();
    screen.clickRow(u"list"_s, 0);
    screen.clickRow(u"list"_s, 2);
    screen.clickRow(u"list"_s, 0);
    EXPECT_EQ(screen.selected(u"list"_s), QStringList{u"10:00|B"_s});
}

TEST(Panels, TheStatusBarShowsTheDayByItself)
{
    FixedClock clock(QDateTime(QDate(2026, 3, 16), QTime(23, 59)));
    StatusBar bar;
    bar.addPanel(StatusBar::Panel::Text);
    bar.addPanel(StatusBar::Panel::Date);
    bar.setPanel(1, u"<b>x"_s);
    EXPECT_EQ(bar.panel(1), u"<b>x");
    EXPECT_EQ(bar.panel(2), u"16/03/2026");
    EXPECT_THROW(bar.panel(3), RuntimeError);
}

TEST(Calendar, TurningTheMonthIsNoChoice)
{
    FixedClock clock(QDateTime(QDate(2026, 3, 16), QTime(8, 0)));
    MonthCalendar calendar;
    QList<QDate> chosen;
    QObject::connect(&calendar, &MonthCalendar::dayChosen, &calendar, [&](QDate day) { chosen << day; });
    EXPECT_EQ(calendar.Value(), QDate(2026, 3, 16));
    calendar.showNextMonth();
    EXPECT_EQ(calendar.Value(), QDate(2026, 3, 16));
    calendar.setValue(QDate(2026, 12, 31));
    EXPECT_EQ(calendar.monthShown(), 12);
    EXPECT_TRUE(chosen.isEmpty()) << "the program's own setting is no choice";
    calendar.show();
    auto* days = calendar.findChild<QTableView*>(u"qt_calendar_calendarview"_s);
    QTest::keyClicks(days, u"2511 "_s);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_TRUE(chosen.isEmpty()) << "no day is typed";
    EXPECT_EQ(calendar.Value(), QDate(2026, 12, 31));
    QTest::keyClick(days, Qt::Key_Left);
    EXPECT_EQ(chosen, QList<QDate>{QDate(2026, 12, 30)}) << "the arrow keys choose";
    settle();
    const QPoint chosenDay = days->visualRect(days->currentIndex()).center();
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, chosenDay);
    EXPECT_EQ(chosen.size(), 2) << "a click on the chosen day chooses it again";
    settle();
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, chosenDay + QPoint(-40, 0));
    EXPECT_EQ(chosen.size(), 3) << "a click on another one chooses it once";
}
