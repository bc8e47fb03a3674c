#include "agenda/frmcli_agenda.h"
#include "agenda/frmcli_agenda_pesquisa.h"
#include "agenda/frmcli_agendacf.h"
#include "app/frmcadusuario.h"
#include "app/frmconfig.h"
#include "app/shell_fixture.h"
#include "platform/forms/mnemonics.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"
#include "registers/telasdebusca.h"
#include "registers/telasdecadastro.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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
        on<Screen>([&](ScreenDriver& screen) { keys(screen, pieces); });
    }

    /// What the help sheet of the screen says.
    QStringList sheet(ScreenDriver& screen)
    {
        QStringList texts;
        modal.expect(u"HelpSheet"_s, [&texts](ScreenDriver& opened) {
            for (const QLabel* label : opened.window().findChildren<QLabel*>())
                texts << label->text();
            opened.press(Qt::Key_Escape);
        });
        screen.press(Qt::Key_F1, Qt::ShiftModifier);
        return texts;
    }

    void expectWorkedByKeys(ScreenDriver& screen)
    {
        const QStringList told = sheet(screen);
        EXPECT_FALSE(told.isEmpty() || told.contains(QString()));
        EXPECT_EQ(told.count(u"Enter"_s), 1) << "a key has one row";
        QSet<std::pair<bool, QChar>> letters; // what floats above a screen has its own
        for (const QPushButton* button : screen.window().findChildren<QPushButton*>()) {
            const QChar letter = Mnemonics::letterOf(button);
            EXPECT_EQ(letter.isNull(), button->text().isEmpty()) << button->text().toStdString();
            const bool floats = button->parentWidget()->property("role") == u"panel"_s;
            EXPECT_FALSE(!letter.isNull() && letters.contains({floats, letter}))
                << button->text().toStdString();
            letters << std::pair(floats, letter);
            if (button->isVisible() && button->isEnabled()) {
                EXPECT_TRUE(told.contains(u"Alt+"_s + letter)) << button->text().toStdString();
            }
        }
        for (const QLineEdit* box : screen.window().findChildren<QLineEdit*>())
            EXPECT_FALSE(box->isReadOnly() && box->focusPolicy() & Qt::TabFocus)
                << box->objectName().toStdString();
    }

    template <class... Screens>
    void visit()
    {
        const auto look = [this](ScreenDriver& screen) {
            SCOPED_TRACE(screen.window().metaObject()->className());
            expectWorkedByKeys(screen);
        };
        (on<Screens>(look), ...);
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
    on<frmCadProfissionais>([this](ScreenDriver& screen) {
        keys(screen, {u""_s, u""_s, u"123"_s, u"01021970"_s, u"ana lima"_s, u""_s, u"11 98888"_s, u""_s,
                      u""_s, u""_s, u""_s, u""_s, u""_s, u""_s});
        EXPECT_EQ(screen.focused(), u"txtIdEsp");
        answer(u"frmBuscaEspecialidades"_s, {Qt::Key_F10});
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtIdEsp"_s), u"1");
        keys(screen, {u""_s, u"crm 1"_s, u"2"_s, u"250,00"_s});
        EXPECT_EQ(screen.text(u"txtVR"_s), u"R$ 250,00");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
    });
    on<frmCadHorarios>([](ScreenDriver& screen) {
        screen.press(Qt::Key_Down);
        keys(screen, {u"0"_s, u"2"_s, u"8:00/8:30"_s, u""_s});
    });

    on<frmcadcli>([this](ScreenDriver& screen) {
        keys(screen, {u""_s, u"52998224725"_s, u"1"_s, u"15031980"_s, u"josé da silva"_s, u"14 3333"_s, u""_s,
                      u""_s, u""_s, u"rua a"_s, u"10"_s, u""_s, u""_s, u""_s, u""_s, u""_s});
        EXPECT_EQ(screen.focused(), u"txtIdConv");
        answer(u"frmBuscaConvenios"_s, {Qt::Key_F10});
        screen.press(Qt::Key_F2);
        keys(screen, {u""_s, u"1"_s, u"pó"_s, u""_s, u""_s, u""_s, u""_s});
        EXPECT_EQ(screen.text(u"txtNmConv"_s), u"OURO");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
    });

    on<frmcadcli>([this](ScreenDriver& screen) {
        dialogs.expectInput(u"Nome: "_s, u"JOSÉ"_s);
        screen.press(Qt::Key_F10);
        screen.press(Qt::Key_Space);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"JOSÉ DA SILVA") << "the row that the grid stood on";
    });

    on<frmCadFor>([](ScreenDriver& screen) {
        keys(screen, {u""_s, u""_s, u""_s, u"casa médica"_s, u"casa"_s, u""_s, u""_s, u""_s, u""_s, u""_s,
                      u""_s, u""_s, u""_s, u""_s});
        screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Return);
    });
    on<frmCadProduto>([](ScreenDriver& screen) {
        keys(screen, {u"0012"_s, u"gaze"_s, u"pct"_s, u"1"_s, u"3,5"_s, u""_s, u"10"_s, u""_s});
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.focused(), u"cmdsalva");
        screen.press(Qt::Key_Return);
    });

    const QList<QPair<QString, QString>> kept = {
        {u"nmconv,pdesc from convenios"_s, u"OURO|12.5000"_s},
        {u"nmesp from especialidades"_s, u"CARDIOLOGIA"_s},
        {u"nmproc,ondeatd from procedimentos"_s, u"CONSULTA|0"_s},
        {u"dsgrupo from grupoestoque"_s, u"CURATIVOS"_s},
        {u"nmpro,rg,dtnasc,fonecel,idesp,nrcon,ondeatd,valor from profissionais"_s,
         u"ANA LIMA|123|1970-02-01|11 98888|1|CRM 1|2|250.00"_s},
        {u"dia,hr,ondeatd,idpro,idesp from diahr"_s, u"2 - SEGUNDA-FEIRA|8:00/8:30|0|1|1"_s},
        {u"nmPac,cpf,dtnasc,fonepac,rua,nrrua,idconv,taler,dsaler from pacientes"_s,
         u"JOSÉ DA SILVA|52998224725|1980-03-15|14 3333|RUA A|10|1|1|PÓ"_s},
        {u"nmfor,nmfant from fornecedores"_s, u"CASA MÉDICA|CASA"_s},
        {u"cdpro,DSPRO,cdgrupo,vcusto,qmin,caplote from produtos"_s, u"0012|GAZE|1|3.5000|10.0000|0"_s}};
    for (const auto& [columns, row] : kept)
        EXPECT_EQ(flat(u"select "_s + columns), QStringList{row});
}

TEST_F(ByKeyboard, EachScreenHasALetterForEachButtonAndASheetThatTellsThem)
{
    execute(
        u"insert into profissionais (idpro,idlic,nmpro,idesp,ondeatd,valor) values (11,'C1','ANA',3,'0',1)"_s);
    visit<frmCadConvenios, frmCadEspecialidade, frmCadProcedimentos, frmCadGrupoEstoque, frmCadCentroCusto,
          frmCadSubCentro, frmcadcli, frmCadProfissionais, frmCadHorarios, frmCadFeriados, frmCadFor,
          frmCadProduto, frmBuscaConvenios, frmBuscaEspecialidades, frmBuscaGrupo, frmBuscaCentroCusto,
          frmBuscaSubCentroCusto, frmBuscaProcedimentos, frmBuscaProd, frmBuscaFornecedor, frmBuscaPacientes,
          frmBuscaProf, frmCli_Agenda, frmCli_Agenda_Pesquisa, frmCli_AgendaCF, frmcadusuario, frmconfig>();
    on<frmCli_Agenda>([this](ScreenDriver& agenda) {
        EXPECT_TRUE(sheet(agenda).contains(u"Pesquisar Data Agendada"));
        agenda.doubleClickRow(u"List1"_s, 0);
        const QStringList booking = sheet(agenda);
        EXPECT_TRUE(booking.contains(u"Paciente - Pesquisar"));
        EXPECT_FALSE(booking.contains(u"Pesquisar Data Agendada") || booking.contains(u"Esc"));
        agenda.click(u"Command8"_s);
    });
}
