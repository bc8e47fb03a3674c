#include "app/shell_fixture.h"
#include "registers/frmcadfor.h"
#include "support/caughterrors.h"

using namespace Variaveis;

namespace {

/// Each box with its column and a text of its own, so that a swapped pair shows.
struct Box
{
    QString control, column, text;
};

const QList<Box> boxes = {
    {u"TXTCPF"_qs, u"cpf"_qs, u"11.222.333/0001-81"_qs},
    {u"TXTRG"_qs, u"rg"_qs, u"IE 1"_qs},
    {u"txtnome"_qs, u"nmfor"_qs, u"FARMÁCIA"_qs},
    {u"txtcontato"_qs, u"nmfant"_qs, u"ZÉ DO SORO"_qs},
    {u"txtfone"_qs, u"fonefixo"_qs, u"1133334444"_qs},
    {u"txtnrcel"_qs, u"fonecel"_qs, u"11999998888"_qs},
    {u"txtemail"_qs, u"email"_qs, u"A@B.C"_qs},
    {u"txtcepr"_qs, u"cep"_qs, u"01001000"_qs},
    {u"txtruar"_qs, u"rua"_qs, u"RUA A"_qs},
    {u"txtnr"_qs, u"nrcasa"_qs, u"12 B"_qs},
    {u"txtbairror"_qs, u"bairro"_qs, u"SÉ"_qs},
    {u"txtcidader"_qs, u"cidade"_qs, u"SÃO PAULO"_qs},
    {u"txtufr"_qs, u"uf"_qs, u"SP"_qs},
    {u"txtmemo"_qs, u"obs"_qs, u"ENTREGA; \"SEGUNDA\""_qs},
};

class Suppliers : public LoggedIn
{
protected:
    Suppliers()
    {
        execute(u"insert into fornecedores (cdfor,idlic,nmfor,nmfant) values (5,'C1','BETA','XIS'),"
                "(6,'C1','ALFA','YPSILON'),(7,'C2','ALFA ALHEIA','XIS')"_qs);
    }

    void on(std::function<void(ScreenDriver&)> steps)
    {
        open<frmCadFor>([steps](ScreenDriver& screen) {
            steps(screen);
            screen.press(Qt::Key_Escape);
        });
        EXPECT_EQ(Conexao.State(), 0);
    }

    static QStringList shown(const ScreenDriver& screen)
    {
        QStringList texts;
        for (const Box& box : boxes)
            texts << screen.text(box.control);
        return texts;
    }

    static QStringList names(const ScreenDriver& screen)
    {
        QStringList found;
        for (const QStringList& row : screen.grid(u"DataGrid1"_qs))
            found << row[1];
        return found;
    }

    static void code(ScreenDriver& screen, const QString& text)
    {
        screen.type(u"txtcodcli"_qs, text);
        screen.press(Qt::Key_Tab);
    }
};

} // namespace

TEST_F(Suppliers, EveryBoxGoesToItsColumnAndComesBack)
{
    QStringList columns, texts;
    for (const Box& box : boxes) {
        columns << box.column;
        texts << box.text;
    }
    on([&](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Fornecedores");
        for (const Box& box : boxes)
            screen.type(box.control, box.text.toLower());
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(shown(screen).join(QString()), u"");
        EXPECT_EQ(screen.focused(), u"TXTCPF");
        EXPECT_EQ(names(screen), (QStringList{u"ALFA"_qs, u"BETA"_qs, u"FARMÁCIA"_qs}));

        screen.doubleClickRow(u"DataGrid1"_qs, 2);
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(shown(screen), texts);
        clock.set(QDateTime(QDate(2026, 3, 17), QTime(9, 0)));
        screen.type(u"txtnome"_qs, u"drogaria"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    texts[2] = u"DROGARIA"_qs;
    EXPECT_EQ(
        rows(u"select idlic,evcad,upev,%1 from fornecedores where cdfor > 7"_qs.arg(columns.join(u','))),
        (QList<QStringList>{QStringList{u"C1"_qs, stamp, u"MARIA 17/03/2026 09:00:00"_qs} + texts}));
    EXPECT_EQ(value(u"select group_concat(nmfor order by cdfor) from fornecedores where cdfor < 8"_qs),
              u"BETA,ALFA,ALFA ALHEIA");
}

TEST_F(Suppliers, OnlyTheNameIsRequiredAndItMayRepeat)
{
    dialogs.expect(u"--- ERRO --- NOME NÃO INFORMADO!"_qs, u"ATENÇÃO"_qs);
    on([](ScreenDriver& screen) {
        screen.type(u"txtnome"_qs, u"  "_qs);
        screen.type(u"txtruar"_qs, u"rua b"_qs);
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(screen.text(u"txtruar"_qs), u"RUA B") << "nothing typed is lost";
        for (int i = 0; i < 2; ++i) {
            screen.type(u"txtnome"_qs, u"beta"_qs);
            screen.click(u"cmdsalva"_qs);
        }
    });
    EXPECT_EQ(value(u"select group_concat(rua order by cdfor separator '|') from fornecedores "
                    "where nmfor = 'BETA' and cpf = ''"_qs),
              u"RUA B|");
}

TEST_F(Suppliers, ADocumentThatIsNoneIsTakenAway)
{
    on([](ScreenDriver& screen) {
        const QList<QPair<QString, QString>> documents = {{u"11222333000181"_qs, u"11222333000181"_qs},
                                                          {u"529.982.247-25"_qs, u"529.982.247-25"_qs},
                                                          {u"52998224726"_qs, u""_qs},
                                                          {u"isento"_qs, u""_qs},
                                                          {u" "_qs, u""_qs}};
        for (const auto& [typed, left] : documents) {
            screen.type(u"TXTCPF"_qs, typed);
            screen.press(Qt::Key_Return);
            EXPECT_EQ(screen.text(u"TXTCPF"_qs), left) << typed.toStdString();
        }
        screen.type(u"txtnome"_qs, u"gama"_qs);
        screen.type(u"TXTCPF"_qs, u"52998224726"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(value(u"select cpf from fornecedores where nmfor = 'GAMA'"_qs), u"");
}

TEST_F(Suppliers, CodesAndSearches)
{
    const QString title = u"Pesquisa fornecedor já cadastrado"_qs;
    dialogs.expect(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_qs, u"ATENÇÃO"_qs);
    dialogs.expectInput(u"Nome: "_qs, u"LF"_qs, title);
    dialogs.expectInput(u"Apelido: "_qs, u"I"_qs, title);
    dialogs.expectInput(u"Apelido: "_qs, u"NENHUM"_qs, title);
    dialogs.expectInput(u"Nome: "_qs, std::nullopt, title);
    on([](ScreenDriver& screen) {
        code(screen, u"6"_qs);
        EXPECT_EQ(screen.text(u"txtnome"_qs), u"ALFA");
        code(screen, u"7"_qs);
        EXPECT_EQ(screen.text(u"txtnome"_qs), u"") << "another tenant's";
        EXPECT_EQ(screen.text(u"txtcodcli"_qs), u"");
        screen.type(u"txtnome"_qs, u"novo"_qs);
        code(screen, u"6a"_qs);
        EXPECT_EQ(screen.text(u"txtnome"_qs) + screen.text(u"txtcodcli"_qs), u"") << "without a word";

        screen.press(Qt::Key_F10);
        EXPECT_EQ(names(screen), QStringList{u"ALFA"_qs});
        screen.press(Qt::Key_F11);
        EXPECT_EQ(names(screen), (QStringList{u"ALFA"_qs, u"BETA"_qs})) << "by name";
        screen.click(u"Command2"_qs);
        EXPECT_TRUE(names(screen).isEmpty());
        screen.click(u"Command3"_qs);
        EXPECT_EQ(names(screen), (QStringList{u"ALFA"_qs, u"BETA"_qs})) << "Cancel brings all";
        code(screen, u"6"_qs);
        screen.click(u"cmdretorna"_qs);
        EXPECT_EQ(screen.text(u"txtnome"_qs) + screen.text(u"txtcodcli"_qs), u"");
        EXPECT_EQ(screen.focused(), u"TXTCPF");
    });
}

TEST_F(Suppliers, AnApostropheIsTheServersError)
{
    on([](ScreenDriver& screen) {
        screen.type(u"txtnome"_qs, u"joana d'arc"_qs);
        const CaughtErrors errors;
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(errors.numbers(), QList<int>{1064});
        EXPECT_EQ(screen.text(u"txtnome"_qs), u"JOANA D'ARC");
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    });
    EXPECT_EQ(value(u"select count(*) from fornecedores"_qs), u"3");
}
