#include "cuttexts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>

using namespace Qt::StringLiterals;

namespace {

/// Less than a pixel of the finest letter is no loss.
constexpr double tolerance = 0.5;

QString nameOf(const QWidget& widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

/// How much of a line's letters lies above and below the place that they are written in; the window library
/// cuts them there. Below 0 where all of them have room.
double cutHeight(const QString& text, const QFont& font, const QRectF& place, Qt::Alignment align)
{
    const QFontMetricsF metrics(font);
    const QRectF ink = metrics.tightBoundingRect(text);
    double top = place.center().y() - metrics.height() / 2;
    if (align & Qt::AlignBottom)
        top = place.bottom() - metrics.height();
    else if (align & Qt::AlignTop)
        top = place.top();
    const double base = top + metrics.ascent();
    return qMax(place.top() - (base + ink.top()), base + ink.bottom() - place.bottom());
}

QString judge(const QWidget& widget, const QString& text, const QRectF& place, Qt::Alignment align,
              bool scrolls = false)
{
    if (text.isEmpty())
        return {};
    const double width = QFontMetricsF(widget.font()).horizontalAdvance(text);
    // A text list's heading and a moving line end with blanks, and run off their control.
    scrolls = scrolls || text.endsWith(u' ');
    if (!scrolls && width > place.width() + tolerance)
        return u"%1: \"%2\" is %3 wide and has %4"_s.arg(nameOf(widget), text)
            .arg(width, 0, 'f', 0)
            .arg(place.width(), 0, 'f', 0);
    const double lost = cutHeight(text, widget.font(), place, align);
    if (lost > tolerance)
        return u"%1: \"%2\" loses %3 of its height"_s.arg(nameOf(widget), text).arg(lost, 0, 'f', 1);
    return {};
}

QString judgeLabel(const QLabel& label)
{
    if (label.text().contains(u'<'))
        return {};
    if (label.wordWrap() || label.text().contains(u'\n')) {
        const QRectF needed =
            QFontMetricsF(label.font())
                .boundingRect(QRectF(label.contentsRect()), int(Qt::TextWordWrap), label.text());
        return needed.height() > label.height() + tolerance || needed.width() > label.width() + tolerance
                   ? u"%1: the lines of \"%2\" do not fit"_s.arg(nameOf(label), label.text())
                   : QString();
    }
    return judge(label, label.text(), QRectF(label.contentsRect()), label.alignment());
}

QString judgeButton(const QAbstractButton& button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const auto part =
        qobject_cast<const QCheckBox*>(&button) ? QStyle::SE_CheckBoxContents : QStyle::SE_PushButtonContents;
    QRectF place(button.style()->subElementRect(part, &option, &button));
    if (!button.icon().isNull())
        place.setLeft(place.left() + button.iconSize().width() + 4);
    return judge(button, button.text().remove(u'&'), place, Qt::AlignVCenter);
}

QString judgeCombo(const QComboBox& combo)
{
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.subControls = QStyle::SC_All;
    option.editable = combo.isEditable();
    const QRectF place(
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo));
    return judge(combo, combo.currentText().trimmed(), place, Qt::AlignVCenter, combo.isEditable());
}

QStringList judgeHeader(const QHeaderView& header)
{
    QStringList found;
    for (int i = 0; i < header.count() && header.model(); ++i) {
        const QString text = header.model()->headerData(i, header.orientation()).toString();
        const int needed = header.sectionSizeHint(i);
        if (!header.isSectionHidden(i) && header.sectionSize(i) < needed)
            found << u"%1: the heading \"%2\" needs %3 and has %4"_s.arg(nameOf(*header.parentWidget()), text)
                         .arg(needed)
                         .arg(header.sectionSize(i));
    }
    return found;
}

/// Whether it is something to read or to work, and no frame that holds such things.
bool isControl(const QWidget& widget)
{
    return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget);
}

/// Neighbours that lie over one another, and what does not lie within its frame.
QStringList judgePlaces(const QWidget& container)
{
    QList<const QWidget*> controls;
    for (const QObject* child : container.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (widget && widget->isVisible() && !widget->isWindow() && isControl(*widget))
            controls << widget;
    }
    QStringList found;
    for (const QWidget* one : controls) {
        if (!container.rect().adjusted(-1, -1, 1, 1).contains(one->geometry()))
            found << u"%1: reaches beyond its frame"_s.arg(nameOf(*one));
        for (const QWidget* other : controls) {
            const QRect both = one->geometry() & other->geometry();
            if (one < other && both.width() > 1 && both.height() > 1)
                found << u"%1 lies over %2"_s.arg(nameOf(*one), nameOf(*other));
        }
    }
    return found;
}

QString judgeText(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return judgeLabel(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return judgeButton(*button);
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return judgeCombo(*combo);
    if (const auto* box = qobject_cast<const QLineEdit*>(&widget); box && box->isVisible())
        return judge(*box, box->text(), QRectF(box->contentsRect()), Qt::AlignVCenter, true);
    return {};
}

/// The inner parts of a control are its own business.
bool isInnerPart(const QWidget& widget)
{
    const QWidget* parent = widget.parentWidget();
    return parent && (qobject_cast<const QComboBox*>(parent) || parent->inherits("QCalendarView") ||
                      parent->inherits("QCalendarWidget") || widget.objectName().startsWith(u"qt_"));
}

} // namespace

QStringList cutTexts(const QWidget& window)
{
    QStringList found = judgePlaces(window);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window || isInnerPart(*widget))
            continue;
        if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
            found << judgeHeader(*header);
            continue;
        }
        if (const QString fault = judgeText(*widget); !fault.isEmpty())
            found << fault;
        if (!isControl(*widget))
            found << judgePlaces(*widget);
    }
    return found;
}
