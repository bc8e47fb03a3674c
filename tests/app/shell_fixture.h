#pragma once

#include "app/core/arquivosini.h"
#include "app/core/menu.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "app/frmprincipal.h"
#include "app/telas.h"
#include "platform/forms/statusbar.h"
#include "platform/system/files.h"
#include "platform/system/usersettings.h"
#include "support/database.h"
#include "support/fixedclock.h"
#include "support/modaldriver.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <QComboBox>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// The program's shell in a folder of its own, configured for the tenant C1 of the test database, with the
/// clock standing still. MARIA, password SEGREDO, is a user without rows.
class Program : public testing::Test
{
protected:
    Program()
    {
        Files::setProgramFolder(folder.path());
        UserSettings::setValue(u"frmPrincipal"_s, {}); // as at the first start
        Database& database = Database::instance();
        database.clear();
        ArquivosINI::Grava(
            {database.server(), database.password(), database.name(), database.user(), u"C1"_s});
        addUser(u"C1"_s, u"MARIA"_s, u"SEGREDO"_s);
        ligaMenu();
    }

    ~Program() override
    {
        delete &Form::of<frmPrincipal>();
        FechaConexao();
        Variaveis::Logado = u"N"_s;
        for (QString* text :
             {&Variaveis::Usuario, &Variaveis::LoginAberto, &Variaveis::idlic, &Variaveis::StringConexao,
              &Variaveis::RetornoCodigo, &Variaveis::RetornoFechamento})
            text->clear();
        Files::setProgramFolder({});
    }

    static void addUser(const QString& tenant, const QString& name, const QString& password)
    {
        Database::instance().execute(
            u"insert into usuarios (idlic,nmusuario,ususenha) values ('%1','%2','%3')"_s.arg(tenant, name,
                                                                                             password));
    }

    static void addRight(const QString& tenant, const QString& name, const QString& campo,
                         const QString& valor)
    {
        Database::instance().execute(
            u"insert into perfilusuario (idlic,nmusuario,ususenha,campo,valor) values ('%1','%2','SEGREDO','%3','%4')"_s
                .arg(tenant, name, campo, valor));
    }

    static QList<QStringList> rows(const QString& query) { return Database::instance().rows(query); }

    /// Types into the box, or chooses where it is a combo.
    static void put(ScreenDriver& screen, const QString& box, const QString& text)
    {
        if (qobject_cast<QComboBox*>(screen.find(box)))
            screen.choose(box, text);
        else
            screen.type(box, text);
    }

    /// Several of them, "box=text" with "|" between, and then the button, if any.
    static void fill(ScreenDriver& screen, const QString& texts, const QString& button = {})
    {
        for (const QString& text : texts.split(u'|'))
            put(screen, text.section(u'=', 0, 0), text.section(u'=', 1));
        if (!button.isEmpty())
            screen.click(button);
    }

    static void typeLogin(ScreenDriver& login, const QString& name, const QString& password)
    {
        login.type(u"txtUsuario"_s, name);
        login.press(Qt::Key_Return);
        login.typeOn(password);
        login.press(Qt::Key_Return);
    }

    /// Starts the program and logs in.
    void start(const QString& name = u"maria"_s, const QString& password = u"segredo"_s)
    {
        modal.expect(u"frmtelainicial"_s, [=](ScreenDriver& login) { typeLogin(login, name, password); });
        Form::of<frmPrincipal>().Show();
        settle();
    }

    static QStringList enabledEntries()
    {
        QStringList names;
        for (const Menu::Entry& entry : Menu::principal().entries())
            if (entry.enabled)
                names << entry.name;
        return names;
    }

    QTemporaryDir folder;
    FixedClock clock{QDateTime(QDate(2026, 3, 16), QTime(8, 30, 15))};
    ScriptedDialogs dialogs;
    ModalDriver modal;
};

/// MARIA is in, as after a login; every menu entry is open to her.
class LoggedIn : public Program
{
protected:
    LoggedIn()
    {
        Variaveis::idlic = u"C1"_s;
        Variaveis::Usuario = u"MARIA"_s;
        Variaveis::StringConexao = Database::instance().connectionString();
        for (const Menu::Entry& entry : Menu::principal().entries())
            Menu::principal().setEnabled(entry.name, true);
    }

    /// Opens a screen modally and works on it; the steps must leave it.
    template <class Screen>
    void open(const std::function<void(ScreenDriver&)>& steps)
    {
        modal.expect(QString::fromLatin1(Screen::staticMetaObject.className()), steps);
        Form::of<Screen>().ShowModal();
    }

    /// Opens a screen, works on it, and leaves it by Esc, which closes the connection.
    template <class Screen>
    void on(const std::function<void(ScreenDriver&)>& steps)
    {
        open<Screen>([steps](ScreenDriver& screen) {
            steps(screen);
            screen.press(Qt::Key_Escape);
        });
        EXPECT_EQ(Variaveis::Conexao.State(), 0);
    }

    /// The next opening of the dialog is answered by these keys.
    void answer(const QString& dialog, const QList<Qt::Key>& keys)
    {
        modal.expect(dialog, [keys](ScreenDriver& screen) {
            for (const Qt::Key key : keys)
                screen.press(key);
        });
    }

    /// Types into the box and leaves it by Enter.
    static void enter(ScreenDriver& screen, const QString& box, const QString& text)
    {
        screen.type(box, text);
        screen.press(Qt::Key_Return);
    }

    /// What stands in the boxes, whose names are separated by blanks, with "|" between.
    static QString shown(const ScreenDriver& screen, const QString& boxes)
    {
        QStringList texts;
        for (const QString& box : boxes.split(u' '))
            texts << screen.text(box);
        return texts.join(u'|');
    }

    /// The cells of a grid's column, with blanks between.
    static QString column(const ScreenDriver& screen, const QString& grid, int number)
    {
        QStringList texts;
        for (const QStringList& row : screen.grid(grid))
            texts << row[number];
        return texts.join(u' ');
    }

    static QString value(const QString& query) { return Database::instance().value(query); }
    /// The rows of a query, the columns with "|" between.
    static QStringList flat(const QString& query)
    {
        QStringList all;
        for (const QStringList& row : rows(query))
            all << row.join(u'|');
        return all;
    }
    static void execute(const QString& statements) { Database::instance().execute(statements); }

    /// The stamps of this user at this clock, behind a bound save and in a statement.
    const QString boundStamp = u"MARIA - 16/03/2026 08:30:15"_s;
    const QString stamp = u"MARIA 16/03/2026 08:30:15"_s;
};
