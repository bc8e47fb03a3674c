#include "platform/forms/theme.h"

#include "platform/forms/mnemonics.h"

#include <QFontDatabase>
#include <QPalette>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

/// Not in a namespace, which the macro does not bear. Without it the linker leaves a library's resources out.
static void loadResources()
{
    Q_INIT_RESOURCE(theme);
}

namespace Theme {

namespace {

constexpr QRgb ink = 0xff1d2b36;
constexpr QRgb faded = 0xff6b7985;
constexpr QRgb paper = 0xffffffff;
constexpr QRgb ground = 0xfff2f5f7;
constexpr QRgb stripe = 0xfff5f9fa;
constexpr QRgb accent = 0xff0f6b7c;
constexpr QRgb accentPale = 0xffcfe7ec;

const char* const styleSheet = R"(
QLineEdit, QPlainTextEdit, QComboBox, QAbstractSpinBox {
    background: #ffffff; color: #1d2b36; border: 1px solid #aebbc5; border-radius: 4px;
    selection-background-color: #0f6b7c; selection-color: #ffffff;
}
QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus, QAbstractSpinBox:focus { border: 2px solid #0f6b7c; }
QLineEdit:disabled, QPlainTextEdit:disabled, QComboBox:disabled { background: #e9eef1; color: #53616c; }
QLineEdit:read-only { background: #eef2f5; }
QComboBox { combobox-popup: 0; } /* a list with a scroll bar */
QComboBox::drop-down { border: none; }
QComboBox::down-arrow { image: url(:/theme/down.svg); }
QComboBox::down-arrow:disabled { image: url(:/theme/down-disabled.svg); }
QComboBox QAbstractItemView { background: #ffffff; border: 1px solid #aebbc5; outline: 0; padding: 2px; }

QPushButton { background: #ffffff; color: #1d2b36; border: 1px solid #aebbc5; border-radius: 4px; }
QPushButton:hover { background: #edf5f7; border-color: #0f6b7c; }
QPushButton:pressed { background: #cfe7ec; }
QPushButton:focus { border: 2px solid #0f6b7c; }
QPushButton:disabled { background: #eef1f4; color: #7d8a95; border-color: #d3dbe1; }
QPushButton[role="primary"] { background: #0f6b7c; color: #ffffff; border-color: #0f6b7c; }
QPushButton[role="primary"]:hover { background: #0c5866; }
QPushButton[role="primary"]:pressed { background: #094550; }
QPushButton[role="primary"]:focus { border: 2px solid #f2b84b; }
QPushButton[role="primary"]:disabled { background: #dfe7ea; color: #7d8a95; border-color: #d3dbe1; }
QPushButton[role="danger"] { color: #a3241d; border-color: #d9a5a1; }
QPushButton[role="danger"]:hover { background: #fbeeed; border-color: #a3241d; }
QPushButton[role="danger"]:focus { border: 2px solid #a3241d; }
QPushButton[role="danger"]:disabled { color: #7d8a95; border-color: #d3dbe1; }

QGroupBox {
    background: #ffffff; border: 1px solid #d3dbe1; border-radius: 6px; margin-top: 0.7em; padding-top: 0.9em;
}
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #0f6b7c; background: transparent; }
QFrame[role="card"] { background: #ffffff; border: 1px solid #d3dbe1; border-radius: 6px; }

QListView, QTableView, QTreeView {
    background: #ffffff; alternate-background-color: #f5f9fa; border: 1px solid #aebbc5; border-radius: 4px; padding: 1px;
    selection-background-color: #cfe7ec; selection-color: #10242e; outline: 0; gridline-color: #e3e9ed;
}
QListView:focus, QTableView:focus { border: 2px solid #0f6b7c; padding: 0; }
QTableView::item { border: none; }
QTableView::item:selected { background: #cfe7ec; color: #10242e; }
QHeaderView { background: #e6edf1; border: none; }
QHeaderView::section {
    background: #e6edf1; color: #33424e; border: none; border-right: 1px solid #d3dbe1; border-bottom: 1px solid #c3ced6;
}

QMenuBar { background: #ffffff; border-bottom: 1px solid #d3dbe1; padding: 3px 6px; }
QMenuBar::item { color: #1d2b36; background: transparent; padding: 6px 12px; border-radius: 4px; }
QMenuBar::item:selected { background: #cfe7ec; }
QMenuBar::item:disabled { color: #97a3ad; }
QMenu { background: #ffffff; border: 1px solid #aebbc5; padding: 4px; }
QMenu::item { padding: 6px 26px 6px 14px; border-radius: 3px; color: #1d2b36; }
QMenu::item:selected { background: #cfe7ec; }
QMenu::item:disabled { color: #97a3ad; background: transparent; }

QLabel[role="title"] { color: #0f6b7c; }
QLabel[role="link"] { color: #0f6b7c; }
QLabel[role="link"]:hover { text-decoration: underline; }

StatusBar { background: #e6edf1; border: none; border-top: 1px solid #c3ced6; }
StatusBar QLabel { color: #33424e; padding: 1px 10px; }
StatusBar QLabel[panel="next"] { border-left: 1px solid #b4c1ca; }

QMessageBox QPushButton, QInputDialog QPushButton { min-width: 76px; }

QProgressBar { background: #e3e9ed; border: none; border-radius: 5px; text-align: center; min-height: 10px; }
QProgressBar::chunk { background: #0f6b7c; border-radius: 5px; }

QCalendarWidget QWidget#qt_calendar_navigationbar { background: #0f6b7c; }
QCalendarWidget QToolButton { background: transparent; color: #ffffff; border: none; border-radius: 4px; }
QCalendarWidget QToolButton:hover { background: #0c5866; }
QCalendarWidget QAbstractItemView { selection-background-color: #0f6b7c; selection-color: #ffffff; border: none; }
QCalendarWidget QTableView::item:selected { background: #0f6b7c; color: #ffffff; }
QCalendarWidget QToolButton#qt_calendar_prevmonth { qproperty-icon: url(:/theme/left.svg); }
QCalendarWidget QToolButton#qt_calendar_nextmonth { qproperty-icon: url(:/theme/right.svg); }

QTabWidget::pane { background: #ffffff; border: 1px solid #d3dbe1; border-radius: 4px; }
QTabBar::tab { background: #e6edf1; border: 1px solid #d3dbe1; padding: 6px 14px; border-top-left-radius: 4px; border-top-right-radius: 4px; }
QTabBar::tab:selected { background: #ffffff; color: #0f6b7c; }
QToolTip { background: #1d2b36; color: #ffffff; border: none; padding: 4px 6px; }
)";

/// The lengths that follow a screen's fonts. "@7" stands for 7 pixels at the opening size, "@7-1" for one
/// less at any: the frame of the focus is thicker by that, and a text stays in its place. "@3+3" is where the
/// cells below begin: the style itself adds 3.
const char* const lengthRules = R"(
QLineEdit, QPlainTextEdit, QAbstractSpinBox { padding: @4 @7; }
QComboBox { padding: @4 @5 @4 @9; }
QLineEdit:focus, QPlainTextEdit:focus, QAbstractSpinBox:focus { padding: @4-1 @7-1; }
QComboBox:focus { padding: @4-1 @5-1 @4-1 @9-1; }
QComboBox::drop-down { width: @22; }
QComboBox::down-arrow { width: @12; height: @12; }
QTableView::item { padding: 0 @3; }
QHeaderView::section { padding: @5 @3+3; }
QCalendarWidget QToolButton { padding: @4 @8; }
QCalendarWidget QTableView::item { padding: 0; }
)";

QPalette palette()
{
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(ground));
    colours.setColor(QPalette::WindowText, QColor(ink));
    colours.setColor(QPalette::Base, QColor(paper));
    colours.setColor(QPalette::AlternateBase, QColor(stripe));
    colours.setColor(QPalette::Text, QColor(ink));
    colours.setColor(QPalette::PlaceholderText, QColor(faded));
    colours.setColor(QPalette::Button, QColor(paper));
    colours.setColor(QPalette::ButtonText, QColor(ink));
    colours.setColor(QPalette::Highlight, QColor(accent));
    colours.setColor(QPalette::HighlightedText, QColor(paper));
    colours.setColor(QPalette::Link, QColor(accent));
    colours.setColor(QPalette::ToolTipBase, QColor(ink));
    colours.setColor(QPalette::ToolTipText, QColor(paper));
    colours.setColor(QPalette::Midlight, QColor(accentPale));
    colours.setColor(QPalette::Disabled, QPalette::WindowText, QColor(faded));
    colours.setColor(QPalette::Disabled, QPalette::Text, QColor(faded));
    colours.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(faded));
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

QString scaled(const char* rules, double factor)
{
    static const QRegularExpression length(u"@(\\d+)([+-]\\d)?"_s);
    const QString text = QString::fromLatin1(rules);
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

} // namespace

QFont font()
{
    static const QString family = firstOf({u"Inter"_s, u"Segoe UI"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
    QFont result(family);
    result.setPointSizeF(10);
    return result;
}

QFont fixedFont()
{
    static const QString family =
        firstOf({u"DejaVu Sans Mono"_s, u"Consolas"_s, u"Liberation Mono"_s, u"Courier New"_s});
    QFont result(family);
    result.setStyleHint(QFont::Monospace);
    result.setFixedPitch(true);
    result.setPointSizeF(9.5);
    return result;
}

QString scaledLengths(double factor)
{
    // A button's text stands in the middle: once the button has its size, a padding could only cut.
    return u"QPushButton, QPushButton:focus { padding: 0; }"_s + scaled(lengthRules, factor);
}

QString openingLengths()
{
    return scaled("QPushButton { padding: @6 @14; } QPushButton:focus { padding: @6-1 @14-1; }", 1) +
           scaled(lengthRules, 1);
}

void apply(QApplication& application)
{
    loadResources();
    application.setStyle(new MnemonicStyle(u"Fusion"_s));
    application.setPalette(palette());
    application.setFont(font());
    application.setStyleSheet(QString::fromLatin1(styleSheet) + openingLengths());
}

} // namespace Theme
