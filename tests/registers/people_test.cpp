#include "app/shell_fixture.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadprofissionais.h"
#include "support/oneanswer.h"

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString company = u"Buscar dados cadastrais na receita?"_s;
const QString noBirth =
    u"Atenção!!! Data de nascimento não informada ou inválida!\nProsseguir assim mesmo?"_s;
const QString noName = u"--- ERRO --- NOME NÃO INFORMADO!"_s;
const QString noPhone = u"Informe o fone fixo e/ou celular!"_s;
const QString wrongEntry = u"--- ERRO --- DATA DE CADASTRO INCORRETA!"_s;
const QString unknownCode = u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s;

/// Two tenants' rows under the same names.
class People : public LoggedIn
{
protected:
    People()
    {
        execute(
            u"insert into convenios (idconv,idlic,nmconv) values (1,'C2','ALHEIO'),(7,'C1','BOA VIDA');"
            u"insert into especialidades (idesp,idlic,nmesp) values (1,'C2','ALHEIA'),(4,'C1','GERIATRIA');"
            u"insert into pacientes (idpac,idlic,nmPac,fonepac,dtcad,idconv,dtnasc) values"
            u" (1,'C2','ANA','1','2019-01-01',1,null),(2,'C1','ANA','2','2020-02-03',7,null),"
            u" (3,'C1','RUI','3','2020-02-03',7,'1980-12-31')"_s);
    }
    ~People() override
    {
        qunsetenv("TREMOSILVA_HOST_CEP");
        qunsetenv("TREMOSILVA_HOST_CNPJ");
    }

    static void load(ScreenDriver& screen, const QString& code) { enter(screen, u"txtcodcli"_s, code); }

    /// Nothing but today's date of registration and the combos' first items.
    static void expectEmptied(const ScreenDriver& screen)
    {
        EXPECT_EQ(screen.text(u"txtdtcad"_s), u"16/03/2026");
        for (const QLineEdit* box : screen.window().findChildren<QLineEdit*>())
            EXPECT_TRUE(box->text().isEmpty() || box->objectName() == u"txtdtcad")
                << qPrintable(box->objectName());
        for (const QComboBox* box : screen.window().findChildren<QComboBox*>())
            EXPECT_EQ(box->currentIndex(), 0) << qPrintable(box->objectName());
        EXPECT_EQ(screen.text(u"txtmemo"_s), u"");
    }

    /// The date of registration is only shown: as a row brings it.
    static void registered(ScreenDriver& screen, const QString& date)
    {
        screen.focus(u"TXTRG"_s);
        static_cast<QLineEdit*>(screen.find(u"txtdtcad"_s))->setText(date);
    }

    /// Without a date of birth first, then attempt by attempt: what goes into boxes, and what the save then
    /// says.
    void expectRefusals(ScreenDriver& screen, const QList<QPair<QString, QStringList>>& attempts)
    {
        const auto save = [&screen] {
            screen.focus(u"cmdsalva"_s); // a click that a box answers would be none
            screen.click(u"cmdsalva"_s);
        };
        registered(screen, u"31/02/2026"_s);
        dialogs.expectQuestion(noBirth, false, u"Atençã"_s);
        save();
        dialogs.expectQuestion(noBirth, true, u"Atençã"_s);
        dialogs.expect(noName, u"ATENÇÃO"_s);
        save();
        screen.type(u"txtdtnasc"_s, u"01022003"_s);
        for (const auto& [puts, refusals] : attempts) {
            EXPECT_TRUE(screen.enabled(u"txtnome"_s));
            for (const QString& refusal : refusals)
                dialogs.expect(refusal, refusal.startsWith(u'-') ? u"ATENÇÃO"_s : u"Atenção"_s);
            fill(screen, puts);
            save();
            dialogs.verify();
        }
    }
};

} // namespace

TEST_F(People, APatientIsRefusedStepByStep)
{
    on<frmcadcli>([&](ScreenDriver& screen) {
        fill(screen, u"cboAler=1|cboMed=1|cboCir=1"_s);
        expectRefusals(screen, {{u"txtnome= |txtIdConv=7"_s, {noName}},
                                {u"txtnome=leo|txtIdConv=1"_s, {noName}},
                                {u"txtIdConv=7|txtAler= "_s, {u"Preencha as informações da alergia!"_s}},
                                {u"cboAler=0"_s, {u"Preencha as informações da medicação!"_s}},
                                {u"txtMed=x"_s, {u"Preencha as informações da cirurgia!"_s}},
                                {u"txtCir=y|txtfone= "_s, {noPhone}},
                                {u"txtnrcel=9"_s, {wrongEntry}}});
        EXPECT_FALSE(screen.enabled(u"txtnome"_s)) << "the date of registration is looked at behind the lock";
        EXPECT_EQ(screen.text(u"txtnome"_s), u"LEO");
        screen.click(u"cmdretorna"_s);
        EXPECT_TRUE(screen.enabled(u"txtnome"_s));
        EXPECT_EQ(screen.focused(), u"TXTCPF");
        expectEmptied(screen);
    });
    EXPECT_EQ(value(u"select count(*) from pacientes"_s), u"3");
}

TEST_F(People, AProfessionalIsRefusedStepByStep)
{
    on<frmCadProfissionais>([&](ScreenDriver& screen) {
        expectRefusals(screen, {{u"txtnome= |txtIdEsp=4|txtVR=-1"_s, {noName}},
                                {u"txtnome=ivo|txtIdEsp=1"_s, {noName}},
                                {u"txtIdEsp=4|txtVR=dez"_s, {u"--- ERRO --- VALOR INVÁLIDO!"_s, noName}},
                                {u"txtVR=-1"_s, {noPhone}},
                                {u"txtfone=3"_s, {u"--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"_s}},
                                {u"txtVR=0"_s, {wrongEntry}}});
        registered(screen, u"01/01/2026"_s);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(flat(u"select nmpro,valor,ondeatd,dtcad from profissionais"_s),
              QStringList{u"IVO|0.00|0|2026-03-16"_s});
}

TEST_F(People, AnUnknownDateOfBirthStaysUnknown)
{
    dialogs.expectQuestion(noBirth, true, u"Atençã"_s);
    on<frmcadcli>([](ScreenDriver& screen) {
        load(screen, u"2"_s);
        EXPECT_EQ(screen.text(u"txtdtnasc"_s), u"Não Informado");
        registered(screen, u"01/01/2001"_s);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(
        value(u"select concat_ws('|',dtcad,ifnull(dtnasc,'NULL'),evup) from pacientes where idpac = 2"_s),
        u"2020-02-03|NULL|"_s + boundStamp);

    execute(u"update pacientes set dtcad = null where idpac = 3"_s);
    on<frmcadcli>([](ScreenDriver& screen) {
        load(screen, u"3"_s);
        screen.type(u"txtdtcad"_s, u"03022020"_s); // a row without it could never be saved otherwise
        screen.type(u"txtnome"_s, u"rui paz"_s);
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(value(u"select concat_ws('|',nmpac,ifnull(dtcad,'NULL')) from pacientes where idpac = 3"_s),
              u"RUI PAZ|NULL"_s);
}

TEST_F(People, CodesThatAreNoPatients)
{
    dialogs.expect(unknownCode, u"ATENÇÃO"_s);
    dialogs.expect(unknownCode, u"ATENÇÃO"_s);
    on<frmcadcli>([](ScreenDriver& screen) {
        for (const QString& code : {u"1"_s, u"99"_s, u"x"_s, QString()}) {
            load(screen, u"3"_s);
            EXPECT_EQ(screen.text(u"txtnome"_s), u"RUI");
            load(screen, code);
            EXPECT_EQ(shown(screen, u"txtcodcli txtnome txtNmConv"_s), QString(code.toUpper() + u"||"_s));
        }
    });
}

TEST_F(People, ARowThatASearchLeftOutIsNotWrittenOverAnother)
{
    dialogs.expectInput(u"Nome: "_s, u"ana"_s);
    dialogs.expect(unknownCode, u"ATENÇÃO"_s);
    dialogs.expectInput(u"Nome: "_s, {});
    on<frmcadcli>([](ScreenDriver& screen) {
        load(screen, u"3"_s);
        screen.press(Qt::Key_F10);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        ASSERT_EQ(screen.grid(u"DataGrid1"_s).size(), 1);
        screen.click(u"cmdsalva"_s);
        EXPECT_TRUE(screen.enabled(u"txtnome"_s));
        screen.click(u"Command3"_s);
        EXPECT_EQ(screen.grid(u"DataGrid1"_s).size(), 2) << "cancelled: all rows again";
        screen.click(u"cmdsalva"_s);
    });
    EXPECT_EQ(value(u"select group_concat(idpac) from pacientes where evup = '%1'"_s.arg(boundStamp)), u"3");
}

TEST_F(People, DocumentsAreCheckedAndACompanysDataFillTheScreen)
{
    OneAnswer registry(OneAnswer::http(
        "200 OK", R"({"nome": "Casa Lar", "cep": "01.310-100", "logradouro": "Rua B", "numero": "8",)"
                  R"( "bairro": "Sul", "municipio": "Santos", "uf": "SP", "email": "a@b.br"})"));
    OneAnswer postal(OneAnswer::http("200 OK", R"({"uf": "SP", "ibge": "3548500"})"));
    qputenv("TREMOSILVA_HOST_CNPJ", registry.host().toUtf8());
    qputenv("TREMOSILVA_HOST_CEP", postal.host().toUtf8());
    dialogs.expectQuestion(company, false, u"Atenção"_s);
    dialogs.expectQuestion(company, true);
    on<frmcadcli>([](ScreenDriver& screen) {
        enter(screen, u"TXTCPF"_s, u"11222333000180"_s);
        EXPECT_EQ(screen.text(u"TXTCPF"_s), u"");
        for (const QString& good : {u"11144477735"_s, u"11222333000181"_s, u"  "_s, u"11222333000181"_s}) {
            enter(screen, u"TXTCPF"_s, good);
            EXPECT_EQ(screen.text(u"TXTCPF"_s), good);
        }
        EXPECT_EQ(
            shown(screen, u"txtnome txtcepr txtruar txtNr txtbairror txtcidader txtufr txtemail txtCdMun"_s),
            u"Casa Lar|01310100|Rua B|8|Sul|Santos|SP|a@b.br|48500");
    });
    EXPECT_TRUE(registry.request().startsWith("GET /v1/cnpj/11222333000181 "));
    EXPECT_TRUE(postal.request().startsWith("GET /ws/01310100/json/ "));
}

TEST_F(People, EightCharactersOfAPostalCodeFillTheAddressUnlessTheServiceFails)
{
    OneAnswer answer(OneAnswer::http(
        "200 OK", "<xmlcep><logradouro>Av. Central</logradouro><bairro>Bela Vista</bairro>"
                  "<localidade>São Paulo</localidade><uf>SP</uf><ibge>3550308</ibge></xmlcep>"));
    OneAnswer failure(OneAnswer::http("500 Error", ""));
    dialogs.expect(u"500 O serviço respondeu com um erro\nCONEXÃO COM A INTERNET E/OU WEBSERVICE FALHOU!"_s,
                   u"Atenção"_s);
    on<frmcadcli>([&](ScreenDriver& screen) {
        for (const OneAnswer* service : {&answer, &failure}) {
            qputenv("TREMOSILVA_HOST_CEP", service->host().toUtf8());
            for (const QString& code : {u"0131010"_s, u"01310-100"_s, u"01310100"_s})
                enter(screen, u"txtcepr"_s, code);
            EXPECT_EQ(shown(screen, u"txtruar txtbairror txtcidader txtufr txtCdMun"_s),
                      u" AV. CENTRAL|BELA VISTA|SÃO PAULO|SP|3550308");
        }
    });
    EXPECT_TRUE(answer.request().startsWith("GET /ws/01310100/xml/ "));
}

TEST_F(People, APlansNameFollowsItsCode)
{
    on<frmcadcli>([&](ScreenDriver& screen) {
        const QList<QPair<QString, QString>> table = {
            {u"7"_s, u"BOA VIDA"_s}, {u"1"_s, {}}, {u"7,9"_s, u"BOA VIDA"_s}, {u"x"_s, {}}};
        for (const auto& [code, name] : table) {
            screen.type(u"txtIdConv"_s, code);
            EXPECT_EQ(screen.text(u"txtNmConv"_s), u"");
            screen.press(Qt::Key_Return);
            EXPECT_EQ(screen.text(u"txtNmConv"_s), name) << code.toStdString();
        }
        answer(u"frmBuscaConvenios"_s, {Qt::Key_Escape});
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtIdConv"_s), u"X") << "given up";

        for (const QString& code : {u""_s, u"3"_s}) {
            screen.type(u"txtcodcli"_s, code);
            execute(u"update pacientes set idconv = 1 where idpac = 3"_s);
            answer(u"frmBuscaConvenios"_s, {Qt::Key_F10});
            screen.press(Qt::Key_F2);
            EXPECT_EQ(screen.text(u"txtIdConv"_s), u"7") << "though the code box is left";
            EXPECT_EQ(screen.text(u"txtnome"_s), code.isEmpty() ? u""_s : u"RUI"_s);
            EXPECT_EQ(screen.focused(), u"txtIdConv");
        }
    });
}
