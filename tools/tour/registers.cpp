#include "registers.h"

#include "app/core/menu.h"
#include "registers/buscas.h"
#include "tour.h"

namespace {

/// A screen of the menu with one of its rows loaded by a double click.
void visit(Tour& tour, const char* entry, const char* screen, int row)
{
    const QString name = QString::fromLatin1(screen);
    tour.screen(name, [&tour, name, row](ScreenDriver& opened) {
        opened.doubleClickRow(QStringLiteral("DataGrid1"), row);
        opened.press(Qt::Key_Tab);
        tour.picture(name, opened);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(QString::fromLatin1(entry));
}

void hoursAndHolidays(Tour& tour)
{
    tour.screen(QStringLiteral("frmCadHorarios"), [&tour](ScreenDriver& opened) {
        qobject_cast<QComboBox*>(opened.find(QStringLiteral("cboPro")))->setCurrentIndex(1);
        opened.choose(QStringLiteral("cboDia"), QStringLiteral("2"));
        opened.type(QStringLiteral("txtHR"), QStringLiteral("08:00/08:30/09:00"));
        tour.picture(QStringLiteral("frmCadHorarios"), opened);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(QStringLiteral("cadHor"));
    tour.screen(QStringLiteral("frmCadFeriados"), [&tour](ScreenDriver& opened) {
        opened.type(QStringLiteral("txtobs"), QStringLiteral("Aniversário da cidade"));
        tour.picture(QStringLiteral("frmCadFeriados"), opened);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(QStringLiteral("cadFer"));
}

template <class Dialog>
void visit(Tour& tour)
{
    const QString name = QString::fromLatin1(Dialog::staticMetaObject.className());
    tour.screen(name, [&tour, name](ScreenDriver& opened) {
        opened.press(Qt::Key_Down);
        tour.picture(name, opened);
        opened.press(Qt::Key_Escape);
    });
    Form::of<Dialog>().ShowModal();
}

} // namespace

void walkRegisters(Tour& tour)
{
    visit(tour, "cadConv", "frmCadConvenios", 2);
    visit(tour, "cadEsp", "frmCadEspecialidade", 1);
    visit(tour, "cadproc", "frmCadProcedimentos", 3);
    visit(tour, "cadPac", "frmcadcli", 4);
    visit(tour, "cadProf", "frmCadProfissionais", 1);
    hoursAndHolidays(tour);
    visit(tour, "cadfor", "frmCadFor", 2);
    visit(tour, "cadinsi", "frmCadProduto", 3);
    visit(tour, "cadgru", "frmCadGrupoEstoque", 1);
    visit(tour, "ctpgcadcen", "frmCadCentroCusto", 1);
    tour.screen(QStringLiteral("frmCadSubCentro"), [&tour](ScreenDriver& opened) {
        // The double click on this grid asks for a column that is not there.
        opened.type(QStringLiteral("txtcodcli"), QStringLiteral("1"));
        opened.press(Qt::Key_Tab);
        tour.picture(QStringLiteral("frmCadSubCentro"), opened);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(QStringLiteral("ctpgcadscen"));

    visit<frmBuscaConvenios>(tour);
    visit<frmBuscaEspecialidades>(tour);
    visit<frmBuscaGrupo>(tour);
    visit<frmBuscaCentroCusto>(tour);
    visit<frmBuscaSubCentroCusto>(tour);
    visit<frmBuscaProcedimentos>(tour);
    visit<frmBuscaProd>(tour);
    visit<frmBuscaFornecedor>(tour);
    visit<frmBuscaPacientes>(tour);
    visit<frmBuscaProf>(tour);
}
