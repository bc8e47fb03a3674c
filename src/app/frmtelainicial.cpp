#include "app/frmtelainicial.h"

#include "app/atualizacao.h"
#include "app/core/menu.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "app/frmcadusuario.h"
#include "app/frmconfig.h"
#include "app/frmprincipal.h"
#include "platform/forms/application.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/theme.h"
#include "platform/forms/wrongboxes.h"
#include "platform/values/error.h"
#include "ui_frmtelainicial.h"

#include <QIcon>

using namespace Qt::StringLiterals;

using namespace Variaveis;

frmtelainicial::frmtelainicial() : ui(std::make_unique<Ui::frmtelainicial>())
{
    ui->setupUi(this);
    // Drawn at the screen's own resolution.
    ui->imgLogin->setPixmap(QIcon(u":/shell/login.svg"_s).pixmap(QSize(200, 200), devicePixelRatio()));
    wire();
}

frmtelainicial::~frmtelainicial() = default;

void frmtelainicial::wire()
{
    onClick(ui->Command1, &frmtelainicial::Command1_Click);
    onClick(ui->Command2, &frmtelainicial::Command2_Click);
    onClick(ui->Label4, &frmtelainicial::Label4_Click);
    onKey(Qt::Key_F10, &frmtelainicial::Label4_Click, u"SUPORTE"_s);
    selectOnFocus(ui->txtUsuario);
    selectOnFocus(ui->txtSenha);
    onEnter(ui->txtSenha, &frmtelainicial::Command1_Click);
    explain(u"Enter"_s, u"no campo Senha: confirma"_s);
    connect(&Timer1, &QTimer::timeout, this, &frmtelainicial::Timer1_Timer);
}

void frmtelainicial::Form_Load()
{
    ui->Label1->setFont(Theme::fixedFont());
    try {
        AbreConexao();
        ui->Label1->setProperty("role", u"bright"_s);
        ui->Label1->style()->polish(ui->Label1);
        Repaint();
        Timer1.start(250);
    } catch (const RuntimeError& erro) {
        MsgBox(QString::number(erro.number()) + QLatin1Char('\n') + erro.description(), u"ATENÇÃO"_s,
               Icon::Information);
        if (MsgYesNo(u"SE FOR O PRIMEIRO ACESSO CLIQUE SIM!\nOU CONTATE O SUPORTE!"_s, u"Atenção"_s,
                     Icon::None))
            Form::of<frmconfig>().ShowModal();
        Application::end(0);
    }
}

void frmtelainicial::Form_Activate()
{
    rs.Open("select * from usuarios where idlic = " + aspas(idlic), Conexao, 3, 3);
    if (rs.Eof()) {
        if (MsgYesNo(u"PRIMEIRO ACESSO --- DESEJA CRIAR O USUÁRIO ADMINISTRADOR AGORA?"_s, u"Atenção"_s,
                     Icon::None))
            Form::of<frmcadusuario>().ShowModal();
        Application::end(0);
    }
    rs.Close();
}

void frmtelainicial::Timer1_Timer()
{
    const QString texto = ui->Label1->text();
    ui->Label1->setText(texto.sliced(1) + texto[0]);
}

void frmtelainicial::Command1_Click()
{
    rs.Open("select * from usuarios where idlic = " + aspas(idlic) + " and nmusuario = " +
                aspas(ui->txtUsuario->text()) + " and ususenha = " + aspas(ui->txtSenha->text()),
            Conexao, 3, 3);
    if (rs.Eof()) {
        pointAtAnyOf({ui->txtUsuario, ui->txtSenha});
        MsgBox(u"--- ERRO --- USUÁRIO E/OU SENHA NÃO CONFEREM!"_s, u"ATENÇÃO"_s, Icon::Information);
        if (auto* caixa = qobject_cast<QLineEdit*>(focusWidget()))
            caixa->selectAll(); // what is typed now takes the place of what was refused
    } else {
        Usuario = ui->txtUsuario->text();
        Logado = u"S"_s;
        LoginAberto = u"S"_s;
        auto& principal = Form::of<frmPrincipal>();
        principal.mostraSituacao(u"Carregando perfil do usuário..."_s);
        principal.mostraUsuario(u"Usuário: "_s + Usuario);
        AplicaPerfil();
        Unload();
    }
    if (rs.State() == 1)
        rs.Close();
}

/// The menu as the user's rows have it: everything off, then row by row, so that the last row of an entry
/// decides.
void frmtelainicial::AplicaPerfil()
{
    Menu& menu = Menu::principal();
    menu.disableAll();
    if (rs.State() == 1)
        rs.Close();
    rs.Open("select * from perfilusuario where nmusuario = " + aspas(ui->txtUsuario->text()) +
                " and idlic = " + aspas(idlic),
            Conexao, 3, 3);
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString campo = rs.Fields("campo").text().trimmed().toLower();
        for (const Menu::Entry& entrada : menu.entries())
            if (entrada.name.toLower() == campo)
                menu.setEnabled(entrada.name, rs.Fields("valor").text() != QLatin1String("1"));
    }
    rs.Close();
}

void frmtelainicial::Command2_Click()
{
    RetornoFechamento = u"N"_s;
    Unload();
}

void frmtelainicial::Form_Unload()
{
    FechaConexaoDaTela();
}

void frmtelainicial::Label4_Click()
{
    Atualizacao::AbreSuporte();
}

void frmtelainicial::Form_Escape()
{
    Usuario.clear();
    Command2_Click();
}

QString frmtelainicial::escapeHelp() const
{
    return u"fecha o programa"_s;
}

void frmtelainicial::FechaConexaoDaTela()
{
    if (rs.State() == 1)
        rs.Close();
    FechaConexao();
}
