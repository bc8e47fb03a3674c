#include "platform/forms/form.h"
#include "platform/forms/textlimit.h"
#include "support/print.h"
#include "support/screendriver.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A screen with a box of each kind.
class Boxes : public Form
{
public:
    Boxes()
    {
        combo->setEditable(true);
        auto* column = new QVBoxLayout(this);
        for (QWidget* box : std::initializer_list<QWidget*>{line, memo, combo})
            column->addWidget(box);
        line->setObjectName(u"line"_s);
        memo->setObjectName(u"memo"_s);
        combo->setObjectName(u"combo"_s);
    }

    QLineEdit* line = new QLineEdit;
    QPlainTextEdit* memo = new QPlainTextEdit;
    QComboBox* combo = new QComboBox;
};

class Limits : public testing::Test
{
protected:
    Limits()
    {
        form.Show();
        settle();
    }

    void limit(const QString& box, const QString& column)
    {
        form.setFocus();
        screen.find(box)->setProperty("limit", column);
        screen.focus(box);
    }

    void paste(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        screen.press(Qt::Key_V, Qt::ControlModifier);
    }

    /// By the menu of the right mouse button.
    static void pasteByMenu(QWidget* box, const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTimer::singleShot(0, [] {
            auto* menu = static_cast<QMenu*>(QApplication::activePopupWidget());
            for (QAction* action : menu->actions())
                if (action->text().startsWith(u"&Paste"))
                    action->trigger();
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(box, &event);
    }

    static void compose(QWidget* box, const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(box, &event);
    }

    Boxes form;
    ScreenDriver screen{form};
};

} // namespace

TEST_F(Limits, ABoxTakesWhatItsColumnHolds)
{
    const struct
    {
        QString column, there, pasted, then;
    } rows[] = {
        {u"varchar(5)"_s, u"ÁB"_s, u"ÇDEFG"_s, u"ÁBÇDE"_s},
        {u"varchar(3)"_s, {}, u"a😀b😀"_s, u"A😀B"_s},
        {u"date"_s, {}, u"31/12/20267"_s, u"31/12/2026"_s},
        {u"decimal(15,2)"_s, u"1"_s, u"234567890123,45"_s, u"1234567890123,45"_s},
        {u"decimal(15,2)"_s, u"1"_s, u"2345678901234"_s, u"1"_s},
        {u"decimal(15,2)"_s, {}, u"-9.999.999.999.999,99"_s, u"-9.999.999.999.999,99"_s},
        {u"decimal(15,2)"_s, {}, u"R$ 1,999"_s, {}},
        {u"decimal(15,2)"_s, {}, u"12.34567"_s, {}},
        {u"decimal(15,2)"_s, u"1.2"_s, u"34.567"_s, u"1.234.567"_s},
        {u"decimal(15,2)"_s, {}, QString(400, u'9'), {}},
        {u"int"_s, {}, u"-2147483648,9"_s, u"-2147483648,9"_s},
        {u"int"_s, {}, u"2147483648"_s, {}},
        {u"int"_s, {}, u"código 12"_s, u"CÓDIGO 12"_s},
        {u"bigint"_s, {}, u"9223372036854775807"_s, u"9223372036854775807"_s},
        {u"bigint"_s, {}, u"9223372036854775808"_s, {}},
    };
    for (const auto& row : rows) {
        Boxes fresh;
        fresh.Show();
        fresh.line->setProperty("limit", row.column);
        fresh.line->setText(row.there);
        QGuiApplication::clipboard()->setText(row.pasted);
        QTest::keyClick(fresh.line, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(fresh.line->text(), row.then) << row.column.toStdString();
    }
}

TEST_F(Limits, EveryWayInIsHeldAndRaisesLetters)
{
    limit(u"line"_s, u"varchar(4)"_s);
    form.line->setText(u"loaded"_s);
    screen.typeOn(u"x"_s);
    paste(u"x"_s);
    EXPECT_EQ(form.line->text(), u"loaded") << "never cut, and nothing comes in";
    screen.type(u"line"_s, u"abcdef"_s);
    EXPECT_EQ(form.line->text(), u"ABCD");
    form.line->setSelection(1, 2);
    compose(form.line, u"xyz"_s);
    EXPECT_EQ(form.line->text(), u"AXYD") << "in the place of what is selected";
    form.line->setSelection(0, 4);
    pasteByMenu(form.line, u"vwxyz"_s);
    EXPECT_EQ(form.line->text(), u"VWXY");
    form.line->setCursorPosition(0);
    QTest::keyClick(form.line, Qt::Key_A, Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Click, form.line, Qt::Key_Q, u"@"_s, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(form.line->text(), u"VWXY") << "not with a modifier either";

    limit(u"combo"_s, u"varchar(4)"_s);
    screen.typeOn(u"abcdef"_s);
    form.combo->lineEdit()->setCursorPosition(0);
    pasteByMenu(form.combo->lineEdit(), u"x"_s);
    EXPECT_EQ(form.combo->currentText(), u"ABCD");
}

TEST_F(Limits, AMemoTakesTheBytesOfItsColumn)
{
    limit(u"memo"_s, u"text"_s);
    const QString lines = (QString(99, u'X') + u'\n').repeated(800);
    paste(lines);
    EXPECT_EQ(form.memo->toPlainText(), lines.left(65535));
    form.memo->moveCursor(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    paste(u"ç"_s);
    EXPECT_EQ(form.memo->toPlainText(), lines.left(65534)) << "two bytes have no room in the place of one";
    screen.press(Qt::Key_Return);
    screen.press(Qt::Key_Return);
    screen.typeOn(u"y"_s);
    compose(form.memo, u"z"_s);
    EXPECT_EQ(form.memo->toPlainText(), lines.left(65534) + u'\n');
}

TEST_F(Limits, ADeletionMakesNoGreaterNumber)
{
    limit(u"line"_s, u"decimal(6,2)"_s);
    screen.type(u"line"_s, u"1234,56"_s);
    form.line->setCursorPosition(5);
    screen.press(Qt::Key_Backspace);
    EXPECT_EQ(form.line->text(), u"1234,56");
    form.line->setCursorPosition(2);
    screen.press(Qt::Key_Backspace);
    EXPECT_EQ(form.line->text(), u"134,56");
    form.line->setText(u"99999,99"_s);
    EXPECT_EQ(form.line->text(), u"99999,99") << "what the program puts in stays as it is";
}
