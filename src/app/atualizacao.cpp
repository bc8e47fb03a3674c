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

using namespace Qt::StringLiterals;

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

    const QString destino = Files::inProgramFolder(u"\\adm_atu.exe"_s);
    const QString endereco = Instalacao::servidorDownload() + u"/down/tremosilva/adm_atu.exe"_s;
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
    MsgBox(u"Erro ao baixar atualização. Código: %1"_s.arg(status), u"Atenção"_s, Icon::Exclamation);
}

void AbreSuporte()
{
    const QString ferramenta = Files::inProgramFolder(u"\\suporte.exe"_s);
    if (Files::exists(ferramenta))
        return Shell::open(ferramenta);
    MsgBox(u"Atenção!!! APP Não instalado! O Sistema irá fazer o downlaod do APP.!"_s,
           Instalacao::fornecedor());
    Shell::open(Instalacao::servidorDownload() + u"/down/suporte.exe"_s);
}

} // namespace Atualizacao
