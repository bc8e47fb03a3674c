#include "app/core/funcoes.h"

#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "platform/data/recordset.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace Funcoes {

QString PerfilValor(const QString& usuario, const QString& campo)
{
    AbreConexao();
    ADODB::Recordset rs;
    rs.Open("select * from perfilusuario where nmusuario = " + aspas(usuario) +
                " and campo = " + aspas(campo),
            Conexao, 0, 1);
    QString valor = u"1"_s;
    for (; !rs.Eof(); rs.MoveNext())
        valor = rs.Fields("valor").text();
    rs.Close();
    return valor;
}

} // namespace Funcoes
