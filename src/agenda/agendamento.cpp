#include "agenda/agendamento.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/data/recordset.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

bool Agendamento::pacienteOcupado() const
{
    if (idpac == QLatin1String("0"))
        return false;
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("select * from agenda_clinica where idlic = " + aspas(idlic) + " and dia = " + aspas(dia) +
                " and hr = " + aspas(hr) + " and idpac like " + idpac + " and idpro <> " + idpro,
            Conexao, 0, 1);
    return !rs.Eof();
}

void Agendamento::grava() const
{
    ExecutaEmTransacao({idagenda.trimmed().isEmpty() ? inclusao() : alteracao()});
}

QString Agendamento::inclusao() const
{
    const QString chave = instante() + Usuario.trimmed() + idpro;
    return "insert into agenda_clinica "
           "(idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,evcad,evup,"
           "mobesp,ondeatd) values (" +
           aspas({idlic, chave, fone, idpro, idesp, idconv, idpac, nmpac, diaNovo, hr.left(5), obs, idproc,
                  valor, u"0"_s, carimbo(), carimbo(), mobesp, ondeatd}) +
           ")";
}

QString Agendamento::alteracao() const
{
    return "update agenda_clinica set ondeatd = " + aspas(ondeatd) + ", mobesp = " + aspas(mobesp) +
           ", fone = " + aspas(fone) + ",idconv = " + aspas(idconv) + ",idpac = " + aspas(idpac) +
           ",nmpac = " + aspas(nmpac) + ",dia = " + aspas(dia) + ",hr = " + aspas(hr) +
           ",obs = " + aspas(obs) + ",idproc = " + aspas(idproc) + ", valor = " + aspas(valor) +
           ", evup = " + aspas(carimbo()) + " where idlic = " + aspas(idlic) +
           " and idagenda = " + aspas(idagenda);
}

void Agendamento::notifica(const QString& idagenda)
{
    ExecutaEmTransacao({"update agenda_clinica set status = '1', evup = " + aspas(carimbo()) +
                        " where idlic = " + aspas(idlic) + " and idagenda = " + aspas(idagenda)});
}

void Agendamento::cancela(const QString& idagenda)
{
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("delete from agenda_clinica where idlic = " + aspas(idlic) + " and idagenda = " + aspas(idagenda),
            Conexao, ADODB::Recordset::Dynamic, ADODB::Recordset::Optimistic);
}
