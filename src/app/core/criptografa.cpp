#include "app/core/criptografa.h"

#include "platform/values/codepage.h"

namespace Criptografa {

namespace {

constexpr QByteArrayView chave = "2709198527091985456";

QByteArray combinar(QByteArray bytes)
{
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(bytes[i] ^ chave[i % chave.size()]);
    return bytes;
}

int digito(QChar c)
{
    const char16_t code = c.toUpper().unicode();
    if (code >= u'0' && code <= u'9')
        return code - u'0';
    return code >= u'A' && code <= u'F' ? code - u'A' + 10 : -1;
}

} // namespace

QString Cifrar(const QString& texto)
{
    return QString::fromLatin1(combinar(CodePage::encode(texto)).toHex().toUpper());
}

QString Decifrar(const QString& hexadecimal)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < hexadecimal.size(); i += 2) {
        int codigo = 0;
        for (const QChar c : QStringView(hexadecimal).sliced(i).left(2)) {
            if (digito(c) < 0)
                break;
            codigo = codigo * 16 + digito(c);
        }
        bytes.append(static_cast<char>(codigo));
    }
    return CodePage::decode(combinar(bytes));
}

} // namespace Criptografa
