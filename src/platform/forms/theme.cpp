#include "platform/forms/theme.h"

#include "platform/forms/dropdown.h"
#include "platform/forms/theme/glyph.h"

#include "platform/forms/mnemonics.h"
#include <QComboBox>
#include <QFile>

#include <QFontDatabase>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

/// Not in a namespace, which the macro does not bear. Without it the linker leaves a library's resources out.
static void loadResources()
{
    Q_INIT_RESOURCE(theme);
}

namespace Theme {

namespace {

QString resource(const QString& name)
{
    QFile file(u":/theme/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no %s", qPrintable(name));
    return QString::fromUtf8(file.readAll());
}

QPalette palette()
{
    QPalette colours;
    const auto set = [&colours](QPalette::ColorRole role, Role as) { colours.setColor(role, colour(as)); };
    set(QPalette::Window, Role::Ground);
    set(QPalette::WindowText, Role::Ink);
    set(QPalette::Base, Role::Card);
    set(QPalette::AlternateBase, Role::Band);
    set(QPalette::Text, Role::Ink);
    set(QPalette::PlaceholderText, Role::MutedInk);
    set(QPalette::Button, Role::Card);
    set(QPalette::ButtonText, Role::Ink);
    set(QPalette::Highlight, Role::Accent);
    set(QPalette::HighlightedText, Role::Paper);
    set(QPalette::Link, Role::AccentInk);
    set(QPalette::ToolTipBase, Role::Night);
    set(QPalette::ToolTipText, Role::Paper);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, colour(Role::OffInk));
    return colours;
}

/// The first of these families that the workstation has.
QString firstOf(const QStringList& wanted)
{
    const QStringList families = QFontDatabase::families();
    for (const QString& family : wanted)
        if (families.contains(family))
            return family;
    return {};
}

/// The lengths that follow a screen's fonts. "@8" stands for 8 pixels at the opening size, "@8-1" for one
/// less at any: the frame of the focus is thicker by that, and a text stays in its place. "@4+3" is where the
/// cells below a heading begin: the style itself adds 3.
QString scaled(const QString& text, double factor)
{
    static const QRegularExpression length(u"@(\\d+)([+-]\\d)?"_s);
    QString result;
    qsizetype read = 0;
    for (QRegularExpressionMatchIterator it = length.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch found = it.next();
        const int fixed = found.capturedView(2).toInt();
        const int pixels = qMax(0, int(factor * found.capturedView(1).toInt()) + fixed);
        result += text.mid(read, found.capturedStart() - read) + QString::number(pixels) + u"px"_s;
        read = found.capturedEnd();
    }
    return result + text.mid(read);
}

/// A drawing is as high as the letters beside it.
class ThemeStyle : public MnemonicStyle
{
public:
    ThemeStyle() : MnemonicStyle(u"Fusion"_s) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        if (metric == PM_ButtonIconSize && widget)
            return widget->fontMetrics().height();
        return MnemonicStyle::pixelMetric(metric, option, widget);
    }
};

void dressLabel(QLabel& label)
{
    // A list's heading has the list's letters.
    if (label.font().fixedPitch())
        return;
    const QString role = label.property("role").toString();
    const bool isCaption = role.isEmpty() || role == QLatin1String("above");
    QFont letters = font(isCaption                        ? Type::Caption
                         : role == QLatin1String("title") ? Type::Headline
                                                          : Type::Body);
    if (role == QLatin1String("strong") || role == QLatin1String("chip") || role == QLatin1String("notice"))
        letters.setWeight(QFont::DemiBold);
    label.setFont(letters);
    if (isCaption)
        label.setIndent(0); // begins where its box does
    if (role == QLatin1String("above")) {
        // Room and no padding, which would cut the accents of a window drawn smaller.
        label.setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        label.setMinimumHeight(label.fontMetrics().height() + 8);
    }
}

void dressButton(QPushButton& button)
{
    const QString role = button.property("role").toString();
    if (role == QLatin1String("sign"))
        button.setFont(font(Type::Headline));
    const QString glyphName = button.property("glyph").toString();
    if (glyphName.isEmpty())
        return;
    button.setIcon(glyph(glyphName, role == QLatin1String("primary")  ? Role::Paper
                                    : role == QLatin1String("danger") ? Role::DangerInk
                                                                      : Role::Ink));
}

void fitColumns(QWidget& box, int columns)
{
    const int around = qobject_cast<QComboBox*>(&box) ? 40 : 24; // padding, border, and a list's arrow
    box.setFixedWidth(box.fontMetrics().horizontalAdvance(u'0') * columns + around);
}

} // namespace

QFont font(Type type)
{
    static const QString family = firstOf({u"Inter"_s, u"Segoe UI"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
    QFont result(family);
    result.setPointSizeF(type == Type::Caption ? 9 : type == Type::Headline ? 15 : 10);
    if (type == Type::Headline)
        result.setWeight(QFont::DemiBold);
    return result;
}

QFont fixedFont(Type type)
{
    static const QString family =
        firstOf({u"DejaVu Sans Mono"_s, u"Consolas"_s, u"Liberation Mono"_s, u"Courier New"_s});
    QFont result(family);
    result.setStyleHint(QFont::Monospace);
    result.setFixedPitch(true);
    result.setPointSizeF(type == Type::Headline ? 13 : 9.5);
    if (type == Type::Headline)
        result.setWeight(QFont::DemiBold);
    return result;
}

QString scaledLengths(double factor)
{
    static const QString rules = resource(u"lengths.qss"_s);
    // A button's text stands in the middle: once the button has its size, a padding could only cut.
    return u"QPushButton, QPushButton:focus { padding: 0; }"_s + scaled(rules, factor);
}

QString openingLengths()
{
    static const QString lengths =
        scaled(u"QPushButton { padding: @6 @12; } QPushButton:focus { padding: @6-1 @12-1; }"_s +
                   resource(u"lengths.qss"_s),
               1);
    return lengths;
}

void dress(QWidget& screen)
{
    for (auto* label : screen.findChildren<QLabel*>())
        dressLabel(*label);
    for (auto* button : screen.findChildren<QPushButton*>())
        dressButton(*button);
    for (auto* box : screen.findChildren<QWidget*>())
        if (const int columns = box->property("columns").toInt(); columns > 0)
            fitColumns(*box, columns);
    for (auto* combo : screen.findChildren<QComboBox*>())
        if (!qobject_cast<DropDownRows*>(combo->itemDelegate()))
            combo->setItemDelegate(new DropDownRows(combo));
}

void apply(QApplication& application)
{
    loadResources();
    application.setStyle(new ThemeStyle);
    application.setPalette(palette());
    application.setFont(font());
    application.setStyleSheet(withColours(resource(u"theme.qss"_s)) + openingLengths());
}

} // namespace Theme
