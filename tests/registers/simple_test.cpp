#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/frmcadfor.h"
#include "registers/telasdecadastro.h"
#include "support/caughterrors.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString save = u"cmdsalva"_s;
const QString noName = u"--- ERRO --- NOME NÃO INFORMADO!"_s;
const QString notFound = u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s;

class SimpleRegisters : public LoggedIn
{
protected:
    static void code(ScreenDriver& screen, const QString& text) { enter(screen, u"txtcodcli"_s, text); }
};

} // namespace

TEST_F(SimpleRegisters, Plans)
{
    execute(u"insert into convenios (idlic,nmconv,pdesc,evcad) values ('C2','OUTRO',1,'A')"_s);
    dialogs.expect(noName, u"ATENÇÃO"_s);
    dialogs.expect(u"--- ERRO --- PERCENTUAL DE DESCONTO NÃO PODE SER MENOR QUE ZERO!"_s, u"ATENÇÃO"_s);
    dialogs.expect(notFound, u"ATENÇÃO"_s);
    on<frmCadConvenios>([](ScreenDriver& screen) {
        fill(screen, u"txtnome=d'ouro"_s, save); // without a percentage
        fill(screen, u"txtPDesc=-1"_s, save);
        fill(screen, u"txtPDesc=0"_s, save);

        code(screen, u"2"_s);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"D'OURO");
        code(screen, u"abc"_s);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"") << "a code that is none empties the screen without a word";
        code(screen, u"1"_s);                              // the other tenant's
        fill(screen, u"txtPDesc=3|txtnome=prata"_s, save); // an empty code always adds

        code(screen, u"2"_s);
        execute(u"delete from convenios where idconv = 2"_s);
        screen.click(save); // gone in the meantime: saves nothing and says nothing
    });
    EXPECT_EQ(flat(u"select idconv,idlic,nmconv,pdesc from convenios order by idconv"_s),
              (QStringList{u"1|C2|OUTRO|1.0000"_s, u"3|C1|PRATA|3.0000"_s}));
}

TEST_F(SimpleRegisters, ANameIsRequiredAndAProceduresPlaceAsWell)
{
    dialogs.expect(noName, u"ATENÇÃO"_s);
    dialogs.expect(notFound, u"ATENÇÃO"_s);
    dialogs.expect(u"Ainda não disponivel!"_s, u"Atenção"_s);
    dialogs.expect(noName);
    on<frmCadCentroCusto>([](ScreenDriver& screen) {
        fill(screen, u"txtnome=  "_s, save);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"  ") << "nothing typed is lost";
        fill(screen, u"txtnome=zeta"_s, save);
        fill(screen, u"txtnome=alfa"_s, save);
        EXPECT_EQ(column(screen, u"DataGrid1"_s, 1), u"ALFA ZETA") << "in the order of the names";
        code(screen, u"99"_s);
        EXPECT_EQ(screen.text(u"txtcodcli"_s), u"");
        code(screen, u"1"_s);
        screen.click(u"Command1"_s);
        screen.click(save);
        EXPECT_FALSE(screen.enabled(u"Command1"_s));
    });
    on<frmCadProcedimentos>([](ScreenDriver& screen) { fill(screen, u"txtnome=consulta"_s, save); });
    EXPECT_EQ(value(u"select count(*) from procedimentos"_s), u"0");
}

TEST_F(SimpleRegisters, ADoubleClickOnASubCentreIsAnError)
{
    execute(u"insert into subcentrocusto (idlic,nmscen) values ('C1','BETA')"_s);
    on<frmCadSubCentro>([](ScreenDriver& screen) {
        const CaughtErrors errors;
        screen.doubleClickRow(u"DataGrid1"_s, 0);
        EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::UnknownField});
    });
}

TEST_F(SimpleRegisters, TheRowOfTheCodeIsSavedWhereverTheGridWentMeanwhile)
{
    execute(
        u"insert into especialidades (idlic,nmesp) select 'C1', concat('E', 1000 + seq) from seq_1_to_900;"
        "insert into procedimentos (idlic,nmproc,ondeatd) values ('C1','A','1'),('C1','B','1')"_s);
    on<frmCadEspecialidade>([](ScreenDriver& screen) {
        for (const QString& row : {u"3"_s, u"500"_s}) {
            code(screen, row);
            screen.type(u"txtnome"_s, u"nova "_s + row);
            screen.clickRow(u"DataGrid1"_s, 1);
            screen.press(Qt::Key_End, Qt::ControlModifier);
            screen.click(save);
        }
    });
    on<frmCadProcedimentos>([](ScreenDriver& screen) {
        code(screen, u"1"_s);
        fill(screen, u"txtnome=c|cboCH=0 - Clinica"_s);
        screen.clickRow(u"DataGrid1"_s, 1);
        screen.click(save);
    });
    EXPECT_EQ(flat(u"select idesp, nmesp from especialidades where nmesp not like 'E%'"_s),
              (QStringList{u"3|NOVA 3"_s, u"500|NOVA 500"_s}));
    EXPECT_EQ(flat(u"select nmproc, ondeatd from procedimentos order by idproc"_s),
              (QStringList{u"C|0"_s, u"B|1"_s}));
}

TEST_F(SimpleRegisters, Suppliers)
{
    execute(u"insert into fornecedores (cdfor,idlic,nmfor,nmfant) values (5,'C1','GAMA','XIS'),"
            "(6,'C1','ALFA','YPSILON'),(7,'C2','ALFA ALHEIA','XIS')"_s);
    dialogs.expect(noName, u"ATENÇÃO"_s);
    dialogs.expect(notFound, u"ATENÇÃO"_s);
    dialogs.expectInput(u"Apelido: "_s, u"I"_s);
    on<frmCadFor>([](ScreenDriver& screen) {
        fill(screen, u"txtnome=  |txtruar=rua b"_s, save);
        for (int i = 0; i < 2; ++i)
            fill(screen, u"txtnome=beta"_s, save); // a name may repeat
        for (const QString& document : {u"529.982.247-25"_s, u" "_s}) {
            enter(screen, u"TXTCPF"_s, document);
            EXPECT_EQ(screen.text(u"TXTCPF"_s), document.trimmed()) << "not even blanks stay";
        }
        code(screen, u"6"_s);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"ALFA");
        for (const QString& none : {u"7"_s, u"6a"_s}) { // another tenant's; no number, without a word
            screen.type(u"txtnome"_s, u"novo"_s);
            code(screen, none);
            EXPECT_EQ(shown(screen, u"txtcodcli txtnome"_s), u"|");
        }
        screen.click(u"Command2"_s);
        EXPECT_EQ(column(screen, u"DataGrid1"_s, 1), u"GAMA ALFA") << "by trade name";
    });
    EXPECT_EQ(value(u"select group_concat(rua order by cdfor separator '|') from fornecedores "
                    "where nmfor = 'BETA' and cpf = ''"_s),
              u"RUA B|")
        << "the refusal lost nothing, the save emptied the screen";
}
