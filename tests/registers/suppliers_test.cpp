#include "app/shell_fixture.h"
#include "registers/frmcadfor.h"

using namespace Variaveis;

namespace {

/// The boxes, their columns and a text for each, so that a swapped pair shows.
const QString names = u"TXTCPF TXTRG txtnome txtcontato txtfone txtnrcel txtemail txtcepr txtruar txtnr "
                      "txtbairror txtcidader txtufr txtmemo"_qs;
const QStringList boxes = names.split(u' ');
const QString columns = u"cpf,rg,nmfor,nmfant,fonefixo,fonecel,email,cep,rua,nrcasa,bairro,cidade,uf,obs"_qs;
const QStringList texts =
    u"11.222.333/0001-81|IE 1|FARMÁCIA|ZÉ|113333|119999|A@B.C|01001|RUA A|12 B|SÉ|SÃO PAULO|SP|\"2A.\""_qs
        .split(u'|');

class Suppliers : public LoggedIn
{
protected:
    Suppliers()
    {
        execute(u"insert into fornecedores (cdfor,idlic,nmfor,nmfant) values (5,'C1','BETA','XIS'),"
                "(6,'C1','ALFA','YPSILON'),(7,'C2','ALFA ALHEIA','XIS')"_qs);
    }

    static QString listed(const ScreenDriver& screen) { return column(screen, u"DataGrid1"_qs, 1); }
};

} // namespace

TEST_F(Suppliers, EveryBoxGoesToItsColumnAndComesBack)
{
    on<frmCadFor>([](ScreenDriver& screen) {
        for (int i = 0; i < boxes.size(); ++i)
            screen.type(boxes[i], texts[i].toLower());
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(shown(screen, names), QString(boxes.size() - 1, u'|'));
        EXPECT_EQ(screen.focused(), u"TXTCPF");
        EXPECT_EQ(listed(screen), u"ALFA BETA FARMÁCIA");

        screen.doubleClickRow(u"DataGrid1"_qs, 2);
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(shown(screen, names), texts.join(u'|'));
    });
    const QString query = u"select idlic,evcad,upev,%1 from fornecedores where cdfor > 7"_qs.arg(columns);
    EXPECT_EQ(rows(query), (QList<QStringList>{QStringList{u"C1"_qs, stamp, stamp} + texts}));

    clock.set(QDateTime(QDate(2026, 3, 17), QTime(9, 0)));
    on<frmCadFor>([](ScreenDriver& screen) {
        enter(screen, u"txtcodcli"_qs, u"8"_qs);
        for (int i = 1; i < boxes.size(); ++i)
            screen.type(boxes[i], texts[i] + QString::number(i));
        screen.click(u"cmdsalva"_qs);
    });
    QStringList changed = {u"C1"_qs, stamp, u"MARIA 17/03/2026 09:00:00"_qs, texts[0]};
    for (int i = 1; i < texts.size(); ++i)
        changed << texts[i] + QString::number(i);
    EXPECT_EQ(rows(query), QList<QStringList>{changed});
    EXPECT_EQ(value(u"select group_concat(nmfor order by cdfor) from fornecedores where cdfor < 8"_qs),
              u"BETA,ALFA,ALFA ALHEIA");
}

TEST_F(Suppliers, OnlyTheNameIsRequiredAndItMayRepeat)
{
    dialogs.expect(u"--- ERRO --- NOME NÃO INFORMADO!"_qs, u"ATENÇÃO"_qs);
    on<frmCadFor>([](ScreenDriver& screen) {
        screen.type(u"txtnome"_qs, u"  "_qs);
        screen.type(u"txtruar"_qs, u"rua b"_qs);
        screen.click(u"cmdsalva"_qs);
        for (int i = 0; i < 2; ++i) {
            screen.type(u"txtnome"_qs, u"beta"_qs);
            screen.click(u"cmdsalva"_qs);
        }
    });
    EXPECT_EQ(value(u"select group_concat(rua order by cdfor separator '|') from fornecedores "
                    "where nmfor = 'BETA' and cpf = ''"_qs),
              u"RUA B|")
        << "the refusal lost nothing, the save emptied the screen";
}

TEST_F(Suppliers, ADocumentThatIsNoneIsTakenAway)
{
    on<frmCadFor>([](ScreenDriver& screen) {
        enter(screen, u"TXTCPF"_qs, u"529.982.247-25"_qs);
        EXPECT_EQ(screen.text(u"TXTCPF"_qs), u"529.982.247-25");
        for (const QString& bad : {u"52998224726"_qs, u"isento"_qs, u" "_qs}) {
            enter(screen, u"TXTCPF"_qs, bad);
            EXPECT_EQ(screen.text(u"TXTCPF"_qs), u"") << bad.toStdString();
        }
    });
}

TEST_F(Suppliers, CodesAndSearches)
{
    const QString title = u"Pesquisa fornecedor já cadastrado"_qs;
    dialogs.expect(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_qs, u"ATENÇÃO"_qs);
    dialogs.expectInput(u"Nome: "_qs, u"LF"_qs, title);
    dialogs.expectInput(u"Apelido: "_qs, u"I"_qs, title);
    dialogs.expectInput(u"Apelido: "_qs, u"NENHUM"_qs, title);
    dialogs.expectInput(u"Nome: "_qs, std::nullopt, title);
    on<frmCadFor>([](ScreenDriver& screen) {
        enter(screen, u"txtcodcli"_qs, u"6"_qs);
        EXPECT_EQ(screen.text(u"txtnome"_qs), u"ALFA");
        enter(screen, u"txtcodcli"_qs, u"7"_qs);
        EXPECT_EQ(shown(screen, u"txtcodcli txtnome"_qs), u"|") << "another tenant's";
        screen.type(u"txtnome"_qs, u"novo"_qs);
        enter(screen, u"txtcodcli"_qs, u"6a"_qs);
        EXPECT_EQ(shown(screen, u"txtcodcli txtnome"_qs), u"|") << "without a word";

        screen.press(Qt::Key_F10);
        EXPECT_EQ(listed(screen), u"ALFA");
        screen.press(Qt::Key_F11);
        EXPECT_EQ(listed(screen), u"BETA ALFA") << "by trade name";
        screen.click(u"Command2"_qs);
        EXPECT_EQ(listed(screen), u"");
        screen.click(u"Command3"_qs);
        EXPECT_EQ(listed(screen), u"ALFA BETA") << "Cancel brings all";
    });
}
