#include "platform/data/adodc.h"

Adodc::Adodc(QObject* parent) : QObject(parent)
{
    command_.setActiveConnection(&connection_);
    recordset_.setPaged(true);
}

void Adodc::Refresh()
{
    if (recordset_.State() == 1 && recordset_.source() == command_.commandText()) {
        recordset_.CancelUpdate();
        recordset_.Requery();
        recordset_.Filter({});
    } else {
        recordset_.Close();
        if (connection_.State() == 0)
            connection_.Open();
        recordset_.Open(command_, ADODB::Recordset::Static, ADODB::Recordset::Optimistic);
    }
    Q_EMIT refreshed();
}

void Adodc::Close()
{
    recordset_.Close();
    connection_.Close();
}
