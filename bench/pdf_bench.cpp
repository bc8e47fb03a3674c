/// Pages of an agenda, 68 lines each, by PDFPrinter, by libharu and by Qt's own writer: pages per second and
/// the memory at its peak. Each document is made by a process of its own, so that the peak is that writer's.
#include "documents/pdfprinter.h"
#include "platform/system/files.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <ctime>
#include <hpdf.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int LinesOnPage = 68;
constexpr double PageHeight = 842;
const QString Title = u"Tremo Silva 1.0 - AGENDA CLINICA"_s;
const QString Headings = u"HORA  PACIENTE                                 CONVENIO        "
                         "PROCEDIMENTO                 FONE"_s;

QString agendaLine(int line)
{
    return u"%1:%2 MARIA DA CONCEIÇÃO DE SOUZA              PLANO SÃO JOSÉ  CONSULTA (RETORNO)         "
           "  (11) 98765-4321"_s.arg(8 + line / 6, 2, 10, QLatin1Char('0'))
               .arg(line % 6 * 10, 2, 10, QLatin1Char('0'))
               .leftJustified(100)
               .left(100);
}

/// What a page is drawn with: points from the top left corner.
struct Pen
{
    std::function<void(double x1, double y1, double x2, double y2, double width)> line;
    std::function<void(const QString& text, double x, double y, int size)> text;
};

void drawPage(const Pen& pen, const QStringList& lines)
{
    pen.line(15, 32, 575, 32, 0.5);
    pen.text(Title, 20, 25, 12);
    pen.text(u"PROFISSIONAL: ANTONIO DOS SANTOS"_s, 20, 45, 9);
    pen.text(u"SEGUNDA-FEIRA, 16/03/2026"_s, 20, 55, 10);
    pen.text(u"RECEPCAO - 16/03/2026 08:09:10"_s, 20, 65, 9);
    pen.line(15, 70, 575, 70, 0.5);
    pen.line(15, 77, 575, 77, 12);
    pen.text(Headings, 20, 79, 9);
    double y = 90;
    for (const QString& line : lines) {
        pen.text(line, 20, y, 9);
        pen.line(15, y + 2, 575, y + 2, 0.2);
        y += 10;
    }
}

void byPrinter(const QString& path, int pages, const QStringList& lines)
{
    PDFPrinter pdf;
    pdf.PDFFileName(path);
    pdf.PDFLoadAfm(Files::inProgramFolder(u"\\fonts"_s));
    pdf.PDFFormatPage(0);
    pdf.PDFOrientation(1);
    pdf.PDFSetUnit(0);
    pdf.PDFBeginDoc();
    pdf.PDFSetLineStyle(0);
    pdf.PDFSetBookmark(Title, 0, 40);
    pdf.PDFSetBookmark(Title, 1, 60);
    const Pen pen{[&](double x1, double y1, double x2, double y2, double width) {
                      pdf.PDFSetLineWidth(width);
                      pdf.PDFDrawLine(x1, y1, x2, y2);
                  },
                  [&](const QString& text, double x, double y, int size) {
                      pdf.PDFSetFont(0, size, 0);
                      pdf.PDFTextOut(text, x, y);
                  }};
    for (int page = 1; page <= pages; ++page) {
        if (page > 1)
            pdf.PDFNewPage();
        drawPage(pen, lines);
        pdf.PDFEndPage();
    }
    pdf.PDFEndDoc();
}

void byLibharu(const QString& path, int pages, const QStringList& lines)
{
    HPDF_Doc document = HPDF_New([](HPDF_STATUS error, HPDF_STATUS,
                                    void*) { throw std::runtime_error("libharu: " + std::to_string(error)); },
                                 nullptr);
    HPDF_Font font = HPDF_GetFont(document, "Helvetica", "WinAnsiEncoding");
    for (int i = 0; i < pages; ++i) {
        HPDF_Page page = HPDF_AddPage(document);
        HPDF_Page_SetSize(page, HPDF_PAGE_SIZE_A4, HPDF_PAGE_PORTRAIT);
        const Pen pen{[&](double x1, double y1, double x2, double y2, double width) {
                          HPDF_Page_SetLineWidth(page, float(width));
                          HPDF_Page_MoveTo(page, float(x1), float(PageHeight - y1));
                          HPDF_Page_LineTo(page, float(x2), float(PageHeight - y2));
                          HPDF_Page_Stroke(page);
                      },
                      [&](const QString& text, double x, double y, int size) {
                          HPDF_Page_BeginText(page);
                          HPDF_Page_SetFontAndSize(page, font, float(size));
                          HPDF_Page_TextOut(page, float(x), float(PageHeight - y),
                                            text.toLatin1().constData());
                          HPDF_Page_EndText(page);
                      }};
        drawPage(pen, lines);
    }
    HPDF_SaveToFile(document, QFile::encodeName(path).constData());
    HPDF_Free(document);
}

void byQt(const QString& path, int pages, const QStringList& lines)
{
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({});
    writer.setResolution(72);
    QPainter painter(&writer);
    const Pen pen{[&](double x1, double y1, double x2, double y2, double width) {
                      painter.setPen(QPen(Qt::black, width));
                      painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
                  },
                  [&](const QString& text, double x, double y, int size) {
                      painter.setFont(QFont(u"Helvetica"_s, size));
                      painter.drawText(QPointF(x, y), text);
                  }};
    for (int page = 1; page <= pages; ++page) {
        if (page > 1)
            writer.newPage();
        drawPage(pen, lines);
    }
}

using Writer = void (*)(const QString& path, int pages, const QStringList& lines);
const std::pair<const char*, Writer> writers[] = {
    {"PDFPrinter", byPrinter}, {"libharu", byLibharu}, {"QPdfWriter", byQt}};

/// The most that this process has had in memory, in KiB.
int peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        throw std::runtime_error("the peak of the memory is not known here");
    const QByteArray text = status.readAll();
    return text.sliced(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toInt();
}

/// The document in this process, which then prints the seconds by the clock and of the processor, and its
/// peak.
void makeDocument(const QString& writer, int pages)
{
    const QTemporaryDir folder;
    QStringList lines;
    for (int i = 0; i < LinesOnPage; ++i)
        lines += agendaLine(i);
    for (const auto& [name, make] : writers) {
        if (writer != QLatin1String(name))
            continue;
        QElapsedTimer timer;
        timer.start();
        const std::clock_t begin = std::clock();
        make(folder.filePath(u"agenda.pdf"_s), pages, lines);
        std::printf("%.9f %.9f %d\n", double(timer.nsecsElapsed()) / 1e9,
                    double(std::clock() - begin) / CLOCKS_PER_SEC, peakMemory());
    }
}

void BM_Document(benchmark::State& state, const char* writer, int pages)
{
    double seconds = 0, processor = 0, peak = 0;
    for (auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {u"--document"_s, QLatin1String(writer), QString::number(pages)});
        process.waitForFinished(-1);
        const QByteArrayList answer = process.readAllStandardOutput().simplified().split(' ');
        if (process.exitCode() != 0 || answer.size() != 3) {
            state.SkipWithError("no document");
            break;
        }
        state.SetIterationTime(answer[0].toDouble());
        seconds += answer[0].toDouble();
        processor += answer[1].toDouble();
        peak = std::max(peak, answer[2].toDouble());
    }
    state.counters["pages_per_s"] = double(pages) * double(state.iterations()) / seconds;
    // Steadier where the machine has other work.
    state.counters["pages_per_cpu_s"] = double(pages) * double(state.iterations()) / processor;
    state.counters["peak_KiB"] = peak;
}

void registerAll()
{
    for (const int pages : {10, 1000, 10'000})
        for (const auto& [name, make] : writers)
            if (pages <= 1000 || make == byPrinter) // to show that memory does not grow with the pages
                benchmark::RegisterBenchmark((std::string(name) + "/" + std::to_string(pages)).c_str(),
                                             BM_Document, name, pages)
                    ->UseManualTime()
                    ->Iterations(pages <= 1000 ? 5 : 1)
                    ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--document")) {
        makeDocument(arguments.value(2), arguments.value(3).toInt());
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    registerAll();
    benchmark::RunSpecifiedBenchmarks();
}
