#pragma once

#include <QListWidget>

/// A list of text lines in a fixed-pitch font. Lines are addressed from 0; sorted means alphabetical order
/// without regard to case, kept at each insertion.
class ListBox : public QListWidget
{
    Q_OBJECT

public:
    explicit ListBox(QWidget* parent = nullptr);

    void setSorted(bool sorted) { sorted_ = sorted; }
    /// Several lines can be chosen by a click or the blank key each, or a single one.
    void setMultiSelect(bool multiple);

    void Clear() { clear(); }
    void AddItem(const QString& line);
    void RemoveItem(int index);
    int ListCount() const { return count(); }
    QString List(int index) const;
    /// -1 where no line is current.
    int ListIndex() const { return currentRow(); }
    bool Selected(int index) const;
    void setSelected(int index, bool selected);

private:
    QListWidgetItem* at(int index) const;
    int placeOf(const QString& line) const;

    bool sorted_ = false;
};
