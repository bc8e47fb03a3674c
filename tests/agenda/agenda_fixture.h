#pragma once

#include "agenda/frmcli_agenda.h"
#include "app/shell_fixture.h"
#include "support/texttable.h"

using namespace Qt::StringLiterals;

/// The agenda on Monday 16/03/2026, 08:30:15, over a small clinic: ANA (11, R$ 200) works at the clinic in
/// two blocks on Mondays and one on Tuesdays, CARLA (13, R$ 150) at both places, DAVI (14) has no hours,
/// BRUNO (12) visits at home only; two plans, two patients, two procedures of the clinic and one at home.
/// Other tenants have rows of each kind, with the same codes where the tables allow it.
class AgendaTest : public LoggedIn
{
protected:
    AgendaTest()
    {
        execute(u"insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd,valor) values "
                "(11,'C1','ANA',3,'0',200),(12,'C1','BRUNO',3,'1',90),(13,'C1','CARLA',4,'2',150),"
                "(14,'C1','DAVI',4,'0',100),(15,'C2','ALHEIA',3,'0',50);"
                "insert into diahr (idlic,idpro,dia,hr) values ('C1',11,'2 - SEGUNDA-FEIRA','13:00/13:30'),"
                "('C1',11,'2 - SEGUNDA-FEIRA','08:00/08:30/09:00'),('C1',11,'3 - TERÇA-FEIRA','10:00'),"
                "('C1',13,'2 - SEGUNDA-FEIRA','08:30/09:00'),('C2',11,'2 - SEGUNDA-FEIRA','07:00');"
                "insert into convenios (idconv,idlic,nmconv,pdesc) values (5,'C1','SAÚDE TOTAL',12.5),"
                "(6,'C1','PARTICULAR',null),(7,'C2','ALHEIO',50);"
                "insert into pacientes (idpac,idlic,nmPac,fonepac,fonecel,idconv) values "
                "(21,'C1','JOÃO DA SILVA','3333-1111','99999-1111',5),(22,'C1','RITA',null,'99999-2222',6),"
                "(23,'C2','ALHEIO','1','2',5);"
                "insert into procedimentos (idproc,idlic,nmproc,ondeatd) values (31,'C1','CONSULTA','0'),"
                "(32,'C1','RETORNO','0'),(33,'C1','CURATIVO','1'),(34,'C2','ALHEIO','0')"_s);
    }

    /// A booked row of the agenda.
    static void book(const QString& key, int professional, int patient, const QString& name,
                     const QString& day, const QString& time, const QString& status = u"0"_s)
    {
        execute(u"insert into agenda_clinica (idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,"
                "idproc,valor,status,evcad,evup,mobesp,ondeatd) values ('C1','%1','FONE',%2,3,5,%3,'%4','%5',"
                "'%6','OBSERVAÇÃO',32,180.5,'%7','X','Y','1 - Sim','0')"_s.arg(
                    key, QString::number(professional), QString::number(patient), name, day, time, status));
    }

    /// The same key in the hands of another tenant, whose rows stand in front.
    static void bookElsewhere(const QString& key, int professional = 11)
    {
        execute(u"insert into agenda_clinica (idlic,idagenda,idpro,idpac,nmpac,dia,hr,status,evup) values "
                "('B2','%1',%2,21,'ALHEIO','2026-03-16','08:30','0','Z')"_s.arg(
                    key, QString::number(professional)));
    }

    /// What a clerk types for a new appointment on the line, up to the saving.
    static void fill(ScreenDriver& agenda, int line, const QString& patient)
    {
        agenda.doubleClickRow(u"List1"_s, line);
        agenda.type(u"txtIdPac"_s, patient);
        agenda.press(Qt::Key_Return);
    }

    /// A press of the key opens the search, where the first row is taken; nothing stays behind of what it has
    /// handed over.
    void search(ScreenDriver& screen, Qt::Key key, const QString& dialog)
    {
        answer(dialog, {Qt::Key_F10});
        screen.press(key);
        EXPECT_EQ(Variaveis::RetornoCodigo + Variaveis::RetornoNome, u"");
    }

    /// A payment in the closing of an attendance.
    static void pay(ScreenDriver& closing, const QString& kind, const QString& value,
                    const QString& remark = {})
    {
        closing.choose(u"cboMP"_s, kind);
        closing.type(u"txtVrMp"_s, value);
        closing.type(u"txtobs"_s, remark);
        closing.click(u"Command16"_s);
    }
};
