#include "app/core/arquivosini.h"

#include "app/core/criptografa.h"
#include "platform/system/files.h"
#include "platform/values/codepage.h"

namespace ArquivosINI {

namespace {

QString LeChave(const QString& chave, const QString& arquivo)
{
    return Criptografa::Decifrar(
        Files::profileValue(QStringLiteral("CONFIG"), chave, QStringLiteral("DefaultUser"), arquivo));
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
    return Files::inProgramFolder(QStringLiteral("\\tremosilva.ini"));
}

Configuracao Le(const QString& arquivo)
{
    Configuracao valores;
    valores.idlic = LeChave(QStringLiteral("idlic"), arquivo);
    valores.conexao = LeChave(QStringLiteral("conexao"), arquivo);
    valores.senha = LeChave(QStringLiteral("senha"), arquivo);
    valores.banco = LeChave(QStringLiteral("banco"), arquivo);
    valores.userbco = LeChave(QStringLiteral("userbco"), arquivo);
    return valores;
}

void Grava(const Configuracao& valores)
{
    const QString linha = QStringLiteral("%1=%2\r\n");
    QString texto = QStringLiteral("[CONFIG]\r\n");
    texto += linha.arg(QStringLiteral("conexao"), Criptografa::Cifrar(aparado(valores.conexao)));
    texto += linha.arg(QStringLiteral("senha"), Criptografa::Cifrar(aparado(valores.senha)));
    texto += linha.arg(QStringLiteral("banco"), Criptografa::Cifrar(aparado(valores.banco)));
    texto += linha.arg(QStringLiteral("userbco"), Criptografa::Cifrar(aparado(valores.userbco)));
    texto += linha.arg(QStringLiteral("idlic"), Criptografa::Cifrar(aparado(valores.idlic)));
    Files::write(Caminho(), CodePage::encode(texto));
}

} // namespace ArquivosINI
