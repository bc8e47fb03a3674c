#include "app/core/variaveis.h"
#include "lookups/buscas.h"
#include "lookups/validadocumento.h"
#include "support/errorof.h"
#include "support/oneanswer.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

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

QString boxText(const QString& failure)
{
    return failure + u"\nCONEXÃO COM A INTERNET E/OU WEBSERVICE FALHOU!"_qs;
}

} // namespace

TEST(Documents, AcceptedRefusedAndMasked)
{
    const struct
    {
        QString typed;
        QString valid = {};   ///< none for a refused one
        QString left = typed; ///< what the caller's text is afterwards
    } rows[] = {
        // people
        {u"12345678909"_qs, u"123.456.789-09"_qs},
        {u"123.456.789-09"_qs, u"123.456.789-09"_qs},
        {u"94208093900"_qs, u"942.080.939-00"_qs},
        {u"11111111111"_qs, u"111.111.111-11"_qs},
        {u"12345678908"_qs},
        {u"12345678919"_qs},
        {u"123.4567890909"_qs},
        {u"123/456.789-09"_qs},
        // companies
        {u"11222333000181"_qs, u"11.222.333/0001-81"_qs, u"11.222.333/0001-81"_qs},
        {u"11.222.333/0001-81"_qs, u"11.222.333/0001-81"_qs},
        {u"11222333/0001-81"_qs, u"11222333/0001-81"_qs},
        {u"07243765000100"_qs, u"07.243.765/0001-00"_qs, u"07.243.765/0001-00"_qs},
        {u"11222333000182"_qs, {}, u"11.222.333/0001-82"_qs},
        {u"11222333000191"_qs, {}, u"11.222.333/0001-91"_qs},
        // with letters
        {u"12ABC34501DE35"_qs, u"12.ABC.345/01DE-35"_qs, u"12.ABC.345/01DE-35"_qs},
        {u"12.ABC.345/01DE-35"_qs, u"12.ABC.345/01DE-35"_qs},
        {u"93ZB0VRYV6KA66"_qs, {}, u"93.ZB0.VRY/V6KA-66"_qs},
        {u"12abc34501de35"_qs},
        {u"AB123456000100"_qs},
        {u"12A45678980"_qs},
        // the other lengths, with check digits that fit as far as the sums go
        {u""_qs},
        {u"0000000000"_qs},
        {u"11.222.333//0001-81"_qs},
        // what no document holds
        {u"12345é78909"_qs},
        {u"١٢٣٤٥٦٧٨٩٠٩"_qs},
    };
    for (const auto& row : rows) {
        Variaveis::Resultado = u"of the row before"_qs;
        Variaveis::DocumentoValido = u"of the row before"_qs;
        QString text = row.typed;
        Rotirnas::ValidaDocumento(text);
        EXPECT_EQ(text, row.left);
        EXPECT_EQ(Variaveis::Resultado, QVariant(!row.valid.isEmpty())) << row.typed.toStdString();
        EXPECT_EQ(Variaveis::DocumentoValido, row.valid) << row.typed.toStdString();
    }
}

TEST(PostalCode, AddressesAndFailures)
{
    const QString noXml = u"91 A resposta não é um documento XML"_qs;
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
         u" PRAÇA DA SÉ|SÉ|SÃO PAULO|SP|3550308"_qs},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><w><logradouro>da S\xe9</logradouro>"
         "<tipo_logradouro>Pra\xe7"
         "a</tipo_logradouro><localidade>A</localidade><cidade>B &amp; C</cidade></w>",
         u"PRAÇA DA SÉ||B & C||"_qs},
        {"<w><cidade>B</cidade><localidade>A</localidade></w>", u" ||A||"_qs},
        {"<w><x><uf>RJ</uf></x><uf>SP</uf></w>", u" |||SP|"_qs},
        {"<xmlcep><erro>true</erro></xmlcep>", u" ||||"_qs},
        {"<w><uf>SP</uf></w>", {}, u"404 O serviço respondeu com um erro"_qs, "404 Not Found"},
        {"<w><uf>SP</uf>", {}, noXml},
        {"<w><uf>SP</uf></w><w/>", {}, noXml},
        {"{\"uf\": \"SP\"}", {}, noXml},
        {"<!DOCTYPE w [<!ENTITY e SYSTEM \"file:///etc/hostname\">]><w><uf>&e;</uf></w>",
         {},
         u"91 Elemento sem conteúdo: uf"_qs},
        {"<w><uf>SP</uf><bairro></bairro></w>", {}, u"91 Elemento sem conteúdo: bairro"_qs},
    };
    ScriptedDialogs dialogs;
    for (const auto& row : rows) {
        if (!row.failure.isEmpty())
            dialogs.expect(boxText(row.failure), u"Atenção"_qs);
        OneAnswer server(OneAnswer::http(row.status, row.xml));
        const Services services(server.host());
        EXPECT_EQ(Funcoes::BuscaCep(u"01001000"_qs), row.address);
        EXPECT_TRUE(server.request().startsWith("GET /ws/01001000/xml/ HTTP/1.1\r\n"));
        dialogs.verify();
    }
}

TEST(PostalCode, NobodyAnswers)
{
    ScriptedDialogs dialogs;
    const auto expect = [&](const QString& failure) { dialogs.expect(boxText(failure), u"Atenção"_qs); };
    OneAnswer silent("");
    {
        const Services services(silent.host());
        expect(u"12002 O servidor não respondeu a tempo: 127.0.0.1"_qs);
        EXPECT_EQ(Funcoes::BuscaCep(u"01001000"_qs, 200ms), u"");
    }
    const Services nobody(OneAnswer::closedHost());
    expect(u"12029 Sem conexão com o servidor: 127.0.0.1 (Connection refused)"_qs);
    EXPECT_EQ(Funcoes::BuscaCep(u"01001000"_qs), u"");
    expect(
        u"12005 Endereço inválido: %1/ws/0100 000/xml/"_qs.arg(qEnvironmentVariable("TREMOSILVA_HOST_CEP")));
    EXPECT_EQ(Funcoes::BuscaCep(u"0100 000"_qs), u"");
}

TEST(OtherLookups, BodiesAsTheyComeAndFailuresAreTheCallers)
{
    const QByteArray body = "{\n  \"nome\": \"CLÍNICA\"\n}";
    const QString text = QString::fromUtf8(body);
    const auto company = [] { return Funcoes::BuscaCnpj(u"11.222.333/0001-81"_qs); };
    const auto place = [] { return Funcoes::BuscaCepJson(u"01001000"_qs); };
    const struct
    {
        std::function<QString()> call;
        QByteArray path, status;
        QString result;
    } rows[] = {{company, "/v1/cnpj/11.222.333/0001-81", "200 OK", text},
                {company, "/v1/cnpj/11.222.333/0001-81", "429 Too Many Requests", text},
                {company, "/v1/cnpj/11.222.333/0001-81", "404 Not Found", u"404 Error"_qs},
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
                           "  \"numero\": 120,\n  \"uf\": \"\",\n  \"ok\":\"X\",\n  \"fim\": 1\n}"_qs;
    const struct
    {
        QString text, field, value;
    } rows[] = {
        {answer, u"nome_fantasia"_qs, u"SÃO LUCAS"_qs},
        {answer, u"uf"_qs, u""_qs},
        {answer, u"nome"_qs, u"tasia"_qs},       // found in the longer name
        {answer, u"numero"_qs, u"20,\n  "_qs},   // no quotation marks around the value
        {answer, u"ok"_qs, u""_qs},              // no blank behind the colon: one character late
        {answer, u"email"_qs, u"e_fantasia"_qs}, // absent
        {u"{\"nome\": \"X\"}"_qs, u"nome"_qs, u"X"_qs},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Funcoes::ValorJson(row.text, row.field), row.value) << row.field.toStdString();

    for (const auto& [text, field] :
         {std::pair(answer, u"fim"_qs), {u"404 Error"_qs, u"nome"_qs}, {u""_qs, u"nome"_qs}})
        EXPECT_EQ(errorOf([&] { Funcoes::ValorJson(text, field); }), 5) << text.toStdString();
}
