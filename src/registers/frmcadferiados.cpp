#include "registers/frmcadferiados.h"

#include "app/core/caixas.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/wrongboxes.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/number.h"
#include "registers/exclusao.h"
#include "ui_frmcadferiados.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

frmCadFeriados::frmCadFeriados() : ui(std::make_unique<Ui::frmCadFeriados>())
{
    ui->setupUi(this);
    ui->DataGrid2->setColumns({{u"dia"_s, u"DIA"_s, 8},
                               {u"nMes"_s, u"MÊS"_s, 17},
                               {u"obs"_s, u"OBS"_s, 43},
                               {u"evup"_s, u"ÚLTIMA ALTERAÇÃO"_s, 32}});
    ui->DataGrid2->setDataSource(&Adodc2);
    wire();
}

frmCadFeriados::~frmCadFeriados() = default;

void frmCadFeriados::wire()
{
    onClick(ui->Command1, &frmCadFeriados::Command1_Click);
    onDblClick(ui->DataGrid2, &frmCadFeriados::DataGrid2_DblClick, u"exclui a linha, depois de perguntar"_s);
}

void frmCadFeriados::Form_Load()
{
    for (int dia = 1; dia <= 31; ++dia)
        ui->cboDia->addItem(QString::number(dia));
    for (int mes = 1; mes <= 12; ++mes)
        ui->cboMes->addItem(QString::number(mes) + u", "_s + monthName(mes).toUpper());
    ui->cboDia->setCurrentIndex(-1);
    ui->cboMes->setCurrentIndex(-1);
    Adodc2.setConnectionString(StringConexao);
    Adodc2.setRecordSource("select * from feriados where idlic = " + aspas(idlic) + " order by mes,dia");
    Adodc2.Refresh();
}

void frmCadFeriados::Command1_Click()
{
    const QString dia = ui->cboDia->currentText();
    const QWidgetList incompletas =
        erradas({{ui->cboDia, !isNumeric(dia)}, {ui->cboMes, ui->cboMes->currentText().trimmed().isEmpty()}});
    if (!incompletas.isEmpty()) {
        pointAt(incompletas);
        MsgBox(u"--- ERRO -- DADOS INCOMPLETOS!"_s, u"ATENÇÃO"_s);
        return;
    }
    const QStringList mes = ui->cboMes->currentText().split(QLatin1Char(','));
    const QString numero = mes[0].trimmed();
    // A holiday has no year, but this year's calendar must have the day: 29 of February waits for a leap
    // year.
    const QString ano = QString::number(Clock::today().year());
    if (!isDate(QStringList{dia, numero, ano}.join(QLatin1Char('/')))) {
        pointAtAnyOf({ui->cboDia, ui->cboMes});
        MsgBox(u"--- ERRO --- DIA / MÊS INVÁLIDO!"_s, u"ATENÇÃO"_s);
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
