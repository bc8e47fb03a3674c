#pragma once

#include "documents/pdfprinter.h"
#include "support/errorof.h"
#include "support/fixedclock.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Documents in a folder of their own. The metrics are those of the program, unless a test has others.
class PDFTest : public testing::Test
{
protected:
    QString path(const QString& name = u"documento.pdf"_s) const { return folder_.filePath(name); }
    QByteArray bytes(const QString& name = u"documento.pdf"_s) const;
    void put(const QString& name, const QByteArray& bytes) const;

    /// A folder with the metrics of Helvetica alone, of which "A" (700), "a" (500), "n" (600) and the blank
    /// (250) have a width.
    QString oneFont() const;

    /// The file's name, the fonts, A4 portrait and points.
    void configure(PDFPrinter& pdf, const QString& fonts = {}) const;

    /// Begins the document, with bookmarks at 40 (level 0) and 60 (level 1).
    static void beginDocument(PDFPrinter& pdf);

    /// What the drawing leaves in the content of a page of A4 in points, with line feeds between the lines.
    /// The font is Helvetica of size 10, the line 0.5 wide and solid. Two readers have accepted the document.
    QByteArray content(const std::function<void(PDFPrinter&)>& draw);

    /// A document of that many pages is complete: poppler's and mupdf's tools find so many.
    void expectReadable(int pages) const;
    /// What a program prints; fails where it does not succeed.
    static QString printed(const QString& program, const QStringList& arguments);

    ScriptedDialogs dialogs_;

private:
    QTemporaryDir folder_;
    FixedClock clock_{QDateTime(QDate(2026, 3, 16), QTime(8, 9, 10))};
};
