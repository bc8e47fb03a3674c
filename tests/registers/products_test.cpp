#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/frmcadproduto.h"
#include "support/caughterrors.h"

using namespace Variaveis;

namespace {

class Products : public LoggedIn
{
protected:
    Products()
    {
        execute(
            u"insert into grupoestoque (cdgrupo,idlic,dsgrupo) values (4,'C1','CURATIVOS'),(5,'C1','SOROS'),"
            "(6,'C2','ALHEIO');"
            "insert into produtos (cdpro,idlic,dspro,un,cdgrupo,vcusto,dtucmp,qmin,caplote,obs,evcad,evup) "
            "values ('0012','C1','GAZE','PCT',4,1.2525,'01/02/2026',10,'1','ESTÉRIL','A','B'),"
            "('0013','C2','ALHEIO','UN',6,1,'SR',1,'0','','A','B'),"
            "('0020','C1','AGULHA','UN',4,3,'SR',1,'0','','A','B')"_qs);
    }

    static void code(ScreenDriver& screen, const QString& text) { enter(screen, u"txtCdPro"_qs, text); }

    /// Name, unit, group, cost and minimum, separated by "|".
    static void fill(ScreenDriver& screen, const QString& texts)
    {
        const QStringList boxes = u"txtDsPro txtUN txtCdGrupo txtFator txtDtUA"_qs.split(u' ');
        const QStringList pieces = texts.split(u'|');
        for (int i = 0; i < boxes.size(); ++i)
            screen.type(boxes[i], pieces[i]);
    }

    static QString texts(const ScreenDriver& screen)
    {
        return shown(screen, u"txtDsPro txtUN txtCdGrupo txtDsGrupo txtFator txtDtUC txtDtUA txtQtde cboLote "
                             "txtmemo"_qs);
    }

    static QString stored(const QString& code)
    {
        return value(u"select concat_ws('|',dspro,un,cdgrupo,vcusto,dtucmp,qmin,caplote,obs,evcad,evup) "
                     "from produtos where idlic = 'C1' and cdpro = '%1'"_qs.arg(code));
    }

    const QString empty = u"|||||SR|||0 - Sim|"_qs;
    const QString gauze = u"GAZE|PCT|4|CURATIVOS|1,2525|01/02/2026|10,0000|***|1 - não|ESTÉRIL"_qs;
};

} // namespace

TEST_F(Products, ACodeThatIsNotFoundIsANewProduct)
{
    on<frmCadProduto>([this](ScreenDriver& screen) {
        code(screen, u"0012"_qs);
        EXPECT_EQ(texts(screen), gauze);
        code(screen, u"0013"_qs);
        EXPECT_EQ(screen.text(u"txtCdPro"_qs), u"0013") << "another tenant's code is free here";
        EXPECT_EQ(texts(screen), empty);
        fill(screen, u"seringa d'água|un|5|12,5|1.000"_qs);
        screen.type(u"txtmemo"_qs, u"nota"_qs);
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(screen.text(u"txtCdPro"_qs), u"");
        EXPECT_EQ(texts(screen), empty);
        EXPECT_EQ(screen.focused(), u"txtCdPro");
    });
    EXPECT_EQ(stored(u"0013"_qs),
              QString(u"SERINGA D'ÁGUA|UN|5|12.5000|SR|1000.0000|0|NOTA|%1|%1"_qs.arg(stamp)));
    EXPECT_EQ(value(u"select dspro from produtos where idlic = 'C2'"_qs), u"ALHEIO");
}

TEST_F(Products, AKnownProductIsChanged)
{
    on<frmCadProduto>([this](ScreenDriver& screen) {
        screen.doubleClickRow(u"DataGrid1"_qs, 1);
        EXPECT_EQ(screen.focused(), u"txtCdPro");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(texts(screen), gauze);
        fill(screen, u"gaze|cx|5|R$ 1.234,56789|2,25"_qs);
        screen.choose(u"cboLote"_qs, u"0"_qs);
        EXPECT_EQ(screen.text(u"txtFator"_qs), u"1234,5679");
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(stored(u"0012"_qs), u"GAZE|CX|5|1234.5679|01/02/2026|2.2500|0|ESTÉRIL|A|"_qs + stamp);
}

TEST_F(Products, CodesCompareAsNumbersInTheSearchAndAsTextInTheSave)
{
    on<frmCadProduto>([this](ScreenDriver& screen) {
        code(screen, u"12"_qs);
        EXPECT_EQ(texts(screen), gauze);
        screen.click(u"cmdsalva"_qs);
        const CaughtErrors errors;
        code(screen, u"abc"_qs);
        EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::InvalidArgument});
    });
    EXPECT_EQ(value(u"select group_concat(cdpro,evup order by cdpro) from produtos where dspro = 'GAZE'"_qs),
              QString(u"0012B,12"_qs + stamp));
}

TEST_F(Products, TheGroupIsLookedUpAsItIsTypedOrChosen)
{
    on<frmCadProduto>([this](ScreenDriver& screen) {
        answer(u"frmBuscaGrupo"_qs, {Qt::Key_Down, Qt::Key_F10});
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtCdGrupo"_qs) + screen.text(u"txtDsGrupo"_qs), u"5SOROS")
            << "though the code box, now left, is empty";
        answer(u"frmBuscaGrupo"_qs, {Qt::Key_Escape});
        screen.click(u"Command2"_qs);
        EXPECT_EQ(screen.text(u"txtDsGrupo"_qs), u"SOROS") << "Esc in the search changes nothing";
        EXPECT_EQ(screen.focused(), u"txtCdGrupo");
        const QList<QPair<QString, QString>> groups = {
            {u"4"_qs, u"CURATIVOS"_qs}, {u"4,9"_qs, u"CURATIVOS"_qs}, {u"4x"_qs, {}}, {u"6"_qs, {}}};
        for (const auto& [typed, name] : groups) {
            screen.type(u"txtCdGrupo"_qs, typed);
            EXPECT_EQ(screen.text(u"txtDsGrupo"_qs), name) << typed.toStdString();
        }
    });
}

TEST_F(Products, TheSaveRefusesInThisOrder)
{
    const QString incomplete = u"--- ERRO --- DADOS INCOMPLETOS!"_qs;
    const QString cost = u"--- ERRO --- VALOR DO CUSTO NÃO PODE SER MENOR QUE ZERO!"_qs;
    const QString minimum = u"--- ERRO --- ESTOQUE MINIMO NÃO PODE SER MENOR QUE ZERO!"_qs;
    const QList<QPair<QString, QString>> attempts = {
        {u" |UN|4|1|1"_qs, incomplete},  {u"X| |4|1|1"_qs, incomplete},  {u"X|UN|77|1|1"_qs, incomplete},
        {u"X|UN|4|UM|1"_qs, incomplete}, {u"X|UN|4|-1|"_qs, incomplete}, {u"X|UN|4|-0,01|-1"_qs, cost},
        {u"X|UN|4|0|-0,5"_qs, minimum},
    };
    for (const auto& [texts, refusal] : attempts)
        dialogs.expect(refusal, refusal == incomplete ? u"ATENÇÃO"_qs : u"Atenção"_qs);
    dialogs.expect(incomplete);
    on<frmCadProduto>([&](ScreenDriver& screen) {
        code(screen, u"99"_qs);
        for (const auto& [texts, refusal] : attempts) {
            fill(screen, texts);
            screen.click(u"cmdsalva"_qs);
        }
        EXPECT_EQ(screen.text(u"txtDtUA"_qs), u"-0,5") << "stands as typed";
        screen.click(u"cmdretorna"_qs);
        fill(screen, u"x|un|4|1|1"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(value(u"select count(*) from produtos"_qs), u"3");
}

TEST_F(Products, SearchByNameAndCancel)
{
    const QString title = u"Pesquisa produto já cadastrado"_qs;
    dialogs.expectInput(u"Produto: "_qs, u"L"_qs, title);
    dialogs.expectInput(u"Produto: "_qs, std::nullopt, title);
    on<frmCadProduto>([](ScreenDriver& screen) {
        screen.press(Qt::Key_F10);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        EXPECT_EQ(screen.list(u"DataGrid1"_qs), QStringList{u"0020"_qs});
        screen.click(u"Command3"_qs);
        EXPECT_EQ(screen.list(u"DataGrid1"_qs), (QStringList{u"0020"_qs, u"0012"_qs})) << "all of the tenant";
    });
}

TEST_F(Products, TheAllocatorGivesTheNextCode)
{
    execute(u"insert into produtoscodigos (cdpro,cdpror) values (41,'260316083014CAD')"_qs);
    frmCadProduto screen;
    screen.GeraCodigoProduto();
    EXPECT_EQ(screen.CodigoGerado, u"0042");
    EXPECT_EQ(value(u"select concat_ws(' ',cdpror,evcad) from produtoscodigos where cdpro = 42"_qs),
              u"260316083015CAD |16/03/2026 08:30:15");
}
