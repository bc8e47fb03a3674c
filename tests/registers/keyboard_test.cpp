#include "app/shell_fixture.h"
#include "registers/buscas.h"
#include "registers/cadastrossimples.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"
#include "support/oneanswer.h"

using namespace Variaveis;

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
        open<Screen>([&](ScreenDriver& screen) {
            keys(screen, pieces);
            screen.press(Qt::Key_Escape);
        });
    }

    /// Finds the name with F2 in a search dialog and takes its first row.
    template <class Dialog>
    QString code(const QString& name)
    {
        dialogs.expectInput(u"NOME:"_qs, name);
        open<Dialog>([](ScreenDriver& screen) {
            screen.press(Qt::Key_F2);
            EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1);
            screen.press(Qt::Key_F10);
        });
        return RetornoCodigo;
    }

    /// F2 on a screen, and the first row of the dialog that it opens.
    void choose(ScreenDriver& screen, const QString& dialog)
    {
        modal.expect(dialog, [](ScreenDriver& search) { search.press(Qt::Key_F10); });
        screen.press(Qt::Key_F2);
    }
};

} // namespace

TEST_F(ByKeyboard, MasterDataIsKeptAndFoundAgain)
{
    enter<frmCadConvenios>({u""_qs, u"ouro"_qs, u"12,5"_qs, u""_qs});
    enter<frmCadEspecialidade>({u""_qs, u"cardiologia"_qs, u""_qs});
    enter<frmCadProcedimentos>({u""_qs, u"consulta"_qs, u"0"_qs, u""_qs});
    enter<frmCadGrupoEstoque>({u""_qs, u"curativos"_qs, u""_qs});

    // Nobody asks for the web address: the codes are left empty but for the patient's.
    open<frmCadProfissionais>([this](ScreenDriver& screen) {
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
        screen.press(Qt::Key_Escape);
    });
    open<frmCadHorarios>([](ScreenDriver& screen) {
        screen.press(Qt::Key_Down);
        keys(screen, {u"0"_qs, u"2"_qs, u"8:00/8:30"_qs, u""_qs});
        screen.press(Qt::Key_Escape);
    });

    OneAnswer service(
        OneAnswer::http("200 OK", "<xmlcep><logradouro>Rua A</logradouro><bairro>Centro</bairro>"
                                  "<localidade>Lins</localidade><uf>SP</uf><ibge>3527108</ibge></xmlcep>"));
    qputenv("TREMOSILVA_HOST_CEP", service.host().toUtf8());
    open<frmcadcli>([this](ScreenDriver& screen) {
        keys(screen, {u""_qs, u"52998224725"_qs, u"1"_qs, u""_qs, u"15031980"_qs, u"josé da silva"_qs,
                      u"14 3333"_qs, u""_qs, u""_qs, u"16400000"_qs});
        EXPECT_EQ(screen.text(u"txtcidader"_qs), u"LINS");
        keys(screen, {u""_qs, u"10"_qs, u""_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        EXPECT_EQ(screen.focused(), u"txtIdConv");
        choose(screen, u"frmBuscaConvenios"_qs);
        keys(screen, {u""_qs, u"1"_qs, u"pó"_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        EXPECT_EQ(screen.text(u"txtNmConv"_qs), u"OURO");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });
    qunsetenv("TREMOSILVA_HOST_CEP");

    open<frmCadFor>([](ScreenDriver& screen) {
        keys(screen, {u""_qs, u""_qs, u""_qs, u"casa médica"_qs, u"casa"_qs, u""_qs, u""_qs, u""_qs, u""_qs,
                      u""_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });
    open<frmCadProduto>([](ScreenDriver& screen) {
        keys(screen, {u"0012"_qs, u"gaze"_qs, u"pct"_qs, u"1"_qs, u"3,5"_qs, u""_qs, u"10"_qs, u""_qs});
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });

    EXPECT_EQ(rows(u"select dia,hr,ondeatd,idpro,idesp from diahr"_qs),
              (QList<QStringList>{{u"2 - SEGUNDA-FEIRA"_qs, u"8:00/8:30"_qs, u"0"_qs, u"1"_qs, u"1"_qs}}));
    EXPECT_EQ(rows(u"select nmPac,cpf,dtnasc,cep,rua,nrrua,idconv,taler,dsaler from pacientes"_qs),
              (QList<QStringList>{{u"JOSÉ DA SILVA"_qs, u"52998224725"_qs, u"1980-03-15"_qs, u"16400000"_qs,
                                   u" RUA A"_qs, u"10"_qs, u"1"_qs, u"1"_qs, u"PÓ"_qs}}));
    EXPECT_EQ(rows(u"select cdpro,DSPRO,cdgrupo,vcusto,qmin,caplote from produtos"_qs),
              (QList<QStringList>{{u"0012"_qs, u"GAZE"_qs, u"1"_qs, u"3.5000"_qs, u"10.0000"_qs, u"0"_qs}}));

    EXPECT_EQ(code<frmBuscaConvenios>(u"our"_qs), u"1");
    EXPECT_EQ(code<frmBuscaEspecialidades>(u"cardio"_qs), u"1");
    EXPECT_EQ(code<frmBuscaProcedimentos>(u"consulta"_qs), u"1");
    EXPECT_EQ(code<frmBuscaProf>(u"lima"_qs), u"1");
    EXPECT_EQ(code<frmBuscaPacientes>(u"jose"_qs), u"1");
    EXPECT_EQ(code<frmBuscaFornecedor>(u"medica"_qs), u"1");
    EXPECT_EQ(code<frmBuscaProd>(u"gaz"_qs), u"0012");
}
