#pragma once

#include <QObject>
#include <QPointer>
#include <QSizeF>
#include <QWidget>
#include <vector>

class Form;

/// Rescales a screen. A member of every screen: when the screen is loaded it notes position, size and font
/// size of each control, and whenever the window is resized it scales them all by the ratio of the new client
/// size to the noted one, fonts and the theme's lengths by the smaller of the two ratios.
///
/// The screen's layouts give the first geometry; from then on they are disabled and this object alone places
/// the controls. Left out are a status bar (its place is the window's edge), a menu bar, what has the
/// property "tag" set to "NO", and the inner parts of composite controls. Controls made after the loading are
/// not followed. The controls of a hidden tab page are noted as if the page were shown, and stay hidden.
///
/// Lengths of the properties are twips, of which a pixel has 15.
class AutoResize : public QObject
{
    Q_OBJECT

public:
    static constexpr int twipsPerPixel = 15;

    explicit AutoResize(Form& form);

    bool Enabled() const { return enabled_; }
    void setEnabled(bool enabled) { enabled_ = enabled; }

    bool FontResizable() const { return fontResizable_; }
    void setFontResizable(bool on) { fontResizable_ = on; }

    /// True takes AspectRatioValue from the form's present height divided by its width, false sets it to 0.
    bool KeepAspectRatio() const { return keepAspectRatio_; }
    void setKeepAspectRatio(bool keep);

    double AspectRatioValue() const { return aspectRatioValue_; }
    void setAspectRatioValue(double ratio) { aspectRatioValue_ = ratio; }

    /// Smallest height and width of the window while it is not maximised.
    int HMin() const { return hMin_; }
    void setHMin(int twips);
    int WMin() const { return wMin_; }
    void setWMin(int twips);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Record
    {
        QPointer<QWidget> control;
        QRectF geometry;
        double fontSize = 0; ///< in points, 0 for a font that is measured in pixels
        bool isLine = false; ///< a ruled line keeps its thickness
    };

    void capture();
    void captureContainer(QWidget* container);
    void capturePages(QWidget* control);
    void captureControl(QWidget* control);
    void applyMinimum();
    void resized();
    void rescale();
    void scaleLengths(double ratio);

    Form& form_;
    bool enabled_ = true;
    bool fontResizable_ = true;
    bool keepAspectRatio_ = false;
    double aspectRatioValue_ = 0;
    int hMin_ = 3000;
    int wMin_ = 4800;

    bool rescaling_ = false;
    QSizeF clientSize_;  ///< at the loading; empty before
    double lengths_ = 0; ///< how the theme's are scaled now; 0 as the application has them
    std::vector<Record> records_;
};
