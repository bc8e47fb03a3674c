#include "platform/forms/calendar.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/form.h"
#include "platform/forms/librarytexts.h"
#include "support/print.h"
#include "support/screendriver.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Asked before all others: notes what our own table does not have, without the library's translation.
class Unknown : public QTranslator
{
public:
    Unknown() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* note, int number) const override
    {
        // A shortcut given as a text is compared with the names of all keys there are.
        if (qstrcmp(context, "QShortcut") != 0 && ours_.translate(context, source, note, number).isNull())
            texts << QLatin1String(context) + u'|' + QString::fromUtf8(source);
        return {};
    }
    mutable QStringList texts;

private:
    LibraryTexts ours_;
};

class Texts : public testing::Test
{
protected:
    ~Texts() override
    {
        unknown.texts.removeDuplicates();
        EXPECT_EQ(unknown.texts, QStringList()) << "asked for by the library";
    }

    /// Notes and judges what a person can read there: captions, hints, what is read out.
    void read(const QString& text)
    {
        // The caller's own, which stay as they are given.
        static const QStringList given = {u"Select a text file"_s, u"Text files (*.txt)"_s,
                                          u"All files (*.*)"_s};
        static const QRegularExpression english(
            u"\\b(the|files?|name|open|save|cancel|undo|redo|cut|copy|paste|delete|select|look|folder|new|"
            "back|forward|view|type|size|date|computer|yes|close|help|month|year|scroll|page|show|hidden|"
            "rename|drive|step|unknown|directory|kind)\\b"_s,
            QRegularExpression::CaseInsensitiveOption);
        if (!given.contains(text) && english.match(QString(text).remove(u'&')).hasMatch())
            ADD_FAILURE() << "not Portuguese: " << text.toStdString();
        seen << QString(text).remove(u'&');
    }

    void read(QWidget& window)
    {
        read(window.windowTitle());
        for (const QWidget* part : window.findChildren<QWidget*>()) {
            for (const QString& text :
                 {part->toolTip(), part->accessibleName(), part->accessibleDescription()})
                read(text);
            if (const auto* label = qobject_cast<const QLabel*>(part))
                read(label->text());
            else if (const auto* button = qobject_cast<const QAbstractButton*>(part))
                read(button->text());
            else if (const auto* combo = qobject_cast<const QComboBox*>(part))
                for (int i = 0; i < combo->count(); ++i)
                    read(combo->itemText(i));
            else if (const auto* view = qobject_cast<const QAbstractItemView*>(part); view && view->model())
                for (int i = 0; i < view->model()->columnCount(view->rootIndex()); ++i) {
                    read(view->model()->headerData(i, Qt::Horizontal).toString());
                    for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                        read(view->model()->index(row, i, view->rootIndex()).data().toString());
                }
        }
        read(window.findChildren<QAction*>());
    }

    void read(const QList<QAction*>& actions)
    {
        for (const QAction* action : actions)
            for (const QString& text : {action->text().section(u'\t', 0, 0), action->toolTip()})
                read(text);
    }

    /// The menu of the right mouse button, which blocks.
    void readMenu(QWidget* of, QPoint at = {})
    {
        bool opened = false;
        QTimer::singleShot(0, of, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu) << of->metaObject()->className();
            opened = true;
            read(menu->actions());
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, of->mapToGlobal(at));
        QApplication::sendEvent(of, &event);
        EXPECT_TRUE(opened) << of->metaObject()->className() << of->objectName().toStdString();
    }

    /// What opens a box, and what to do there before it is closed.
    void readBox(const std::function<void()>& open, const std::function<void(QDialog&)>& more = {})
    {
        bool opened = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            opened = true;
            settle();
            read(*box);
            if (more)
                more(*box);
            box->reject();
        });
        open();
        EXPECT_TRUE(opened);
    }

    Unknown unknown;
    QStringList seen;
};

} // namespace

TEST_F(Texts, MenusOfBoxesArePortuguese)
{
    Form form;
    QComboBox combo(&form);
    combo.setEditable(true);
    QPlainTextEdit memo(&form);
    QLineEdit line(&form);
    form.Show();
    settle();
    for (QWidget* box :
         std::initializer_list<QWidget*>{&line, memo.viewport(), combo.lineEdit(), memo.verticalScrollBar()})
        readMenu(box);
    for (const QString& entry : {u"Desfazer"_s, u"Colar"_s, u"Selecionar tudo"_s, u"Rolar até aqui"_s})
        EXPECT_TRUE(seen.contains(entry)) << entry.toStdString();
    EXPECT_EQ(QKeySequence(Qt::CTRL | Qt::Key_Space).toString(QKeySequence::NativeText), u"Ctrl+Espaço");
}

TEST_F(Texts, BoxesAndTheCalendarArePortuguese)
{
    MonthCalendar calendar;
    calendar.setSelectedDate(QDate(2026, 2, 3));
    calendar.show();
    settle();
    read(calendar);
    for (auto* button : calendar.findChildren<QToolButton*>())
        if (button->menu())
            read(button->menu()->actions());
    EXPECT_TRUE(seen.contains(u"fevereiro"_s));

    const QString title = u"QUAL AGENDA DESEJA IMPRIMIR, E PARA QUAL DOS PROFISSIONAIS?"_s;
    readBox([&] { EXPECT_EQ(InputBox(u"0 - CLINICA\n1 - HOME"_s, title), std::nullopt); },
            [&](const QDialog& box) {
                EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title) * 1.2);
                for (const auto* button : box.findChildren<QPushButton*>())
                    EXPECT_TRUE(button->icon().isNull());
            });
    readBox([&] { MsgYesNo(u"Confirma?"_s, title); },
            [&](const QDialog& box) {
                EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title) * 1.2);
            });
    EXPECT_TRUE(seen.contains(u"Não"_s) && seen.contains(u"Cancelar"_s));
}

TEST_F(Texts, FileBoxesArePortugueseButForWhatTheyAreGiven)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"pasta"_s);
    QFile file(folder.filePath(u"x.txt"_s));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    FileDialog box{u"Select a text file"_s, u"Text files (*.txt)|*.txt|All files (*.*)|*.*"_s, u"txt"_s,
                   file.fileName()};
    for (const bool save : {false, true}) {
        box.save = save;
        readBox([&] { FileBox(box); },
                [&](QDialog& window) {
                    EXPECT_EQ(window.windowTitle(), box.title);
                    auto& dialog = static_cast<QFileDialog&>(window);
                    dialog.setViewMode(QFileDialog::Detail);
                    settle();
                    read(dialog);
                    for (const auto* name : {"treeView", "sidebar"}) {
                        auto* view = dialog.findChild<QAbstractItemView*>(QLatin1String(name));
                        readMenu(view->viewport(), view->visualRect(view->model()->index(0, 0)).center());
                    }
                });
    }
    for (const QString& text :
         {u"Modificado em"_s, u"Abrir"_s, u"Salvar"_s, u"Tipo:"_s, u"Pasta acima"_s, u"Text files (*.txt)"_s})
        EXPECT_TRUE(seen.contains(text)) << text.toStdString();
}
