// The saving of an appointment.

#include "agenda/codigos.h"
#include "agenda/frmcli_agenda.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/format.h"
#include "platform/values/number.h"
#include "ui_frmcli_agenda.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

QString emColuna(const QString& data)
{
    return Format(data, u"yyyy/mm/dd");
}

QString emComando(const QString& preco)
{
    return Format(preco, u"##########0.00").replace(QLatin1Char(','), QLatin1Char('.'));
}

} // namespace

void frmCli_Agenda::Command7_Click()
{
    if (recusa())
        return;
    AbreConexao();
    const bool home = ui->cboOnde->currentText().startsWith(QLatin1Char('1'));
    if (home)
        idpro_ = u"0"_s; // a home appointment belongs to no professional
    if (pacienteOcupado())
        return tomaProfissional();
    Conexao.BeginTrans();
    Conexao.Execute(ui->txtIdAgenda->text().trimmed().isEmpty() ? inclusao() : alteracao());
    Conexao.CommitTrans();
    tomaProfissional();
    MsgBox(u"Agendado com sucesso!"_s, u"Atenção"_s, Icon::Information);
    Command8_Click();
    MontaAgenda();
}

bool frmCli_Agenda::recusa()
{
    if (incompleto()) {
        MsgBox(u"--- ERRO --- DADOS INCOMPLETOS!"_s, u"ATENÇÃO"_s, Icon::Information);
        return true;
    }
    idproc_ = codigoDoItem(ui->cboTP->currentText()).toLongLong();
    if (idproc_ == 0) {
        MsgBox(u"--- ERRO --- SELECIONA UM PROCEDIMENTO!"_s, u"ATENÇÃO"_s);
        return true;
    }
    if (toDate(ui->txtDt->text()).date() < Clock::today()) {
        MsgBox(u"--- ERRO --- DATA DO AGENDAMENTO ANTERIOR A DATA ATUAL!"_s, u"ATENÇÃO"_s, Icon::Critical);
        return true;
    }
    return false;
}

bool frmCli_Agenda::incompleto() const
{
    return !isDate(ui->txtDt->text()) || !isNumeric(ui->cboMobEsp->currentText().left(1)) ||
           ui->txtNmPac->text().trimmed().isEmpty() || !isNumeric(ui->txtIdPac->text()) ||
           !isNumeric(ui->txtIdConv->text()) || ui->txtNmConv->text().trimmed().isEmpty() ||
           !isNumeric(ui->txtVR->text()) || ui->txtFone->text().trimmed().isEmpty();
}

/// The same patient at the same time with somebody else. Patient 0 is nobody, and can be booked twice.
bool frmCli_Agenda::pacienteOcupado()
{
    if (toNumber(ui->txtIdPac->text()) == 0)
        return false;
    ADODB::Recordset rs;
    rs.Open("select * from agenda_clinica where idlic = " + aspas(idlic) +
                " and dia = " + aspas(emColuna(ui->txtDt->text())) + " and hr = " + aspas(ui->txtHR->text()) +
                " and idpac like " + codigoDigitado(ui->txtIdPac->text()) + " and idpro <> " + idpro_,
            Conexao, 0, 1);
    if (rs.Eof())
        return false;
    rs.Close();
    MsgBox(u"--- PACIENTE JÁ POSSUI AGENDA NESSA MESMA DATA E HORÁRIO COM OUTRO PROFISSIONAL!"_s,
           u"ATENÇÃO"_s, Icon::Exclamation);
    return true;
}

/// The day is the calendar's, which may have moved on since the line was picked.
QString frmCli_Agenda::inclusao() const
{
    const QString idagenda = Format(Clock::now(), u"yymmddhhmmss") + Usuario.trimmed() + idpro_;
    const QStringList valores = {idlic,
                                 idagenda,
                                 ui->txtFone->text(),
                                 idpro_,
                                 QString::number(idesp_),
                                 codigoDigitado(ui->txtIdConv->text()),
                                 codigoDigitado(ui->txtIdPac->text()),
                                 ui->txtNmPac->text(),
                                 Format(ui->Calendar1->Value(), u"yyyy/mm/dd"),
                                 ui->txtHR->text().left(5),
                                 ui->txtObs->text(),
                                 QString::number(idproc_),
                                 emComando(ui->txtVR->text()),
                                 u"0"_s,
                                 carimbo(),
                                 carimbo(),
                                 ui->cboMobEsp->currentText(),
                                 ui->cboOnde->currentText().left(1)};
    return "insert into agenda_clinica "
           "(idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,evcad,evup,"
           "mobesp,ondeatd) values (" +
           aspas(valores) + ")";
}

QString frmCli_Agenda::alteracao() const
{
    return "update agenda_clinica set ondeatd = " + aspas(ui->cboOnde->currentText().left(1)) +
           ", mobesp = " + aspas(ui->cboMobEsp->currentText()) + ", fone = " + aspas(ui->txtFone->text()) +
           ",idconv = " + aspas(codigoDigitado(ui->txtIdConv->text())) +
           ",idpac = " + aspas(codigoDigitado(ui->txtIdPac->text())) +
           ",nmpac = " + aspas(ui->txtNmPac->text()) + ",dia = " + aspas(emColuna(ui->txtDt->text())) +
           ",hr = " + aspas(ui->txtHR->text()) + ",obs = " + aspas(ui->txtObs->text()) +
           ",idproc = " + aspas(QString::number(idproc_)) +
           ", valor = " + aspas(emComando(ui->txtVR->text())) + ", evup = " + aspas(carimbo()) +
           " where idlic = " + aspas(idlic) + " and idagenda = " + aspas(ui->txtIdAgenda->text());
}
