#include "platform/forms/listbox.h"

#include "platform/forms/theme.h"
#include "platform/values/error.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <cmath>

namespace {

using Theme::Role;

constexpr double signSide = 16; ///< of the square that a sign is drawn on

/// The first field is what a line is about.
LineLook plainLook(const QString& line)
{
    const qsizetype rule = line.indexOf(QLatin1Char('|'));
    LineLook look;
    look.runs.append({0, rule < 0 ? line.size() : rule, Role::Ink, false});
    return look;
}

/// The fields of a line, one below the other.
QString fieldsOf(const QString& line)
{
    QStringList fields = line.split(QLatin1Char('|'));
    for (QString& field : fields)
        field = field.trimmed();
    fields.removeAll(QString());
    return fields.join(QLatin1Char('\n'));
}

/// Draws text of one kind between two places of a line. The letters stand on their columns: a rule or a run
/// never moves what follows.
class LinePainter
{
public:
    LinePainter(QPainter& painter, const QRectF& place, const QFont& font)
        : painter_(painter), place_(place), font_(font), step_(QFontMetricsF(font).horizontalAdvance(u'0'))
    {
    }

    /// What starts at or behind `from` moves, so that a line of that length ends at the right edge.
    void endAtTheRight(qsizetype from, qsizetype length)
    {
        moved_ = from;
        shift_ = qMax(0.0, place_.width() - double(length) * step_);
    }

    void rules(const QString& line)
    {
        painter_.setPen(Theme::colour(Role::Hairline));
        for (qsizetype rule = line.indexOf(u'|'); rule >= 0; rule = line.indexOf(u'|', rule + 1)) {
            const double x = std::floor(place_.left() + (double(rule) + 0.5) * step_) + 0.5;
            painter_.drawLine(QPointF(x, place_.top()), QPointF(x, place_.bottom()));
        }
    }

    void text(const QString& line, qsizetype from, qsizetype to, Role ink, bool halfBold)
    {
        if (from >= to)
            return;
        QFont letters = font_;
        letters.setWeight(halfBold ? QFont::DemiBold : font_.weight());
        painter_.setFont(letters);
        painter_.setPen(Theme::colour(ink));
        const double shift = moved_ >= 0 && from >= moved_ ? shift_ : 0;
        const QRectF where(place_.left() + double(from) * step_ + shift, place_.top(), place_.width() + 9999,
                           place_.height());
        painter_.drawText(where, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                          line.mid(from, to - from).replace(u'|', u' '));
    }

private:
    QPainter& painter_;
    QRectF place_;
    QFont font_;
    double step_;
    qsizetype moved_ = -1;
    double shift_ = 0;
};

/// A line's state at the left edge, its text in its inks, and the choice as a fill and an outline, so that
/// the state stays visible. In a list of several choices a check box in front of each line tells what is
/// chosen.
class LineDelegate : public QStyledItemDelegate
{
public:
    explicit LineDelegate(ListBox* list) : QStyledItemDelegate(list), list_(*list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        return {list_.widthOf(list_.visibleText(index.data().toString())), list_.lineHeight()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QString whole = index.data().toString();
        const LineLook look = list_.lookOf(whole);
        const QString line = whole.left(look.visible);
        painter->save();
        const bool isOn = list_.isEnabled();
        const bool checks = list_.selectionMode() == QAbstractItemView::MultiSelection;
        const bool isChosen = checks ? index == list_.currentIndex() && list_.hasFocus()
                                     : option.state.testFlag(QStyle::State_Selected);
        painter->fillRect(option.rect, Theme::colour(isChosen && !checks ? Role::Selection
                                                     : option.state.testFlag(QStyle::State_MouseOver) && isOn
                                                         ? Role::Hover
                                                         : Role::Card));
        painter->setPen(Theme::colour(Role::Hairline));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        if (isChosen) {
            painter->setPen(Theme::colour(Role::Accent));
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
        drawState(*painter, option.rect, look);
        if (checks)
            drawCheck(*painter, option);
        const QRectF place = QRectF(option.rect).adjusted(list_.textLeft(), 0, -list_.rightGap(), 0);
        LinePainter writer(*painter, place, list_.font());
        if (look.toTheRight >= 0)
            writer.endAtTheRight(look.toTheRight, line.size());
        writer.rules(line);
        qsizetype written = 0;
        for (const LineLook::Run& run : look.runs) {
            writer.text(line, written, qMin(run.start, line.size()), isOn ? Role::MutedInk : Role::OffInk,
                        false);
            written = qMin(run.start + run.length, line.size());
            writer.text(line, run.start, written, isOn ? run.ink : Role::OffInk, run.halfBold);
        }
        writer.text(line, written, line.size(), isOn ? Role::MutedInk : Role::OffInk, false);
        painter->restore();
    }

private:
    static void drawState(QPainter& painter, const QRect& line, const LineLook& look)
    {
        const int bar = qMax(3, line.height() / 5);
        if (look.bar)
            painter.fillRect(QRect(line.left(), line.top(), bar, line.height()), Theme::colour(*look.bar));
        if (!look.sign)
            return;
        const double side = line.height() * 0.7;
        painter.save();
        painter.translate(line.left() + bar + side / 3, line.top() + (line.height() - side) / 2);
        painter.scale(side / signSide, side / signSide);
        painter.setRenderHint(QPainter::Antialiasing);
        look.sign(painter);
        painter.restore();
    }

    /// As large as the letters: the style knows one size only.
    void drawCheck(QPainter& painter, const QStyleOptionViewItem& line) const
    {
        const double side = line.fontMetrics.ascent();
        const bool isChosen = line.state.testFlag(QStyle::State_Selected);
        const bool isOn = list_.isEnabled();
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(line.rect.left() + side / 2, line.rect.center().y() - side / 2);
        painter.scale(side / signSide, side / signSide);
        painter.setPen(QPen(Theme::colour(!isOn      ? Role::OffInk
                                          : isChosen ? Role::Accent
                                                     : Role::Outline),
                            1.5));
        painter.setBrush(Theme::colour(!isChosen ? Role::Card : isOn ? Role::Accent : Role::OffInk));
        painter.drawRoundedRect(QRectF(1, 1, signSide - 2, signSide - 2), 3, 3);
        if (isChosen) {
            painter.setPen(QPen(Theme::colour(Role::Paper), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPolyline(QPolygonF({QPointF(4.5, 8.3), QPointF(7, 10.8), QPointF(11.5, 5.5)}));
        }
        painter.restore();
    }

    const ListBox& list_;
};

} // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent), look_(plainLook)
{
    setFont(Theme::fixedFont());
    setUniformItemSizes(true);
    setMouseTracking(true); // the line under the pointer is another colour
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new LineDelegate(this));
}

void ListBox::setMultiSelect(bool multiple)
{
    setSelectionMode(multiple ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
}

void ListBox::setLook(std::function<LineLook(const QString& line)> look)
{
    look_ = std::move(look);
}

int ListBox::textLeft() const
{
    const QFontMetrics letters(font());
    const bool checks = selectionMode() == QAbstractItemView::MultiSelection;
    return signed_ || checks ? letters.height() * 2 : letters.averageCharWidth();
}

int ListBox::rightGap() const
{
    return QFontMetrics(font()).averageCharWidth();
}

int ListBox::lineHeight() const
{
    constexpr double ofLetters = 1.66; // a font's own height is rounded to pixels
    constexpr double pointsPerInch = 72;
    return int(ofLetters * font().pointSizeF() * logicalDpiY() / pointsPerInch);
}

int ListBox::widthOf(const QString& text) const
{
    const double letters = double(text.size()) * QFontMetricsF(font()).horizontalAdvance(u'0');
    return textLeft() + int(std::ceil(letters)) + rightGap();
}

void ListBox::setMinimumLines(int lines, qsizetype characters)
{
    ensurePolished(); // from the style it has its border
    const QSize around = QSize(2, 2) * frameWidth();
    const int bar = verticalScrollBar()->sizeHint().width();
    setMinimumSize(around + QSize(widthOf(QString(characters, u'0')) + bar, lines * lineHeight()));
}

QSize ListBox::sizeHint() const
{
    return minimumSize().isNull() ? QListWidget::sizeHint() : minimumSize();
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const bool isArrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (isArrow && selectionMode() == SingleSelection && currentIndex().isValid() &&
        selectedItems().isEmpty())
        setCurrentIndex(currentIndex());
    else
        QListWidget::keyPressEvent(event);
}

bool ListBox::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (const QListWidgetItem* line = itemAt(help->pos())) {
            const QString text = visibleText(line->text());
            qsizetype end = text.size();
            while (end > 0 && text[end - 1].isSpace())
                --end;
            if (widthOf(text.left(end)) > viewport()->width()) {
                QToolTip::showText(help->globalPos(), fieldsOf(text), viewport());
                return true;
            }
        }
    }
    return QListWidget::viewportEvent(event);
}

void ListBox::AddItem(const QString& line)
{
    if (sorted_)
        insertItem(placeOf(line), line);
    else
        addItem(line);
}

void ListBox::RemoveItem(int index)
{
    delete at(index);
}

QString ListBox::List(int index) const
{
    return at(index)->text();
}

bool ListBox::Selected(int index) const
{
    return at(index)->isSelected();
}

void ListBox::setSelected(int index, bool selected)
{
    at(index)->setSelected(selected);
}

QListWidgetItem* ListBox::at(int index) const
{
    QListWidgetItem* line = item(index);
    if (!line)
        Errors::subscriptOutOfRange();
    return line;
}

/// Behind the last line that is not greater, so that equal lines keep the order in which they came.
int ListBox::placeOf(const QString& line) const
{
    int low = 0;
    int high = count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (item(middle)->text().compare(line, Qt::CaseInsensitive) <= 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

ListHeading::ListHeading(QWidget* parent) : QLabel(parent)
{
    setFont(Theme::fixedFont());
    setTextFormat(Qt::PlainText);
}

void ListHeading::setList(ListBox* list)
{
    list_ = list;
    setFont(list->font());
    list->installEventFilter(this);
    connect(list->horizontalScrollBar(), &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
}

QSize ListHeading::sizeHint() const
{
    const QFontMetrics letters(font());
    return {list_ ? list_->widthOf(text()) + list_->verticalScrollBar()->sizeHint().width()
                  : letters.horizontalAdvance(text()),
            letters.height() + letters.height() / 2};
}

bool ListHeading::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        update();
    return QLabel::eventFilter(watched, event);
}

void ListHeading::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::colour(Role::Band));
    painter.setPen(Theme::colour(Role::Hairline));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    if (!list_)
        return;
    list_->ensurePolished(); // from the style it has its border
    const int left = list_->mapTo(window(), list_->contentsRect().topLeft()).x() -
                     mapTo(window(), QPoint()).x() + list_->textLeft() -
                     list_->horizontalScrollBar()->value();
    LinePainter writer(painter, QRectF(rect()).adjusted(left, 0, 0, 0), list_->font());
    writer.rules(text());
    writer.text(text(), 0, text().size(), Role::MutedInk, true);
}
