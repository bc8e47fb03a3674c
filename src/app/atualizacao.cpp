#include "app/atualizacao.h"

#include "app/core/instalacao.h"
#include "app/frmprincipal.h"
#include "app/frmprogresso.h"
#include "platform/forms/application.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/system/files.h"
#include "platform/system/http.h"
#include "platform/system/shell.h"

namespace Atualizacao {

namespace {

/// How long the vendor's server may be silent.
constexpr std::chrono::milliseconds espera = std::chrono::seconds(60);

/// Fetches the updater and lets it take over; the status of the answer, where the program goes on.
int baixaEExecuta()
{
    const Hourglass ampulheta;
    auto& principal = Form::of<frmPrincipal>();
    principal.Repaint();
    auto& progresso = Form::of<frmProgresso>();
    progresso.Show();
    progresso.Repaint();

    const QString destino = Files::inProgramFolder(QStringLiteral("\\adm_atu.exe"));
    const QString endereco = Instalacao::servidorDownload() + QStringLiteral("/down/tremosilva/adm_atu.exe");
    progresso.mostraPasso(1);
    const Http::Response resposta = Http::download(endereco, espera, "Mozilla/5.0");
    progresso.Repaint();
    if (resposta.status == 200) {
        progresso.mostraPasso(2);
        Files::write(destino, resposta.body);
        Files::makeExecutable(destino);
        progresso.mostraPasso(3);
        Shell::open(destino);
        principal.Unload();
        Application::end(0);
    }
    progresso.Unload();
    return resposta.status;
}

} // namespace

void Baixa()
{
    const int status = baixaEExecuta();
    MsgBox(QStringLiteral("Erro ao baixar atualização. Código: %1").arg(status), QStringLiteral("Atenção"),
           Icon::Exclamation);
}

void AbreSuporte()
{
    const QString ferramenta = Files::inProgramFolder(QStringLiteral("\\suporte.exe"));
    if (Files::exists(ferramenta))
        return Shell::open(ferramenta);
    MsgBox(QStringLiteral("Atenção!!! APP Não instalado! O Sistema irá fazer o downlaod do APP.!"),
           Instalacao::fornecedor());
    Shell::open(Instalacao::servidorDownload() + QStringLiteral("/down/suporte.exe"));
}

} // namespace Atualizacao
