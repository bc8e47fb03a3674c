#include "printing/impresso.h"

#include "app/core/instalacao.h"
#include "platform/system/clock.h"
#include "platform/system/files.h"
#include "platform/values/date.h"

using namespace Qt::StringLiterals;

namespace Impresso {

QString novoArquivo(const QString& nome)
{
    Files::makeFolder(Files::inProgramFolder(u"\\temp"_s));
    return Files::inProgramFolder(u"\\temp\\"_s + nome);
}

void comeca(PDFPrinter& pdf, const QString& arquivo, const QString& titulo, Orientacao orientacao)
{
    pdf.PDFFileName(arquivo);
    pdf.PDFLoadAfm(Files::inProgramFolder(u"\\fonts"_s));
    pdf.PDFConfirm(false);
    pdf.PDFView(true);
    pdf.PDFSetViewerPreferences(6);
    pdf.PDFFormatPage(0);
    pdf.PDFOrientation(qint32(orientacao));
    pdf.PDFSetUnit(0);
    pdf.PDFSetZoomMode(1);
    pdf.PDFSetLayoutMode(3);
    pdf.PDFUseOutlines(true);
    pdf.PDFUseThumbs(true);
    pdf.PDFBeginDoc();
    pdf.PDFSetLineStyle(0);
    pdf.PDFSetLineWidth(0.5);
    pdf.PDFSetBookmark(titulo, 0, 40);
    pdf.PDFSetBookmark(titulo, 1, 60);
}

void rodape(PDFPrinter& pdf, const Letra& letra, double x, double y, const QString& complemento)
{
    pdf.PDFSetFont(letra.familia, letra.tamanho, letra.estilo);
    pdf.PDFTextOut(Instalacao::contato() + u" - "_s + generalDate(Clock::now()) + complemento, x, y);
}

} // namespace Impresso
