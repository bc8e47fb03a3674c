#include "platform/datafixture.h"
#include "support/statements.h"

#include <algorithm>

using namespace ADODB;

namespace {

/// What the program sends with codes compared, one of each form; "~" stands for each `like` that goes to the
/// server as "=".
// Broken by hand, where a statement has its parts.
// clang-format off
const QString statements[] = {
    u"select * from convenios where idlic = 'L' and idconv ~ 12"_s,
    u"select * from feriados where idlic = 'L' and dia ~ 12 and mes ~ 12"_s,
    u"select * from diahr where idlic = 'L' and idpro ~ 1 "
     "order by ondeatd,dia,hr"_s,
    u"select * from agenda_clinica where idlic = 'L' and dia = '2026/03/16' and hr = '1' and idpac ~ 1 "
     "and idpro <> 2"_s,
    u"select p.idpro,p.cidade,p.nrcon,p.fonefixo,p.fonecel,p.nmpro,e.nmesp "
     "from profissionais p left join especialidades e on p.idesp ~ e.idesp "
     "where p.idlic = 'L' and p.fonefixo like '%1%' or p.fonecel like '%1%'  and p.ondeatd <> '0' "
     "order by p.nmpro"_s,
    u"select p.nmpac,p.fonepac,p.fonecel,p.idconv,c.idconv,c.nmconv,c.pdesc "
     "from pacientes p left join convenios c on p.idconv ~ c.idconv "
     "where p.idlic = 'L' and p.idpac ~ 12"_s,
    u"select * from agenda_clinica left join procedimentos on agenda_clinica.idproc ~ "
     "procedimentos.idproc  left join convenios on agenda_clinica.idlic = convenios.idlic and "
     "agenda_clinica.idconv ~ convenios.idconv "
     "where agenda_clinica.idlic = 'L' and  idpro ~ 1 and dia = '2026/03/16'  and FIND_IN_SET(hr, "
     "REPLACE('0/1/and idpac like 1','/',','))"_s,
    u"select * from agenda_clinica left join profissionais on agenda_clinica.idpro ~ "
     "profissionais.idpro left join procedimentos on agenda_clinica.idproc ~ procedimentos.idproc "
     "where agenda_clinica.idlic = 'L' and agenda_clinica.dia >= '2026/03/16' and agenda_clinica.nmpac "
     "like '%1%' order by nmpac,dia,hr"_s,
    u"select ca.idcontrato,ca.idprof,ca.idlan,ca.status,ca.idproc,ca.data,ca.hora,pa.nmpac,pa.dtnasc,"
     "pd.nmproc,pa.fonepac "
     "from contrato_agenda ca left join procedimentos pd on ca.idproc ~ pd.idproc "
     "left join pacientes pa on ca.idpac ~ pa.idpac "
     "where ca.idlic = 'L' and ca.data = '2026/03/16' "
     "order by ca.hora"_s,
    u"update centrocusto set nmcen = 'cdcen like 1', evcad = 'A 16/03/2026' "
     "WHERE idlic = 'L' and cdcen ~ 12"_s,
};
// clang-format on

class SentStatements : public DataFixture
{
protected:
    void TearDown() override { Connection::setCodesByEquality(true); }

    /// 200 rows, the same at every call. Most texts are a code, begin with one or look like one.
    void fill(const QString& table)
    {
        QStringList values;
        for (const QStringList& column : database().rows(
                 u"select column_name, data_type, column_key from information_schema.columns where "
                 "table_schema = database() and table_name = '%1' order by ordinal_position"_s.arg(table))) {
            const bool isNumber = column[1].contains(u"int"_s);
            const QString few = column[1].startsWith(u"date") ? u"2, '2026-03-15', '2026-03-16'"_s
                                : isNumber                    ? u"8, -1, 0, 1, 1, 2, 10, 12"_s
                                                              : u"8, '0', '1', '1', '01', '1%', '10', ''"_s;
            if (column[0] == u"idlic")
                values << u"if(seq % 4 = 1, 'X', 'L')"_s;
            else if (column[2] == u"PRI")
                values << u"seq"_s;
            else // null for the eighth
                values << u"elt(1 + crc32(concat('%1', seq)) % %2)"_s.arg(column[0], few);
        }
        connection.Execute(u"delete from "_s + table);
        connection.Execute(
            u"insert ignore into %1 select %2 from seq_1_to_200"_s.arg(table, values.join(u',')));
    }

    /// The rows of a select, or those of the changed table, whatever their order.
    Table result(const QString& statement, bool byEquality)
    {
        Connection::setCodesByEquality(byEquality);
        const QString sql = QString(statement).replace(u'~', u"like"_s);
        QString sent;
        const StatementWatch watch([&](const StatementEvent& event) {
            if (event.statement == sql)
                sent = event.sent;
        });
        Recordset rs;
        rs.Open(sql, connection);
        EXPECT_EQ(sent, byEquality ? QString(statement).replace(u'~', u'=') : sql);
        const QString changed = rs.State() == 0 ? sql.section(u' ', 1, 1) : QString();
        if (!changed.isEmpty())
            rs.Open(u"select * from "_s + changed, connection);
        Table rows;
        for (; !rs.Eof(); rs.MoveNext()) {
            rows.emplaceBack();
            for (qsizetype i = 0; i < qsizetype(rs.columns().size()); ++i)
                rows.last() << (rs.Fields(i).isNull() ? QString() : u'=' + rs.Fields(i).text());
        }
        if (!changed.isEmpty())
            fill(changed);
        std::sort(rows.begin(), rows.end());
        return rows;
    }
};

TEST_F(SentStatements, GiveTheSameRows)
{
    for (const QString& table : u"agenda_clinica centrocusto contrato_agenda convenios diahr especialidades "
                                "feriados pacientes procedimentos profissionais"_s.split(u' '))
        fill(table);
    for (const QString& statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        const Table written = result(statement, false);
        EXPECT_FALSE(written.isEmpty());
        EXPECT_EQ(result(statement, true), written);
    }
}

} // namespace
