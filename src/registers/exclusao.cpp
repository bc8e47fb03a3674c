#include "registers/exclusao.h"

#include "platform/data/adodc.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"

void ExcluiLinha(Adodc& grade)
{
    if (!MsgYesNo(QStringLiteral("Confirma a exclusão?"), QStringLiteral("Atenção")))
        return;
    const Hourglass ampulheta;
    grade.Recordset().Delete();
    grade.Refresh();
}
