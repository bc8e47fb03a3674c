#include "registers/exclusao.h"

#include "platform/data/adodc.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"

using namespace Qt::StringLiterals;

void ExcluiLinha(Adodc& grade)
{
    if (!MsgYesNo(u"Confirma a exclusão?"_s, u"Atenção"_s))
        return;
    const Hourglass ampulheta;
    grade.Recordset().Delete();
    grade.Refresh();
}
