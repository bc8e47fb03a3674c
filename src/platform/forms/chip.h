#pragma once

#include <QLabel>

/// A word on a ground of its own, which is as wide as the word and not as the label. A text that is wider
/// than the label is cut, and a hint shows it whole. Its property "role" says which ground: "chip" or
/// "notice".
class Chip : public QLabel
{
    Q_OBJECT

public:
    explicit Chip(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Between the ground's edge and the text, which follows the letters' size.
    int padding() const { return fontMetrics().height() / 2; }
    QString shown() const;
};
