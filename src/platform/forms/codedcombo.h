#pragma once

#include <QComboBox>
#include <QLabel>

/// A list whose items carry codes behind a name: "name|code|...". The user sees the names alone; the text of
/// an item stays whole.
class CodedCombo : public QComboBox
{
    Q_OBJECT

public:
    explicit CodedCombo(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
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
