#include "registers.h"

#include "app/core/menu.h"
#include "registers/telasdebusca.h"
#include "tour.h"

using namespace Qt::StringLiterals;

namespace {

/// A screen of the menu with one of its rows loaded by a double click.
void visit(Tour& tour, const char* entry, const char* screen, int row)
{
    const QString name = QString::fromLatin1(screen);
    tour.screen(name, [&tour, name, row](ScreenDriver& opened) {
        opened.doubleClickRow(u"DataGrid1"_s, row);
        opened.press(Qt::Key_Tab);
        tour.picture(name, opened);
        if (name == QLatin1String("frmcadcli"))
            tour.resized(name, opened); // the fullest of them
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(QString::fromLatin1(entry));
}

/// What a user sees who forgets the name, and who types a code that nobody has.
void mistakes(Tour& tour)
{
    tour.screen(u"frmCadConvenios"_s, [&tour](ScreenDriver& opened) {
        tour.refused(u"frmCadConvenios_sem_nome"_s, opened, u"cmdsalva"_s);
        tour.box(u"frmCadConvenios_codigo"_s, u"OK"_s);
        opened.type(u"txtcodcli"_s, u"999"_s);
        opened.press(Qt::Key_Tab);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"cadConv"_s);
}

/// A new patient: address and company are looked up, and the save asks for what is missing.
void newPatient(Tour& tour)
{
    tour.screen(u"frmcadcli"_s, [&tour](ScreenDriver& opened) {
        tour.box(u"frmcadcli_pesquisa"_s, u"SILVA"_s);
        opened.press(Qt::Key_F10);
        tour.picture(u"frmcadcli_encontrados"_s, opened);
        opened.type(u"txtcepr"_s, u"13088788"_s);
        opened.press(Qt::Key_Tab);
        tour.picture(u"frmcadcli_cep"_s, opened);
        tour.box(u"frmcadcli_receita"_s, u"Sim"_s);
        opened.type(u"TXTCPF"_s, u"11222333000181"_s);
        opened.press(Qt::Key_Tab);
        tour.picture(u"frmcadcli_empresa"_s, opened);
        tour.box(u"frmcadcli_nascimento"_s, u"Sim"_s);
        tour.refused(u"frmcadcli_sem_convenio"_s, opened, u"cmdsalva"_s);
        tour.openList(u"frmcadcli_lista"_s, opened, u"cboAler"_s);
        tour.contextMenu(u"frmcadcli_menu"_s, opened, u"txtmemo"_s);
        tour.altHeld(u"frmcadcli_alt"_s, opened);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"cadPac"_s);
}

void hoursAndHolidays(Tour& tour)
{
    tour.screen(u"frmCadHorarios"_s, [&tour](ScreenDriver& opened) {
        qobject_cast<QComboBox*>(opened.find(u"cboPro"_s))->setCurrentIndex(1);
        opened.choose(u"cboDia"_s, u"2"_s);
        opened.type(u"txtHR"_s, u"08:00/08:30/09:00"_s);
        tour.picture(u"frmCadHorarios"_s, opened);
        tour.openList(u"frmCadHorarios_lista"_s, opened, u"cboPro"_s);
        opened.choose(u"cboCH"_s, u"0"_s);
        opened.type(u"txtHR"_s, u"08:00/25:00"_s);
        tour.refused(u"frmCadHorarios_hora"_s, opened, u"Command1"_s);
        tour.box(u"frmCadHorarios_exclui"_s, u"Não"_s);
        opened.doubleClickRow(u"DataGrid2"_s, 1);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"cadHor"_s);
    tour.screen(u"frmCadFeriados"_s, [&tour](ScreenDriver& opened) {
        opened.type(u"txtobs"_s, u"Aniversário da cidade"_s);
        tour.picture(u"frmCadFeriados"_s, opened);
        tour.refused(u"frmCadFeriados_incompleto"_s, opened, u"Command1"_s);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"cadFer"_s);
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
    mistakes(tour);
    visit(tour, "cadEsp", "frmCadEspecialidade", 1);
    visit(tour, "cadproc", "frmCadProcedimentos", 3);
    visit(tour, "cadPac", "frmcadcli", 4);
    visit(tour, "cadProf", "frmCadProfissionais", 1);
    newPatient(tour);
    hoursAndHolidays(tour);
    visit(tour, "cadfor", "frmCadFor", 2);
    visit(tour, "cadinsi", "frmCadProduto", 3);
    visit(tour, "cadgru", "frmCadGrupoEstoque", 1);
    visit(tour, "ctpgcadcen", "frmCadCentroCusto", 1);
    tour.screen(u"frmCadSubCentro"_s, [&tour](ScreenDriver& opened) {
        // The double click on this grid asks for a column that is not there.
        opened.type(u"txtcodcli"_s, u"1"_s);
        opened.press(Qt::Key_Tab);
        tour.picture(u"frmCadSubCentro"_s, opened);
        opened.press(Qt::Key_Escape);
    });
    Menu::principal().run(u"ctpgcadscen"_s);

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
