#include "app/shell_fixture.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"

using namespace Qt::StringLiterals;

namespace {

/// The four tables hold one row of the tenant C1, named OWN, and one of the tenant C2, named STRANGER.
class Tenants : public LoggedIn
{
protected:
    Tenants()
    {
        for (const auto& [tenant, name] : {std::pair(u"C1"_s, u"OWN"_s), std::pair(u"C2"_s, u"STRANGER"_s)})
            execute(u"insert into pacientes (idlic,nmPac) values ('%1','%2');"
                    "insert into profissionais (idlic,nmpro,valor) values ('%1','%2',0);"
                    "insert into fornecedores (idlic,nmfor,nmfant) values ('%1','%2','%2');"
                    "insert into produtos (idlic,cdpro,dspro,vcusto,qmin) values ('%1','%1','%2',0,0)"_s.arg(
                        tenant, name));
    }

    /// The names in the grid of an opened screen.
    static QStringList names(ScreenDriver& screen)
    {
        QStringList found;
        for (const QStringList& row : screen.grid(u"DataGrid1"_s))
            for (const QString& cell : row)
                if ((cell == u"OWN" || cell == u"STRANGER") && !found.contains(cell))
                    found << cell;
        return found;
    }

    /// A screen's list shows its own, and so does its search under the key, where everything is asked for.
    template <class Screen>
    void showsItsOwn(const std::vector<std::pair<Qt::Key, QString>>& searches)
    {
        SCOPED_TRACE(Screen::staticMetaObject.className());
        const QStringList own = {u"OWN"_s};
        for (const auto& [key, prompt] : searches) {
            dialogs.expectInput(prompt, u""_s);
            open<Screen>([&, key = key](ScreenDriver& screen) {
                EXPECT_EQ(names(screen), own);
                screen.press(key);
                EXPECT_EQ(names(screen), own);
                screen.press(Qt::Key_Escape);
            });
        }
    }
};

} // namespace

TEST_F(Tenants, EachSeesItsOwn)
{
    showsItsOwn<frmcadcli>({{Qt::Key_F10, u"Nome: "_s}});
    showsItsOwn<frmCadProfissionais>({{Qt::Key_F10, u"Nome: "_s}});
    showsItsOwn<frmCadFor>({{Qt::Key_F10, u"Nome: "_s}, {Qt::Key_F11, u"Apelido: "_s}});
    showsItsOwn<frmCadProduto>({{Qt::Key_F10, u"Produto: "_s}});
}
