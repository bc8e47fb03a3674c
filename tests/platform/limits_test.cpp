#include "platform/forms/form.h"
#include "support/print.h"
#include "support/screendriver.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Limits : public testing::Test
{
protected:
    Limits()
    {
        form.setMinimumSize(200, 100);
        form.Show();
        settle();
    }

    /// A box of the screen for such a column, with the focus.
    template <class Box>
    Box* box(const QString& column)
    {
        auto* made = new Box(&form);
        made->setProperty("limit", column);
        made->show();
        made->setFocus();
        return made;
    }

    static void paste(QWidget* box, const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    }

    /// By the menu of the right mouse button.
    static void pasteByMenu(QWidget* box, const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTimer::singleShot(0, [] {
            auto* menu = static_cast<QMenu*>(QApplication::activePopupWidget());
            for (QAction* action : menu->actions())
                if (action->text().startsWith(u"C&olar"))
                    action->trigger();
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(box, &event);
    }

    Form form;
};

} // namespace

TEST_F(Limits, ABoxTakesWhatItsColumnHolds)
{
    const QString price = u"decimal(15,2)"_s;
    const struct
    {
        QString column, there, pasted, then;
    } rows[] = {
        {u"varchar(5)"_s, u"ÁB"_s, u"ÇDEFG"_s, u"ÁBÇDE"_s},
        {u"varchar(3)"_s, {}, u"a😀b😀"_s, u"A😀B"_s},
        {u"date"_s, {}, u"31/12/20267"_s, u"31/12/2026"_s},
        {price, u"1"_s, u"234567890123,45"_s, u"1234567890123,45"_s},
        {price, u"1"_s, u"2345678901234"_s, u"1"_s},
        {price, {}, u"-9.999.999.999.999,99"_s, u"-9.999.999.999.999,99"_s},
        {u"decimal(6,2)"_s, {}, u"R$ 9.999,994"_s, u"R$ 9.999,994"_s},
        {u"decimal(6,2)"_s, {}, u"9.999,995"_s, {}},
        {price, u"1.2"_s, u"34.567"_s, u"1.234.567"_s},
        {price, {}, QString(400, u'9'), {}},
        {u"int"_s, {}, u"-2147483648,9"_s, u"-2147483648,9"_s},
        {u"int"_s, {}, u"2147483648"_s, {}},
        {u"int"_s, {}, u"código 12"_s, u"CÓDIGO 12"_s},
        {u"bigint"_s, {}, u"9223372036854775807"_s, u"9223372036854775807"_s},
        {u"bigint"_s, {}, u"9223372036854775808"_s, {}},
    };
    for (const auto& row : rows) {
        auto* line = box<QLineEdit>(row.column);
        line->setText(row.there);
        paste(line, row.pasted);
        EXPECT_EQ(line->text(), row.then) << row.column.toStdString();
    }
}

TEST_F(Limits, EveryWayInIsHeldAndRaisesLetters)
{
    auto* line = box<QLineEdit>(u"varchar(4)"_s);
    line->setText(u"loaded"_s);
    QTest::keyClick(line, Qt::Key_X);
    EXPECT_EQ(line->text(), u"loaded") << "never cut, and nothing comes in";
    line->selectAll();
    QTest::keyClicks(line, u"abcdef"_s);
    EXPECT_EQ(line->text(), u"ABCD");
    line->setSelection(1, 2);
    QInputMethodEvent composed;
    composed.setCommitString(u"xyz"_s);
    QApplication::sendEvent(line, &composed);
    EXPECT_EQ(line->text(), u"AXYD") << "in the place of what is selected";
    line->selectAll();
    pasteByMenu(line, u"vwxyz"_s);
    EXPECT_EQ(line->text(), u"VWXY");
    QTest::keyClick(line, Qt::Key_A, Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Click, line, Qt::Key_Q, u"@"_s, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(line->text(), u"VWXY") << "not with a modifier either";

    auto* combo = box<QComboBox>(u"varchar(4)"_s);
    combo->setEditable(true);
    QTest::keyClicks(combo, u"abcdef"_s);
    pasteByMenu(combo->lineEdit(), u"x"_s);
    EXPECT_EQ(combo->currentText(), u"ABCD");
}

TEST_F(Limits, AMemoTakesTheBytesOfItsColumn)
{
    auto* memo = box<QPlainTextEdit>(u"text"_s);
    const QString lines = (QString(99, u'X') + u'\n').repeated(800);
    paste(memo, lines.toLower());
    EXPECT_EQ(memo->toPlainText(), lines.left(65535));
    memo->moveCursor(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    paste(memo, u"ç"_s);
    EXPECT_EQ(memo->toPlainText(), lines.left(65534)) << "two bytes have no room in the place of one";
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Y})
        QTest::keyClick(memo, key);
    EXPECT_EQ(memo->toPlainText(), lines.left(65534) + u'\n');
}

TEST_F(Limits, ADeletionMakesNoGreaterNumber)
{
    auto* line = box<QLineEdit>(u"decimal(6,2)"_s);
    QTest::keyClicks(line, u"1234,56"_s);
    line->setCursorPosition(5);
    QTest::keyClick(line, Qt::Key_Backspace);
    EXPECT_EQ(line->text(), u"1234,56");
    QTest::keyClick(line, Qt::Key_Delete);
    EXPECT_EQ(line->text(), u"1234,6");
    line->setText(u"99999,99"_s);
    EXPECT_EQ(line->text(), u"99999,99") << "what the program puts in stays as it is";
    QTest::keyClick(line, Qt::Key_Backspace);
    EXPECT_EQ(line->text(), u"99999,9") << "and can be shortened";
}
