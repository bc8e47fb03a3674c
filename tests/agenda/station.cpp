#include "agenda/frmcli_agenda.h"
#include "app/core/variaveis.h"
#include "platform/forms/application.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/theme.h"
#include "platform/system/clock.h"
#include "support/offscreen.h"
#include "support/report.h"
#include "support/screendriver.h"

#include <QElapsedTimer>
#include <QThread>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

/// One workstation of many, for stations_test: books, notifies and cancels in the real agenda for a while.
///   agenda_station CONNECTION USER SECONDS SEED
/// Every appointment carries a remark of its own. What the program acknowledged is written down, a line
/// each: "booked REMARK", "notified REMARK", "cancelled REMARK"; "refused TEXT" for any other box.

namespace {

/// Says yes to every question, and keeps the last message.
class Agreeing : public Dialogs
{
public:
    Answer message(const MessageBox& box) override
    {
        if (box.buttons == Buttons::YesNo)
            return Answer::Yes;
        if (box.icon == Icon::Critical)
            std::fprintf(stderr, "%s\n", qPrintable(box.text)); // a failure, which ends the station
        last = box.text;
        return Answer::Ok;
    }
    std::optional<QString> input(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> file(const FileDialog&) override { return {}; }

    static inline QString last;
};

class Station
{
public:
    explicit Station(unsigned seed) : random_(seed) {}

    void work(int seconds)
    {
        auto& form = Form::of<frmCli_Agenda>();
        form.Show();
        settle();
        ScreenDriver agenda(form);
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < seconds * 1000) {
            agenda.choose(u"cboPro"_s, pick(2) ? u"ANA"_s : u"CARLA"_s);
            const QStringList lines = agenda.list(u"List1"_s);
            const int line = pick(int(lines.size()));
            agenda.doubleClickRow(u"List1"_s, line);
            if (!lines[line].contains(u'|'))
                book(agenda);
            else if (agenda.enabled(u"Command9"_s))
                change(agenda);
            else
                agenda.click(u"Command8"_s); // somebody else has cancelled it meanwhile
        }
    }

private:
    int pick(int choices) { return std::uniform_int_distribution(0, choices - 1)(random_); }

    void book(ScreenDriver& agenda)
    {
        const QString remark = Variaveis::Usuario + u'-' + QString::number(++count_);
        agenda.type(u"txtIdPac"_s, QString::number(1 + pick(30)));
        agenda.type(u"txtObs"_s, remark);
        // Nobody types two appointments in one second, and the key counts on it.
        while (Clock::now().toSecsSinceEpoch() == second_)
            QThread::msleep(20);
        agenda.click(u"Command7"_s);
        second_ = Clock::now().toSecsSinceEpoch(); // behind the click: the key is made somewhere within it
        if (Agreeing::last == u"Agendado com sucesso!")
            return tell("booked", remark);
        tell("refused", Agreeing::last);
        agenda.click(u"Command8"_s);
    }

    void change(ScreenDriver& agenda)
    {
        const QString remark = agenda.text(u"txtObs"_s);
        const bool cancels = pick(3) == 0;
        agenda.click(cancels ? u"Command9"_s : u"Command5"_s);
        tell(cancels ? "cancelled" : "notified", remark);
    }

    static void tell(const char* what, const QString& which)
    {
        std::printf("%s %s\n", what, qPrintable(which));
        std::fflush(stdout);
    }

    std::mt19937 random_;
    int count_ = 0;
    qint64 second_ = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const OffScreen screen;
    Application application(argc, argv);
    Theme::apply(application);
    // What the window system off the screen cannot do it says at every window.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        if (!message.startsWith(u"This plugin does not support"))
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
    Dialogs::install(std::make_unique<Agreeing>());
    Report::setHandler([](const QString& what) {
        std::printf("driver: %s\n", qPrintable(what));
        Application::end(3);
    });
    const QStringList arguments = Application::arguments();
    Variaveis::idlic = u"C1"_s;
    Variaveis::StringConexao = arguments[1];
    Variaveis::Usuario = arguments[2];
    QMetaObject::invokeMethod(
        &application,
        [&] {
            Station(arguments[4].toUInt()).work(arguments[3].toInt());
            Application::end(0);
        },
        Qt::QueuedConnection);
    return Application::exec();
}
