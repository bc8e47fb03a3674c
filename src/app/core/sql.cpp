#include "app/core/sql.h"

#include "app/core/variaveis.h"
#include "platform/data/recordset.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/format.h"
#include "platform/values/number.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString mascaraDaColuna = u"yyyy/mm/dd"_s;

} // namespace

QString aspas(const QString& texto)
{
    return QLatin1Char('\'') + texto + QLatin1Char('\'');
}

QString aspas(const QStringList& textos)
{
    return aspas(textos.join(u"','"_s));
}

QString contem(const QString& texto)
{
    return aspas(QLatin1Char('%') + texto + QLatin1Char('%'));
}

QString comPonto(QString numero)
{
    return numero.replace(QLatin1Char(','), QLatin1Char('.'));
}

QString codigoInteiro(const QString& codigo)
{
    return isNumeric(codigo) ? QString::number(integerPart(codigo)) : codigo.trimmed();
}

QString emColuna(QDate dia)
{
    return Format(dia, mascaraDaColuna);
}

QString emColuna(const QString& dia)
{
    return Format(dia, mascaraDaColuna);
}

QString instante()
{
    return Format(Clock::now(), u"yymmddhhmmss");
}

QString carimbo()
{
    return Usuario + QLatin1Char(' ') + generalDate(Clock::now());
}

QString carimboRegistro()
{
    return Usuario + u" - "_s + generalDate(Clock::now());
}

void AbreConexao()
{
    if (Conexao.State() == 0) {
        Conexao.setConnectionString(StringConexao);
        Conexao.Open();
    }
}

void ReabreConexao()
{
    FechaConexao();
    AbreConexao();
}

void FechaConexao()
{
    if (Conexao.State() == 1)
        Conexao.Close();
}

std::optional<QString> nomeDoCodigo(const QString& consulta, const QString& coluna)
{
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open(consulta, Conexao, 0, 1);
    if (rs.Eof())
        return {};
    return rs.Fields(coluna).text();
}

void ExecutaEmTransacao(const QStringList& comandos)
{
    AbreConexao();
    Conexao.BeginTrans();
    for (const QString& comando : comandos)
        Conexao.Execute(comando);
    Conexao.CommitTrans();
}

void ComandoGeral(const QString& comando)
{
    cmdGeral.setActiveConnection(&Conexao);
    cmdGeral.setCommandType(1);
    cmdGeral.setCommandText(comando);
    ADODB::Recordset rs;
    rs.setCursorLocation(3);
    rs.Open(cmdGeral, 1, 2);
}

void ExecutaComando(const QString& comando)
{
    ReabreConexao();
    ComandoGeral(comando);
    FechaConexao();
}
