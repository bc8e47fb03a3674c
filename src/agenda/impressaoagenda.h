#pragma once

#include <QString>
#include <QStringList>

/// What the printed day shows, as it stands on the screen.
struct FolhaDaAgenda
{
    QString profissional; ///< the item of the list of professionals, of which the name is printed
    QString dia;
    QString titulo; ///< the list's headings
    QStringList linhas;
};

/// Writes the day as a PDF file into the folder "temp" beside the program, leaves its path in ArquivoPDF and
/// opens it. A portrait A4 page in points; each line's first 100 characters on ten points of height.
///
/// From the 69th line on each line takes a page of its own, ten points lower than the one before: a new page
/// neither repeats the head nor starts at its top.
///
/// Failures are PDFPrinter's.
void imprimeAgenda(const FolhaDaAgenda& folha);
