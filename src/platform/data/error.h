#pragma once

#include "platform/system/error.h"

namespace ADODB {

/// A failure of the database layer. number() is the server's own code (1064, 1146, 2006 ...) or, where the
/// layer itself refuses, one of the numbers below. detail() is the statement.
class Error : public RuntimeError
{
public:
    enum Number
    {
        InvalidArgument = 3001,
        NoCurrentRow = 3021,
        NotAllowedHere = 3219,
        NotUpdatable = 3251,
        UnknownField = 3265,
        ObjectClosed = 3704,
        ObjectOpen = 3705,
        RowGone = -2147217864,
    };

    /// `sqlState` is the five characters of the standard, empty where the server was not asked.
    Error(int number, const QString& description, const QString& sqlState = {},
          const QString& statement = {});

    const QString& sqlState() const { return sqlState_; }
    const QString& statement() const { return statement_; }
    QString detail() const override { return statement_; }

private:
    QString sqlState_;
    QString statement_;
};

} // namespace ADODB
