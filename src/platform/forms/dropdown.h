#pragma once

#include <QComboBox>
#include <QStyledItemDelegate>

/// The rows of a combo box's list: as high as the box, and the list as wide as its longest row where the box
/// is narrower.
class DropDownRows : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit DropDownRows(QComboBox* combo);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void widen() const;

    QComboBox* combo_;
};
