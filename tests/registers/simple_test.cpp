#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/telasdecadastro.h"
#include "support/caughterrors.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString noName = u"--- ERRO --- NOME NÃO INFORMADO!"_s;
const QString notFound = u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s;

class SimpleRegisters : public LoggedIn
{
protected:
    static void code(ScreenDriver& screen, const QString& text) { enter(screen, u"txtcodcli"_s, text); }

    /// Another name into the box, and saved.
    static void save(ScreenDriver& screen, const QString& name)
    {
        screen.type(u"txtnome"_s, name);
        screen.click(u"cmdsalva"_s);
    }

    /// Names are refused, saved and listed; the code that is not there and the button without a screen say
    /// so.
    template <class Screen>
    void asksForAName(const QString& title, const QString& label)
    {
        dialogs.expect(noName, u"ATENÇÃO"_s);
        dialogs.expect(notFound, u"ATENÇÃO"_s);
        dialogs.expect(u"Ainda não disponivel!"_s, u"Atenção"_s);
        on<Screen>([&](ScreenDriver& screen) {
            EXPECT_EQ(screen.window().windowTitle(), title);
            EXPECT_EQ(screen.text(u"Label2"_s), label);
            EXPECT_FALSE(screen.visible(u"txtPDesc"_s) || screen.visible(u"cboCH"_s));
            save(screen, u"  "_s);
            EXPECT_EQ(screen.text(u"txtnome"_s), u"  ") << "nothing typed is lost";
            save(screen, u"zeta"_s);
            save(screen, u"alfa"_s);
            EXPECT_EQ(column(screen, u"DataGrid1"_s, 1), u"ALFA ZETA") << "in the order of the names";
            code(screen, u"99"_s);
            EXPECT_EQ(screen.text(u"txtcodcli"_s), u"");
            EXPECT_FALSE(screen.enabled(u"Command1"_s));
            code(screen, u"1"_s);
            EXPECT_EQ(screen.text(u"txtnome"_s), u"ZETA");
            screen.click(u"Command1"_s);
            screen.click(u"cmdsalva"_s);
            EXPECT_FALSE(screen.enabled(u"Command1"_s));
        });
    }
};

} // namespace

TEST_F(SimpleRegisters, Plans)
{
    const QString longName = u"NOME LONGO "_s.repeated(10).trimmed();
    execute(
        u"insert into convenios (idlic,nmconv,pdesc,evcad) values ('C2','OUTRO',1,'A'),('C1','%1',1,'A')"_s
            .arg(longName));
    dialogs.expect(noName, u"ATENÇÃO"_s);
    dialogs.expect(u"--- ERRO --- PERCENTUAL DE DESCONTO NÃO PODE SER MENOR QUE ZERO!"_s, u"ATENÇÃO"_s);
    dialogs.expect(notFound, u"ATENÇÃO"_s);
    on<frmCadConvenios>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Convênios - Cadastro");
        save(screen, u"d'ouro"_s); // without a percentage
        screen.type(u"txtPDesc"_s, u"-1"_s);
        screen.click(u"cmdsalva"_s);
        screen.type(u"txtPDesc"_s, u"12,5"_s);
        screen.click(u"cmdsalva"_s);
        EXPECT_EQ(screen.grid(u"DataGrid1"_s).size(), 2);

        screen.doubleClickRow(u"DataGrid1"_s, 0);
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        EXPECT_EQ(screen.text(u"txtcodcli"_s), u"3");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.text(u"txtPDesc"_s), u"12,50");
        EXPECT_TRUE(screen.enabled(u"Command1"_s));
        screen.type(u"txtnome"_s, u"prata"_s);
        screen.type(u"txtPDesc"_s, u"0"_s);
        screen.clickRow(u"DataGrid1"_s, 1);
        screen.click(u"cmdsalva"_s); // the code decides, not the row clicked on
        EXPECT_EQ(screen.grid(u"DataGrid1"_s).value(1).value(1), u"PRATA");

        screen.type(u"txtnome"_s, u"x"_s);
        code(screen, u"abc"_s);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"") << "a code that is none empties the screen without a word";
        code(screen, u"1"_s); // the other tenant's
        screen.type(u"txtnome"_s, u"prata"_s);
        screen.type(u"txtPDesc"_s, u"3"_s);
        screen.click(u"cmdsalva"_s); // an empty code always adds

        code(screen, u"3"_s);
        execute(u"delete from convenios where idconv = 3"_s);
        screen.click(u"cmdsalva"_s); // gone in the meantime: saves nothing and says nothing
        code(screen, u"2"_s);
        screen.type(u"txtPDesc"_s, u"2"_s);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(flat(u"select idconv,idlic,nmconv,pdesc,evcad,evup from convenios order by idconv"_s).mid(1),
              (QStringList{u"2|C1|%1|2.0000|A|%2"_s.arg(longName, boundStamp),
                           u"4|C1|PRATA|3.0000|%1|%1"_s.arg(boundStamp)}));
}

TEST_F(SimpleRegisters, ThoseOfANameAlone)
{
    asksForAName<frmCadEspecialidade>(u"Especialidades - Cadastro"_s, u"ESPECIALIDADE"_s);
    asksForAName<frmCadGrupoEstoque>(u"Cadastro Grupo de Insumos"_s, u"NOME"_s);
    asksForAName<frmCadCentroCusto>(u"Centro de Custos - Cadastro"_s, u"NOME"_s);
    asksForAName<frmCadSubCentro>(u"SubCentro de Custos - Cadastro"_s, u"NOME"_s);
}

TEST_F(SimpleRegisters, Procedures)
{
    dialogs.expect(noName, u"ATENÇÃO"_s);
    dialogs.expect(noName, u"ATENÇÃO"_s);
    on<frmCadProcedimentos>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Procedimentos - Cadastro");
        save(screen, u"d'agua"_s); // no place chosen
        screen.choose(u"cboCH"_s, u"1 - Home"_s);
        screen.click(u"cmdsalva"_s);
        EXPECT_EQ(screen.grid(u"DataGrid1"_s).size(), 1);
        screen.click(u"cmdsalva"_s); // no name
        code(screen, u"1"_s);
        screen.choose(u"cboCH"_s, u"0 - Clinica"_s);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(value(u"select ondeatd from procedimentos"_s), u"0");
}

TEST_F(SimpleRegisters, WhatEndsTheProgram)
{
    execute(u"insert into subcentrocusto (idlic,nmscen) values ('C1','BETA')"_s);
    on<frmCadSubCentro>([](ScreenDriver& screen) {
        const CaughtErrors errors;
        screen.doubleClickRow(u"DataGrid1"_s, 0);
        EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::UnknownField});
    });
    on<frmCadGrupoEstoque>([](ScreenDriver& screen) {
        screen.type(u"txtnome"_s, u"d'agua"_s);
        const CaughtErrors errors;
        screen.click(u"cmdsalva"_s);
        EXPECT_EQ(errors.numbers(), QList<int>{1064});
    });
    EXPECT_EQ(value(u"select count(*) from grupoestoque"_s), u"0");
}

TEST_F(SimpleRegisters, TheRowOfTheCodeIsSavedWhereverTheGridWentMeanwhile)
{
    execute(
        u"insert into especialidades (idlic,nmesp) select 'C1', concat('E', 1000 + seq) from seq_1_to_900;"
        "insert into procedimentos (idlic,nmproc,ondeatd) values ('C1','A','1'),('C1','B','0')"_s);
    on<frmCadEspecialidade>([](ScreenDriver& screen) {
        for (const QString& row : {u"3"_s, u"500"_s}) {
            code(screen, row);
            screen.type(u"txtnome"_s, u"nova "_s + row);
            screen.clickRow(u"DataGrid1"_s, 1);
            screen.press(Qt::Key_End, Qt::ControlModifier);
            screen.click(u"cmdsalva"_s);
        }
    });
    on<frmCadProcedimentos>([](ScreenDriver& screen) {
        code(screen, u"1"_s);
        screen.type(u"txtnome"_s, u"c"_s);
        screen.clickRow(u"DataGrid1"_s, 1);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(flat(u"select idesp, nmesp from especialidades where nmesp not like 'E%'"_s),
              (QStringList{u"3|NOVA 3"_s, u"500|NOVA 500"_s}));
    EXPECT_EQ(flat(u"select nmproc, ondeatd from procedimentos order by idproc"_s),
              (QStringList{u"C|1"_s, u"B|0"_s}));
}
