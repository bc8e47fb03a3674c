#include "agenda/sinaisagenda.h"

#include "platform/forms/listbox.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

namespace SinaisAgenda {

namespace {

using LinhaAgenda::Estado;
using Theme::colour;
using Theme::Role;

constexpr int lado = 16; ///< of the square that a sign is drawn in
constexpr int linhasInteiras = 17;

struct Aparencia
{
    Estado estado;
    const char* nome;
    Role sinal;
    Role barra;
    Role hora;
    Role nomePaciente;
};

constexpr Aparencia aparencias[] = {
    {Estado::Livre, "Livre", Role::Free, Role::FreePale, Role::FreeInk, Role::Ink},
    {Estado::Agendado, "Agendado", Role::Booked, Role::Booked, Role::Ink, Role::Ink},
    {Estado::Notificado, "Avisado", Role::Notified, Role::Notified, Role::Ink, Role::Ink},
    {Estado::Encerrado, "Encerrado", Role::Closed, Role::Closed, Role::MutedInk, Role::MutedInk},
    {Estado::Bloqueado, "Dia bloqueado", Role::Blocked, Role::Blocked, Role::DangerInk, Role::DangerInk},
};

const Aparencia& aparencia(Estado estado)
{
    return aparencias[static_cast<std::size_t>(estado)];
}

void risca(QPainter& tinta, std::initializer_list<QPointF> pontos, const QColor& cor)
{
    tinta.setPen(QPen(cor, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    tinta.setBrush(Qt::NoBrush);
    tinta.drawPolyline(QPolygonF(QList<QPointF>(pontos)));
}

/// A ring, a disc, a speech bubble, a ticked square, a barred ring: told apart without their colours.
void desenha(QPainter& tinta, const Aparencia& como)
{
    const QColor cor = colour(como.sinal);
    const QColor papel = colour(Role::Paper);
    tinta.setRenderHint(QPainter::Antialiasing);
    tinta.setPen(QPen(cor, 2));
    switch (como.estado) {
    case Estado::Livre:
        tinta.drawEllipse(QRectF(3, 3, 10, 10));
        break;
    case Estado::Agendado:
        tinta.setBrush(cor);
        tinta.drawEllipse(QRectF(3, 3, 10, 10));
        break;
    case Estado::Notificado:
        tinta.setPen(Qt::NoPen);
        tinta.setBrush(cor);
        tinta.drawRoundedRect(QRectF(1, 2, 14, 9), 3, 3);
        tinta.drawPolygon(QPolygonF({QPointF(4, 10), QPointF(9, 10), QPointF(4, 15)}));
        risca(tinta, {{5, 6.5}, {7, 8.5}, {11, 4.5}}, papel);
        break;
    case Estado::Encerrado:
        tinta.setBrush(cor);
        tinta.drawRoundedRect(QRectF(2, 2, 12, 12), 2, 2);
        risca(tinta, {{5, 8}, {7.3, 10.5}, {11.5, 5.5}}, papel);
        break;
    case Estado::Bloqueado:
        tinta.drawEllipse(QRectF(2.5, 2.5, 11, 11));
        risca(tinta, {{4.7, 4.7}, {11.3, 11.3}}, cor);
        break;
    }
}

/// A sign of the legend; it grows with its place.
class Figura : public QWidget
{
public:
    Figura(const Aparencia& como, QWidget* onde) : QWidget(onde), como_(como)
    {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    }

    QSize sizeHint() const override { return {lado, lado}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter tinta(this);
        const qreal escala = qMin(width(), height()) / qreal(lado);
        tinta.translate((width() - escala * lado) / 2, (height() - escala * lado) / 2);
        tinta.scale(escala, escala);
        desenha(tinta, como_);
    }

private:
    const Aparencia& como_;
};

/// The time half-bold, the name in ink, the rest muted; what has no heading is for the program.
LineLook aparenciaDaLinha(const QString& linha)
{
    const Aparencia& como = aparencia(LinhaAgenda::estado(linha));
    LineLook look;
    look.visible = LinhaAgenda::titulo().size();
    look.bar = como.barra;
    look.sign = [&como](QPainter& tinta) { desenha(tinta, como); };
    const bool temHora = LinhaAgenda::isHorario(linha);
    const qsizetype hora = temHora ? LinhaAgenda::inicio(LinhaAgenda::Paciente) - 1 : linha.size();
    look.runs.append({0, hora, como.hora, true});
    look.runs.append({LinhaAgenda::inicio(LinhaAgenda::Paciente), LinhaAgenda::largura(LinhaAgenda::Paciente),
                      como.nomePaciente, false});
    return look;
}

} // namespace

void veste(ListBox& lista, ListHeading& titulo)
{
    lista.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lista.setSigned(true);
    // A day of half hours from eight to five, up to the remarks.
    lista.setMinimumLines(linhasInteiras, LinhaAgenda::inicio(LinhaAgenda::Observacao));
    lista.setLook(aparenciaDaLinha);
    titulo.setList(&lista);
}

void legenda(QGridLayout& lugar)
{
    QWidget* onde = lugar.parentWidget();
    for (const Aparencia& como : aparencias) {
        const int linha = lugar.rowCount();
        lugar.addWidget(new Figura(como, onde), linha, 0);
        lugar.addWidget(new QLabel(QString::fromUtf8(como.nome), onde), linha, 1);
    }
}

} // namespace SinaisAgenda
