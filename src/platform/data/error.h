#pragma once

#include "platform/values/error.h"

namespace ADODB {

/// A failure of the database layer. number() is the code of the server or its client library (1064, 1146,
/// 2013 ...), or one of the numbers below: where the layer itself refuses, and where driver or driver manager
/// fail without a code. detail() is the statement.
class Error : public RuntimeError
{
public:
    enum Number
    {
        ServerNotReached = 2003,
        /// Also for 5014, the client library's second number for it.
        ServerLost = 2006,
        InvalidArgument = 3001,
        NoCurrentRow = 3021,
        NotAllowedHere = 3219,
        NotUpdatable = 3251,
        UnknownField = 3265,
        ObjectClosed = 3704,
        ObjectOpen = 3705,
        /// Above all the driver manager finds no driver or data source of the name in the connection string,
        /// or cannot load it: all that a first start meets. 3706 is the next behind those of closed and open
        /// objects, free in the server's list and its client library's; sqlState() tells the failures apart.
        DriverFailed = 3706,
        RowGone = -2147217864,
    };

    /// `sqlState` is the five characters of the standard, empty where the server was not asked.
    Error(int number, const QString& description, const QString& sqlState = {},
          const QString& statement = {});

    const QString& sqlState() const { return sqlState_; }
    /// The server has dropped the connection, or cannot be reached: nothing more goes through it.
    bool endsConnection() const;
    const QString& statement() const { return statement_; }
    QString detail() const override { return statement_; }

private:
    QString sqlState_;
    QString statement_;
};

} // namespace ADODB
