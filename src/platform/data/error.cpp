#include "platform/data/error.h"

namespace ADODB {

Error::Error(int number, const QString& description, const QString& sqlState, const QString& statement)
    : RuntimeError(number, description), sqlState_(sqlState), statement_(statement)
{
}

} // namespace ADODB
