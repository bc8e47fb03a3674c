#include "agenda/linhaagenda.h"

#include "platform/values/text.h"

#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace LinhaAgenda {

namespace {

constexpr QLatin1Char separador('|');
constexpr std::array larguras{5, 40, 15, 20, 7, 3, 15, 30};

QString emColunas(QStringList campos)
{
    for (std::size_t i = 0; i < larguras.size(); ++i)
        campos[qsizetype(i)] = fixedWidth(campos[qsizetype(i)], larguras[i]);
    return campos.join(separador);
}

} // namespace

QString bloqueada()
{
    return u"BLOQUEADA"_s;
}

QString titulo()
{
    return emColunas({u"Horário"_s, u"Paciente"_s, u"Telefone"_s, u"C/R"_s, u"Mobil?"_s, u"CF?"_s,
                      u"Convênio"_s, u"OBS"_s});
}

QString compromisso(QStringList campos)
{
    return emColunas(std::move(campos));
}

QString horario(const QString& hora)
{
    return fixedWidth(hora, larguras[Hora]);
}

qsizetype inicio(Campo qual)
{
    return std::accumulate(larguras.begin(), larguras.begin() + qual, qsizetype(qual));
}

qsizetype largura(Campo qual)
{
    return larguras[std::size_t(qual)];
}

QString campo(const QString& linha, Campo qual)
{
    // By its place: a name may hold the separator.
    return linha.mid(inicio(qual), largura(qual)).trimmed();
}

QString chave(const QString& linha)
{
    return linha.section(separador, -1);
}

bool isHorario(const QString& linha)
{
    return linha.size() > 3 && linha[0].isDigit() && linha[2] == QLatin1Char(':') && linha[3].isDigit();
}

bool isLivre(const QString& linha)
{
    return campo(linha, Paciente).isEmpty();
}

Estado estado(const QString& linha)
{
    if (linha == bloqueada())
        return Estado::Bloqueado;
    const QString situacao = campo(linha, Situacao);
    if (situacao == QLatin1String("2"))
        return Estado::Encerrado;
    if (isLivre(linha))
        return Estado::Livre;
    return situacao == QLatin1String("1") ? Estado::Notificado : Estado::Agendado;
}

} // namespace LinhaAgenda
