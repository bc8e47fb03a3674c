#include "lookups/consultasweb.h"

#include "app/core/instalacao.h"
#include "platform/forms/dialogs.h"
#include "platform/system/http.h"
#include "platform/values/error.h"

#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Funcoes {

namespace {

/// "resultado_txt" is read for nothing but the failure when it is without a content.
constexpr std::array elementosLidos{QLatin1String("tipo_logradouro"),
                                    QLatin1String("logradouro"),
                                    QLatin1String("bairro"),
                                    QLatin1String("localidade"),
                                    QLatin1String("cidade"),
                                    QLatin1String("uf"),
                                    QLatin1String("ibge"),
                                    QLatin1String("resultado_txt")};

QString enderecoDoXml(const QByteArray& xml)
{
    QHash<QString, QString> campos;
    QXmlStreamReader leitor(xml);
    leitor.readNextStartElement();
    while (leitor.readNextStartElement()) {
        const QString nome = leitor.qualifiedName().toString();
        if (std::find(elementosLidos.begin(), elementosLidos.end(), nome) == elementosLidos.end()) {
            leitor.skipCurrentElement();
            continue;
        }
        const QString texto = leitor.readElementText(QXmlStreamReader::IncludeChildElements);
        if (texto.isEmpty() && !leitor.hasError())
            throw RuntimeError(91, u"Elemento sem conteúdo: %1"_s.arg(nome));
        campos[nome == u"localidade" ? u"cidade"_s : nome] = texto.toUpper();
    }
    // What stands behind the root element may break the document as well.
    while (!leitor.atEnd())
        leitor.readNext();
    if (leitor.hasError())
        throw RuntimeError(91, u"A resposta não é um documento XML"_s);

    const QString endereco = campos[u"tipo_logradouro"_s] + QLatin1Char(' ') + campos[u"logradouro"_s];
    return QStringList{endereco, campos[u"bairro"_s], campos[u"cidade"_s], campos[u"uf"_s], campos[u"ibge"_s]}
        .join(u'|');
}

Http::Response respostaDoCep(const QString& cep, QLatin1String forma, std::chrono::milliseconds espera)
{
    return Http::get(u"%1/ws/%2/%3/"_s.arg(Instalacao::servicoCep(), cep, forma), espera);
}

} // namespace

QString BuscaCep(const QString& cep, std::chrono::milliseconds espera)
{
    try {
        const Http::Response resposta = respostaDoCep(cep, QLatin1String("xml"), espera);
        if (resposta.status != 200)
            throw RuntimeError(resposta.status, u"O serviço respondeu com um erro"_s);
        return enderecoDoXml(resposta.body);
    } catch (const RuntimeError& erro) {
        MsgBox(QString::number(erro.number()) + QLatin1Char(' ') + erro.description() +
                   u"\nCONEXÃO COM A INTERNET E/OU WEBSERVICE FALHOU!"_s,
               u"Atenção"_s);
        return {};
    }
}

QString BuscaCepJson(const QString& cep, std::chrono::milliseconds espera)
{
    return QString::fromUtf8(respostaDoCep(cep, QLatin1String("json"), espera).body);
}

QString BuscaCnpj(const QString& cnpj, std::chrono::milliseconds espera)
{
    const Http::Response resposta =
        Http::get(Instalacao::servicoCnpj() + QLatin1String("/v1/cnpj/") + cnpj, espera);
    return resposta.status == 404 ? u"404 Error"_s : QString::fromUtf8(resposta.body);
}

QString ValorJson(const QString& resposta, const QString& campo)
{
    // An absent name is found at -1, which is where the text for an absent field comes from.
    const qsizetype inicio = resposta.indexOf(campo) + campo.size() + 4;
    const qsizetype fim = resposta.indexOf(u'"', inicio);
    if (fim < 0)
        Errors::invalidArgument();
    return resposta.mid(inicio, fim - inicio);
}

} // namespace Funcoes
