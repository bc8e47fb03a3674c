/// Many workstations on one server: each books, notifies and cancels in the real agenda for a while,
/// everybody in everybody's lines. What a station was told must be in the table at the end.
///   agenda_soak [STATIONS [SECONDS]]
/// Every appointment carries a remark of its own. A station is this program again, and writes what it was
/// told, a line each: "booked REMARK", "notified REMARK", "cancelled REMARK"; "refused TEXT" for another box.
#include "agenda/frmcli_agenda.h"
#include "app/core/variaveis.h"
#include "platform/forms/application.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/theme.h"
#include "platform/system/clock.h"
#include "support/database.h"
#include "support/offscreen.h"
#include "support/report.h"
#include "support/screendriver.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

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

/// What all stations were told, and what of it is wrong.
class Told
{
public:
    void read(const QString& line)
    {
        const QString remark = line.section(u' ', 1);
        if (line.startsWith(u"booked "))
            booked_ << remark;
        else if (line.startsWith(u"notified "))
            notified_ << remark;
        else if (line.startsWith(u"cancelled "))
            cancelled_ << remark;
        else if (line.startsWith(u"refused --- PACIENTE JÁ POSSUI"))
            ++refused_;
        else
            fail(line);
    }

    void compareWithTheTable(int stations)
    {
        std::printf("%d booked, %d notified, %d cancelled, %d refused\n", int(booked_.size()),
                    int(notified_.size()), int(cancelled_.size()), refused_);
        if (booked_.size() < stations)
            fail(u"a station that does nothing proves nothing"_s);
        QStringList expected;
        for (const QString& remark : booked_)
            if (!cancelled_.contains(remark))
                expected << remark;
        QStringList found;
        for (const QStringList& row : Database::instance().rows(u"select obs,status from agenda_clinica"_s)) {
            found << row[0];
            if ((row[1] == u"1") != notified_.contains(row[0]))
                fail(u"the notification of "_s + row[0]);
        }
        expected.sort();
        found.sort();
        if (found != expected)
            fail(u"in the table: %1; told: %2"_s.arg(found.join(u' '), expected.join(u' ')));
    }

    void fail(const QString& what)
    {
        std::fprintf(stderr, "agenda_soak: %s\n", qPrintable(what));
        good_ = false;
    }
    bool isGood() const { return good_; }

private:
    QStringList booked_;
    QStringList notified_;
    QStringList cancelled_;
    int refused_ = 0;
    bool good_ = true;
};

/// Two professionals with forty times on each day of the week, and thirty patients.
void makeClinic()
{
    QStringList times;
    for (int minute = 0; minute < 40; ++minute)
        times << u"%1:%2"_s.arg(8 + minute / 6, 2, 10, QChar(u'0')).arg(minute % 6 * 10, 2, 10, QChar(u'0'));
    QString rows =
        u"insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd,valor) values "
        "(11,'C1','ANA',3,'0',200),(13,'C1','CARLA',4,'2',150);"
        "insert into convenios (idconv,idlic,nmconv,pdesc) values (5,'C1','PLANO',12.5);"
        "insert into procedimentos (idproc,idlic,nmproc,ondeatd) values (31,'C1','CONSULTA','0');"_s;
    for (int day = 1; day <= 7; ++day)
        for (int professional : {11, 13})
            rows += u"insert into diahr (idlic,idpro,dia,hr) values ('C1',%1,'%2','%3');"_s.arg(
                QString::number(professional), QString::number(day), times.join(u'/'));
    for (int patient = 1; patient <= 30; ++patient)
        rows +=
            u"insert into pacientes (idpac,idlic,nmPac,fonecel,idconv) values (%1,'C1','P%1','9',5);"_s.arg(
                patient);
    Database::instance().execute(rows);
}

bool soak(int stations, int seconds)
{
    Database::instance().create();
    makeClinic();
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < stations; ++i) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        processes.back()->start(Application::applicationFilePath(),
                                {u"station"_s, Database::instance().connectionString(), u"CLERK%1"_s.arg(i),
                                 QString::number(seconds), QString::number(i + 1)});
    }
    Told told;
    for (const auto& process : processes) {
        if (!process->waitForFinished((seconds + 80) * 1000) ||
            process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0)
            told.fail(u"a station did not end well"_s);
        for (const QString& line :
             QString::fromUtf8(process->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts))
            told.read(line);
    }
    std::printf("%d stations, %d s: ", stations, seconds);
    told.compareWithTheTable(stations);
    Database::instance().drop();
    return told.isGood();
}

int run(const QStringList& arguments)
{
    if (arguments.value(1) != u"station")
        return soak(arguments.value(1, u"10"_s).toInt(), arguments.value(2, u"60"_s).toInt()) ? 0 : 1;
    Variaveis::idlic = u"C1"_s;
    Variaveis::StringConexao = arguments[2];
    Variaveis::Usuario = arguments[3];
    Station(arguments[5].toUInt()).work(arguments[4].toInt());
    return 0;
}

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
    QMetaObject::invokeMethod(
        &application, [] { Application::end(run(Application::arguments())); }, Qt::QueuedConnection);
    return Application::exec();
}
