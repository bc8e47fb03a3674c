#include "documents/pdffixture.h"

#include "platform/system/files.h"

#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

QByteArray PDFTest::bytes(const QString& name) const
{
    return Files::read(path(name));
}

void PDFTest::put(const QString& name, const QByteArray& bytes) const
{
    Files::write(path(name), bytes);
}

QString PDFTest::oneFont() const
{
    Files::makeFolder(path(u"one"_s));
    put(u"one/Helvetica.afm"_s, "StartFontMetrics 4.1\r\nC 33 ; WX 999 ;\r\nStartCharMetrics 5\r\n"
                                "C 32 ; WX 250 ; N space ;\r\nC 65 ; WX 700.9 ; N A ;\r\n"
                                "C 97 ; WX 500 ; N a ;\r\nC 110 ; WX 600 ; N n ;\r\n"
                                "C -1 ; WX 800 ; N Aacute ;\r\nEndCharMetrics\r\n");
    return path(u"one"_s);
}

void PDFTest::configure(PDFPrinter& pdf, const QString& fonts) const
{
    pdf.PDFFileName(path());
    pdf.PDFLoadAfm(fonts.isEmpty() ? Files::inProgramFolder(u"\\fonts"_s) : fonts);
    pdf.PDFFormatPage(0);
    pdf.PDFOrientation(1);
    pdf.PDFSetUnit(0);
}

void PDFTest::beginDocument(PDFPrinter& pdf)
{
    pdf.PDFBeginDoc();
    pdf.PDFSetBookmark(u"um"_s, 0, 40);
    pdf.PDFSetBookmark(u"dois"_s, 1, 60);
}

QByteArray PDFTest::content(const std::function<void(PDFPrinter&)>& draw)
{
    PDFPrinter pdf;
    configure(pdf);
    beginDocument(pdf);
    pdf.PDFSetLineStyle(0);
    pdf.PDFSetLineWidth(0.5);
    pdf.PDFSetFont(0, 10, 0);
    draw(pdf);
    pdf.PDFEndDoc();
    expectReadable(1);
    const QByteArray file = bytes();
    const qsizetype begin = file.indexOf("stream\r\n") + 8;
    return file.sliced(begin, file.indexOf("endstream\r\n") - begin).replace("\r\n", "\n");
}

void PDFTest::expectReadable(int pages) const
{
    const auto found = [&](const QString& text) {
        return QRegularExpression(u"Pages:\\s+(\\d+)"_s).match(text).captured(1).toInt();
    };
    EXPECT_EQ(found(printed(u"pdfinfo"_s, {path()})), pages);
    EXPECT_EQ(found(printed(u"mutool"_s, {u"info"_s, path()})), pages);
}

QString PDFTest::printed(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        ADD_FAILURE() << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}
