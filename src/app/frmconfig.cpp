#include "app/frmconfig.h"

#include "app/core/arquivosini.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "platform/system/files.h"
#include "ui_frmconfig.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

frmconfig::frmconfig() : ui(std::make_unique<Ui::frmconfig>())
{
    ui->setupUi(this);
    // Server, database, account and password are the server's own, and it tells "a" from "A".
    setUpperCase(false);
    wire();
}

frmconfig::~frmconfig() = default;

void frmconfig::wire()
{
    onClick(ui->Command1, &frmconfig::Command1_Click);
    onClick(ui->Command2, &frmconfig::Command2_Click);
}

void frmconfig::Form_Load()
{
    ArquivoINI = ArquivosINI::Caminho();
    if (!Files::exists(ArquivoINI))
        return;
    const ArquivosINI::Configuracao valores = ArquivosINI::Le(ArquivoINI);
    ui->txtIdLic->setText(valores.idlic);
    ui->txtString->setText(valores.conexao);
    ui->txtNmBco->setText(valores.banco);
    ui->txtNmUsu->setText(valores.userbco);
    ui->txtSenha->setText(valores.senha);
}

void frmconfig::Command2_Click()
{
    if (!MsgYesNo(u"Confirma os dados?"_s, u"Atenção"_s, Icon::Question))
        return;
    ArquivosINI::Configuracao valores;
    valores.conexao = ui->txtString->text();
    valores.senha = ui->txtSenha->text();
    valores.banco = ui->txtNmBco->text();
    valores.userbco = ui->txtNmUsu->text();
    valores.idlic = ui->txtIdLic->text();
    ArquivosINI::Grava(valores);
    MsgBox(u"Configuração salva com sucesso!"_s, u"Atenção"_s, Icon::Information);
    Unload();
}

void frmconfig::Command1_Click()
{
    Unload();
}
