#include "agenda/impressaoagenda.h"

#include "app/core/instalacao.h"
#include "app/core/variaveis.h"
#include "documents/pdfprinter.h"
#include "platform/system/clock.h"
#include "platform/system/files.h"
#include "platform/values/date.h"
#include "platform/values/format.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 azul = 0xff0000; // packed colours have the blue in front
constexpr qint32 branco = 0xffffff;
constexpr qint32 preto = 0;
constexpr qint32 helvetica = 0;
constexpr qint32 courier = 1;
constexpr qint32 negrito = 2;
constexpr double esquerda = 15;
constexpr double direita = 575;
constexpr double margemDoTexto = 20;
constexpr double fimDaPagina = 765;
constexpr qsizetype larguraDaLinha = 100;

QString agora()
{
    return generalDate(Clock::now());
}

QString semBarras(const QString& linha)
{
    return linha.left(larguraDaLinha).replace(QLatin1Char('|'), QLatin1Char(' '));
}

void linhaCheia(PDFPrinter& pdf, double y)
{
    pdf.PDFDrawLine(esquerda, y, direita, y);
}

QString novoArquivo()
{
    Files::makeFolder(Files::inProgramFolder(u"\\temp"_s));
    return Files::inProgramFolder(u"\\temp\\cli_agenda_"_s + Format(Clock::now(), u"yymmddhhmmss") +
                                  u".pdf"_s);
}

void prepara(PDFPrinter& pdf)
{
    pdf.PDFFileName(Variaveis::ArquivoPDF);
    pdf.PDFLoadAfm(Files::inProgramFolder(u"\\fonts"_s));
    pdf.PDFConfirm(false);
    pdf.PDFView(true);
    pdf.PDFSetViewerPreferences(6);
    pdf.PDFFormatPage(0);
    pdf.PDFOrientation(1);
    pdf.PDFSetUnit(0);
    pdf.PDFSetZoomMode(1);
    pdf.PDFSetLayoutMode(3);
    pdf.PDFUseOutlines(true);
    pdf.PDFUseThumbs(true);
    pdf.PDFBeginDoc();
    pdf.PDFSetLineStyle(0);
    pdf.PDFSetLineWidth(0.5);
    pdf.PDFSetBookmark(u"Agenda Clinica"_s, 0, 40);
    pdf.PDFSetBookmark(u"Agenda Clinica"_s, 1, 60);
}

void cabecalho(PDFPrinter& pdf, const FolhaDaAgenda& folha)
{
    linhaCheia(pdf, 32);
    pdf.PDFSetFont(helvetica, 12, negrito);
    pdf.PDFTextOut(u"Tremo Silva 1.0 - AGENDA CLINICA"_s, margemDoTexto, 25);
    pdf.PDFSetFont(helvetica, 9, 0);
    pdf.PDFTextOut(u"PROFISSIONAL: "_s + folha.profissional.left(45), margemDoTexto, 45);
    pdf.PDFSetFont(helvetica, 10, 0);
    pdf.PDFTextOut(folha.dia, margemDoTexto, 55);
    pdf.PDFSetFont(helvetica, 9, 0);
    pdf.PDFTextOut(Variaveis::Usuario + u" - "_s + agora(), margemDoTexto, 65);
    linhaCheia(pdf, 70);
    pdf.PDFSetLineColor(azul);
    pdf.PDFSetLineWidth(12);
    linhaCheia(pdf, 77); // so thick that it is a band
    pdf.PDFSetTextColor(branco);
    pdf.PDFSetFont(courier, 9, 0); // of one pitch, so that the columns of list and headings stand in line
    pdf.PDFTextOut(semBarras(folha.titulo), margemDoTexto, 79);
}

/// Returns where the next line would stand.
double corpo(PDFPrinter& pdf, const QStringList& linhas)
{
    pdf.PDFSetLineWidth(0.2);
    pdf.PDFSetLineColor(preto);
    pdf.PDFSetTextColor(preto);
    double y = 90;
    for (const QString& linha : linhas) {
        if (y >= fimDaPagina) {
            pdf.PDFEndPage();
            pdf.PDFNewPage();
        }
        pdf.PDFTextOut(semBarras(linha), margemDoTexto, y);
        linhaCheia(pdf, y + 2);
        y += 10;
    }
    return y;
}

void rodape(PDFPrinter& pdf, double y)
{
    pdf.PDFSetLineColor(azul);
    pdf.PDFSetLineWidth(2);
    linhaCheia(pdf, y - 8);
    pdf.PDFSetFont(helvetica, 12, 0);
    pdf.PDFSetLineColor(preto);
    pdf.PDFSetTextColor(preto);
    pdf.PDFSetLineWidth(0.2);
    linhaCheia(pdf, 800);
    pdf.PDFTextOut(Instalacao::contato() + u" - "_s + agora(), margemDoTexto, 810);
}

} // namespace

void imprimeAgenda(const FolhaDaAgenda& folha)
{
    Variaveis::ArquivoPDF = novoArquivo();
    PDFPrinter pdf;
    prepara(pdf);
    cabecalho(pdf, folha);
    rodape(pdf, corpo(pdf, folha.linhas));
    pdf.PDFEndPage();
    pdf.PDFEndDoc(); // opens it
}
