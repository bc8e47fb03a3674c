#include "app/core/variaveis.h"
#include "lookups/consultasweb.h"
#include "lookups/validadocumento.h"
#include "platform/system/files.h"
#include "support/errorof.h"
#include "support/oneanswer.h"
#include "support/print.h"
#include "support/scripteddialogs.h"
#include "support/texttable.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Both services at one address, as long as the object lives.
struct Services
{
    explicit Services(const QString& host)
    {
        for (const char* name : names)
            qputenv(name, host.toUtf8());
    }
    ~Services() { std::for_each(std::begin(names), std::end(names), qunsetenv); }
    static constexpr const char* names[] = {"TREMOSILVA_HOST_CEP", "TREMOSILVA_HOST_CNPJ"};
};

/// The demonstration's own services, as ./run starts them, and the rows of its registers.
class Demonstration
{
public:
    Demonstration()
    {
        EXPECT_EQ(script(u"start"_s, {QString::fromUtf8(PROGRAMS), u"DEMO"_s}), 0);
        EXPECT_EQ(QProcess::execute(QString::fromUtf8(PROGRAMS "/tremosilva-generator"),
                                    {u"--tenant"_s, u"DEMO"_s, u"--today"_s, u"2026-03-16"_s, u"--out"_s,
                                     folder_.filePath(u"rows"_s)}),
                  0);
    }
    ~Demonstration() { stop(); }

    QString host() const
    {
        return u"http://127.0.0.1:"_s + QString::fromUtf8(Files::read(folder_.filePath(u"lookups.port"_s)));
    }
    void stop() { EXPECT_EQ(script(u"stop"_s, {}), 0); }
    /// The fields of each row; one with a break of lines in it is left out.
    QList<QStringList> rows(const QString& table, qsizetype width) const
    {
        QList<QStringList> rows;
        const QByteArray file = Files::read(folder_.filePath(u"rows/%1.tsv"_s.arg(table)));
        for (const QString& line : QString::fromUtf8(file).split(u'\n'))
            if (const QStringList fields = line.split(u'\t'); fields.size() == width)
                rows << fields;
        return rows;
    }

private:
    int script(const QString& action, const QStringList& arguments) const
    {
        return QProcess::execute(QString::fromUtf8(PRIVATE_LOOKUPS),
                                 QStringList{action, folder_.path()} + arguments);
    }

    QTemporaryDir folder_;
};

} // namespace

TEST(Documents, AcceptedRefusedAndMasked)
{
    // What is typed, the number where it is accepted, what the caller's text is then where it changes
    const char16_t* rows =
        // people
        u"12345678909=123.456.789-09|123.456.789-09=123.456.789-09|94208093900=942.080.939-00|"
        u"12345678908=|12345678919=|123/456.789-09=|"
        // companies
        u"11222333000181=11.222.333/0001-81=11.222.333/0001-81|11.222.333/0001-81=11.222.333/0001-81|"
        u"11222333/0001-81=11222333/0001-81|11222333000182==11.222.333/0001-82|"
        // with letters
        u"12ABC34501DE35=12.ABC.345/01DE-35=12.ABC.345/01DE-35|12abc34501de35=|AB123456000100=|12A45678980=|"
        // the other lengths, and what no document holds
        u"=|0000000000=|11.222.333//0001-81=|١٢٣٤٥٦٧٨٩٠٩=";
    for (const QStringList& row : textTable(rows)) {
        Variaveis::Resultado = u"of the row before"_s;
        Variaveis::DocumentoValido = u"of the row before"_s;
        QString text = row[0];
        Rotirnas::ValidaDocumento(text);
        EXPECT_EQ(text, row.value(2, row[0]));
        EXPECT_EQ(Variaveis::Resultado, QVariant(!row[1].isEmpty())) << row[0].toStdString();
        EXPECT_EQ(Variaveis::DocumentoValido, row[1]) << row[0].toStdString();
    }
}

TEST(PostalCode, AddressesAndFailures)
{
    const struct
    {
        QByteArray xml;
        QString address;
        QString failure = {};
        QByteArray status = "200 OK";
    } rows[] = {
        {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmlcep>\n  <cep>01001-000</cep>\n"
         "  <logradouro>Praça da Sé</logradouro>\n  <complemento/>\n  <bairro>Sé</bairro>\n"
         "  <localidade>São Paulo</localidade>\n  <uf>sp</uf>\n  <ibge>3550308</ibge>\n</xmlcep>\n",
         u" PRAÇA DA SÉ|SÉ|SÃO PAULO|SP|3550308"_s},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><w><logradouro>da S\xe9</logradouro>"
         "<tipo_logradouro>Pra\xe7"
         "a</tipo_logradouro><localidade>A</localidade><cidade>B &amp; C</cidade></w>",
         u"PRAÇA DA SÉ||B & C||"_s},
        {"<xmlcep><erro>true</erro></xmlcep>", u" ||||"_s},
        {"<w><uf>SP</uf></w>", {}, u"404 O serviço respondeu com um erro"_s, "404 Not Found"},
        {"<w><uf>SP</uf></w><w/>", {}, u"91 A resposta não é um documento XML"_s},
        {"<w><uf>SP</uf><bairro></bairro></w>", {}, u"91 Elemento sem conteúdo: bairro"_s},
    };
    ScriptedDialogs dialogs;
    for (const auto& row : rows) {
        if (!row.failure.isEmpty())
            dialogs.expect(row.failure + u"\nCONEXÃO COM A INTERNET E/OU WEBSERVICE FALHOU!"_s, u"Atenção"_s);
        OneAnswer server(OneAnswer::http(row.status, row.xml));
        const Services services(server.host());
        EXPECT_EQ(Funcoes::BuscaCep(u"01001000"_s), row.address);
        EXPECT_TRUE(server.request().startsWith("GET /ws/01001000/xml/ HTTP/1.1\r\n"));
        dialogs.verify();
    }
}

TEST(OtherLookups, BodiesAsTheyComeAndFailuresAreTheCallers)
{
    const QByteArray body = "{\n  \"nome\": \"CLÍNICA\"\n}";
    const QString text = QString::fromUtf8(body);
    const auto company = [] { return Funcoes::BuscaCnpj(u"11.222.333/0001-81"_s); };
    const auto place = [] { return Funcoes::BuscaCepJson(u"01001000"_s); };
    const struct
    {
        std::function<QString()> call;
        QByteArray path, status;
        QString result;
    } rows[] = {{company, "/v1/cnpj/11.222.333/0001-81", "429 Too Many Requests", text},
                {company, "/v1/cnpj/11.222.333/0001-81", "404 Not Found", u"404 Error"_s},
                {place, "/ws/01001000/json/", "404 Not Found", text}};
    for (const auto& row : rows) {
        OneAnswer server(OneAnswer::http(row.status, body));
        const Services services(server.host());
        EXPECT_EQ(row.call(), row.result) << row.status.toStdString();
        EXPECT_TRUE(server.request().startsWith("GET " + row.path + " HTTP/1.1\r\n"));
    }
    const ScriptedDialogs dialogs;
    const Services nobody(OneAnswer::closedHost());
    EXPECT_EQ(errorOf(company), 12029);
    EXPECT_EQ(errorOf(place), 12029);
}

TEST(JsonText, FieldsByPosition)
{
    const QString answer = u"{\n  \"nome_fantasia\": \"SÃO LUCAS\",\n  \"nome\": \"CLÍNICA\",\n"
                           "  \"numero\": 120,\n  \"uf\": \"\",\n  \"ok\":\"X\",\n  \"fim\": 1\n}"_s;
    // A name is found in a longer one, a value without quotation marks or a blank in front comes out wrong,
    // and so does an absent field.
    for (const QStringList& row : textTable(u"nome_fantasia=SÃO LUCAS|uf=|nome=tasia|numero=20,\n  |ok=|"
                                            "email=e_fantasia"))
        EXPECT_EQ(Funcoes::ValorJson(answer, row[0]), row[1]) << row[0].toStdString();
    EXPECT_EQ(Funcoes::ValorJson(u"{\"nome\": \"X\"}"_s, u"nome"_s), u"X");

    EXPECT_EQ(errorOf([&] { Funcoes::ValorJson(answer, u"fim"_s); }), 5);
}

TEST(Demonstration, LooksUpWhatItsRegistersShow)
{
    Demonstration demonstration;
    const QString host = demonstration.host();
    {
        const Services services(host);
        const QList<QStringList> patients = demonstration.rows(u"pacientes"_s, 27);
        ASSERT_GT(patients.size(), 100);
        for (const QStringList& row : patients.first(40)) {
            const QString address = Funcoes::BuscaCep(QString(row[10]).remove(u'-'));
            EXPECT_TRUE(address.startsWith(u" %1|%2|%3|%4|"_s.arg(row[11], row[13], row[14], row[15])))
                << address.toStdString() << " for " << row.join(u' ').toStdString();
        }
        EXPECT_EQ(Funcoes::BuscaCep(u"00000000"_s), u" ||||");
        EXPECT_TRUE(Funcoes::BuscaCep(u"80010010"_s).endsWith(u"|CURITIBA|PR|4106902"_s));
        EXPECT_EQ(Funcoes::ValorJson(Funcoes::BuscaCepJson(u"13080000"_s), u"ibge"_s), u"3509502");

        const QList<QStringList> suppliers = demonstration.rows(u"fornecedores"_s, 18);
        ASSERT_FALSE(suppliers.isEmpty());
        for (const QStringList& row : suppliers) {
            const QString company = Funcoes::BuscaCnpj(row[4]);
            QStringList fields;
            for (const char* field : {"nome", "logradouro", "numero", "bairro", "municipio", "uf", "cep"})
                fields << Funcoes::ValorJson(company, QString::fromLatin1(field));
            EXPECT_EQ(fields.join(u'|').remove(u'.'),
                      QStringList({row[2], row[9], row[10], row[11], row[12], row[13], row[15]}).join(u'|'));
        }
        EXPECT_EQ(Funcoes::ValorJson(Funcoes::BuscaCnpj(u"961.679.650-05"_s), u"nome"_s), QString())
            << "a person's number has no company";
        EXPECT_EQ(Funcoes::ValorJson(Funcoes::BuscaCnpj(u"11222333000181"_s), u"cnpj"_s),
                  u"11.222.333/0001-81");
    }
    demonstration.stop();
    const Services services(host);
    EXPECT_EQ(errorOf([] { Funcoes::BuscaCnpj(u"11222333000181"_s); }), 12029);
}
