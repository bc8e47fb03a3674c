#include "registers/frmcadhorarios.h"

#include "app/core/caixas.h"
#include "app/core/itens.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/wrongboxes.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/number.h"
#include "platform/values/text.h"
#include "registers/exclusao.h"
#include "ui_frmcadhorarios.h"

#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

constexpr int larguraEspecialidade = 45;

QStringList locais(const QString& ondeatd)
{
    const QString clinica = u"0 - CLINICA"_s;
    const QString home = u"1 - HOME"_s;
    if (ondeatd == QLatin1String("0"))
        return {clinica};
    if (ondeatd == QLatin1String("1"))
        return {home};
    return {clinica, home};
}

bool vaiAte(const QString& texto, int maximo)
{
    if (!isNumeric(texto))
        return false;
    const double inteiro = std::trunc(toNumber(texto));
    return inteiro >= 0 && inteiro <= maximo;
}

/// "8:5" as well as "08:05"; without a colon the hour alone is looked at.
bool isHora(const QString& texto)
{
    const QStringList pedacos = texto.split(QLatin1Char(':'));
    return vaiAte(pedacos[0], 23) && (pedacos.size() == 1 || vaiAte(pedacos[1], 59));
}

} // namespace

frmCadHorarios::frmCadHorarios() : ui(std::make_unique<Ui::frmCadHorarios>())
{
    ui->setupUi(this);
    ui->cboDia->setCurrentIndex(-1);
    habilita(false);
    ui->DataGrid2->setColumns({{u"dia"_s, u"DIA"_s, 18},
                               {u"hr"_s, u"HORÁRIOS"_s, 41},
                               {u"ondeatd"_s, u"LOCAL"_s, 12, {}, {}, locais({})},
                               {u"evcad"_s, u"CADASTRADO POR"_s, 29}});
    ui->DataGrid2->setDataSource(&Adodc2);
    wire();
}

frmCadHorarios::~frmCadHorarios() = default;

void frmCadHorarios::wire()
{
    onClick(ui->cboPro, &frmCadHorarios::cboPro_Click);
    onClick(ui->Command1, &frmCadHorarios::Command1_Click);
    onDblClick(ui->DataGrid2, &frmCadHorarios::DataGrid2_DblClick, u"exclui a linha, depois de perguntar"_s);
}

void frmCadHorarios::Form_Load()
{
    const QSignalBlocker semEscolha(ui->cboPro); // a combo box chooses its first item by itself
    Adodc2.setConnectionString(StringConexao);
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("select * from profissionais left join especialidades on profissionais.idesp like "
            "especialidades.idesp where profissionais.idlic = " +
                aspas(idlic) + " order by nmpro",
            Conexao, 0, 1);
    for (; !rs.Eof(); rs.MoveNext())
        ui->cboPro->addItem(itemComCodigos(rs.Fields("nmpro").text(),
                                           {fixedWidth(rs.Fields("nmesp").text(), larguraEspecialidade),
                                            rs.Fields("ondeatd").text(), rs.Fields("idesp").text(),
                                            rs.Fields("idpro").text()}));
    rs.Close();
    const QString home = u"HOME"_s;
    const QString todos = u"0"_s;
    ui->cboPro->addItem(itemComCodigos(home, {fixedWidth(home, larguraEspecialidade), u"1"_s, todos, todos}));
    ui->cboPro->setCurrentIndex(-1);
}

void frmCadHorarios::habilita(bool escolhido)
{
    for (QWidget* daEscolha : std::initializer_list<QWidget*>{ui->cboCH, ui->cboDia, ui->txtHR, ui->Command1})
        daEscolha->setEnabled(escolhido);
}

void frmCadHorarios::cboPro_Click()
{
    ui->cboCH->clear();
    // Counted from the end: a name may hold the separator.
    const QStringList pedacos = ui->cboPro->currentText().split(QLatin1Char('|'));
    const auto fim = pedacos.size();
    ui->cboCH->addItems(locais(pedacos[fim - 3].trimmed()));
    ui->cboCH->setCurrentIndex(-1);
    idesp_ = pedacos[fim - 2];
    idpro_ = pedacos[fim - 1];
    habilita(true);
    Adodc2.setRecordSource("select * from diahr where idlic = " + aspas(idlic) + " and idpro like " + idpro_ +
                           " order by ondeatd,dia,hr");
    Adodc2.Refresh();
    ui->cboCH->setFocus();
}

bool frmCadHorarios::recusa()
{
    const QWidgetList caixas = erradas({{ui->cboCH, !isNumeric(ui->cboCH->currentText().left(1))},
                                        {ui->cboDia, !isNumeric(ui->cboDia->currentText().left(1))},
                                        {ui->cboPro, !isNumeric(idpro_) || !isNumeric(idesp_)}});
    if (!caixas.isEmpty()) {
        pointAt(caixas);
        MsgBox(u"--- ERRO --- DADOS INCORRETO!"_s, u"ATENÇÃO"_s);
        return true;
    }
    if (isVazia(ui->txtHR)) {
        pointAt({ui->txtHR});
        MsgBox(u"--- ERRO --- INFORME O(s) HORÁRIO(s)"_s, u"ATENÇÃO"_s);
        return true;
    }
    const QStringList horas = ui->txtHR->text().split(QLatin1Char('/'));
    if (!std::all_of(horas.begin(), horas.end(), isHora)) {
        pointAt({ui->txtHR});
        MsgBox(u"--- ERRO --- HORÁRIOS POSSUI HORA INVÁLIDA!"_s, u"Atenção"_s);
        return true;
    }
    return false;
}

void frmCadHorarios::Command1_Click()
{
    if (recusa())
        return;
    const Hourglass ampulheta;
    grava();
    ui->cboDia->setFocus();
}

void frmCadHorarios::grava()
{
    ADODB::Recordset& linhas = Adodc2.Recordset();
    linhas.AddNew();
    linhas.Fields("idlic") = idlic;
    linhas.Fields("idpro") = idpro_;
    linhas.Fields("dia") = ui->cboDia->currentText();
    linhas.Fields("hr") = ui->txtHR->text();
    linhas.Fields("evcad") = carimboRegistro();
    linhas.Fields("evup") = Usuario + u"- "_s + generalDate(Clock::now());
    linhas.Fields("ondeatd") = ui->cboCH->currentText().left(1);
    linhas.Fields("idesp") = idesp_;
    linhas.Update();
}

void frmCadHorarios::DataGrid2_DblClick()
{
    ExcluiLinha(Adodc2);
}

void frmCadHorarios::Form_Unload()
{
    FechaConexao();
    Adodc2.Close();
}
