#include "app/core/variaveis.h"
#include "lookups/consultasweb.h"
#include "lookups/validadocumento.h"
#include "support/errorof.h"
#include "support/oneanswer.h"
#include "support/print.h"
#include "support/scripteddialogs.h"
#include "support/texttable.h"

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
