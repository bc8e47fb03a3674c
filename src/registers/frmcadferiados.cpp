#include "registers/frmcadferiados.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/number.h"
#include "registers/exclusao.h"
#include "ui_frmcadferiados.h"

using namespace Variaveis;

frmCadFeriados::frmCadFeriados() : ui(std::make_unique<Ui::frmCadFeriados>())
{
    ui->setupUi(this);
    ui->DataGrid2->setColumns({{QStringLiteral("dia"), QStringLiteral("DIA"), 8},
                               {QStringLiteral("nMes"), QStringLiteral("MÊS"), 17},
                               {QStringLiteral("obs"), QStringLiteral("OBS"), 43},
                               {QStringLiteral("evup"), QStringLiteral("ÚLTIMA ALTERAÇÃO"), 32}});
    ui->DataGrid2->setDataSource(&Adodc2);
    wire();
}

frmCadFeriados::~frmCadFeriados() = default;

void frmCadFeriados::wire()
{
    onClick(ui->Command1, &frmCadFeriados::Command1_Click);
    onDblClick(ui->DataGrid2, &frmCadFeriados::DataGrid2_DblClick);
}

void frmCadFeriados::Form_Load()
{
    for (int dia = 1; dia <= 31; ++dia)
        ui->cboDia->addItem(QString::number(dia));
    for (int mes = 1; mes <= 12; ++mes)
        ui->cboMes->addItem(QString::number(mes) + QStringLiteral(", ") + monthName(mes).toUpper());
    ui->cboDia->setCurrentIndex(-1);
    ui->cboMes->setCurrentIndex(-1);
    Adodc2.setConnectionString(StringConexao);
    Adodc2.setRecordSource("select * from feriados where idlic = " + aspas(idlic) + " order by mes,dia");
    Adodc2.Refresh();
}

void frmCadFeriados::Command1_Click()
{
    const QString dia = ui->cboDia->currentText();
    if (!isNumeric(dia) || ui->cboMes->currentText().trimmed().isEmpty()) {
        MsgBox(QStringLiteral("--- ERRO -- DADOS INCOMPLETOS!"), QStringLiteral("ATENÇÃO"));
        return;
    }
    const QStringList mes = ui->cboMes->currentText().split(QLatin1Char(','));
    const QString numero = mes[0].trimmed();
    // A holiday has no year, but this year's calendar must have the day: 29 of February waits for a leap
    // year.
    const QString ano = QString::number(Clock::today().year());
    if (!isDate(QStringList{dia, numero, ano}.join(QLatin1Char('/')))) {
        MsgBox(QStringLiteral("--- ERRO --- DIA / MÊS INVÁLIDO!"), QStringLiteral("ATENÇÃO"));
        return;
    }
    const Hourglass ampulheta;
    grava(dia, numero, mes[1].trimmed());
    ui->txtobs->clear();
    ui->cboDia->setFocus();
}

void frmCadFeriados::grava(const QString& dia, const QString& mes, const QString& nomeMes)
{
    ADODB::Recordset& linhas = Adodc2.Recordset();
    Adodc2.Refresh();
    linhas.Filter("dia like " + dia + " and mes like " + mes);
    if (linhas.Eof()) {
        linhas.AddNew();
        linhas.Fields("idlic") = idlic;
        linhas.Fields("dia") = dia;
        linhas.Fields("Mes") = mes;
        linhas.Fields("nMes") = nomeMes;
        linhas.Fields("evcad") = carimboRegistro();
    }
    linhas.Fields("obs") = ui->txtobs->text();
    linhas.Fields("evup") = carimboRegistro();
    linhas.Update();
    // All holidays again, with the saved one as the current row.
    Adodc2.Refresh();
}

void frmCadFeriados::DataGrid2_DblClick()
{
    ExcluiLinha(Adodc2);
}

void frmCadFeriados::Form_Unload()
{
    FechaConexao();
    Adodc2.Close();
}
