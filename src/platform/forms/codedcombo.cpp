#include "platform/forms/codedcombo.h"

#include "platform/forms/dropdown.h"

#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QString& item)
{
    return item.section(QLatin1Char('|'), 0, 0).trimmed();
}

class Names : public DropDownRows
{
public:
    explicit Names(CodedCombo* combo) : DropDownRows(combo), combo_(combo) {}

    QString displayText(const QVariant& value, const QLocale&) const override
    {
        return combo_->shown(value.toString());
    }

private:
    CodedCombo* combo_;
};

} // namespace

CodedCombo::CodedCombo(QWidget* parent) : QComboBox(parent)
{
    setItemDelegate(new Names(this));
}

QString CodedCombo::shown(const QString& item) const
{
    if (codes_ == 0)
        return nameOf(item);
    QStringList pieces = item.section(QLatin1Char('|'), 0, -codes_ - 1).split(QLatin1Char('|'));
    for (QString& piece : pieces)
        piece = piece.trimmed();
    pieces.removeAll(QString());
    pieces.removeDuplicates();
    return pieces.join(u" - "_s);
}

void CodedCombo::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = shown(option.currentText);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void CodedLabel::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), int(alignment()), palette(), isEnabled(), nameOf(text()),
                         foregroundRole());
}
