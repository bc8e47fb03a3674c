#include "app/shell_fixture.h"
#include "platform/data/error.h"
#include "registers/frmcadproduto.h"
#include "support/caughterrors.h"

using namespace Qt::StringLiterals;

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
            "('0013','C2','ALHEIO','UN',6,1,'SR',1,'0','','A','B')"_s);
    }

    static void code(ScreenDriver& screen, const QString& text) { enter(screen, u"txtCdPro"_s, text); }

    /// Name, unit, group, cost and minimum, separated by "|".
    static void fill(ScreenDriver& screen, const QString& texts)
    {
        const QStringList boxes = u"txtDsPro txtUN txtCdGrupo txtFator txtDtUA"_s.split(u' ');
        const QStringList pieces = texts.split(u'|');
        for (int i = 0; i < boxes.size(); ++i)
            screen.type(boxes[i], pieces[i]);
    }

    static QString texts(const ScreenDriver& screen)
    {
        return shown(screen, u"txtDsPro txtUN txtCdGrupo txtDsGrupo txtFator txtDtUC txtDtUA txtQtde cboLote "
                             "txtmemo"_s);
    }

    const QString empty = u"|||||SR|||0 - Sim|"_s;
    const QString gauze = u"GAZE|PCT|4|CURATIVOS|1,2525|01/02/2026|10,0000|***|1 - não|ESTÉRIL"_s;
};

} // namespace

TEST_F(Products, CodesCompareAsNumbersInTheSearchAndAsTextInTheSave)
{
    on<frmCadProduto>([this](ScreenDriver& screen) {
        code(screen, u"12"_s);
        EXPECT_EQ(texts(screen), gauze);
        code(screen, u"0013"_s); // another tenant's, free here
        EXPECT_EQ(texts(screen), empty);
        code(screen, u"12"_s);
        screen.click(u"cmdsalva"_s);
        const CaughtErrors errors;
        code(screen, u"abc"_s);
        EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::InvalidArgument});
    });
    EXPECT_EQ(value(u"select group_concat(cdpro,evup order by cdpro) from produtos where dspro = 'GAZE'"_s),
              QString(u"0012B,12"_s + stamp));
}

TEST_F(Products, TheGroupIsLookedUpAsItIsTypedOrChosen)
{
    on<frmCadProduto>([this](ScreenDriver& screen) {
        answer(u"frmBuscaGrupo"_s, {Qt::Key_Down, Qt::Key_F10});
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtCdGrupo"_s) + screen.text(u"txtDsGrupo"_s), u"5SOROS")
            << "though the code box, now left, is empty";
        EXPECT_EQ(screen.focused(), u"txtCdGrupo");
        const QList<QPair<QString, QString>> groups = {
            {u"4"_s, u"CURATIVOS"_s}, {u"4,9"_s, u"CURATIVOS"_s}, {u"4x"_s, {}}, {u"6"_s, {}}};
        for (const auto& [typed, name] : groups) {
            screen.type(u"txtCdGrupo"_s, typed);
            EXPECT_EQ(screen.text(u"txtDsGrupo"_s), name) << typed.toStdString();
        }
    });
}

TEST_F(Products, TheSaveRefusesInThisOrder)
{
    const QString incomplete = u"--- ERRO --- DADOS INCOMPLETOS!"_s;
    const QString cost = u"--- ERRO --- VALOR DO CUSTO NÃO PODE SER MENOR QUE ZERO!"_s;
    const QString minimum = u"--- ERRO --- ESTOQUE MINIMO NÃO PODE SER MENOR QUE ZERO!"_s;
    const QList<QPair<QString, QString>> attempts = {
        {u" |UN|4|1|1"_s, incomplete},  {u"X| |4|1|1"_s, incomplete},  {u"X|UN|77|1|1"_s, incomplete},
        {u"X|UN|4|UM|1"_s, incomplete}, {u"X|UN|4|-1|"_s, incomplete}, {u"X|UN|4|-0,01|-1"_s, cost},
        {u"X|UN|4|0|-0,5"_s, minimum},
    };
    for (const auto& [texts, refusal] : attempts)
        dialogs.expect(refusal, refusal == incomplete ? u"ATENÇÃO"_s : u"Atenção"_s);
    dialogs.expect(incomplete);
    on<frmCadProduto>([&](ScreenDriver& screen) {
        code(screen, u"99"_s);
        for (const auto& [texts, refusal] : attempts) {
            fill(screen, texts);
            screen.click(u"cmdsalva"_s);
        }
        EXPECT_EQ(screen.text(u"txtDtUA"_s), u"-0,5") << "stands as typed";
        screen.click(u"cmdretorna"_s);
        fill(screen, u"x|un|4|1|1"_s);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(value(u"select count(*) from produtos"_s), u"2");
}

TEST_F(Products, TheAllocatorGivesTheNextCode)
{
    execute(u"insert into produtoscodigos (cdpro,cdpror) values (41,'260316083014CAD')"_s);
    frmCadProduto screen;
    screen.GeraCodigoProduto();
    EXPECT_EQ(screen.CodigoGerado, u"0042");
    EXPECT_EQ(value(u"select concat_ws(' ',cdpror,evcad) from produtoscodigos where cdpro = 42"_s),
              u"260316083015CAD |16/03/2026 08:30:15");
}

TEST_F(Products, ANewCodeThatAnotherStationTookMeanwhileIsRefusedHoweverManyProductsThereAre)
{
    for (const int products : {20, 500}) {
        SCOPED_TRACE(products);
        execute(u"replace into produtos (cdpro,idlic,dspro) select 1000 + seq, 'C1', 'X' from seq_1_to_%1;"
                "delete from produtos where cdpro = '77'"_s.arg(products));
        on<frmCadProduto>([](ScreenDriver& screen) {
            code(screen, u"77"_s);
            fill(screen, u"minha|un|4|1|1"_s);
            execute(u"insert into produtos (cdpro,idlic,dspro) values ('77','C1','ZZ DA OUTRA')"_s);
            const CaughtErrors errors;
            screen.click(u"cmdsalva"_s);
            EXPECT_EQ(errors.numbers(), QList<int>{1062});
        });
        EXPECT_EQ(value(u"select dspro from produtos where cdpro = '77'"_s), u"ZZ DA OUTRA");
    }
}
