#include "platform/forms/calendar.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/form.h"
#include "platform/forms/librarytexts.h"
#include "support/print.h"
#include "support/screendriver.h"

#include <QContextMenuEvent>
#include <QFileDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Asked before all others: notes what our own table says, and what it does not have, without the library's
/// translation.
class Asked : public QTranslator
{
public:
    Asked() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* note, int number) const override
    {
        QString text = ours_.translate(context, source, note, number);
        // A shortcut given as a text is compared with the names of all keys there are.
        if (qstrcmp(context, "QShortcut") != 0) {
            if (text.isNull())
                unknown << QString::fromUtf8(source);
            else
                said << text.remove(u'&');
        }
        return {};
    }
    mutable QStringList said, unknown;

private:
    LibraryTexts ours_;
};

class Texts : public testing::Test
{
protected:
    ~Texts() override
    {
        static const QRegularExpression english(
            u"\\b(the|files?|name|open|save|cancel|undo|redo|cut|copy|paste|delete|select|look|folder|new|"
            "back|forward|view|type|size|date|computer|yes|close|help|month|year|scroll|page|show|hidden|"
            "rename|drive|step|unknown|directory|kind)\\b"_s,
            QRegularExpression::CaseInsensitiveOption);
        EXPECT_EQ(library.unknown, QStringList()) << "asked for by the library";
        EXPECT_EQ(library.said.filter(english), QStringList()) << "not Portuguese";
    }

    void expectSaid(const QStringList& texts)
    {
        for (const QString& text : texts)
            EXPECT_TRUE(library.said.contains(text)) << text.toStdString();
    }

    /// What opens a menu or a box, which blocks, and what to look at there before it is closed.
    static void whileOpen(const std::function<void()>& open, const std::function<void(QWidget&)>& look = {})
    {
        bool opened = false;
        QTimer::singleShot(0, qApp, [&] {
            QWidget* window = QApplication::activePopupWidget();
            if (!window)
                window = QApplication::activeModalWidget();
            ASSERT_TRUE(window);
            opened = true;
            settle();
            if (look)
                look(*window);
            window->close();
        });
        open();
        EXPECT_TRUE(opened);
    }

    /// The menu of the right mouse button.
    static void openMenu(QWidget* of, QPoint at = {})
    {
        SCOPED_TRACE(of->metaObject()->className());
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, of->mapToGlobal(at));
        whileOpen([&] { QApplication::sendEvent(of, &event); });
    }

    Asked library;
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
        openMenu(box);
    expectSaid({u"Desfazer"_s, u"Colar"_s, u"Selecionar tudo"_s, u"Rolar até aqui"_s});
    EXPECT_EQ(QCoreApplication::translate("QScrollBar", "Scroll here"), u"Rolar até aqui")
        << "ours comes before the library's own translation";
    EXPECT_EQ(QKeySequence(Qt::CTRL | Qt::Key_Space).toString(QKeySequence::NativeText), u"Ctrl+Espaço");
}

TEST_F(Texts, BoxesAndTheCalendarArePortuguese)
{
    MonthCalendar calendar;
    calendar.setSelectedDate(QDate(2026, 2, 3));
    calendar.show();
    settle();
    EXPECT_EQ(calendar.findChild<QToolButton*>(u"qt_calendar_monthbutton"_s)->text(), u"fevereiro");

    const QString title = u"QUAL AGENDA DESEJA IMPRIMIR, E PARA QUAL DOS PROFISSIONAIS?"_s;
    QStringList captions;
    const auto look = [&](const QWidget& box) {
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title) * 1.2);
        for (const auto* button : box.findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->icon().isNull());
            captions << button->text().remove(u'&');
        }
    };
    whileOpen([&] { EXPECT_EQ(InputBox(u"0 - CLINICA\n1 - HOME"_s, title), std::nullopt); }, look);
    whileOpen([&] { MsgYesNo(u"Confirma?"_s, title); }, look);
    captions.sort();
    EXPECT_EQ(captions.join(u' '), u"Cancelar Não OK Sim");
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
        whileOpen([&] { FileBox(box); },
                  [&](QWidget& window) {
                      auto& dialog = static_cast<QFileDialog&>(window);
                      EXPECT_EQ(dialog.windowTitle(), box.title);
                      EXPECT_EQ(dialog.nameFilters().value(0), u"Text files (*.txt)");
                      dialog.setViewMode(QFileDialog::Detail);
                      settle();
                      for (const auto* name : {"treeView", "sidebar"}) {
                          auto* view = dialog.findChild<QAbstractItemView*>(QLatin1String(name));
                          openMenu(view->viewport(), view->visualRect(view->model()->index(0, 0)).center());
                      }
                  });
    }
    expectSaid({u"Modificado em"_s, u"Abrir"_s, u"Salvar"_s, u"Tipo:"_s, u"Pasta acima"_s});
}
