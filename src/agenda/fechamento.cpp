#include "agenda/fechamento.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/system/clock.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "platform/values/text.h"

#include <numeric>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QChar barra = QLatin1Char('|');

QString linhaDoProcedimento(const QString& nome, const QString& qtde, const QString& valor,
                            const QString& convenio, const QString& idconv, const QString& idproc)
{
    // A number that does not fit makes its line longer and loses no figure.
    return QStringList{fixedWidth(nome, 45),     qtde.rightJustified(6), valor.rightJustified(15),
                       fixedWidth(convenio, 25), fixedWidth(idconv, 10), fixedWidth(idproc, 10)}
        .join(barra);
}

QString linhaDoPagamento(const QString& tipo, const QString& valor, const QString& obs)
{
    return QStringList{fixedWidth(tipo, 20), valor.rightJustified(15), obs}.join(barra);
}

} // namespace

double emCentavos(double valor)
{
    return toNumber(Currency(valor));
}

double ProcedimentoCobrado::total() const
{
    return toNumber(qtde) * valor;
}

QString ProcedimentoCobrado::linha() const
{
    return linhaDoProcedimento(nome, qtde, Currency(valor), convenio, idconv, idproc);
}

QString ProcedimentoCobrado::titulo()
{
    return linhaDoProcedimento(u"Procedimento"_s, u"Qtde"_s, u"Valor"_s, u"Convênio"_s, u"Cód.Conv."_s,
                               u"Cód.Proc."_s);
}

QString PagamentoRecebido::linha() const
{
    return linhaDoPagamento(tipo, Currency(valor), obs);
}

QString PagamentoRecebido::titulo()
{
    return linhaDoPagamento(u"Tipo"_s, u"Valor"_s, u"Histórico"_s);
}

double Fechamento::total() const
{
    return std::accumulate(procedimentos.begin(), procedimentos.end(), 0.0,
                           [](double soma, const ProcedimentoCobrado& um) { return soma + um.total(); });
}

double Fechamento::pago() const
{
    return std::accumulate(pagamentos.begin(), pagamentos.end(), 0.0,
                           [](double soma, const PagamentoRecebido& um) { return soma + um.valor; });
}

void Fechamento::grava() const
{
    const QString idatendimento = QLatin1Char('0') + idpac + Format(Clock::now(), u"ddmmyyyyhhmmss");
    for (const ProcedimentoCobrado& procedimento : procedimentos)
        grava(procedimento, idatendimento);
    for (const PagamentoRecebido& pagamento : pagamentos)
        grava(pagamento, idatendimento);
    ExecutaEmTransacao({"update agenda_clinica set status = '2' where idlic = " + aspas(idlic) +
                        " and idagenda = " + aspas(idagenda)});
}

void Fechamento::grava(const ProcedimentoCobrado& procedimento, const QString& idatendimento) const
{
    const QString hr = QString(hora).remove(QLatin1Char(':'));
    const QString idlan = idlic.trimmed() + QLatin1Char('0') + Format(data, u"ddmmyy") + hr + idpac +
                          procedimento.idproc + idprof;
    // The quantity without the points of its groups, which would be decimal points to the server.
    ExecutaEmTransacao(
        {"insert into atendimentos "
         "(idlan,idlic,ondeatd,idprof,idproc,dt,hr,qtde,valor,cf,idatendimento,idconv,evcad,idpac) "
         "values (" +
         aspas({idlan, idlic, u"0"_s, idprof, procedimento.idproc, emColuna(data), hr,
                plainNumber(toNumber(procedimento.qtde)),
                comPonto(Format(procedimento.valor, u"#########0.00##")), u"N"_s, idatendimento,
                procedimento.idconv, carimbo(), idpac}) +
         ")"});
}

void Fechamento::grava(const PagamentoRecebido& pagamento, const QString& idatendimento) const
{
    ExecutaEmTransacao({"insert into atendimento_finan (idlic,idatend,mp,obs,valor,cf,evcad) values (" +
                        aspas({idlic, idatendimento, pagamento.tipo.trimmed(), pagamento.obs.trimmed(),
                               comPonto(Format(pagamento.valor, u"###########0.00##")), u"N"_s, carimbo()}) +
                        ")"});
}
