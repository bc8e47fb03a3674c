#include "platform/forms/codedcombo.h"

#include <QStylePainter>
#include <QStyledItemDelegate>

namespace {

QString nameOf(const QString& item)
{
    return item.section(QLatin1Char('|'), 0, 0).trimmed();
}

class Names : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override
    {
        return nameOf(value.toString());
    }
};

} // namespace

CodedCombo::CodedCombo(QWidget* parent) : QComboBox(parent)
{
    setItemDelegate(new Names(this));
}

void CodedCombo::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = nameOf(option.currentText);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void CodedLabel::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), int(alignment()), palette(), isEnabled(), nameOf(text()),
                         foregroundRole());
}
