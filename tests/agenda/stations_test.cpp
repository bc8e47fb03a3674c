#include "agenda/agenda_fixture.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int stations = 10;
constexpr int seconds = 8;

struct Acknowledged
{
    QStringList booked;
    QStringList notified;
    QStringList cancelled;
    int refused = 0;

    void read(const QString& line)
    {
        const QString what = line.section(u' ', 0, 0);
        const QString remark = line.section(u' ', 1);
        if (what == u"booked")
            booked << remark;
        else if (what == u"notified")
            notified << remark;
        else if (what == u"cancelled")
            cancelled << remark;
        else if (what == u"refused" && remark.startsWith(u"--- PACIENTE JÁ POSSUI"))
            ++refused;
        else
            ADD_FAILURE() << line.toStdString();
    }
};

/// What the stations wrote, when all have ended.
Acknowledged runStations(const QString& connection)
{
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < stations; ++i) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        processes.back()->start(
            QString::fromUtf8(STATION_PROGRAM),
            {connection, u"CLERK%1"_s.arg(i), QString::number(seconds), QString::number(i + 1)});
    }
    Acknowledged all;
    for (const auto& process : processes) {
        EXPECT_TRUE(process->waitForFinished(90000));
        EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process->exitCode(), 0);
        for (const QString& line :
             QString::fromUtf8(process->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts))
            all.read(line);
    }
    return all;
}

} // namespace

/// Ten clerks on one server, two professionals, everybody in everybody's lines.
TEST_F(AgendaTest, WhatTenStationsAreToldIsInTheTable)
{
    QStringList times;
    for (int minute = 0; minute < 40; ++minute)
        times << u"%1:%2"_s.arg(8 + minute / 6, 2, 10, QChar(u'0')).arg(minute % 6 * 10, 2, 10, QChar(u'0'));
    QString setUp = u"delete from diahr; delete from pacientes;"_s;
    for (int day = 1; day <= 7; ++day)
        for (int professional : {11, 13})
            setUp += u"insert into diahr (idlic,idpro,dia,hr) values ('C1',%1,'%2','%3');"_s.arg(
                QString::number(professional), QString::number(day), times.join(u'/'));
    for (int patient = 1; patient <= 30; ++patient)
        setUp +=
            u"insert into pacientes (idpac,idlic,nmPac,fonecel,idconv) values (%1,'C1','P%1','9',5);"_s.arg(
                patient);
    execute(setUp);

    const Acknowledged told = runStations(Database::instance().connectionString());
    std::printf("%d stations, %d s: %d booked, %d notified, %d cancelled, %d refused\n", stations, seconds,
                int(told.booked.size()), int(told.notified.size()), int(told.cancelled.size()), told.refused);
    EXPECT_GE(told.booked.size(), stations) << "a station that does nothing proves nothing";

    QStringList expected;
    for (const QString& remark : told.booked)
        if (!told.cancelled.contains(remark))
            expected << remark;
    expected.sort();
    EXPECT_EQ(flat(u"select obs from agenda_clinica order by binary obs"_s), expected);
    for (const QStringList& row : rows(u"select obs,status from agenda_clinica"_s))
        EXPECT_EQ(row[1] == u"1", told.notified.contains(row[0])) << row[0].toStdString();
}
