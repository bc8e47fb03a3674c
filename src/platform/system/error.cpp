#include "platform/system/error.h"

RuntimeError::RuntimeError(int number, const QString& description, const QString& source)
    : std::runtime_error(description.toStdString()),
      number_(number),
      description_(description),
      source_(source)
{
}

namespace Errors {

void overflow()
{
    throw RuntimeError(6, QStringLiteral("Estouro"));
}

void subscriptOutOfRange()
{
    throw RuntimeError(9, QStringLiteral("Subscrito fora do intervalo"));
}

void typeMismatch(const QString& text)
{
    throw RuntimeError(13, QStringLiteral("Tipos incompatíveis: \"%1\"").arg(text));
}

void objectNotSet()
{
    throw RuntimeError(91, QStringLiteral("Variável de objeto não definida"));
}

void invalidProperty(const QString& control)
{
    throw RuntimeError(380, QStringLiteral("Valor de propriedade inválido: %1").arg(control));
}

void fileAccess(const QString& path, const QString& reason)
{
    throw RuntimeError(75, QStringLiteral("Erro de acesso ao arquivo %1: %2").arg(path, reason));
}

} // namespace Errors
