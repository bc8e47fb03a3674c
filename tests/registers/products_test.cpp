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
            "values "
            "('0012','C1','GAZE','PCT',4,1.2525,'01/02/2026',10,'1','ESTÉRIL','A','B'),"
            "('0013','C2','ALHEIO','UN',6,1,'SR',1,'0','','A','B'),"
            "('0020','C1','AGULHA','UN',4,3,'SR',1,'0','','A','B')"_qs);
    }

    void on(std::function<void(ScreenDriver&)> steps)
    {
        open<frmCadProduto>([steps](ScreenDriver& screen) {
            steps(screen);
            screen.press(Qt::Key_Escape);
        });
        EXPECT_EQ(Conexao.State(), 0);
    }

    static void code(ScreenDriver& screen, const QString& text)
    {
        screen.type(u"txtCdPro"_qs, text);
        screen.press(Qt::Key_Return);
    }

    static void fill(ScreenDriver& screen, const QString& name, const QString& unit, const QString& group,
                     const QString& cost, const QString& minimum)
    {
        const QList<QPair<QString, QString>> texts = {{u"txtDsPro"_qs, name},
                                                      {u"txtUN"_qs, unit},
                                                      {u"txtCdGrupo"_qs, group},
                                                      {u"txtFator"_qs, cost},
                                                      {u"txtDtUA"_qs, minimum}};
        for (const auto& [control, text] : texts)
            screen.type(control, text);
    }

    static QStringList shown(const ScreenDriver& screen)
    {
        QStringList texts;
        for (const QString& control :
             {u"txtDsPro"_qs, u"txtUN"_qs, u"txtCdGrupo"_qs, u"txtDsGrupo"_qs, u"txtFator"_qs, u"txtDtUC"_qs,
              u"txtDtUA"_qs, u"txtQtde"_qs, u"cboLote"_qs, u"txtmemo"_qs})
            texts << screen.text(control);
        return texts;
    }

    static QStringList stored(const QString& code)
    {
        return rows(u"select idlic,dspro,un,cdgrupo,vcusto,dtucmp,qmin,caplote,obs,evcad,evup from produtos "
                    "where cdpro = '%1'"_qs.arg(code))
            .value(0);
    }

    const QStringList empty = {{}, {}, {}, {}, {}, u"SR"_qs, {}, {}, u"0 - Sim"_qs, {}};
    const QStringList gauze = {u"GAZE"_qs,       u"PCT"_qs,     u"4"_qs,   u"CURATIVOS"_qs, u"1,2525"_qs,
                               u"01/02/2026"_qs, u"10,0000"_qs, u"***"_qs, u"1 - não"_qs,   u"ESTÉRIL"_qs};
};

} // namespace

TEST_F(Products, ACodeThatIsNotFoundIsANewProduct)
{
    on([this](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Cadastro de Isnumos");
        code(screen, u"0012"_qs);
        EXPECT_EQ(shown(screen), gauze);
        code(screen, u"0013"_qs);
        EXPECT_EQ(screen.text(u"txtCdPro"_qs), u"0013") << "another tenant's code is free here";
        EXPECT_EQ(shown(screen), empty);
        fill(screen, u"seringa d'água"_qs, u"un"_qs, u"5"_qs, u"12,5"_qs, u"1.000"_qs);
        screen.type(u"txtmemo"_qs, u"nota"_qs);
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(screen.text(u"txtCdPro"_qs), u"");
        EXPECT_EQ(shown(screen), empty);
        EXPECT_EQ(screen.focused(), u"txtCdPro");
    });
    EXPECT_EQ(rows(u"select idlic,dspro,un,cdgrupo,vcusto,dtucmp,qmin,caplote,obs,evcad,evup from produtos "
                   "where cdpro = '0013' order by idlic"_qs)
                  .value(0),
              (QStringList{u"C1"_qs, u"SERINGA D'ÁGUA"_qs, u"UN"_qs, u"5"_qs, u"12.5000"_qs, u"SR"_qs,
                           u"1000.0000"_qs, u"0"_qs, u"NOTA"_qs, stamp, stamp}));
    EXPECT_EQ(value(u"select dspro from produtos where idlic = 'C2'"_qs), u"ALHEIO");
}

TEST_F(Products, AKnownProductIsChanged)
{
    on([this](ScreenDriver& screen) {
        screen.doubleClickRow(u"DataGrid1"_qs, 1);
        EXPECT_EQ(screen.focused(), u"txtCdPro");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(shown(screen), gauze);
        fill(screen, u"gaze"_qs, u"cx"_qs, u"5"_qs, u"R$ 1.234,56789"_qs, u"2,25"_qs);
        screen.choose(u"cboLote"_qs, u"0"_qs);
        EXPECT_EQ(screen.text(u"txtFator"_qs), u"1234,5679");
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(stored(u"0012"_qs),
              (QStringList{u"C1"_qs, u"GAZE"_qs, u"CX"_qs, u"5"_qs, u"1234.5679"_qs, u"01/02/2026"_qs,
                           u"2.2500"_qs, u"0"_qs, u"ESTÉRIL"_qs, u"A"_qs, stamp}));
}

TEST_F(Products, CodesCompareAsNumbersInTheSearchAndAsTextInTheSave)
{
    on([this](ScreenDriver& screen) {
        code(screen, u"12"_qs);
        EXPECT_EQ(shown(screen), gauze);
        screen.click(u"cmdsalva"_qs);
        const CaughtErrors errors;
        code(screen, u"abc"_qs);
        EXPECT_EQ(errors.numbers(), QList<int>{ADODB::Error::InvalidArgument});
        screen.type(u"txtCdPro"_qs, u""_qs);
        screen.press(Qt::Key_Return);
    });
    EXPECT_EQ(value(u"select group_concat(cdpro order by cdpro) from produtos where dspro = 'GAZE'"_qs),
              u"0012,12");
    EXPECT_EQ(stored(u"0012"_qs).last(), u"B") << "untouched";
}

TEST_F(Products, TheGroupIsLookedUpAsItIsTypedOrChosen)
{
    on([this](ScreenDriver& screen) {
        code(screen, u"99"_qs);
        modal.expect(u"frmBuscaGrupo"_qs, [](ScreenDriver& search) {
            search.clickRow(u"DataGrid1"_qs, 1);
            search.press(Qt::Key_F10);
        });
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtCdGrupo"_qs) + screen.text(u"txtDsGrupo"_qs), u"5SOROS");
        EXPECT_EQ(screen.focused(), u"txtCdGrupo");
        modal.expect(u"frmBuscaGrupo"_qs, [](ScreenDriver& search) { search.press(Qt::Key_Escape); });
        screen.click(u"Command2"_qs);
        EXPECT_EQ(screen.text(u"txtDsGrupo"_qs), u"SOROS") << "Esc in the search changes nothing";
        EXPECT_EQ(screen.focused(), u"txtCdGrupo");
        const QList<QPair<QString, QString>> groups = {{u"4"_qs, u"CURATIVOS"_qs},
                                                       {u"4,9"_qs, u"CURATIVOS"_qs},
                                                       {u"4x"_qs, {}},
                                                       {u"6"_qs, {}},
                                                       {{}, {}}};
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
    const struct
    {
        QString name, unit, group, cost, minimum, refusal;
    } attempts[] = {
        {u" "_qs, u"UN"_qs, u"4"_qs, u"1"_qs, u"1"_qs, incomplete},
        {u"X"_qs, u" "_qs, u"4"_qs, u"1"_qs, u"1"_qs, incomplete},
        {u"X"_qs, u"UN"_qs, u"77"_qs, u"1"_qs, u"1"_qs, incomplete},
        {u"X"_qs, u"UN"_qs, u"4"_qs, u"UM"_qs, u"1"_qs, incomplete},
        {u"X"_qs, u"UN"_qs, u"4"_qs, u"-1"_qs, u""_qs, incomplete},
        {u"X"_qs, u"UN"_qs, u"4"_qs, u"-0,01"_qs, u"-1"_qs, cost},
        {u"X"_qs, u"UN"_qs, u"4"_qs, u"0"_qs, u"-0,5"_qs, minimum},
    };
    for (const auto& attempt : attempts)
        dialogs.expect(attempt.refusal, attempt.refusal == incomplete ? u"ATENÇÃO"_qs : u"Atenção"_qs);
    dialogs.expect(incomplete);
    on([&](ScreenDriver& screen) {
        code(screen, u"99"_qs);
        for (const auto& attempt : attempts) {
            fill(screen, attempt.name, attempt.unit, attempt.group, attempt.cost, attempt.minimum);
            screen.click(u"cmdsalva"_qs);
            EXPECT_EQ(screen.text(u"txtDtUA"_qs), attempt.minimum) << "stands as typed";
        }
        screen.click(u"cmdretorna"_qs);
        fill(screen, u"x"_qs, u"un"_qs, u"4"_qs, u"1"_qs, u"1"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(value(u"select count(*) from produtos"_qs), u"3");
}

TEST_F(Products, SearchByNameAndCancel)
{
    const QString title = u"Pesquisa produto já cadastrado"_qs;
    dialogs.expectInput(u"Produto: "_qs, u"UL"_qs, title);
    dialogs.expectInput(u"Produto: "_qs, std::nullopt, title);
    on([](ScreenDriver& screen) {
        screen.press(Qt::Key_F10);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        ASSERT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs)[0][1], u"AGULHA");
        screen.click(u"Command3"_qs);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 2) << "all of the tenant";
    });
}

TEST_F(Products, TheAllocatorGivesTheNextCode)
{
    execute(u"insert into produtoscodigos (cdpro,cdpror) values (41,'260316083014CAD')"_qs);
    frmCadProduto screen;
    screen.GeraCodigoProduto();
    EXPECT_EQ(screen.CodigoGerado, u"0042");
    EXPECT_EQ(rows(u"select cdpro,cdpror,evcad from produtoscodigos where cdpro > 41"_qs),
              (QList<QStringList>{{u"42"_qs, u"260316083015CAD"_qs, u"|16/03/2026 08:30:15"_qs}}));
}
