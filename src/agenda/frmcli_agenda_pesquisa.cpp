#include "agenda/frmcli_agenda_pesquisa.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/system/clock.h"
#include "platform/values/number.h"
#include "ui_frmcli_agenda_pesquisa.h"

#include <QHeaderView>
#include <QScreen>

using namespace Qt::StringLiterals;

using namespace Variaveis;

frmCli_Agenda_Pesquisa::frmCli_Agenda_Pesquisa() : ui(std::make_unique<Ui::frmCli_Agenda_Pesquisa>())
{
    ui->setupUi(this);
    ui->DataGrid1->setColumns({{u"NMPAC"_s, u"PACIENTE"_s, 25},
                               {u"DIA"_s, u"DATA"_s, 10, u"dd/mm/yyyy"_s},
                               {u"HR"_s, u"HORÁRIO"_s, 5},
                               {u"FONE"_s, u"TELEFONE"_s, 12},
                               {u"NMPROC"_s, u"PROCEDIMENTO"_s, 20},
                               {u"NMPRO"_s, u"PROFISSIONAL"_s, 25}});
    ui->DataGrid1->setDataSource(&Adodc1);
    ui->DataGrid1->horizontalHeader()->setStretchLastSection(true); // the shares are not the whole
    wire();
}

frmCli_Agenda_Pesquisa::~frmCli_Agenda_Pesquisa() = default;

QSize frmCli_Agenda_Pesquisa::openingSize() const
{
    constexpr int aoRedor = 8;
    constexpr int bastante = 1800;
    return sizeHint().expandedTo(QSize(qMin(screen()->availableGeometry().width() - aoRedor, bastante), 0));
}

void frmCli_Agenda_Pesquisa::wire()
{
    onChange(ui->txtnmpac, &frmCli_Agenda_Pesquisa::txtnmpac_Change);
    onClick(ui->Command1, &frmCli_Agenda_Pesquisa::Command1_Click);
    onKey(Qt::Key_F10, &frmCli_Agenda_Pesquisa::Command1_Click);
    onDblClick(ui->DataGrid1, &frmCli_Agenda_Pesquisa::Command1_Click, u"vai ao dia da linha"_s);
}

void frmCli_Agenda_Pesquisa::Form_Load()
{
    Adodc1.setConnectionString(StringConexao);
    Adodc1.setCursorLocation(ADODB::Recordset::ClientSide);
    if (isNumeric(RetornoCodigo))
        idpro_ = RetornoCodigo;
}

void frmCli_Agenda_Pesquisa::txtnmpac_Change()
{
    const QString texto = ui->txtnmpac->text();
    const bool procura = !texto.trimmed().isEmpty();
    ui->Command1->setEnabled(procura);
    if (!procura)
        return Adodc1.Recordset().Close();
    Adodc1.setRecordSource(
        "select * from agenda_clinica left join profissionais on agenda_clinica.idpro like "
        "profissionais.idpro left join procedimentos on agenda_clinica.idproc like procedimentos.idproc "
        "where agenda_clinica.idlic = " +
        aspas(idlic) + " and agenda_clinica.dia >= " + aspas(emColuna(Clock::today())) +
        " and agenda_clinica.nmpac like " + contem(texto) + " order by nmpac,dia,hr");
    Adodc1.Refresh();
}

void frmCli_Agenda_Pesquisa::Command1_Click()
{
    ADODB::Recordset& linhas = Adodc1.Recordset();
    if (!ui->Command1->isEnabled() || linhas.Eof())
        return;
    RetornoCodigo = linhas.Fields("dia").text();
    RetornoNome = linhas.Fields("hr").text();
    escolhido_ = true;
    Unload();
}

/// Esc and the window's own closing give up.
void frmCli_Agenda_Pesquisa::Form_Unload()
{
    if (!escolhido_) {
        RetornoCodigo.clear();
        RetornoNome.clear();
    }
    Adodc1.Close();
}
