#include "app/frmcadusuario.h"

#include "app/core/caixas.h"
#include "app/core/menu.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/text.h"
#include "ui_frmcadusuario.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

constexpr int larguraNome = 20;
constexpr int larguraTitulo = 60;

/// The name of the menu entry that a line of the list ends with, padded as the rows hold it. A caption may
/// hold a "-" of its own: the last piece is the name.
QString campoDaLinha(const QString& linha)
{
    return fixedWidth(linha.split(QLatin1Char('-')).constLast().trimmed(), larguraNome);
}

/// The caption in ink; the dots of its level are an ornament, the entry's name is muted.
LineLook aparenciaDaLinha(const QString& linha)
{
    qsizetype nivel = 0;
    while (nivel < linha.size() && linha[nivel] == QLatin1Char('.'))
        ++nivel;
    LineLook look;
    look.runs.append({0, nivel, Theme::Role::Hairline, false});
    look.runs.append({nivel, larguraTitulo, Theme::Role::Ink, nivel == 0});
    look.runs.append({nivel + larguraTitulo, linha.size(), Theme::Role::OffInk, false});
    return look;
}

} // namespace

frmcadusuario::frmcadusuario() : ui(std::make_unique<Ui::frmcadusuario>())
{
    ui->setupUi(this);
    ui->Combo1->setCompleter(nullptr); // it would turn the new name MARI into the known MARIA
    ui->List1->setMultiSelect(true);
    ui->List1->setLook(aparenciaDaLinha);
    wire();
}

frmcadusuario::~frmcadusuario() = default;

void frmcadusuario::wire()
{
    onLostFocus(ui->Combo1, &frmcadusuario::Combo1_LostFocus);
    selectOnFocus(ui->txtsenha);
    selectOnFocus(ui->txtoksenha);
    onChange(ui->txtoksenha, &frmcadusuario::txtoksenha_Change);
    onGotFocus(ui->txtoksenha, &frmcadusuario::txtoksenha_Change);
    onClick(ui->Command1, &frmcadusuario::Command1_Click);
    onClick(ui->Command2, &frmcadusuario::Command2_Click);
    onClick(ui->Command3, &frmcadusuario::Command3_Click);
    onClick(ui->Command5, &frmcadusuario::Command5_Click);
}

void frmcadusuario::Form_Load()
{
    RetornoCodigo = u"N"_s;
    AbreConexao();
    rs.Open("select * from usuarios where idlic = " + aspas(idlic), Conexao, 0, 1);
    for (; !rs.Eof(); rs.MoveNext())
        ui->Combo1->addItem(rs.Fields("nmusuario").text());
    rs.Close();
    ui->Combo1->setCurrentIndex(-1);
    ui->Combo1->clearEditText();
    ui->Command1->setEnabled(false);
    ui->Command3->setEnabled(false);
}

void frmcadusuario::Combo1_LostFocus()
{
    ui->List1->Clear();
    const QString nome = ui->Combo1->currentText().trimmed();
    if (nome.isEmpty()) {
        ui->Command1->setEnabled(false);
        ui->Command3->setEnabled(false);
        pointAt({ui->Combo1});
        MsgBox(u"--- ERRO --- INFORME O NOME DE USUÁRIO!"_s, u"ATENÇÃO"_s, Icon::Information);
        return;
    }
    if (nome.size() > 10) {
        pointAt({ui->Combo1});
        MsgBox(u"--- ERRO --- O NOME DE USUÁRIO NÃO PODE TER MAIS QUE 10 CARACTERES!"_s, u"ATENÇÃO"_s,
               Icon::Critical);
        return;
    }
    const Hourglass ampulheta;
    AbreConexao();
    rs.Open("select * from usuarios where nmusuario = " + aspas(nome) + " and idlic = " + aspas(idlic),
            Conexao, 0, 1);
    ui->txtsenha->clear();
    ui->txtoksenha->clear();
    achado_ = false;
    for (; !rs.Eof(); rs.MoveNext()) {
        achado_ = true;
        ui->txtsenha->setText(rs.Fields("ususenha").text());
        ui->txtoksenha->setText(rs.Fields("ususenha").text());
    }
    rs.Close();
    montaLista();
    marcaLista();
}

void frmcadusuario::montaLista()
{
    for (const Menu::Entry& entrada : Menu::principal().entries())
        ui->List1->AddItem(QString(4 * entrada.level, QLatin1Char('.')) +
                           fixedWidth(entrada.caption, larguraTitulo) + u" - "_s +
                           fixedWidth(entrada.name, larguraNome));
}

/// A right counts under the password that the screen shows: rows written under another one are as good as
/// absent.
void frmcadusuario::marcaLista()
{
    const QString nome = ui->Combo1->currentText().trimmed();
    for (int i = 0; i < ui->List1->ListCount(); ++i) {
        rs.Open("select * from perfilusuario where idlic = " + aspas(idlic) +
                    " and nmusuario = " + aspas(nome) + " and ususenha = " + aspas(ui->txtsenha->text()) +
                    " and campo = " + aspas(campoDaLinha(ui->List1->List(i))),
                Conexao, 0, 1);
        ui->List1->setSelected(i, false);
        for (; !rs.Eof(); rs.MoveNext())
            ui->List1->setSelected(i, rs.Fields("valor").text() != QLatin1String("1"));
        rs.Close();
    }
}

void frmcadusuario::txtoksenha_Change()
{
    const bool completas = !isVazia(ui->txtsenha) && !isVazia(ui->txtoksenha);
    const bool iguais = completas && ui->txtsenha->text() == ui->txtoksenha->text();
    ui->Command1->setEnabled(iguais);
    ui->Command3->setEnabled(iguais);
}

void frmcadusuario::Command1_Click()
{
    const QString nome = ui->Combo1->currentText();
    const QString senhaNova = ui->txtsenha->text();
    const QWidgetList vazias = erradas({{ui->Combo1, nome.isEmpty()}, {ui->txtsenha, senhaNova.isEmpty()}});
    if (!vazias.isEmpty()) {
        pointAt(vazias);
        MsgBox(u"Existem campos em branco que não podem ficar em branco."_s, u"ATENÇÃO"_s, Icon::Exclamation);
        return;
    }
    if (ui->txtoksenha->text() != senhaNova) {
        pointAtAnyOf({ui->txtsenha, ui->txtoksenha});
        MsgBox(u"--- ERRO --- Senhas não conferem!"_s, u"Atenção"_s);
        return;
    }

    grava(nome, senhaNova);
    MsgBox(u"Salvo com sucesso!"_s, u"Atenção"_s);
    limpaTela();
}

void frmcadusuario::grava(const QString& nome, const QString& senhaNova)
{
    const Hourglass ampulheta;
    const QString quando = aspas(carimboRegistro());
    reabre();
    if (achado_)
        ComandoGeral("update usuarios set ususenha = " + aspas(senhaNova) + ", evup = " + quando +
                     " WHERE idlic = " + aspas(idlic) + " and nmusuario = " + aspas(nome));
    else
        ComandoGeral("insert into usuarios (idlic,nmusuario,ususenha,evcad,evup) values (" + aspas(idlic) +
                     "," + aspas(nome) + "," + aspas(senhaNova) + "," + quando + "," + quando + ")");

    reabre();
    ComandoGeral("delete from perfilusuario where idlic = " + aspas(idlic) +
                 " and nmusuario = " + aspas(nome));
    for (int i = 0; i < ui->List1->ListCount(); ++i) {
        const QString valor = ui->List1->Selected(i) ? u"0"_s : u"1"_s;
        ComandoGeral("insert into perfilusuario (idlic,nmusuario,ususenha,campo,valor,evcad) values (" +
                     aspas(idlic) + "," + aspas(nome) + "," + aspas(senhaNova) + "," +
                     aspas(campoDaLinha(ui->List1->List(i))) + "," + aspas(valor) + "," +
                     aspas(carimboRegistro()) + ")");
    }
}

/// Deletes the account of this name from every tenant of the database.
void frmcadusuario::Command3_Click()
{
    if (!MsgYesNo(u"Confirma a exclusão?"_s, u"Exclusão de Usuário"_s, Icon::Question))
        return;
    const QString nome = aspas(ui->Combo1->currentText());
    AbreConexao();
    ComandoGeral("delete from perfilusuario where nmusuario = " + nome);
    ComandoGeral("delete from usuarios where nmusuario = " + nome);
    limpaTela();
    MsgBox(u"Excluído com sucesso!"_s, u"Atenção"_s);
}

void frmcadusuario::Command2_Click()
{
    for (int i = 0; i < ui->List1->ListCount(); ++i)
        ui->List1->setSelected(i, true);
}

void frmcadusuario::Command5_Click()
{
    for (int i = 0; i < ui->List1->ListCount(); ++i)
        ui->List1->setSelected(i, false);
}

void frmcadusuario::limpaTela()
{
    ui->List1->Clear();
    ui->txtsenha->clear();
    ui->txtoksenha->clear();
    ui->Combo1->setCurrentIndex(-1);
    ui->Combo1->clearEditText();
    ui->Command1->setEnabled(false);
    ui->Command3->setEnabled(false);
}

void frmcadusuario::reabre()
{
    if (rs.State() == 1)
        rs.Close();
    ReabreConexao();
}

void frmcadusuario::Form_Unload()
{
    if (rs.State() == 1)
        rs.Close();
    FechaConexao();
}
