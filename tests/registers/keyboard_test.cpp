#include "agenda/frmcli_agenda.h"
#include "agenda/frmcli_agendacf.h"
#include "app/frmcadusuario.h"
#include "app/shell_fixture.h"
#include "platform/forms/textlimit.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"
#include "registers/telasdebusca.h"
#include "registers/telasdecadastro.h"

#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

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

    /// F2 on a screen, and the first row of the dialog that it opens.
    void choose(ScreenDriver& screen, const QString& dialog)
    {
        modal.expect(dialog, [](ScreenDriver& search) { search.press(Qt::Key_F10); });
        screen.press(Qt::Key_F2);
    }
};

} // namespace

TEST_F(ByKeyboard, MasterDataIsKept)
{
    enter<frmCadConvenios>({u""_s, u"ouro"_s, u"12,5"_s, u""_s});
    enter<frmCadEspecialidade>({u""_s, u"cardiologia"_s, u""_s});
    enter<frmCadProcedimentos>({u""_s, u"consulta"_s, u"0"_s, u""_s});
    enter<frmCadGrupoEstoque>({u""_s, u"curativos"_s, u""_s});

    // Postal codes are left empty: a look-up would ask the web.
    open<frmCadProfissionais>([this](ScreenDriver& screen) {
        keys(screen, {u""_s, u""_s, u"123"_s, u""_s, u"01021970"_s, u"ana lima"_s, u""_s, u"11 98888"_s,
                      u""_s, u""_s, u""_s, u""_s, u""_s, u""_s, u""_s});
        EXPECT_EQ(screen.focused(), u"txtIdEsp");
        choose(screen, u"frmBuscaEspecialidades"_s);
        EXPECT_EQ(screen.text(u"txtIdEsp"_s), u"1");
        keys(screen, {u""_s, u"crm 1"_s, u"2"_s, u"250,00"_s});
        EXPECT_EQ(screen.text(u"txtVR"_s), u"R$ 250,00");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });
    open<frmCadHorarios>([](ScreenDriver& screen) {
        screen.press(Qt::Key_Down);
        keys(screen, {u"0"_s, u"2"_s, u"8:00/8:30"_s, u""_s});
        screen.press(Qt::Key_Escape);
    });

    open<frmcadcli>([this](ScreenDriver& screen) {
        keys(screen, {u""_s, u"52998224725"_s, u"1"_s, u""_s, u"15031980"_s, u"josé da silva"_s, u"14 3333"_s,
                      u""_s, u""_s, u""_s, u"rua a"_s, u"10"_s, u""_s, u""_s, u""_s, u""_s, u""_s});
        EXPECT_EQ(screen.focused(), u"txtIdConv");
        choose(screen, u"frmBuscaConvenios"_s);
        keys(screen, {u""_s, u"1"_s, u"pó"_s, u""_s, u""_s, u""_s, u""_s});
        EXPECT_EQ(screen.text(u"txtNmConv"_s), u"OURO");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });

    open<frmCadFor>([](ScreenDriver& screen) {
        keys(screen, {u""_s, u""_s, u""_s, u"casa médica"_s, u"casa"_s, u""_s, u""_s, u""_s, u""_s, u""_s,
                      u""_s, u""_s, u""_s, u""_s});
        screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });
    open<frmCadProduto>([](ScreenDriver& screen) {
        keys(screen, {u"0012"_s, u"gaze"_s, u"pct"_s, u"1"_s, u"3,5"_s, u""_s, u"10"_s, u""_s});
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Escape);
    });

    const QStringList kept = {
        u"select nmconv,pdesc from convenios"_s,
        u"select nmesp from especialidades"_s,
        u"select nmproc,ondeatd from procedimentos"_s,
        u"select dsgrupo from grupoestoque"_s,
        u"select nmpro,rg,dtnasc,fonecel,idesp,nrcon,ondeatd,valor from profissionais"_s,
        u"select dia,hr,ondeatd,idpro,idesp from diahr"_s,
        u"select nmPac,cpf,dtnasc,fonepac,rua,nrrua,idconv,taler,dsaler from pacientes"_s,
        u"select nmfor,nmfant from fornecedores"_s,
        u"select cdpro,DSPRO,cdgrupo,vcusto,qmin,caplote from produtos"_s};
    QStringList all;
    for (const QString& query : kept)
        all += flat(query);
    EXPECT_EQ(all, (QStringList{u"OURO|12.5000"_s, u"CARDIOLOGIA"_s, u"CONSULTA|0"_s, u"CURATIVOS"_s,
                                u"ANA LIMA|123|1970-02-01|11 98888|1|CRM 1|2|250.00"_s,
                                u"2 - SEGUNDA-FEIRA|8:00/8:30|0|1|1"_s,
                                u"JOSÉ DA SILVA|52998224725|1980-03-15|14 3333|RUA A|10|1|1|PÓ"_s,
                                u"CASA MÉDICA|CASA"_s, u"0012|GAZE|1|3.5000|10.0000|0"_s}));
}

TEST_F(ByKeyboard, NoBoxTakesMoreThanItsColumnHolds)
{
    execute(u"insert into especialidades (idesp,idlic,nmesp) values (3,'C1','CARDIOLOGIA')"_s);
    enter<frmCadConvenios>({u""_s, QString(200, u'n'), u"99999999999999"_s, u""_s});
    open<frmCadProfissionais>([](ScreenDriver& screen) {
        for (const auto& [box, text] : QList<QPair<QString, QString>>{{u"txtnome"_s, u"ana"_s},
                                                                      {u"txtdtnasc"_s, u"01021970"_s},
                                                                      {u"txtfone"_s, QString(60, u'1')},
                                                                      {u"txtIdEsp"_s, u"3"_s},
                                                                      {u"txtVR"_s, u"12345678901234,5"_s}})
            screen.type(box, text);
        screen.focus(u"txtmemo"_s);
        QGuiApplication::clipboard()->setText((QString(99, u'X') + u'\n').repeated(800));
        screen.press(Qt::Key_V, Qt::ControlModifier);
        screen.click(u"cmdsalva"_s);
        screen.press(Qt::Key_Escape);
    });
    EXPECT_EQ(flat(u"select length(nmconv),pdesc from convenios"_s), QStringList{u"150|999.0000"_s});
    EXPECT_EQ(flat(u"select length(fonefixo),valor,length(obs) from profissionais"_s),
              QStringList{u"50|1234567890123.50|65535"_s});

    // And none has been forgotten.
    const std::unique_ptr<QWidget> screens[] = {
        std::make_unique<frmCadConvenios>(),     std::make_unique<frmcadcli>(),
        std::make_unique<frmCadProfissionais>(), std::make_unique<frmCadFor>(),
        std::make_unique<frmCadProduto>(),       std::make_unique<frmCadHorarios>(),
        std::make_unique<frmCadFeriados>(),      std::make_unique<frmcadusuario>(),
        std::make_unique<frmCli_Agenda>(),       std::make_unique<frmCli_AgendaCF>()};
    for (const auto& screen : screens) {
        for (const QLineEdit* box : screen->findChildren<QLineEdit*>())
            EXPECT_TRUE(box->isReadOnly() || box->objectName().startsWith(u"qt_") ||
                        !TextLimit::of(box).isNone())
                << screen->objectName().toStdString() << '.' << box->objectName().toStdString();
        for (const QPlainTextEdit* memo : screen->findChildren<QPlainTextEdit*>())
            EXPECT_FALSE(TextLimit::of(memo).isNone()) << screen->objectName().toStdString();
    }
}
