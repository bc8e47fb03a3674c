#include "platform/values/error.h"

using namespace Qt::StringLiterals;

RuntimeError::RuntimeError(int number, const QString& description, const QString& source)
    : std::runtime_error(description.toStdString()),
      number_(number),
      description_(description),
      source_(source)
{
}

namespace Errors {

void invalidArgument()
{
    throw RuntimeError(5, u"Chamada de procedimento ou argumento inválido"_s);
}

void overflow()
{
    throw RuntimeError(6, u"Estouro"_s);
}

void subscriptOutOfRange()
{
    throw RuntimeError(9, u"Subscrito fora do intervalo"_s);
}

void divisionByZero()
{
    throw RuntimeError(11, u"Divisão por zero"_s);
}

void typeMismatch(const QString& text)
{
    throw RuntimeError(13, u"Tipos incompatíveis: \"%1\""_s.arg(text));
}

void objectNotSet()
{
    throw RuntimeError(91, u"Variável de objeto não definida"_s);
}

void invalidProperty(const QString& control)
{
    throw RuntimeError(380, u"Valor de propriedade inválido: %1"_s.arg(control));
}

void fileAccess(const QString& path, const QString& reason)
{
    throw RuntimeError(75, u"Erro de acesso ao arquivo %1: %2"_s.arg(path, reason));
}

} // namespace Errors
