#include "platform/data/error.h"

namespace ADODB {

Error::Error(int number, const QString& description, const QString& sqlState, const QString& statement)
    : RuntimeError(number, description), sqlState_(sqlState), statement_(statement)
{
}

bool Error::endsConnection() const
{
    // 2013: the connection was lost while the client library read or wrote.
    return sqlState_.startsWith(u"08") || number() == ServerLost || number() == 2013;
}

} // namespace ADODB
