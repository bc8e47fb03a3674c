#include "app/frmprincipal.h"

#include "app/atualizacao.h"
#include "app/core/arquivosini.h"
#include "app/core/instalacao.h"
#include "app/core/variaveis.h"
#include "app/frmtelainicial.h"
#include "platform/forms/application.h"
#include "platform/forms/mnemonics.h"
#include "platform/forms/placement.h"
#include "platform/system/files.h"
#include "platform/system/usersettings.h"
#include "platform/values/error.h"
#include "ui_frmprincipal.h"

#include <QIcon>
#include <QMenuBar>
#include <QMouseEvent>
#include <QStatusTipEvent>

using namespace Qt::StringLiterals;

using namespace Variaveis;

/// Not in a namespace, which the macro does not bear. Without it the linker leaves a library's resources out.
static int loadResources()
{
    Q_INIT_RESOURCE(shell);
    return 0;
}
[[maybe_unused]] static const int resources = loadResources();

/// The window's place, size and state in the user's settings.
static const QString chaveTamanho = u"frmPrincipal"_s;

/// While nothing else is told: a stranger knows of the sheet from nowhere else.
static const QString ajuda = u"Shift+F1 mostra as teclas de cada tela."_s;

/// Behind the description of an entry that the user has no right to.
static const QString semAcesso = u" Seu usuário não tem acesso."_s;

frmPrincipal::frmPrincipal() : ui(std::make_unique<Ui::frmPrincipal>())
{
    ui->setupUi(this);
    setWindowTitle(Instalacao::nomePrograma());
    ui->lMarca->setPixmap(QIcon(u":/shell/watermark.svg"_s).pixmap(QSize(360, 400), devicePixelRatio()));
    ui->sRodape->addPanel(StatusBar::Panel::Text);
    ui->sRodape->addPanel(StatusBar::Panel::Date);
    ui->sRodape->addPanel(StatusBar::Panel::Text, 1);
    ui->sRodape->setPanel(1, Instalacao::site());
    ui->lDica->setText(ajuda);
    buildMenu();
    wire();
}

frmPrincipal::~frmPrincipal() = default;

void frmPrincipal::wire()
{
    onKey(Qt::Key_F10, &frmPrincipal::mnuoff_Click);
    Menu::principal().bind(u"mnuoff"_s, [this] { mnuoff_Click(); });
    Menu::principal().bind(u"mnuupdate"_s, [this] { mnuupdate_Click(); });
    connect(&Menu::principal(), &Menu::enabledChanged, this,
            [this](const Menu::Entry& entry) { mostraPermissao(*actions_.value(entry.name), entry); });
    // Behind the noting of sizes, which the fonts are scaled by.
    connect(this, &Form::loaded, this, &frmPrincipal::retomaTamanho);
}

void frmPrincipal::buildMenu()
{
    menuBar_ = new QMenuBar(this);
    menuBar_->installEventFilter(this);
    layout()->setMenuBar(menuBar_);
    QList<QMenu*> open; // the sub-menu that entries of each level go into, level 1 first
    for (const Menu::Entry& entry : Menu::principal().entries()) {
        open.resize(entry.level);
        QAction* action = nullptr;
        if (entry.isHead) {
            auto* menu = new LetterMenu(entry.caption, this);
            menu->installEventFilter(this);
            action = entry.level == 0 ? menuBar_->addMenu(menu) : open.last()->addMenu(menu);
            open.append(menu);
        } else {
            action =
                entry.level == 0 ? menuBar_->addAction(entry.caption) : open.last()->addAction(entry.caption);
            connect(action, &QAction::triggered, this, [name = entry.name] { Menu::principal().run(name); });
        }
        action->setObjectName(entry.name);
        if (entry.name == QLatin1String("mnuoff"))
            action->setProperty("glyph", u"leave"_s);
        mostraPermissao(*action, entry);
        actions_.insert(entry.name, action);
    }
}

void frmPrincipal::mostraPermissao(QAction& action, const Menu::Entry& entry)
{
    action.setEnabled(entry.enabled);
    action.setStatusTip(entry.enabled ? entry.description : entry.description + semAcesso);
}

bool frmPrincipal::event(QEvent* event)
{
    if (event->type() == QEvent::StatusTip) {
        const QString tip = static_cast<QStatusTipEvent*>(event)->tip();
        ui->lDica->setText(tip.isEmpty() ? ajuda : tip);
        return true;
    }
    if (event->type() == QEvent::WindowStateChange && !isMaximized())
        keepInSight(*this);
    return Form::event(event);
}

bool frmPrincipal::eventFilter(QObject* menu, QEvent* event)
{
    if (event->type() != QEvent::MouseMove && event->type() != QEvent::Leave)
        return false;
    const QAction* entry = nullptr;
    if (event->type() == QEvent::MouseMove) {
        const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
        entry = menu == menuBar_ ? menuBar_->actionAt(place) : static_cast<QMenu*>(menu)->actionAt(place);
    }
    if (entry && !entry->isEnabled())
        ui->lDica->setText(entry->statusTip());
    else if (ui->lDica->text().endsWith(semAcesso))
        ui->lDica->setText(ajuda);
    return false;
}

void frmPrincipal::retomaTamanho()
{
    if (restoreGeometry(UserSettings::value(chaveTamanho)))
        return;
    placeWindow(*this, nullptr); // where it goes when it is made smaller
    setWindowState(windowState() | Qt::WindowMaximized);
}

/// Wherever the program ends by the window's or the login's closing.
void frmPrincipal::guardaTamanho()
{
    UserSettings::setValue(chaveTamanho, saveGeometry());
}

QWidget* frmPrincipal::clientArea()
{
    return ui->cliente;
}

QSize frmPrincipal::openingSize() const
{
    return {1120, 700};
}

void frmPrincipal::mostraSituacao(const QString& texto)
{
    ui->cmdST->setText(texto);
    ui->cmdST->raise();
    ui->cmdST->setVisible(true);
    Repaint();
}

void frmPrincipal::mostraUsuario(const QString& texto)
{
    ui->sRodape->setPanel(3, texto);
    Repaint();
}

void frmPrincipal::Form_Load()
{
    // The updater that the last update fetched has done its work.
    const QString atualizador = Files::inProgramFolder(u"\\adm_atu.exe"_s);
    if (Files::exists(atualizador))
        Files::removeFile(atualizador);

    ui->Image1->setVisible(false);
    const QString logo = Files::inProgramFolder(u"\\logo.jpg"_s);
    if (Files::exists(logo)) {
        QPixmap imagem;
        if (!imagem.loadFromData(Files::read(logo)))
            throw RuntimeError(481, u"Imagem inválida: %1"_s.arg(logo));
        ui->Image1->setPixmap(imagem);
        ui->Image1->lower();
        ui->Image1->setVisible(true);
        ui->lMarca->setVisible(false);
    }

    Logado = u"N"_s;
    ui->sRodape->setPanel(3, u"Usuário: Não Logado"_s);
}

void frmPrincipal::Form_Activate()
{
    if (Logado == QLatin1String("N")) {
        CarregaConfiguracao();
        LoginAberto = u"N"_s;
        mostraSituacao(u"Efetue a Login..."_s);
        pedeLogin();
        mostraUsuario(u"Usuário: "_s + Usuario);
        LoginAberto.clear();
    }
    if (Logado == QLatin1String("S")) {
        // The login has just disabled every entry that has no row.
        Menu::principal().setEnabled(u"mnuupdate"_s, true);
        Menu::principal().setEnabled(u"mnuoff"_s, true);
        ui->cmdST->setVisible(false);
    }
}

void frmPrincipal::CarregaConfiguracao()
{
    mostraSituacao(u"Aguarde... iniciando..."_s);
    idlic.clear();
    ArquivoINI = ArquivosINI::Caminho();
    if (!Files::exists(ArquivoINI))
        return;
    const ArquivosINI::Configuracao valores = ArquivosINI::Le(ArquivoINI);
    idlic = valores.idlic;
    conexao = valores.conexao;
    senha = valores.senha;
    banco = valores.banco;
    userbco = valores.userbco;
    StringConexao = u"Driver={MySQL ODBC 8.0 ANSI Driver};Server="_s + conexao + u";Database="_s + banco +
                    u";User="_s + userbco + u";Password="_s + senha + u";Option=3;"_s;
}

void frmPrincipal::pedeLogin()
{
    Form::of<frmtelainicial>().ShowModal();
    if (LoginAberto == QLatin1String("N")) {
        guardaTamanho();
        Application::end(0);
    }
}

void frmPrincipal::mnuoff_Click()
{
    Logado = u"N"_s;
    Usuario.clear();
    mostraUsuario(u"Usuário:"_s);
    LoginAberto = u"N"_s;
    pedeLogin();
    LoginAberto.clear();
}

void frmPrincipal::mnuupdate_Click()
{
    Atualizacao::Baixa();
}

void frmPrincipal::Form_Unload()
{
    guardaTamanho();
    Application::end(0);
}
