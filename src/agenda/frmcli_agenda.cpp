#include "agenda/frmcli_agenda.h"

#include "agenda/frmcli_agenda_pesquisa.h"
#include "agenda/impressaoagenda.h"
#include "agenda/linhaagenda.h"
#include "agenda/painelagendamento.h"
#include "agenda/sinaisagenda.h"
#include "app/core/itens.h"
#include "app/core/menu.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "registers/escolha.h"
#include "ui_frmcli_agenda.h"

#include <QScreen>
#include <QShowEvent>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

QString hojePorExtenso()
{
    const QDate hoje = Clock::today();
    return u"HOJE: %1, %2 de %3 de %4"_s.arg(weekdayName(weekday(hoje)), QString::number(hoje.day()),
                                             monthName(hoje.month()), QString::number(hoje.year()));
}

} // namespace

frmCli_Agenda::frmCli_Agenda() : ui(std::make_unique<Ui::frmCli_Agenda>())
{
    ui->setupUi(this);
    ui->List1->setSorted(true);
    SinaisAgenda::veste(*ui->List1, *ui->lTit);
    SinaisAgenda::legenda(*ui->sinais);
    ui->frmAgendamento->hide();
    ui->DataGrid1->setColumns({{u"HORA"_s, u"HORÁRIO"_s, 8},
                               {u"NMPAC"_s, u"PACIENTE"_s, 37},
                               {u"FONEPAC"_s, u"FONE"_s, 15},
                               {u"DTNASC"_s, u"DT.NASCIMENTO"_s, 10},
                               {u"NMPROC"_s, u"PROCEDIMENTO"_s, 30}});
    ui->DataGrid1->setDataSource(&Adodc1);
    wire();
}

frmCli_Agenda::~frmCli_Agenda() = default;

QSize frmCli_Agenda::openingSize() const
{
    constexpr QSize aoRedor(8, 70); // title bar and the system's own bar
    constexpr int bastante = 880;
    const QSize sala = screen()->availableGeometry().size() - aoRedor;
    return sizeHint().expandedTo(QSize(0, bastante)).boundedTo(sala).expandedTo(minimumSizeHint());
}

void frmCli_Agenda::wire()
{
    onClick(ui->cboPro, &frmCli_Agenda::cboPro_Click);
    connect(ui->Calendar1, &MonthCalendar::dayChosen, this, &frmCli_Agenda::Calendar1_Click);
    onClick(ui->lHoje, &frmCli_Agenda::lHoje_Click);
    onEnter(ui->lHoje, &frmCli_Agenda::lHoje_Click);
    onKeyPress(ui->lHoje, [this](int& tecla) {
        if (tecla == ' ')
            lHoje_Click();
    });
    onClick(ui->Command1, &frmCli_Agenda::Command1_Click);
    onClick(ui->Command6, &frmCli_Agenda::Command6_Click);
    onDblClick(ui->DataGrid1, &frmCli_Agenda::DataGrid1_DblClick);
    onClick(ui->List1, &frmCli_Agenda::List1_Click);
    onDblClick(ui->List1, &frmCli_Agenda::List1_DblClick,
               u"agenda no horário livre, ou abre o agendamento; com um aberto, passa-o ao horário livre"_s);
    onLostFocus(ui->frmAgendamento->txtIdPac(), &frmCli_Agenda::txtIdPac_LostFocus);
    onLostFocus(ui->frmAgendamento->txtIdConv(), &frmCli_Agenda::txtIdConv_LostFocus);
    connect(ui->frmAgendamento, &PainelAgendamento::abrindo, this, &frmCli_Agenda::painelAbrindo);
    connect(ui->frmAgendamento, &PainelAgendamento::alterado, this, &frmCli_Agenda::MontaAgenda);
    connect(ui->frmAgendamento, &PainelAgendamento::deixado, this, &frmCli_Agenda::painelDeixado);
    onKey(Qt::Key_F2, &frmCli_Agenda::F2);
    onKey(Qt::Key_F3, &frmCli_Agenda::F3);
}

void frmCli_Agenda::Form_Load()
{
    Adodc1.setCursorLocation(ADODB::Recordset::ClientSide);
    Adodc1.setConnectionString(StringConexao);
    ui->lHoje->setText(hojePorExtenso());
    ui->lTit->setText(LinhaAgenda::titulo());
    // Room for any day, whose digits are not of one width.
    const QString maisLargo = u"AGENDA DO DIA: 00/00/0000 "_s;
    ui->lDia->setMinimumWidth(ui->lDia->fontMetrics().horizontalAdvance(maisLargo));
    ui->Calendar1->setValue(Clock::today());
    AbreConexao();
    {
        const QSignalBlocker semEscolha(ui->cboPro); // a combo box chooses its first item by itself
        ADODB::Recordset rs;
        rs.Open("select * from profissionais where idlic = " + aspas(idlic) +
                    " and ondeatd in ('0','2') order by nmpro",
                Conexao, 0, 1);
        for (; !rs.Eof(); rs.MoveNext())
            ui->cboPro->addItem(itemComCodigos(rs.Fields("nmpro").text(),
                                               {rs.Fields("idpro").text(), rs.Fields("valor").text(),
                                                rs.Fields("idesp").text(), rs.Fields("ondeatd").text()}));
        ui->cboPro->setCurrentIndex(-1);
    }
    chooseFirst(*ui->cboPro);
}

void frmCli_Agenda::Form_Unload()
{
    FechaConexao();
    Adodc1.Close();
}

void frmCli_Agenda::Form_Escape()
{
    if (!ui->frmAgendamento->isVisible())
        Unload();
}

QString frmCli_Agenda::escapeHelp() const
{
    return ui->frmAgendamento->isVisible() ? QString() : Form::escapeHelp();
}

void frmCli_Agenda::F2()
{
    if (ui->frmAgendamento->isVisible())
        ui->frmAgendamento->buscaPaciente();
    else
        Command1_Click();
}

void frmCli_Agenda::F3()
{
    if (ui->frmAgendamento->isVisible())
        ui->frmAgendamento->buscaConvenio();
    else
        Command6_Click();
}

void frmCli_Agenda::cboPro_Click()
{
    idpro_ = codigoDoItem(ui->cboPro->currentText(), 4);
    ui->Calendar1->setValue(Clock::today());
    MontaAgenda();
}

void frmCli_Agenda::Calendar1_Click()
{
    const WindowOff desligada(*this);
    Repaint();
    MontaAgenda();
}

void frmCli_Agenda::lHoje_Click()
{
    ui->Calendar1->setValue(Clock::today());
    MontaAgenda();
}

void frmCli_Agenda::Command1_Click()
{
    if (!ui->Command1->isEnabled())
        return;
    const auto escolha = escolhe<frmCli_Agenda_Pesquisa>({idpro_, ui->cboPro->currentText()});
    if (!escolha || !isDate(escolha->codigo))
        return;
    ui->Calendar1->setValue(toDate(escolha->codigo).date());
    MontaAgenda();
}

void frmCli_Agenda::Command6_Click()
{
    std::optional<QString> escolha;
    do {
        escolha = InputBox(u"0 - AGENDA DA CLINICA\n1 - AGENDA DO HOME"_s, u"QUAL AGENDA DESEJA IMPRIMIR?"_s);
        if (!escolha)
            return;
    } while (*escolha != QLatin1String("0") && *escolha != QLatin1String("1"));
    if (*escolha == QLatin1String("1"))
        Errors::objectNotSet(); // no list stands behind this choice
    QStringList linhas;
    for (int i = 0; i < ui->List1->ListCount(); ++i)
        linhas << ui->List1->List(i);
    imprimeAgenda({ui->cboPro->currentText(), ui->lDia->text(), ui->lTit->text(), linhas});
}

void frmCli_Agenda::DataGrid1_DblClick()
{
    if (!ui->DataGrid1->isEnabled() || Adodc1.Recordset().State() == 0 || Adodc1.Recordset().Eof())
        return;
    if (Adodc1.Recordset().Fields("status").text() == QLatin1String("1")) {
        MsgBox(u"PROCEDIMENTO JÁ CONCLUIDO!"_s, u"ATENÇAO"_s, Icon::Exclamation);
        return;
    }
    if (Adodc1.Recordset().Fields("idprof").integer() != 0 &&
        !MsgYesNo(u"Procedimento já iniciado! Deseja prosseguir?"_s, u"ATENÇAO"_s))
        return;
    Menu::notYet(u"Agenda - Atendimento"_s);
    const Hourglass ampulheta;
    Repaint();
    Adodc1.Refresh();
}

void frmCli_Agenda::List1_Click()
{
    if (ui->List1->ListIndex() >= 0)
        ui->frmAgendamento->tomaHorario(ui->List1->List(ui->List1->ListIndex()));
}

void frmCli_Agenda::List1_DblClick()
{
    if (ui->List1->ListIndex() >= 0)
        ui->frmAgendamento->abre(ui->List1->List(ui->List1->ListIndex()));
}

void frmCli_Agenda::txtIdPac_LostFocus()
{
    ui->frmAgendamento->txtIdPac_LostFocus();
}

void frmCli_Agenda::txtIdConv_LostFocus()
{
    ui->frmAgendamento->txtIdConv_LostFocus();
}

void frmCli_Agenda::painelAbrindo()
{
    for (QWidget* doDia : std::initializer_list<QWidget*>{ui->Command1, ui->Command6, ui->cboPro})
        doDia->setEnabled(false);
    colocaPainel();
}

void frmCli_Agenda::painelDeixado()
{
    for (QWidget* doDia : std::initializer_list<QWidget*>{ui->Command1, ui->Command6, ui->cboPro, ui->List1})
        doDia->setEnabled(true);
    ui->List1->setFocus();
}

/// The layouts have placed all else.
void frmCli_Agenda::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        ui->frmAgendamento->adjustSize();
        colocaPainel();
    }
    Form::showEvent(event);
}

/// Leaves the times and the first letters of the names in sight, so that another line can be picked, and the
/// visits too where there is room.
void frmCli_Agenda::colocaPainel()
{
    const QRect lista(ui->List1->mapTo(this, QPoint()), ui->List1->size());
    const QSize painel = ui->frmAgendamento->size();
    const int letras = ui->List1->textLeft() + QFontMetrics(ui->List1->font()).averageCharWidth() * 24;
    const int linha = ui->List1->lineHeight();
    ui->frmAgendamento->move(
        qMin(lista.left() + letras, lista.right() - painel.width()),
        qBound(lista.top() + linha, lista.bottom() - painel.height(), lista.top() + 2 * linha));
    ui->frmAgendamento->raise();
}

void frmCli_Agenda::MontaAgenda()
{
    // The focus alone makes a line the current one, and chooses none.
    const int linha = ui->List1->ListIndex();
    const QString hora =
        linha < 0 || !ui->List1->Selected(linha) ? QString() : ui->List1->List(linha).left(5);
    Adodc1.Recordset().Close();
    Repaint();
    ui->List1->Clear();
    const QDate dia = ui->Calendar1->Value();
    ui->frmAgendamento->recebe(ui->cboPro->currentText(), dia);
    ui->lDia->setText(u"AGENDA DO DIA: "_s + Format(dia, u"dd/mm/yyyy"));
    AbreConexao();
    mostraFeriado(dia);
    const int naClinica = montaLista(dia);
    mostraVisitas(dia);
    // The second count is not kept: the grid beside it shows the visits themselves.
    ui->lQT->setText(u"Clínica: %1 Home: 0"_s.arg(naClinica));
    // The clerk stays at the time that was looked at.
    for (int i = 0; !hora.isEmpty() && i < ui->List1->ListCount(); ++i)
        if (ui->List1->List(i).startsWith(hora))
            return ui->List1->setCurrentRow(i);
}

/// A holiday is told, and changes nothing else.
void frmCli_Agenda::mostraFeriado(QDate dia)
{
    ADODB::Recordset rs;
    rs.Open("select * from feriados where idlic = " + aspas(idlic) + " and dia like " +
                QString::number(dia.day()) + " and mes like " + QString::number(dia.month()),
            Conexao, 0, 1);
    ui->lFeriado->setText(rs.Eof() ? QString() : u"FERIADO: "_s + rs.Fields("OBS").text());
}

/// Fills the list and returns the number of appointments on it.
int frmCli_Agenda::montaLista(QDate dia)
{
    ADODB::Recordset rs;
    rs.Open("select * from diahr where idlic = " + aspas(idlic) + " and idpro like " + idpro_ +
                " and mid(dia,1,1) = " + aspas(QString::number(weekday(dia))) + " order by hr",
            Conexao, 0, 1);
    if (rs.Eof()) {
        ui->List1->AddItem(LinhaAgenda::bloqueada());
        return 0;
    }
    QStringList horas;
    for (; !rs.Eof(); rs.MoveNext())
        horas << rs.Fields("hr").text();
    rs.Close();
    int compromissos = 0;
    for (const QString& doTurno : horas) {
        compromissos += listaCompromissos(dia, doTurno);
        listaLivres(doTurno);
    }
    return compromissos;
}

int frmCli_Agenda::listaCompromissos(QDate dia, const QString& horas)
{
    ADODB::Recordset rs;
    rs.Open("select * from agenda_clinica left join procedimentos on agenda_clinica.idproc like "
            "procedimentos.idproc  left join convenios on agenda_clinica.idlic = convenios.idlic and "
            "agenda_clinica.idconv like convenios.idconv where agenda_clinica.idlic = " +
                aspas(idlic) + " and  idpro like " + idpro_ + " and dia = " + aspas(emColuna(dia)) +
                "  and FIND_IN_SET(hr, REPLACE(" + aspas(horas) + ",'/',','))",
            Conexao, 0, 1);
    int quantos = 0;
    for (; !rs.Eof(); rs.MoveNext(), ++quantos)
        ui->List1->AddItem(LinhaAgenda::compromisso(
            {rs.Fields("hr").text(), rs.Fields("nmpac").text(), rs.Fields("fone").text(),
             rs.Fields("idproc").text() + QLatin1Char(' ') + rs.Fields("nmproc").text(),
             rs.Fields("mobesp").text(), rs.Fields("status").text(), rs.Fields("nmconv").text(),
             rs.Fields("obs").text(), rs.Fields("evup").text(), rs.Fields("idagenda").text()}));
    return quantos;
}

void frmCli_Agenda::listaLivres(const QString& horas)
{
    QSet<QString> ocupadas;
    for (int i = 0; i < ui->List1->ListCount(); ++i)
        ocupadas << ui->List1->List(i).left(5);
    for (const QString& hora : horas.split(QLatin1Char('/'))) {
        const QString linha = LinhaAgenda::horario(hora);
        if (ocupadas.contains(linha))
            continue;
        ui->List1->AddItem(linha);
        ocupadas << linha;
    }
}

/// The visits belong to the day, whoever the professional is.
void frmCli_Agenda::mostraVisitas(QDate dia)
{
    Adodc1.setRecordSource(
        "select ca.idcontrato,ca.idprof,ca.idlan,ca.status,ca.idproc,ca.data,ca.hora,pa.nmpac,pa.dtnasc,"
        "pd.nmproc,pa.fonepac from contrato_agenda ca left join procedimentos pd on ca.idproc like pd.idproc "
        "left join pacientes pa on ca.idpac like pa.idpac where ca.idlic = " +
        aspas(idlic) + " and ca.data = " + aspas(emColuna(dia)) + " order by ca.hora");
    Adodc1.Refresh();
}
