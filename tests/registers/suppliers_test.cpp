#include "app/shell_fixture.h"
#include "registers/frmcadfor.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

class Suppliers : public LoggedIn
{
protected:
    Suppliers()
    {
        execute(u"insert into fornecedores (cdfor,idlic,nmfor,nmfant) values (5,'C1','BETA','XIS'),"
                "(6,'C1','ALFA','YPSILON'),(7,'C2','ALFA ALHEIA','XIS')"_s);
    }
};

} // namespace

TEST_F(Suppliers, OnlyTheNameIsRequiredAndItMayRepeat)
{
    dialogs.expect(u"--- ERRO --- NOME NÃO INFORMADO!"_s, u"ATENÇÃO"_s);
    on<frmCadFor>([](ScreenDriver& screen) {
        fill(screen, u"txtnome=  |txtruar=rua b"_s, u"cmdsalva"_s);
        for (int i = 0; i < 2; ++i)
            fill(screen, u"txtnome=beta"_s, u"cmdsalva"_s);
    });
    EXPECT_EQ(value(u"select group_concat(rua order by cdfor separator '|') from fornecedores "
                    "where nmfor = 'BETA' and cpf = ''"_s),
              u"RUA B|")
        << "the refusal lost nothing, the save emptied the screen";
}

TEST_F(Suppliers, ADocumentThatIsNoneIsTakenAway)
{
    on<frmCadFor>([](ScreenDriver& screen) {
        enter(screen, u"TXTCPF"_s, u"529.982.247-25"_s);
        EXPECT_EQ(screen.text(u"TXTCPF"_s), u"529.982.247-25");
        enter(screen, u"TXTCPF"_s, u" "_s); // not even blanks
        EXPECT_EQ(screen.text(u"TXTCPF"_s), u"");
    });
}

TEST_F(Suppliers, CodesAndTradeNames)
{
    dialogs.expect(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s, u"ATENÇÃO"_s);
    dialogs.expectInput(u"Apelido: "_s, u"I"_s);
    on<frmCadFor>([](ScreenDriver& screen) {
        enter(screen, u"txtcodcli"_s, u"6"_s);
        EXPECT_EQ(screen.text(u"txtnome"_s), u"ALFA");
        enter(screen, u"txtcodcli"_s, u"7"_s);
        EXPECT_EQ(shown(screen, u"txtcodcli txtnome"_s), u"|") << "another tenant's";
        screen.type(u"txtnome"_s, u"novo"_s);
        enter(screen, u"txtcodcli"_s, u"6a"_s);
        EXPECT_EQ(shown(screen, u"txtcodcli txtnome"_s), u"|") << "without a word";

        screen.click(u"Command2"_s);
        EXPECT_EQ(column(screen, u"DataGrid1"_s, 1), u"BETA ALFA") << "by trade name";
    });
}
