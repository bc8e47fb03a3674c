#include "platform/data/adodc.h"

Adodc::Adodc(QObject* parent) : QObject(parent)
{
    command_.setActiveConnection(&connection_);
}

void Adodc::Refresh()
{
    recordset_.Close();
    if (connection_.State() == 0)
        connection_.Open();
    recordset_.Open(command_, ADODB::Recordset::Static, ADODB::Recordset::Optimistic);
    Q_EMIT refreshed();
}

void Adodc::Close()
{
    recordset_.Close();
    connection_.Close();
}
