#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/cadastrossimples.h"
#include "support/caughterrors.h"

using namespace Variaveis;

namespace {

const QString noName = u"--- ERRO --- NOME NÃO INFORMADO!"_qs;
const QString notFound = u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_qs;

class SimpleRegisters : public LoggedIn
{
protected:
    static void code(ScreenDriver& screen, const QString& text) { enter(screen, u"txtcodcli"_qs, text); }

    /// Another name into the box, and saved.
    static void save(ScreenDriver& screen, const QString& name)
    {
        screen.type(u"txtnome"_qs, name);
        screen.click(u"cmdsalva"_qs);
    }

    /// A name is entered at half past eight, changed at nine and refused in a register without further boxes.
    template <class Screen>
    void entersAndChanges(const QString& title, const QString& label)
    {
        clock.set(QDateTime(QDate(2026, 3, 16), QTime(8, 30, 15)));
        dialogs.expect(noName, u"ATENÇÃO"_qs);
        dialogs.expect(notFound, u"ATENÇÃO"_qs);
        dialogs.expect(u"Ainda não disponivel!"_qs, u"Atenção"_qs);
        on<Screen>([&](ScreenDriver& screen) {
            EXPECT_EQ(screen.window().windowTitle(), title);
            EXPECT_EQ(screen.text(u"Label2"_qs), label);
            EXPECT_FALSE(screen.visible(u"txtPDesc"_qs) || screen.visible(u"cboCH"_qs));
            EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1) << "the other tenant's row is not shown";
            save(screen, u"  "_qs);
            EXPECT_EQ(screen.text(u"txtnome"_qs), u"  ") << "nothing typed is lost";
            save(screen, u"zeta"_qs);
            EXPECT_EQ(screen.focused(), u"txtnome");
            EXPECT_EQ(screen.text(u"txtnome"_qs), u"");
            EXPECT_EQ(screen.grid(u"DataGrid1"_qs).value(1).value(1), u"ZETA");

            code(screen, u"99"_qs);
            EXPECT_EQ(screen.text(u"txtcodcli"_qs), u"");
            EXPECT_FALSE(screen.enabled(u"Command1"_qs));
            code(screen, u"3"_qs);
            EXPECT_EQ(screen.text(u"txtnome"_qs), u"ZETA");
            screen.click(u"Command1"_qs);
            clock.set(QDateTime(QDate(2026, 3, 16), QTime(9, 0)));
            save(screen, u"alfa"_qs);
            EXPECT_FALSE(screen.enabled(u"Command1"_qs));
            EXPECT_EQ(screen.grid(u"DataGrid1"_qs).value(0).value(1), u"ALFA") << "in the order of the names";
        });
    }

    const QString nine = u" 16/03/2026 09:00:00"_qs;
};

} // namespace

TEST_F(SimpleRegisters, Plans)
{
    const QString longName = u"NOME LONGO "_qs.repeated(10).trimmed();
    execute(
        u"insert into convenios (idlic,nmconv,pdesc,evcad) values ('C2','OUTRO',1,'A'),('C1','%1',1,'A')"_qs
            .arg(longName));
    dialogs.expect(noName, u"ATENÇÃO"_qs);
    dialogs.expect(u"--- ERRO --- PERCENTUAL DE DESCONTO NÃO PODE SER MENOR QUE ZERO!"_qs, u"ATENÇÃO"_qs);
    dialogs.expect(notFound, u"ATENÇÃO"_qs);
    on<frmCadConvenios>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Convênios - Cadastro");
        save(screen, u"d'ouro"_qs); // without a percentage
        screen.type(u"txtPDesc"_qs, u"-1"_qs);
        screen.click(u"cmdsalva"_qs);
        screen.type(u"txtPDesc"_qs, u"12,5"_qs);
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 2);

        screen.doubleClickRow(u"DataGrid1"_qs, 0);
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        EXPECT_EQ(screen.text(u"txtcodcli"_qs), u"3");
        screen.press(Qt::Key_Tab);
        EXPECT_EQ(screen.text(u"txtPDesc"_qs), u"12,50");
        EXPECT_TRUE(screen.enabled(u"Command1"_qs));
        screen.type(u"txtnome"_qs, u"prata"_qs);
        screen.type(u"txtPDesc"_qs, u"0"_qs);
        screen.clickRow(u"DataGrid1"_qs, 1);
        screen.click(u"cmdsalva"_qs); // the code decides, not the row clicked on
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).value(1).value(1), u"PRATA");

        screen.type(u"txtnome"_qs, u"x"_qs);
        code(screen, u"abc"_qs);
        EXPECT_EQ(screen.text(u"txtnome"_qs), u"") << "a code that is none empties the screen without a word";
        code(screen, u"1"_qs); // the other tenant's
        screen.type(u"txtnome"_qs, u"prata"_qs);
        screen.type(u"txtPDesc"_qs, u"3"_qs);
        screen.click(u"cmdsalva"_qs); // an empty code always adds

        code(screen, u"3"_qs);
        execute(u"delete from convenios where idconv = 3"_qs);
        screen.click(u"cmdsalva"_qs); // gone in the meantime: saves nothing and says nothing
        code(screen, u"2"_qs);
        screen.type(u"txtPDesc"_qs, u"2"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(flat(u"select idconv,idlic,nmconv,pdesc,evcad,evup from convenios order by idconv"_qs).mid(1),
              (QStringList{u"2|C1|%1|2.0000|A|%2"_qs.arg(longName, boundStamp),
                           u"4|C1|PRATA|3.0000|%1|%1"_qs.arg(boundStamp)}));
}

TEST_F(SimpleRegisters, Specialities)
{
    execute(u"insert into especialidades (idlic,nmesp) values ('C2','OUTRA'),('C1','BETA')"_qs);
    entersAndChanges<frmCadEspecialidade>(u"Especialidades - Cadastro"_qs, u"ESPECIALIDADE"_qs);
    EXPECT_EQ(flat(u"select idlic,nmesp,evcad,evup from especialidades where idesp = 3"_qs),
              QStringList{u"C1|ALFA|"_qs + boundStamp + u"|MARIA -"_qs + nine});

    on<frmCadEspecialidade>([](ScreenDriver& screen) {
        code(screen, u"2"_qs);
        screen.type(u"txtnome"_qs, u"gama"_qs);
        screen.clickRow(u"DataGrid1"_qs, 0);
        screen.click(u"cmdsalva"_qs); // the row clicked on decides, not the code
    });
    EXPECT_EQ(value(u"select group_concat(nmesp order by idesp) from especialidades"_qs), u"OUTRA,BETA,GAMA");
}

TEST_F(SimpleRegisters, Procedures)
{
    execute(u"insert into procedimentos (idlic,nmproc,ondeatd) values ('C2','OUTRO','0')"_qs);
    dialogs.expect(noName, u"ATENÇÃO"_qs);
    dialogs.expect(noName, u"ATENÇÃO"_qs);
    on<frmCadProcedimentos>([](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Procedimentos - Cadastro");
        save(screen, u"d'agua"_qs); // no place chosen
        screen.choose(u"cboCH"_qs, u"1 - Home"_qs);
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1);
        screen.click(u"cmdsalva"_qs); // no name
        screen.choose(u"cboCH"_qs, u"0 - Clinica"_qs);
        code(screen, u"2"_qs);
        EXPECT_EQ(screen.text(u"cboCH"_qs), u"1 - Home");
        screen.choose(u"cboCH"_qs, u"0 - Clinica"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(flat(u"select idlic,nmproc,ondeatd,evcad,evup from procedimentos where idproc > 1"_qs),
              QStringList{u"C1|D'AGUA|0|%1|%1"_qs.arg(boundStamp)});
}

TEST_F(SimpleRegisters, TheThreeThatSaveByStatement)
{
    const QString later = u"MARIA"_qs + nine;
    execute(u"insert into grupoestoque (idlic,dsgrupo) values ('C2','OUTRO'),('C1','BETA');"
            "insert into centrocusto (idlic,nmcen) values ('C2','OUTRO'),('C1','BETA');"
            "insert into subcentrocusto (idlic,nmscen) values ('C2','OUTRO'),('C1','BETA')"_qs);
    entersAndChanges<frmCadGrupoEstoque>(u"Cadastro Grupo de Insumos"_qs, u"NOME"_qs);
    EXPECT_EQ(flat(u"select idlic,dsgrupo,evcad,evup from grupoestoque where cdgrupo = 3"_qs),
              QStringList{u"C1|ALFA|"_qs + stamp + u'|' + later});
    entersAndChanges<frmCadCentroCusto>(u"Centro de Custos - Cadastro"_qs, u"NOME"_qs);
    EXPECT_EQ(flat(u"select idlic,nmcen,evcad from centrocusto where cdcen = 3"_qs),
              QStringList{u"C1|ALFA|"_qs + later});
    entersAndChanges<frmCadSubCentro>(u"SubCentro de Custos - Cadastro"_qs, u"NOME"_qs);
    EXPECT_EQ(flat(u"select idlic,nmscen,evcad from subcentrocusto where cdscen = 3"_qs),
              QStringList{u"C1|ALFA|"_qs + later});
}

TEST_F(SimpleRegisters, WhatEndsTheProgram)
{
    execute(u"insert into subcentrocusto (idlic,nmscen) values ('C1','BETA')"_qs);
    on<frmCadSubCentro>([](ScreenDriver& screen) {
        const CaughtErrors errors;
        screen.doubleClickRow(u"DataGrid1"_qs, 0);
        EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::UnknownField});
    });
    on<frmCadGrupoEstoque>([](ScreenDriver& screen) {
        screen.type(u"txtnome"_qs, u"d'agua"_qs);
        const CaughtErrors errors;
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(errors.numbers(), QList<int>{1064});
    });
    EXPECT_EQ(value(u"select count(*) from grupoestoque"_qs), u"0");
}
