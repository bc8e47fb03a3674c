#include "platform/values/text.h"

QString fixedWidth(QStringView text, qsizetype width)
{
    return text.toString().leftJustified(width, u' ', true);
}
