#pragma once

#include <QComboBox>

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
