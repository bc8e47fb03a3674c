#include "layout/autoresize.h"
#include "platform/forms/form.h"
#include "platform/forms/statusbar.h"
#include "support/screendriver.h"

#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// 600 x 400, every control at a place of its own, without a layout, and one group with a layout.
class Sample : public Form
{
public:
    Sample()
    {
        box->setGeometry(30, 20, 120, 30);
        button->setGeometry(400, 300, 101, 31);
        bar->setGeometry(0, 370, 600, 30);
        fixed->setGeometry(200, 20, 50, 50);
        fixed->setProperty("tag", u"NO"_s);
        line->setFrameShape(QFrame::HLine);
        line->setGeometry(10, 100, 500, 3);
        tabs->setGeometry(20, 120, 300, 200);
        tabs->addTab(new QWidget, u"shown"_s);
        tabs->addTab(page, u"hidden"_s);
        (new QVBoxLayout(page))->addWidget(hidden);
        group->setGeometry(340, 120, 200, 150);
        (new QVBoxLayout(group))->addWidget(inner);
    }

    QSize openingSize() const override { return opening; }

    QSize opening{600, 400};

    QLineEdit* box = new QLineEdit(this);
    QPushButton* button = new QPushButton(this);
    QComboBox* combo = new QComboBox(this);
    StatusBar* bar = new StatusBar(this);
    QLabel* fixed = new QLabel(this);
    QFrame* line = new QFrame(this);
    QTabWidget* tabs = new QTabWidget(this);
    QWidget* page = new QWidget;
    QPushButton* hidden = new QPushButton;
    QGroupBox* group = new QGroupBox(this);
    QLineEdit* inner = new QLineEdit;
    AutoResize Resize{*this};
};

class Resizing : public testing::Test
{
protected:
    Resizing()
    {
        form.Show();
        settle();
        fontSize = form.box->font().pointSizeF();
    }

    void resize(int width, int height)
    {
        form.resize(width, height);
        settle();
    }

    Sample form;
    double fontSize = 0;
};

} // namespace

TEST_F(Resizing, PlacesAndSizesFollowTheirOwnRatioAndFontsTheSmaller)
{
    const QRect inner = form.inner->geometry();
    EXPECT_EQ(form.box->geometry(), QRect(30, 20, 120, 30)) << "at its opening size nothing changes";
    resize(1200, 400);
    EXPECT_EQ(form.box->geometry(), QRect(60, 20, 240, 30));
    EXPECT_DOUBLE_EQ(form.box->font().pointSizeF(), fontSize);
    resize(1200, 800);
    EXPECT_EQ(form.inner->geometry().topLeft(), 2 * inner.topLeft()) << "its contents scale once";
    EXPECT_EQ(form.inner->width(), 2 * inner.width());
    EXPECT_EQ(form.button->geometry(), QRect(800, 600, 202, 62));
    EXPECT_EQ(form.line->geometry(), QRect(20, 200, 1000, 3)) << "a line keeps its thickness";
    EXPECT_EQ(form.bar->geometry(), QRect(0, 370, 600, 30)) << "left out";
    EXPECT_EQ(form.fixed->geometry(), QRect(200, 20, 50, 50)) << "left out";
    EXPECT_DOUBLE_EQ(form.inner->font().pointSizeF(), 2 * fontSize);
    resize(100, 50);
    EXPECT_EQ(form.size(), QSize(320, 200)) << "the smallest";
    resize(600, 400);
    EXPECT_EQ(form.button->geometry(), QRect(400, 300, 101, 31)) << "no rounding adds up";
    form.Resize.setKeepAspectRatio(true);
    resize(900, 400);
    EXPECT_EQ(form.box->geometry(), QRect(45, 30, 180, 45));
}

TEST_F(Resizing, NoTextLosesItsEdges)
{
    form.combo->addItem(u"0 - NÃO"_s);
    form.button->setText(u"Confirmação de Notificação"_s);
    for (QWidget* control : std::initializer_list<QWidget*>{form.combo, form.button})
        control->resize(control->sizeHint());
    Q_EMIT form.loaded(); // the sizes are noted now
    for (const double factor : {0.55, 0.75, 0.99, 1.03, 1.5, 2.0}) {
        resize(int(600 * factor), int(400 * factor));
        EXPECT_GE(form.combo->width(), form.combo->sizeHint().width()) << factor;
        EXPECT_GE(form.button->width(), form.button->sizeHint().width()) << factor;
    }
}

TEST(Opening, AWindowLargerThanTheScreenIsScaledToIt)
{
    Sample form;
    form.opening = {2400, 800};
    form.Show();
    settle();
    EXPECT_TRUE(form.screen()->availableGeometry().contains(form.frameGeometry()));
    EXPECT_EQ(form.box->x(), qRound(30.0 * form.width() / 2400));
    EXPECT_EQ(form.height(), 800);
}

TEST_F(Resizing, AControlOnAHiddenPageIsInPlaceWhenShown)
{
    const QRect before = form.hidden->geometry();
    EXPECT_GT(before.width(), 200) << "noted with the size that its page will have";
    resize(1200, 800);
    form.tabs->setCurrentIndex(1);
    settle();
    EXPECT_EQ(form.hidden->width(), 2 * before.width());
}

TEST_F(Resizing, MaximisedAndSwitchedOff)
{
    form.showMaximized();
    settle();
    EXPECT_EQ(form.box->x(), qRound(30.0 * form.width() / 600));
    form.showNormal();
    resize(600, 400);
    form.Resize.setFontResizable(false);
    resize(1200, 800);
    EXPECT_EQ(form.box->x(), 60);
    EXPECT_DOUBLE_EQ(form.box->font().pointSizeF(), fontSize);
    form.Resize.setEnabled(false);
    resize(600, 400);
    EXPECT_EQ(form.box->x(), 60);
}
