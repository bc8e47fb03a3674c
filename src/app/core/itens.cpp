#include "app/core/itens.h"

#include "platform/values/text.h"

namespace {

constexpr QLatin1Char separador('|');
constexpr int larguraNome = 45;

} // namespace

QString itemComCodigos(const QString& nome, const QStringList& codigos)
{
    return fixedWidth(nome, larguraNome) + separador + codigos.join(separador);
}

QString codigoDoItem(const QString& item, int doFim)
{
    return item.section(separador, -doFim, -doFim).trimmed();
}

QString nomeDoItem(const QString& item)
{
    return item.left(larguraNome).trimmed();
}
