#pragma once

#include "documents/pdfprinter.h"

/// What the clinic's printed documents have in common: a portrait or landscape A4 page in points, outlines
/// with the document's title, and the vendor's line at its foot.
namespace Impresso {

// Codes of PDFPrinter.
constexpr qint32 helvetica = 0;
constexpr qint32 courier = 1;
constexpr qint32 normal = 0;
constexpr qint32 negrito = 2;
constexpr qint32 preto = 0;

enum class Orientacao
{
    Paisagem,
    Retrato
};

/// The path of a file in the folder "temp" beside the program, which is made where it is missing. A name that
/// is to be new at each printing has instante() in it: novoArquivo("cli_agenda_" + instante() + ".pdf").
QString novoArquivo(const QString& nome);

/// Begins the document, which its completion opens. The caller ends its last page and the document.
void comeca(PDFPrinter& pdf, const QString& arquivo, const QString& titulo, Orientacao orientacao);

struct Letra
{
    qint32 familia;
    double tamanho;
    qint32 estilo;
};

/// Writes the vendor's contact line, the date and time, and what else a document says there.
void rodape(PDFPrinter& pdf, const Letra& letra, double x, double y, const QString& complemento = {});

} // namespace Impresso
