#pragma once

#include <QComboBox>
#include <QLabel>

/// A list whose items carry codes behind a name: "name|code|...". The user sees the names alone; the text of
/// an item stays whole.
class CodedCombo : public QComboBox
{
    Q_OBJECT
    /// How many codes an item ends with, where several pieces before them are to be seen: "name|group|code".
    /// 0 for the first piece alone.
    Q_PROPERTY(int codes MEMBER codes_)

public:
    explicit CodedCombo(QWidget* parent = nullptr);

    /// What the user sees of an item.
    QString shown(const QString& item) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int codes_ = 0;
};

/// Such an item in a label: the text whole, the name in sight.
class CodedLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};
