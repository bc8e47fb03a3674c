#include "app/core/arquivosini.h"

#include "app/core/criptografa.h"
#include "platform/system/files.h"
#include "platform/values/codepage.h"

using namespace Qt::StringLiterals;

namespace ArquivosINI {

namespace {

QString LeChave(const QString& chave, const QString& arquivo)
{
    return Criptografa::Decifrar(Files::profileValue(u"CONFIG"_s, chave, u"DefaultUser"_s, arquivo));
}

/// The text between its outer blanks; other white space is part of a value.
QString aparado(QStringView texto)
{
    while (texto.startsWith(u' '))
        texto = texto.sliced(1);
    while (texto.endsWith(u' '))
        texto.chop(1);
    return texto.toString();
}

} // namespace

QString Caminho()
{
    return Files::inProgramFolder(u"\\tremosilva.ini"_s);
}

Configuracao Le(const QString& arquivo)
{
    Configuracao valores;
    valores.idlic = LeChave(u"idlic"_s, arquivo);
    valores.conexao = LeChave(u"conexao"_s, arquivo);
    valores.senha = LeChave(u"senha"_s, arquivo);
    valores.banco = LeChave(u"banco"_s, arquivo);
    valores.userbco = LeChave(u"userbco"_s, arquivo);
    return valores;
}

void Grava(const Configuracao& valores)
{
    const QString linha = u"%1=%2\r\n"_s;
    QString texto = u"[CONFIG]\r\n"_s;
    texto += linha.arg(u"conexao"_s, Criptografa::Cifrar(aparado(valores.conexao)));
    texto += linha.arg(u"senha"_s, Criptografa::Cifrar(aparado(valores.senha)));
    texto += linha.arg(u"banco"_s, Criptografa::Cifrar(aparado(valores.banco)));
    texto += linha.arg(u"userbco"_s, Criptografa::Cifrar(aparado(valores.userbco)));
    texto += linha.arg(u"idlic"_s, Criptografa::Cifrar(aparado(valores.idlic)));
    Files::write(Caminho(), CodePage::encode(texto));
}

} // namespace ArquivosINI
