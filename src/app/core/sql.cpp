#include "app/core/sql.h"

#include "app/core/variaveis.h"
#include "platform/data/recordset.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

QString aspas(const QString& texto)
{
    return QLatin1Char('\'') + texto + QLatin1Char('\'');
}

QString aspas(const QStringList& textos)
{
    return aspas(textos.join(u"','"_s));
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

QString carimbo()
{
    return Usuario + QLatin1Char(' ') + generalDate(Clock::now());
}

QString carimboRegistro()
{
    return Usuario + u" - "_s + generalDate(Clock::now());
}
