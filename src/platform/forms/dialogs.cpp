#include "platform/forms/dialogs.h"

#include "platform/forms/hourglass.h"
#include "platform/forms/theme.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class WindowDialogs : public Dialogs
{
public:
    Answer message(const MessageBox& box) override;
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& proposal) override;
    std::optional<QString> file(const FileDialog& dialog) override;
};

/// The window that a box belongs to. Between two boxes of one handler the window system may have none in
/// front.
QWidget* owner()
{
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return QApplication::activeModalWidget();
}

/// The theme's picture of an icon, drawn for the screen's resolution; null for no icon.
QPixmap picture(Icon icon)
{
    static const QHash<Icon, QString> names = {{Icon::Information, u"information"_s},
                                               {Icon::Question, u"question"_s},
                                               {Icon::Exclamation, u"exclamation"_s},
                                               {Icon::Critical, u"critical"_s}};
    if (!names.contains(icon))
        return {};
    return QIcon(u":/theme/%1.svg"_s.arg(names.value(icon))).pixmap(40);
}

/// How wide a window must be for its title to stand whole beside the buttons of its frame. The window system
/// does not tell in which letters it writes: they are taken to be half-bold, and somewhat larger than ours.
int widthOfTitle(const QString& title)
{
    QFont letters = QApplication::font();
    letters.setBold(true);
    const QFontMetrics metrics(letters);
    return metrics.horizontalAdvance(title) * 6 / 5 + metrics.averageCharWidth() * 20;
}

/// Room for the text: a long line is broken between words, or behind a comma where a word is longer than the
/// room.
void fitText(QMessageBox& window, QString text)
{
    auto* label = window.findChild<QLabel*>(u"qt_msgbox_label"_s);
    const QFontMetrics metrics(label->font());
    const int widest = metrics.averageCharWidth() * 90;
    int width = metrics.averageCharWidth() * 34;
    for (const QString& line : text.split(QLatin1Char('\n')))
        width = qMax(width, metrics.horizontalAdvance(line) + metrics.averageCharWidth() * 4);
    if (width > widest)
        text.replace(QLatin1Char(','), u",\u200b"_s);
    width = qMax(width, widthOfTitle(window.windowTitle()) -
                            window.iconPixmap().deviceIndependentSize().toSize().width());
    label->setText(text);
    label->setWordWrap(true);
    label->setFixedWidth(qMin(width, widest));
    label->setContentsMargins(0, 4, metrics.averageCharWidth() * 2, 4);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

/// The margins and gaps of all windows. The library parts the text from the edge where no picture stands.
void fitGaps(QMessageBox& window)
{
    window.layout()->setContentsMargins(16, 16, 16, 16);
    window.findChild<QDialogButtonBox*>()->layout()->setSpacing(8);
    if (!window.iconPixmap().isNull())
        return;
    window.findChild<QLabel*>(u"qt_msgbox_label"_s)->setIndent(0);
    auto* grid = static_cast<QGridLayout*>(window.layout());
    grid->setHorizontalSpacing(0);
    for (int at = 0; at < grid->count(); ++at)
        if (QSpacerItem* gap = grid->itemAt(at)->spacerItem())
            gap->changeSize(0, 0);
    grid->invalidate();
}

/// A prompt above a line for the answer.
class InputWindow : public QDialog
{
public:
    InputWindow(const QString& prompt, const QString& title, const QString& proposal)
        : QDialog(owner()), line_(new QLineEdit(proposal))
    {
        setStyleSheet(Theme::openingLengths());
        setWindowTitle(title);
        auto* label = new QLabel(prompt);
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(line_);
        line_->setObjectName(u"answer"_s);
        line_->installEventFilter(this);
        line_->selectAll();

        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(16, 16, 16, 16);
        column->setSpacing(4);
        column->addWidget(label);
        column->addWidget(line_);
        column->addSpacing(12);
        column->addLayout(buttons());
        line_->setMinimumWidth(qMax(fontMetrics().averageCharWidth() * 60, widthOfTitle(title)));
    }

    QString text() const { return line_->text(); }

    /// Alt and a letter types nothing, whether a button has the letter or not.
    bool eventFilter(QObject* line, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->modifiers() == Qt::AltModifier && !key->text().isEmpty() && key->text()[0].isPrint())
                return true;
        }
        return QDialog::eventFilter(line, event);
    }

private:
    QLayout* buttons()
    {
        auto* cancel = new QPushButton(u"&Cancelar"_s);
        auto* ok = new QPushButton(u"&OK"_s);
        ok->setProperty("role", u"primary"_s);
        ok->setDefault(true);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
        connect(ok, &QPushButton::clicked, this, &QDialog::accept);
        auto* row = new QHBoxLayout;
        row->setSpacing(8);
        row->addStretch();
        for (QPushButton* button : {cancel, ok}) {
            button->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
            row->addWidget(button);
        }
        return row;
    }

    QLineEdit* line_;
};

Answer WindowDialogs::message(const MessageBox& box)
{
    const PlainPointer pointer;
    QMessageBox window(owner());
    window.setStyleSheet(Theme::openingLengths()); // the screen behind may have scaled its own
    window.setWindowTitle(box.title);
    window.setTextFormat(Qt::PlainText);
    window.setText(box.text);
    window.setIconPixmap(picture(box.icon));
    fitText(window, box.text);
    if (box.buttons == Buttons::Ok) {
        window.addButton(u"&OK"_s, QMessageBox::AcceptRole);
        fitGaps(window);
        window.exec();
        return Answer::Ok;
    }
    QPushButton* yes = window.addButton(u"&Sim"_s, QMessageBox::YesRole);
    QPushButton* no = window.addButton(u"&Não"_s, QMessageBox::NoRole);
    window.setDefaultButton(box.standard == Answer::Yes ? yes : no);
    window.setEscapeButton(no);
    fitGaps(window);
    window.exec();
    return window.clickedButton() == yes ? Answer::Yes : Answer::No;
}

std::optional<QString> WindowDialogs::input(const QString& prompt, const QString& title,
                                            const QString& proposal)
{
    const PlainPointer pointer;
    InputWindow window(prompt, title, proposal);
    if (window.exec() != QDialog::Accepted)
        return std::nullopt;
    return window.text();
}

std::optional<QString> WindowDialogs::file(const FileDialog& dialog)
{
    const PlainPointer pointer;
    const QStringList pieces = dialog.filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2)
        filters << u"%1 (%2)"_s.arg(pieces[i].section(u" ("_s, 0, 0),
                                    QString(pieces[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')));

    QFileDialog window(owner(), dialog.title);
    // A desktop's own dialog would speak the desktop's language.
    window.setOption(QFileDialog::DontUseNativeDialog);
    window.setStyleSheet(Theme::openingLengths() +
                         u"QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }"_s);
    window.setAcceptMode(dialog.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(dialog.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    window.setNameFilters(filters);
    window.setDefaultSuffix(dialog.defaultExtension);
    window.selectFile(dialog.proposal);
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        return std::nullopt;
    return window.selectedFiles().constFirst();
}

std::unique_ptr<Dialogs>& installed()
{
    static std::unique_ptr<Dialogs> dialogs = std::make_unique<WindowDialogs>();
    return dialogs;
}

/// For a box that is about to open.
Dialogs& opening()
{
    countModal();
    return *installed();
}

int opened = 0;

} // namespace

int modalCount()
{
    return opened;
}

void countModal()
{
    ++opened;
}

std::unique_ptr<Dialogs> Dialogs::install(std::unique_ptr<Dialogs> dialogs)
{
    if (!dialogs)
        dialogs = std::make_unique<WindowDialogs>();
    installed().swap(dialogs);
    return dialogs;
}

Answer MsgBox(const QString& text, const QString& title, Icon icon)
{
    return opening().message({text, title, icon, Buttons::Ok, Answer::Ok});
}

bool MsgYesNo(const QString& text, const QString& title, Icon icon)
{
    return opening().message({text, title, icon, Buttons::YesNo, Answer::No}) == Answer::Yes;
}

std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& proposal)
{
    return opening().input(prompt, title, proposal);
}

std::optional<QString> FileBox(const FileDialog& dialog)
{
    return opening().file(dialog);
}
