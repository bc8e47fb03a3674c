#include "agenda/sinaisagenda.h"

#include "platform/forms/listbox.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QStyledItemDelegate>

namespace SinaisAgenda {

namespace {

using LinhaAgenda::Estado;

constexpr int lado = 16; ///< of the square that a sign is drawn in

struct Aparencia
{
    Estado estado;
    const char* nome;
    QRgb sinal;
    QRgb fundo; ///< 0 keeps the list's own
    QRgb texto;
};

constexpr Aparencia aparencias[] = {
    {Estado::Livre, "Livre", 0xff3d8b57, 0, 0xff2c6b41},
    {Estado::Agendado, "Agendado", 0xff0f6b7c, 0xffe3f1f4, 0xff10242e},
    {Estado::Notificado, "Avisado", 0xffb26a00, 0xfffdf1da, 0xff3d2a08},
    {Estado::Encerrado, "Encerrado", 0xff53616c, 0xffe9edf0, 0xff53616c},
    {Estado::Bloqueado, "Dia bloqueado", 0xffa3241d, 0xfffbeeed, 0xffa3241d},
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
    const QColor cor(como.sinal);
    const QColor papel(Qt::white);
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

QPixmap sinal(const Aparencia& como, int pixels, qreal densidade)
{
    QPixmap imagem(QSize(pixels, pixels) * densidade);
    imagem.setDevicePixelRatio(densidade);
    imagem.fill(Qt::transparent);
    QPainter tinta(&imagem);
    tinta.scale(qreal(pixels) / lado, qreal(pixels) / lado);
    desenha(tinta, como);
    return imagem;
}

/// A sign as high as the letters beside it, in pixels.
int alturaDoSinal(const QFontMetrics& letra)
{
    return letra.height();
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

class Linhas : public QStyledItemDelegate
{
public:
    explicit Linhas(ListBox& lista) : QStyledItemDelegate(&lista) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 4);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const Aparencia& como = aparencia(LinhaAgenda::estado(option->text));
        option->text.truncate(larguraVisivel_); // what has no heading is for the program
        option->features |= QStyleOptionViewItem::HasDecoration;
        const int altura = alturaDoSinal(option->fontMetrics);
        option->icon = icone(como, altura, option->widget->devicePixelRatioF());
        option->decorationSize = {altura, altura};
        option->palette.setColor(QPalette::Text, QColor(como.texto));
        if (como.fundo)
            option->backgroundBrush = QColor(como.fundo);
        option->font.setBold(como.estado == Estado::Bloqueado);
    }

private:
    /// Drawn once for each height of the letters.
    const QIcon& icone(const Aparencia& como, int altura, qreal densidade) const
    {
        QIcon& um = icones_[{como.nome, altura}];
        if (um.isNull())
            um = QIcon(sinal(como, altura, densidade));
        return um;
    }

    const qsizetype larguraVisivel_ = LinhaAgenda::titulo().size();
    mutable QHash<std::pair<const char*, int>, QIcon> icones_;
};

/// From the list's left edge to the first character of a line, in pixels.
int inicioDoTexto(const ListBox& lista)
{
    QStyleOptionViewItem linha;
    linha.initFrom(&lista);
    linha.font = lista.font();
    linha.rect = QRect(0, 0, 1000, 2 * lado);
    linha.features = QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::HasDisplay;
    const int altura = alturaDoSinal(lista.fontMetrics());
    linha.decorationSize = {altura, altura};
    linha.text = LinhaAgenda::titulo();
    linha.widget = &lista;
    const QStyle& estilo = *lista.style();
    const int margem = estilo.pixelMetric(QStyle::PM_FocusFrameHMargin, &linha, &lista) + 1;
    return lista.contentsMargins().left() +
           estilo.subElementRect(QStyle::SE_ItemViewItemText, &linha, &lista).left() + margem;
}

/// Keeps the headings above their columns when the list's letters grow.
class Alinhamento : public QObject
{
public:
    Alinhamento(ListBox& lista, QLabel& titulo) : QObject(&titulo), lista_(lista), titulo_(titulo)
    {
        lista.installEventFilter(this);
        alinha();
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FontChange)
            alinha();
        return false;
    }

private:
    void alinha()
    {
        lista_.ensurePolished(); // from the style it has its border
        titulo_.setContentsMargins(inicioDoTexto(lista_), 0, 0, 0);
    }

    ListBox& lista_;
    QLabel& titulo_;
};

} // namespace

void veste(ListBox& lista, QLabel& titulo)
{
    lista.setAlternatingRowColors(false);
    lista.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lista.setItemDelegate(new Linhas(lista));
    titulo.setFont(lista.font());
    titulo.setIndent(0);
    new Alinhamento(lista, titulo);
}

void legenda(QLayout& lugar)
{
    QWidget* onde = lugar.parentWidget();
    for (const Aparencia& como : aparencias) {
        lugar.addWidget(new Figura(como, onde));
        auto* nome = new QLabel(QString::fromUtf8(como.nome), onde);
        // Air to the next sign; letters that come out wider at another size take from it.
        nome->setMinimumWidth(nome->sizeHint().width() + 10);
        lugar.addWidget(nome);
    }
}

} // namespace SinaisAgenda
