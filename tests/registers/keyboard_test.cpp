#include "app/shell_fixture.h"
#include "registers/cadastrossimples.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"

namespace {

/// A new clinic's master data, without a mouse.
class ByKeyboard : public LoggedIn
{
protected:
    /// Keys from where the focus stands: each piece of the text is typed and left with Enter.
    static void keys(ScreenDriver& screen, const QStringList& pieces)
    {
        for (const QString& piece : pieces) {
            screen.typeOn(piece);
            screen.press(Qt::Key_Return);
        }
    }

    template <class Screen>
    void enter(const QStringList& pieces)
    {
        on<Screen>([&](ScreenDriver& screen) { keys(screen, pieces); });
    }

    /// F2 on a screen, and the first row of the dialog that it opens.
    void choose(ScreenDriver& screen, const QString& dialog)
    {
        answer(dialog, {Qt::Key_F10});
        screen.press(Qt::Key_F2);
    }
};

} // namespace

TEST_F(ByKeyboard, MasterDataIsKept)
{
    enter<frmCadConvenios>({u""_qs, u"ouro"_qs, u"12,5"_qs, u""_qs});
    enter<frmCadEspecialidade>({u""_qs, u"cardiologia"_qs, u""_qs});
    enter<frmCadProcedimentos>({u""_qs, u"consulta"_qs, u"0"_qs, u""_qs});
    enter<frmCadGrupoEstoque>({u""_qs, u"curativos"_qs, u""_qs});

    // Nobody asks for the web address: the codes are left empty but for the patient's.
    on<frmCadProfissionais>([this](ScreenDriver& screen) {
        keys(screen, {u""_qs, u""_qs, u"123"_qs, u""_qs, u"01021970"_qs, u"ana lima"_qs, u""_qs,
                      u"11 98888"_qs, u""_qs, u""_qs, u""_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        EXPECT_EQ(screen.focused(), u"txtIdEsp");
        choose(screen, u"frmBuscaEspecialidades"_qs);
        EXPECT_EQ(screen.text(u"txtIdEsp"_qs), u"1");
        keys(screen, {u""_qs, u"crm 1"_qs, u"2"_qs, u"250,00"_qs});
        EXPECT_EQ(screen.text(u"txtVR"_qs), u"R$ 250,00");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
    });
    on<frmCadHorarios>([](ScreenDriver& screen) {
        screen.press(Qt::Key_Down);
        keys(screen, {u"0"_qs, u"2"_qs, u"8:00/8:30"_qs, u""_qs});
    });

    on<frmcadcli>([this](ScreenDriver& screen) {
        keys(screen, {u""_qs, u"52998224725"_qs, u"1"_qs, u""_qs, u"15031980"_qs, u"josé da silva"_qs,
                      u"14 3333"_qs, u""_qs, u""_qs, u""_qs});
        keys(screen, {u""_qs, u"10"_qs, u""_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        EXPECT_EQ(screen.focused(), u"txtIdConv");
        choose(screen, u"frmBuscaConvenios"_qs);
        keys(screen, {u""_qs, u"1"_qs, u"pó"_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        EXPECT_EQ(screen.text(u"txtNmConv"_qs), u"OURO");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
    });

    on<frmCadFor>([](ScreenDriver& screen) {
        keys(screen, {u""_qs, u""_qs, u""_qs, u"casa médica"_qs, u"casa"_qs, u""_qs, u""_qs, u""_qs, u""_qs,
                      u""_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Return);
    });
    on<frmCadProduto>([](ScreenDriver& screen) {
        keys(screen, {u"0012"_qs, u"gaze"_qs, u"pct"_qs, u"1"_qs, u"3,5"_qs, u""_qs, u"10"_qs, u""_qs});
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
    });

    EXPECT_EQ(flat(u"select nmconv,pdesc,nmesp,nmproc,p.ondeatd,dsgrupo from convenios,especialidades,"
                   "procedimentos p,grupoestoque"_qs),
              QStringList{u"OURO|12.5000|CARDIOLOGIA|CONSULTA|0|CURATIVOS"_qs});
    EXPECT_EQ(flat(u"select nmpro,idesp,ondeatd,valor from profissionais"_qs),
              QStringList{u"ANA LIMA|1|2|250.00"_qs});
    EXPECT_EQ(flat(u"select dia,hr,ondeatd,idpro,idesp from diahr"_qs),
              QStringList{u"2 - SEGUNDA-FEIRA|8:00/8:30|0|1|1"_qs});
    EXPECT_EQ(flat(u"select nmPac,cpf,dtnasc,nrrua,idconv,taler,dsaler from pacientes"_qs),
              QStringList{u"JOSÉ DA SILVA|52998224725|1980-03-15|10|1|1|PÓ"_qs});
    EXPECT_EQ(flat(u"select nmfor,nmfant from fornecedores"_qs), QStringList{u"CASA MÉDICA|CASA"_qs});
    EXPECT_EQ(flat(u"select cdpro,DSPRO,cdgrupo,vcusto,qmin,caplote from produtos"_qs),
              QStringList{u"0012|GAZE|1|3.5000|10.0000|0"_qs});
}
