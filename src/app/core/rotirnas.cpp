#include "app/core/rotirnas.h"

#include "platform/forms/form.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace Rotirnas {

void EnviaTeclas(const QString& teclas, bool espera)
{
    SendKeys(teclas);
    if (espera)
        QCoreApplication::processEvents();
}

void MascaraData(int& tecla, QLineEdit& caixa)
{
    constexpr int apaga = 8;
    if (tecla == apaga)
        return;
    if (tecla < '0' || tecla > '9') {
        tecla = 0;
        return;
    }
    const int posicao = caixa.hasSelectedText() ? caixa.selectionStart() : caixa.cursorPosition();
    if (posicao == 2 || posicao == 5)
        caixa.insert(u"/"_s);
}

QString CalculaIdade(const QString& nascimento)
{
    const auto lido = readDate(nascimento);
    if (!lido)
        return {};
    const QDate nasceu = lido->date();
    const QDate hoje = Clock::today();
    int anos = hoje.year() - nasceu.year();
    if (hoje.month() < nasceu.month() || (hoje.month() == nasceu.month() && hoje.day() < nasceu.day()))
        --anos;
    return QString::number(anos);
}

} // namespace Rotirnas
