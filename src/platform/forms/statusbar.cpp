#include "platform/forms/statusbar.h"

#include "platform/system/clock.h"
#include "platform/values/error.h"
#include "platform/values/format.h"

#include <QHBoxLayout>
#include <QTimer>

using namespace Qt::StringLiterals;

StatusBar::StatusBar(QWidget* parent) : QFrame(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(0); // the panels have paddings
}

void StatusBar::addPanel(Panel kind, int stretch)
{
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("panel", panels_.isEmpty() ? u"first"_s : u"next"_s);
    static_cast<QHBoxLayout*>(layout())->addWidget(label, stretch);
    panels_ << label;
    if (kind == Panel::Date) {
        datePanel_ = label;
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &StatusBar::showDate);
        timer->start(std::chrono::seconds(30));
        showDate();
    }
}

QString StatusBar::panel(int number) const
{
    return at(number)->text();
}

void StatusBar::setPanel(int number, const QString& text)
{
    at(number)->setText(text);
}

QLabel* StatusBar::at(int number) const
{
    if (number < 1 || number > panels_.size())
        Errors::subscriptOutOfRange();
    return panels_[number - 1];
}

void StatusBar::showDate()
{
    datePanel_->setText(Format(Clock::today(), u"dd/mm/yyyy"));
}
