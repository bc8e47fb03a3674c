#include "agenda/impressaoagenda.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "printing/impresso.h"

using namespace Qt::StringLiterals;

namespace {

using Impresso::courier, Impresso::helvetica, Impresso::negrito, Impresso::normal, Impresso::preto;

constexpr qint32 azul = 0xff0000; // packed colours have the blue in front
constexpr qint32 branco = 0xffffff;
constexpr double esquerda = 15;
constexpr double direita = 575;
constexpr double margemDoTexto = 20;
constexpr double fimDaPagina = 765;
constexpr qsizetype larguraDaLinha = 100;

QString semBarras(const QString& linha)
{
    return linha.left(larguraDaLinha).replace(QLatin1Char('|'), QLatin1Char(' '));
}

void linhaCheia(PDFPrinter& pdf, double y)
{
    pdf.PDFDrawLine(esquerda, y, direita, y);
}

void cabecalho(PDFPrinter& pdf, const FolhaDaAgenda& folha)
{
    linhaCheia(pdf, 32);
    pdf.PDFSetFont(helvetica, 12, negrito);
    pdf.PDFTextOut(u"Tremo Silva 1.0 - AGENDA CLINICA"_s, margemDoTexto, 25);
    pdf.PDFSetFont(helvetica, 9, normal);
    pdf.PDFTextOut(u"PROFISSIONAL: "_s + folha.profissional.left(45), margemDoTexto, 45);
    pdf.PDFSetFont(helvetica, 10, normal);
    pdf.PDFTextOut(folha.dia, margemDoTexto, 55);
    pdf.PDFSetFont(helvetica, 9, normal);
    pdf.PDFTextOut(carimboRegistro(), margemDoTexto, 65);
    linhaCheia(pdf, 70);
    pdf.PDFSetLineColor(azul);
    pdf.PDFSetLineWidth(12);
    linhaCheia(pdf, 77); // so thick that it is a band
    pdf.PDFSetTextColor(branco);
    // Of one pitch, so that the columns of list and headings stand in line.
    pdf.PDFSetFont(courier, 9, normal);
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
    pdf.PDFSetLineColor(preto);
    pdf.PDFSetTextColor(preto);
    pdf.PDFSetLineWidth(0.2);
    linhaCheia(pdf, 800);
    Impresso::rodape(pdf, {helvetica, 12, normal}, margemDoTexto, 810);
}

} // namespace

void imprimeAgenda(const FolhaDaAgenda& folha)
{
    Variaveis::ArquivoPDF = Impresso::novoArquivo(u"cli_agenda_"_s + instante() + u".pdf"_s);
    PDFPrinter pdf;
    Impresso::comeca(pdf, Variaveis::ArquivoPDF, u"Agenda Clinica"_s, Impresso::Orientacao::Retrato);
    cabecalho(pdf, folha);
    rodape(pdf, corpo(pdf, folha.linhas));
    pdf.PDFEndPage();
    pdf.PDFEndDoc(); // opens it
}
