#include "platform/values/text.h"

QString fixedWidth(QStringView text, qsizetype width)
{
    return text.toString().leftJustified(width, u' ', true);
}

QString alignRight(QStringView text, qsizetype width)
{
    return text.toString().rightJustified(width, u' ', true);
}
