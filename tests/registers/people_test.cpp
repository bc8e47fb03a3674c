#include "app/shell_fixture.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadprofissionais.h"
#include "support/oneanswer.h"

using namespace Variaveis;

namespace {

const QString company = u"Buscar dados cadastrais na receita?"_qs;
const QString noBirth =
    u"Atenção!!! Data de nascimento não informada ou inválida!\nProsseguir assim mesmo?"_qs;
const QString noName = u"--- ERRO --- NOME NÃO INFORMADO!"_qs;
const QString noPhone = u"Informe o fone fixo e/ou celular!"_qs;
const QString wrongEntry = u"--- ERRO --- DATA DE CADASTRO INCORRETA!"_qs;
const QString unknownCode = u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_qs;

/// Two tenants' rows under the same names; ANA has no date of birth, RUI every column.
class People : public LoggedIn
{
protected:
    People()
    {
        execute(
            u"insert into convenios (idconv,idlic,nmconv) values (1,'C2','ALHEIO'),(7,'C1','BOA VIDA');"
            u"insert into especialidades (idesp,idlic,nmesp) values (1,'C2','ALHEIA'),(4,'C1','GERIATRIA');"
            u"insert into pacientes (idpac,idlic,nmPac,fonepac,dtcad,idconv) values"
            u" (1,'C2','ANA','1','2019-01-01',1),(2,'C1','ANA','2','2020-02-03',7);"
            u"insert into pacientes values (3,'C1','2021-05-06','11144477735','MG1','1980-12-31','RUI','31',"
            u"'32','R@X','01310100','RUA A','5','CENTRO','BH','MG','EVA','33',7,'1','PENICILINA','0','',"
            u"'1','HÉRNIA','LINHA 1\nLINHA 2','X');"
            u"insert into profissionais (idpro,idlic,nmpro,fonefixo,dtcad,idesp,valor,ondeatd) values"
            u" (1,'C2','BIA','1','2019-01-01',1,1,'0'),(2,'C1','BIA','2','2020-02-03',4,1234.5,'2'),"
            u" (3,'C1','CAIO','3','2020-02-03',4,10,'0')"_qs);
    }
    ~People() override
    {
        qunsetenv("TREMOSILVA_HOST_CEP");
        qunsetenv("TREMOSILVA_HOST_CNPJ");
    }

    /// Opens the screen, works on it, and leaves it by Esc.
    template <class Screen>
    void on(std::function<void(ScreenDriver&)> steps)
    {
        open<Screen>([steps](ScreenDriver& screen) {
            steps(screen);
            screen.press(Qt::Key_Escape);
        });
        EXPECT_EQ(Conexao.State(), 0);
    }

    /// What a person types from one box to the next, Enter behind each.
    static void typeDown(ScreenDriver& screen, const QStringList& texts)
    {
        for (const QString& text : texts) {
            screen.typeOn(text);
            screen.press(Qt::Key_Return);
        }
    }

    static void load(ScreenDriver& screen, const QString& code)
    {
        screen.type(u"txtcodcli"_qs, code);
        screen.press(Qt::Key_Return);
    }

    static QStringList texts(const ScreenDriver& screen, const QStringList& controls)
    {
        QStringList result;
        for (const QString& control : controls)
            result << screen.text(control);
        return result;
    }

    void expectSaveWithoutBirth() { dialogs.expectQuestion(noBirth, true, u"Atençã"_qs); }

    static QString patients() { return value(u"select count(*) from pacientes"_qs); }
};

} // namespace

TEST_F(People, ANewPatientByKeyboardAlone)
{
    OneAnswer postal(OneAnswer::http(
        "200 OK", "<xmlcep><logradouro>Av. Central</logradouro><bairro>Bela Vista</bairro>"
                  "<localidade>São Paulo</localidade><uf>SP</uf><ibge>3550308</ibge></xmlcep>"));
    qputenv("TREMOSILVA_HOST_CEP", postal.host().toUtf8());
    on<frmcadcli>([&](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Pacientes - Cadastro");
        EXPECT_EQ(screen.text(u"txtdtcad"_qs), u"16/03/2026");
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        typeDown(screen, {u""_qs, u"11144477735"_qs, u"mg-1"_qs, u""_qs, u"3x1121980"_qs, u"joana d'ávila"_qs,
                          u"1133334444"_qs, u""_qs, u"j@x.br"_qs, u"01310100"_qs});
        EXPECT_TRUE(postal.request().startsWith("GET /ws/01310100/xml/ "));
        EXPECT_EQ(texts(screen, {u"txtdtnasc"_qs, u"txtCdMun"_qs}),
                  (QStringList{u"31/12/1980"_qs, u"3550308"_qs}));
        typeDown(screen, {u""_qs, u"10"_qs, u""_qs, u""_qs, u""_qs, u"eva"_qs, u"99"_qs});
        EXPECT_EQ(screen.focused(), u"txtIdConv");
        modal.expect(u"frmBuscaConvenios"_qs, [](ScreenDriver& search) { search.press(Qt::Key_F10); });
        screen.press(Qt::Key_F2);
        EXPECT_EQ(texts(screen, {u"txtIdConv"_qs, u"txtNmConv"_qs}), (QStringList{u"7"_qs, QString()}));
        typeDown(screen, {u""_qs, u"1"_qs, u"dipirona"_qs, u""_qs, u""_qs, u""_qs, u""_qs});
        EXPECT_EQ(screen.text(u"txtNmConv"_qs), u"BOA VIDA");
        EXPECT_EQ(screen.focused(), u"txtmemo");
        typeDown(screen, {u"um"_qs});
        screen.typeOn(u"dois"_qs);
        screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Return);

        EXPECT_EQ(screen.focused(), u"txtcodcli");
        EXPECT_EQ(texts(screen, {u"txtnome"_qs, u"TXTCPF"_qs, u"txtIdConv"_qs, u"txtAler"_qs, u"txtmemo"_qs,
                                 u"txtCdMun"_qs, u"txtdtnasc"_qs, u"cboAler"_qs, u"txtdtcad"_qs}),
                  (QStringList{{}, {}, {}, {}, {}, {}, {}, u"0 - NÃO"_qs, u"16/03/2026"_qs}));
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 3);
    });
    EXPECT_EQ(rows(u"select * from pacientes where idpac > 3"_qs), (QList<QStringList>{{u"4"_qs,
                                                                                        u"C1"_qs,
                                                                                        u"2026-03-16"_qs,
                                                                                        u"11144477735"_qs,
                                                                                        u"MG-1"_qs,
                                                                                        u"1980-12-31"_qs,
                                                                                        u"JOANA D'ÁVILA"_qs,
                                                                                        u"1133334444"_qs,
                                                                                        u""_qs,
                                                                                        u"J@X.BR"_qs,
                                                                                        u"01310100"_qs,
                                                                                        u" AV. CENTRAL"_qs,
                                                                                        u"10"_qs,
                                                                                        u"BELA VISTA"_qs,
                                                                                        u"SÃO PAULO"_qs,
                                                                                        u"SP"_qs,
                                                                                        u"EVA"_qs,
                                                                                        u"99"_qs,
                                                                                        u"7"_qs,
                                                                                        u"1"_qs,
                                                                                        u"DIPIRONA"_qs,
                                                                                        u"0"_qs,
                                                                                        u""_qs,
                                                                                        u"0"_qs,
                                                                                        u""_qs,
                                                                                        u"UM\nDOIS"_qs,
                                                                                        boundStamp}}));
}

TEST_F(People, APatientIsRefusedStepByStep)
{
    dialogs.expectQuestion(noBirth, false, u"Atençã"_qs);
    for (int i = 0; i < 2; ++i) {
        expectSaveWithoutBirth();
        dialogs.expect(noName, u"ATENÇÃO"_qs);
    }
    dialogs.expect(u"Preencha as informações da alergia!"_qs, u"Atenção"_qs);
    dialogs.expect(u"Preencha as informações da medicação!"_qs, u"Atenção"_qs);
    dialogs.expect(u"Preencha as informações da cirurgia!"_qs, u"Atenção"_qs);
    dialogs.expect(noPhone, u"Atenção"_qs);
    dialogs.expect(wrongEntry, u"ATENÇÃO"_qs);
    on<frmcadcli>([&](ScreenDriver& screen) {
        const auto save = [&screen] { screen.click(u"cmdsalva"_qs); };
        save();
        save();
        screen.type(u"txtnome"_qs, u"leo"_qs);
        save();
        screen.type(u"txtIdConv"_qs, u"7"_qs);
        screen.type(u"txtdtnasc"_qs, u"01022003"_qs);
        for (const QString& question : {u"Aler"_qs, u"Med"_qs, u"Cir"_qs})
            screen.choose(u"cbo"_qs + question, u"1"_qs);
        save();
        screen.choose(u"cboAler"_qs, u"0"_qs);
        save();
        screen.type(u"txtMed"_qs, u"x"_qs);
        save();
        screen.type(u"txtCir"_qs, u"y"_qs);
        save();
        screen.type(u"txtnrcel"_qs, u"9"_qs);
        screen.type(u"txtdtcad"_qs, u"31022026"_qs);
        EXPECT_TRUE(screen.enabled(u"txtnome"_qs)) << "until the date of registration is looked at";
        save();
        EXPECT_FALSE(screen.enabled(u"txtnome"_qs));
        EXPECT_EQ(screen.text(u"txtnome"_qs), u"LEO");
        screen.click(u"cmdretorna"_qs);
        EXPECT_TRUE(screen.enabled(u"txtnome"_qs));
        EXPECT_EQ(screen.focused(), u"TXTCPF");
        EXPECT_EQ(texts(screen, {u"txtnome"_qs, u"txtdtcad"_qs, u"cboMed"_qs}),
                  (QStringList{u""_qs, u"16/03/2026"_qs, u"0 - NÃO"_qs}));
    });
    EXPECT_EQ(patients(), u"3");
}

TEST_F(People, APatientIsShownWholeAndWrittenBackUnchanged)
{
    on<frmcadcli>([&](ScreenDriver& screen) {
        screen.doubleClickRow(u"DataGrid1"_qs, 1);
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        screen.press(Qt::Key_Return);
        EXPECT_EQ(
            texts(screen, {u"txtnome"_qs, u"TXTCPF"_qs, u"txtdtcad"_qs, u"txtdtnasc"_qs, u"txtNmConv"_qs,
                           u"cboAler"_qs, u"cboMed"_qs, u"txtCir"_qs, u"txtmemo"_qs}),
            (QStringList{u"RUI"_qs, u"11144477735"_qs, u"06/05/2021"_qs, u"31/12/1980"_qs, u"BOA VIDA"_qs,
                         u"1 - SIM"_qs, u"0 - NÃO"_qs, u"HÉRNIA"_qs, u"LINHA 1\nLINHA 2"_qs}));
        screen.clickRow(u"DataGrid1"_qs, 0);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(rows(u"select * from pacientes where idpac = 3"_qs),
              (QList<QStringList>{{u"3"_qs,          u"C1"_qs,
                                   u"2021-05-06"_qs, u"11144477735"_qs,
                                   u"MG1"_qs,        u"1980-12-31"_qs,
                                   u"RUI"_qs,        u"31"_qs,
                                   u"32"_qs,         u"R@X"_qs,
                                   u"01310100"_qs,   u"RUA A"_qs,
                                   u"5"_qs,          u"CENTRO"_qs,
                                   u"BH"_qs,         u"MG"_qs,
                                   u"EVA"_qs,        u"33"_qs,
                                   u"7"_qs,          u"1"_qs,
                                   u"PENICILINA"_qs, u"0"_qs,
                                   u""_qs,           u"1"_qs,
                                   u"HÉRNIA"_qs,     u"LINHA 1\nLINHA 2"_qs,
                                   boundStamp}}));
    EXPECT_EQ(value(u"select count(*) from pacientes where nmPac = 'ANA' and evup is null"_qs), u"2");
}

TEST_F(People, AnUnknownDateOfBirthStaysUnknown)
{
    expectSaveWithoutBirth();
    on<frmcadcli>([&](ScreenDriver& screen) {
        load(screen, u"2"_qs);
        EXPECT_EQ(screen.text(u"txtdtnasc"_qs), u"Não Informado");
        screen.type(u"txtdtcad"_qs, u"01012001"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(rows(u"select dtcad,dtnasc,evup from pacientes where idpac = 2"_qs),
              (QList<QStringList>{{u"2020-02-03"_qs, QString(), boundStamp}}));
}

TEST_F(People, CodesThatAreNoPatients)
{
    dialogs.expect(unknownCode, u"ATENÇÃO"_qs);
    dialogs.expect(unknownCode, u"ATENÇÃO"_qs);
    on<frmcadcli>([](ScreenDriver& screen) {
        for (const QString& code : {u"1"_qs, u"99"_qs, u"x"_qs, QString()}) {
            load(screen, u"3"_qs);
            EXPECT_EQ(screen.text(u"txtnome"_qs), u"RUI");
            load(screen, code);
            EXPECT_EQ(texts(screen, {u"txtnome"_qs, u"txtIdConv"_qs, u"txtNmConv"_qs}),
                      (QStringList{{}, {}, {}}));
        }
    });
}

TEST_F(People, APatientThatASearchLeftOutIsNotWrittenOverAnother)
{
    dialogs.expectInput(u"Nome: "_qs, u"ana"_qs, u"Pesquisa paciente já cadastrado"_qs);
    dialogs.expect(unknownCode, u"ATENÇÃO"_qs);
    dialogs.expectInput(u"Nome: "_qs, {}, u"Pesquisa paciente já cadastrado"_qs);
    on<frmcadcli>([](ScreenDriver& screen) {
        load(screen, u"3"_qs);
        screen.press(Qt::Key_F10);
        EXPECT_EQ(screen.focused(), u"DataGrid1");
        ASSERT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1);
        screen.click(u"cmdsalva"_qs);
        EXPECT_TRUE(screen.enabled(u"txtnome"_qs));
        screen.click(u"Command3"_qs);
        EXPECT_EQ(screen.grid(u"DataGrid1"_qs).size(), 2) << "cancelled: all rows again";
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(rows(u"select idpac from pacientes where evup = '%1'"_qs.arg(boundStamp)),
              (QList<QStringList>{{u"3"_qs}}));
}

TEST_F(People, Documents)
{
    const struct
    {
        QString typed;
        bool asked;
        QString kept;
    } table[] = {{u"11144477735"_qs, false, u"11144477735"_qs},
                 {u"11144477734"_qs, false, {}},
                 {u"111.444.777-35"_qs, true, u"111.444.777-35"_qs},
                 {u"11222333000181"_qs, true, u"11222333000181"_qs},
                 {u"11222333000180"_qs, false, {}},
                 {u"11.222.333/0001-81"_qs, false, u"11.222.333/0001-81"_qs},
                 {u"  "_qs, false, u"  "_qs}};
    for (const auto& row : table)
        if (row.asked)
            dialogs.expectQuestion(company, false, u"Atenção"_qs);
    on<frmcadcli>([&](ScreenDriver& screen) {
        for (const auto& row : table) {
            screen.type(u"TXTCPF"_qs, row.typed);
            screen.press(Qt::Key_Return);
            EXPECT_EQ(screen.text(u"TXTCPF"_qs), row.kept) << row.typed.toStdString();
        }
    });
}

TEST_F(People, ACompanysDataFillTheScreen)
{
    OneAnswer registry(OneAnswer::http(
        "200 OK", R"({"nome": "Casa Lar", "cep": "01.310-100", "logradouro": "Rua B", "numero": "8",)"
                  R"( "bairro": "Sul", "municipio": "Santos", "uf": "SP", "email": "a@b.br"})"));
    OneAnswer postal(OneAnswer::http("200 OK", R"({"uf": "SP", "ibge": "3548500"})"));
    qputenv("TREMOSILVA_HOST_CNPJ", registry.host().toUtf8());
    qputenv("TREMOSILVA_HOST_CEP", postal.host().toUtf8());
    dialogs.expectQuestion(company, true);
    on<frmcadcli>([&](ScreenDriver& screen) {
        screen.type(u"TXTCPF"_qs, u"11222333000181"_qs);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(texts(screen, {u"txtnome"_qs, u"txtcepr"_qs, u"txtruar"_qs, u"txtNr"_qs, u"txtbairror"_qs,
                                 u"txtcidader"_qs, u"txtufr"_qs, u"txtemail"_qs, u"txtCdMun"_qs}),
                  (QStringList{u"Casa Lar"_qs, u"01310100"_qs, u"Rua B"_qs, u"8"_qs, u"Sul"_qs, u"Santos"_qs,
                               u"SP"_qs, u"a@b.br"_qs, u"48500"_qs}));
    });
    EXPECT_TRUE(registry.request().startsWith("GET /v1/cnpj/11222333000181 "));
    EXPECT_TRUE(postal.request().startsWith("GET /ws/01310100/json/ "));
}

TEST_F(People, APostalCodeThatFailsKeepsTheAddress)
{
    OneAnswer postal(OneAnswer::http("500 Error", ""));
    qputenv("TREMOSILVA_HOST_CEP", postal.host().toUtf8());
    dialogs.expect(u"500 O serviço respondeu com um erro\nCONEXÃO COM A INTERNET E/OU WEBSERVICE FALHOU!"_qs);
    on<frmcadcli>([](ScreenDriver& screen) {
        screen.type(u"txtruar"_qs, u"rua c"_qs);
        for (const QString& code : {u"0131010"_qs, u"01310-100"_qs, u"01310100"_qs}) {
            screen.type(u"txtcepr"_qs, code);
            screen.press(Qt::Key_Return);
        }
        EXPECT_EQ(screen.text(u"txtruar"_qs), u"RUA C");
    });
}

TEST_F(People, APlansNameFollowsItsCode)
{
    on<frmcadcli>([&](ScreenDriver& screen) {
        const struct
        {
            QString code, name;
        } table[] = {{u"7"_qs, u"BOA VIDA"_qs}, {u"1"_qs, {}}, {u"7,9"_qs, u"BOA VIDA"_qs}, {u"x"_qs, {}}};
        for (const auto& row : table) {
            screen.type(u"txtIdConv"_qs, row.code);
            EXPECT_EQ(screen.text(u"txtNmConv"_qs), u"");
            screen.press(Qt::Key_Return);
            EXPECT_EQ(screen.text(u"txtNmConv"_qs), row.name) << row.code.toStdString();
        }
        screen.type(u"txtIdConv"_qs, u"7"_qs);
        modal.expect(u"frmBuscaConvenios"_qs, [](ScreenDriver& search) { search.press(Qt::Key_Escape); });
        screen.press(Qt::Key_F2);
        EXPECT_EQ(screen.text(u"txtIdConv"_qs), u"7") << "given up";
    });
}

TEST_F(People, ANewProfessionalWithPlaceAndPrice)
{
    on<frmCadProfissionais>([&](ScreenDriver& screen) {
        EXPECT_EQ(screen.window().windowTitle(), u"Profissionais");
        typeDown(screen, {u""_qs, u""_qs, u""_qs, u""_qs, u"01021970"_qs, u"ivo d'or"_qs, u"31"_qs});
        screen.focus(u"txtIdEsp"_qs);
        modal.expect(u"frmBuscaEspecialidades"_qs, [](ScreenDriver& search) { search.press(Qt::Key_F10); });
        screen.press(Qt::Key_F2);
        typeDown(screen, {u""_qs, u"crm 5"_qs, u"1"_qs, u"1500,5"_qs});
        EXPECT_EQ(texts(screen, {u"txtNmEsp"_qs, u"txtVR"_qs}),
                  (QStringList{u"GERIATRIA"_qs, u"R$ 1.500,50"_qs}));
        screen.click(u"cmdsalva"_qs);
        EXPECT_EQ(screen.focused(), u"txtcodcli");
        EXPECT_EQ(texts(screen, {u"txtnome"_qs, u"txtVR"_qs, u"txtNoCon"_qs, u"txtNmEsp"_qs, u"cboCH"_qs}),
                  (QStringList{{}, {}, {}, {}, u"0 - CLINICA"_qs}));
    });
    EXPECT_EQ(
        rows(u"select idlic,dtcad,dtnasc,nmpro,fonefixo,idesp,nrcon,valor,ondeatd,evup from profissionais "
             u"where idpro > 3"_qs),
        (QList<QStringList>{{u"C1"_qs, u"2026-03-16"_qs, u"1970-02-01"_qs, u"IVO D'OR"_qs, u"31"_qs, u"4"_qs,
                             u"CRM 5"_qs, u"1500.50"_qs, u"1"_qs, boundStamp}}));
}

TEST_F(People, AProfessionalIsRefusedStepByStep)
{
    dialogs.expectQuestion(noBirth, false, u"Atençã"_qs);
    for (int i = 0; i < 3; ++i)
        dialogs.expect(noName, u"ATENÇÃO"_qs);
    dialogs.expect(u"--- ERRO --- VALOR INVÁLIDO!"_qs, u"ATENÇÃO"_qs);
    dialogs.expect(noName, u"ATENÇÃO"_qs);
    dialogs.expect(noPhone, u"Atenção"_qs);
    dialogs.expect(u"--- ERRO --- VALOR NÃO PODE SER MENOR QUE ZERO!"_qs, u"ATENÇÃO"_qs);
    dialogs.expect(wrongEntry, u"ATENÇÃO"_qs);
    on<frmCadProfissionais>([](ScreenDriver& screen) {
        const auto save = [&screen] { screen.click(u"cmdsalva"_qs); };
        save();
        screen.type(u"txtdtnasc"_qs, u"01021970"_qs);
        save();
        screen.type(u"txtnome"_qs, u"ivo"_qs);
        save();
        screen.type(u"txtIdEsp"_qs, u"4"_qs);
        save();
        screen.type(u"txtVR"_qs, u"dez"_qs);
        screen.focus(u"cmdsalva"_qs);
        save();
        screen.type(u"txtVR"_qs, u"-1"_qs);
        save();
        screen.type(u"txtfone"_qs, u"3"_qs);
        save();
        screen.type(u"txtVR"_qs, u"0"_qs);
        screen.type(u"txtdtcad"_qs, u"1"_qs);
        save();
        EXPECT_TRUE(screen.enabled(u"txtdtcad"_qs));
        screen.type(u"txtdtcad"_qs, u"01012026"_qs);
        save();
    });
    EXPECT_EQ(rows(u"select nmpro,valor,ondeatd,dtcad from profissionais where idpro > 3"_qs),
              (QList<QStringList>{{u"IVO"_qs, u"0.00"_qs, u"0"_qs, u"2026-03-16"_qs}}));
}

TEST_F(People, AProfessionalIsShownAndChanged)
{
    dialogs.expectInput(u"Nome: "_qs, u"bi"_qs, u"Pesquisa profissionais já cadastrado"_qs);
    expectSaveWithoutBirth();
    on<frmCadProfissionais>([](ScreenDriver& screen) {
        load(screen, u"3"_qs);
        screen.click(u"cmdretorna"_qs);
        EXPECT_EQ(screen.text(u"txtcodcli"_qs), u"") << "a new one may follow";
        screen.press(Qt::Key_F10);
        ASSERT_EQ(screen.grid(u"DataGrid1"_qs).size(), 1);
        screen.doubleClickRow(u"DataGrid1"_qs, 0);
        screen.press(Qt::Key_Return);
        EXPECT_EQ(texts(screen, {u"txtnome"_qs, u"txtdtnasc"_qs, u"txtVR"_qs, u"cboCH"_qs, u"txtNmEsp"_qs}),
                  (QStringList{u"BIA"_qs, u"Não Informado"_qs, u"R$ 1.234,50"_qs, u"2 - HOME E CLINICA"_qs,
                               u"GERIATRIA"_qs}));
        screen.choose(u"cboCH"_qs, u"1"_qs);
        screen.click(u"cmdsalva"_qs);
    });
    EXPECT_EQ(
        rows(u"select idpro,fonefixo,valor,ondeatd,dtcad,evup from profissionais where evup is not null"_qs),
        (QList<QStringList>{{u"2"_qs, u"2"_qs, u"1234.50"_qs, u"1"_qs, u"2020-02-03"_qs, boundStamp}}));
}
