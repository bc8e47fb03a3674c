#pragma once

#include <QByteArray>
#include <QString>

/// Windows code page 1252 (the Unicode Consortium's table CP1252.TXT). The five bytes that it leaves open
/// stand for the C1 controls of the same code, so that every byte has a character and the round trip is
/// whole.
namespace CodePage {

/// One byte a character; '?' for a character that the code page does not have (one byte for a surrogate
/// pair).
QByteArray encode(QStringView text);

QString decode(QByteArrayView bytes);

/// True if every character of the text has a byte of its own.
bool covers(QStringView text);

} // namespace CodePage
