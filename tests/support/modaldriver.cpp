#include "support/modaldriver.h"

#include "platform/forms/form.h"
#include "support/report.h"

#include <QApplication>

using namespace Qt::StringLiterals;

ModalDriver::ModalDriver()
{
    connect(&timer_, &QTimer::timeout, this, &ModalDriver::look);
    timer_.start(5);
}

ModalDriver::~ModalDriver()
{
    for (const Expected& one : expected_)
        Report::fail(u"the screen %1 did not open"_s.arg(one.screen));
}

void ModalDriver::expect(const QString& screen, std::function<void(ScreenDriver&)> steps)
{
    expected_ << Expected{screen, std::move(steps)};
}

void ModalDriver::look()
{
    auto* form = qobject_cast<Form*>(QApplication::activeModalWidget());
    if (!form || !form->isVisible()) {
        stranger_ = nullptr;
        return;
    }
    if (expected_.isEmpty() || expected_.first().screen != QLatin1String(form->metaObject()->className())) {
        // It may be a screen whose steps are under way: only one that stands there for a second is a
        // stranger.
        if (form->property("driven").toBool())
            return;
        looks_ = stranger_ == form ? looks_ + 1 : 0;
        stranger_ = form;
        if (looks_ > 200) {
            Report::fail(u"unexpected screen %1"_s.arg(QLatin1String(form->metaObject()->className())));
            form->Unload();
        }
        return;
    }
    form->setProperty("driven", true);
    // Behind the timer's own event, which does not come again before it is through: a screen that the steps
    // open waits for the timer as well.
    QMetaObject::invokeMethod(
        this, [this, form = QPointer<Form>(form), one = expected_.takeFirst()] { drive(form, one); },
        Qt::QueuedConnection);
}

void ModalDriver::drive(Form* form, const Expected& expected)
{
    if (!form)
        return Report::fail(u"the screen %1 closed by itself"_s.arg(expected.screen));
    ScreenDriver driver(*form);
    settle(); // its activation
    expected.steps(driver);
    if (driver.isOpen()) {
        Report::fail(u"the steps left the screen %1 open"_s.arg(expected.screen));
        static_cast<Form&>(driver.window()).Unload();
    }
}
