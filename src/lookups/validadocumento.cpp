#include "lookups/validadocumento.h"

#include "app/core/variaveis.h"
#include "platform/values/number.h"

#include <algorithm>
#include <array>
#include <span>

namespace Rotirnas {

namespace {

/// What tells the two kinds of document apart.
struct Tipo
{
    QStringView mascara;
    QStringView separadores;
    /// Of the second check sum, the first check digit's own weight at the end. The first sum has the same
    /// weights without the one in front.
    std::span<const int> pesos;
    bool letras;
};

constexpr std::array pesosCpf{11, 10, 9, 8, 7, 6, 5, 4, 3, 2};
constexpr std::array pesosCnpj{6, 5, 4, 3, 2, 9, 8, 7, 6, 5, 4, 3, 2};
const Tipo cpf{u"000.000.000-00", u".-", pesosCpf, false};
const Tipo cnpj{u"00.000.000/0000-00", u"./-", pesosCnpj, true};

bool ehDigito(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool ehLetra(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

/// Puts the characters of a bare document in the places of the mask; a text with anything else in it comes
/// back as it is.
QString mascarado(const QString& texto, const Tipo& tipo)
{
    if (!std::all_of(texto.begin(), texto.end(), [](QChar c) { return ehDigito(c) || ehLetra(c); }))
        return texto;
    QString resultado;
    auto proximo = texto.begin();
    for (const QChar c : tipo.mascara)
        resultado += c == u'0' ? *proximo++ : c;
    return resultado;
}

int digitoVerificador(int soma)
{
    const int resto = soma % 11;
    return resto < 2 ? 0 : 11 - resto;
}

bool confere(QStringView texto, const Tipo& tipo)
{
    int soma1 = 0;
    int soma2 = 0;
    std::size_t lidos = 0;
    for (const QChar c : texto.chopped(2)) {
        if (tipo.separadores.contains(c))
            continue;
        const bool conta = ehDigito(c) || (tipo.letras && ehLetra(c));
        if (!conta || lidos + 1 == tipo.pesos.size())
            return false;
        const int valor = c.unicode() - u'0';
        soma1 += valor * tipo.pesos[lidos + 1];
        soma2 += valor * tipo.pesos[lidos];
        ++lidos;
    }
    const int digito1 = digitoVerificador(soma1);
    const int digito2 = digitoVerificador(soma2 + digito1 * tipo.pesos.back());
    return texto.last(2) == QString::number(digito1) + QString::number(digito2);
}

} // namespace

void ValidaDocumento(QString& documento)
{
    const qsizetype tamanho = documento.size();
    QString texto;
    bool passou = false;
    if (tamanho >= 11 && tamanho <= 18 && isNumeric(QStringView(documento).first(2))) {
        const bool pessoa = tamanho == 11 || (tamanho == 14 && documento[3] == u'.');
        const Tipo& tipo = pessoa ? cpf : cnpj;
        if (tamanho == 14 && !pessoa)
            documento = mascarado(documento, tipo);
        texto = tamanho == 11 ? mascarado(documento, tipo) : documento;
        passou = confere(texto, tipo);
    }
    Variaveis::Resultado = passou;
    Variaveis::DocumentoValido = passou ? texto : QString();
}

} // namespace Rotirnas
