#include "agenda/frmcli_agenda.h"
#include "agenda/frmcli_agendacf.h"
#include "app/frmcadusuario.h"
#include "app/shell_fixture.h"
#include "registers/frmcadcli.h"
#include "registers/frmcadferiados.h"
#include "registers/frmcadfor.h"
#include "registers/frmcadhorarios.h"
#include "registers/frmcadproduto.h"
#include "registers/frmcadprofissionais.h"
#include "registers/telasdecadastro.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// What a register keeps of each box.
struct Register
{
    /// "box=column=typed=shown=kept", with "|" between. Without the last ones the text is shown and kept in
    /// upper case, and it is changed later.
    QString boxes;
    QString table;
    QString stamps = u"evcad evup"_s; ///< columns; a change writes the last
    QString stampedBy = u"MARIA "_s;
    QString focus = u"txtnome"_s;     ///< behind a save
    std::optional<QString> left = {}; ///< in the boxes behind a save, where they are not as at the start
    QString codeBox = u"txtcodcli"_s;
    QList<QPair<Qt::Key, QString>> searches = {}; ///< keys and what they ask for
    QString searchTitle = {};
    QString key = {}; ///< the column, where a double click does not show the row
};

/// Every table holds a row of the tenant C2; its product has the code that C1 gives to its own.
class Keeping : public LoggedIn
{
protected:
    Keeping()
    {
        for (const QString& named : {u"convenios (idlic,nmconv"_s, u"especialidades (idlic,nmesp"_s,
                                     u"procedimentos (idlic,nmproc"_s, u"grupoestoque (idlic,dsgrupo"_s,
                                     u"centrocusto (idlic,nmcen"_s, u"subcentrocusto (idlic,nmscen"_s,
                                     u"pacientes (idlic,nmPac"_s, u"profissionais (idlic,nmpro"_s,
                                     u"fornecedores (nmfant,idlic,nmfor"_s, u"produtos (cdpro,idlic,dspro"_s})
            execute(u"insert into %1) values (%2'C2','ALHEIO')"_s.arg(
                named, named.contains(u"(idlic"_s) ? QString() : u"'0013',"_s));
    }

    /// Every box that takes text is limited as the "table.column" that it is for, where one is given.
    static void expectLimits(const QWidget& window, const QMap<QString, QString>& columns)
    {
        for (const QWidget* box : window.findChildren<QWidget*>()) {
            const auto* line = qobject_cast<const QLineEdit*>(box);
            const bool takesText = (line && !line->isReadOnly()) || qobject_cast<const QPlainTextEdit*>(box);
            if (!takesText || box->objectName().startsWith(u"qt_"))
                continue;
            if (qobject_cast<const QComboBox*>(box->parentWidget()))
                box = box->parentWidget();
            const QString limit = box->property("limit").toString();
            const QString column = columns.value(box->objectName());
            const QString type = value(
                u"select regexp_replace(column_type, '^int.*', 'int') from information_schema.columns where "
                "table_schema = database() and concat(table_name, '.', column_name) = '%1'"_s.arg(column));
            EXPECT_TRUE(column.isEmpty() ? !limit.isEmpty() : limit == type)
                << box->objectName().toStdString() << ' ' << column.toStdString();
        }
    }

    /// Everything is typed and saved, read again, changed half an hour later and saved: the row, the screen
    /// and nobody else's row say so.
    template <class Screen>
    void keeps(const Register& what)
    {
        SCOPED_TRACE(Screen::staticMetaObject.className());
        QStringList boxes, columns, typed, upper, kept, changed;
        QMap<QString, QString> limits;
        for (const QString& cell : what.boxes.split(u'|')) {
            const QStringList parts = cell.split(u'=');
            boxes << parts[0];
            columns << parts[1];
            limits[parts[0]] = what.table + u'.' + parts[1];
            typed << parts[2];
            upper << parts.value(3, parts[2].toUpper());
            kept << parts.value(4, upper.last());
            changed << (parts.size() > 3 ? kept.last() : upper.last() + u" Z"_s);
        }
        const QStringList stamps = what.stamps.split(u' ');
        const QString query = u"select idlic,%1,%2 from %3 where idlic <> 'C2'"_s.arg(
            columns.join(u','), stamps.join(u','), what.table);
        const QString foreign = u"select * from %1 where idlic = 'C2'"_s.arg(what.table);
        const auto row = [&](const QStringList& values, const QString& first, const QString& last) {
            QStringList all =
                QStringList{u"C1"_s} + values + QStringList(stamps.size(), what.stampedBy + first);
            all.last() = what.stampedBy + last;
            return QList<QStringList>{all};
        };
        const QList<QStringList> before = rows(foreign);
        const QString early = u"16/03/2026 08:30:15"_s;
        const QString late = u"16/03/2026 09:00:00"_s;
        clock.set(QDateTime(QDate(2026, 3, 16), QTime(8, 30, 15)));
        on<Screen>([&](ScreenDriver& screen) {
            expectLimits(screen.window(), limits);
            const QString empty = shown(screen, boxes.join(u' '));
            EXPECT_TRUE(screen.grid(u"DataGrid1"_s).isEmpty());
            for (int i = 0; i < boxes.size(); ++i)
                put(screen, boxes[i], typed[i]);
            screen.click(u"cmdsalva"_s);
            EXPECT_EQ(shown(screen, boxes.join(u' ')), what.left.value_or(empty));
            EXPECT_EQ(screen.focused(), what.focus);
            EXPECT_EQ(rows(query), row(kept, early, early));

            for (const auto& [key, prompt] : what.searches) {
                dialogs.expectInput(prompt, u"#"_s, what.searchTitle);
                dialogs.expectInput(prompt, std::nullopt, what.searchTitle);
                screen.press(key);
                EXPECT_TRUE(screen.grid(u"DataGrid1"_s).isEmpty());
                screen.press(key); // cancelled: all rows of the tenant
                EXPECT_EQ(screen.grid(u"DataGrid1"_s).size(), 1);
            }
            if (what.key.isEmpty())
                screen.doubleClickRow(u"DataGrid1"_s, 0);
            else
                screen.type(what.codeBox, value(u"select max(%1) from %2"_s.arg(what.key, what.table)));
            EXPECT_EQ(screen.focused(), what.codeBox);
            screen.press(Qt::Key_Return);
            EXPECT_EQ(shown(screen, boxes.join(u' ')), upper.join(u'|'));
            clock.set(QDateTime(QDate(2026, 3, 16), QTime(9, 0)));
            for (int i = 0; i < boxes.size(); ++i)
                if (changed[i] != kept[i])
                    put(screen, boxes[i], changed[i]);
            screen.click(u"cmdsalva"_s);
        });
        EXPECT_EQ(rows(query), row(changed, early, late));
        EXPECT_EQ(rows(foreign), before);
    }
};

const QString bound = u"MARIA - "_s; ///< how a save through a grid's row is stamped

/// What patients and professionals have in common.
const QString person =
    u"TXTCPF=cpf=11144477735=11144477735|TXTRG=rg=mg-1|txtdtnasc=dtnasc=3x1121980=31/12/1980=1980-12-31|"
    "txtnrcel=fonecel=32|txtemail=eMail=j@x.br|txtcepr=cep=0131010|txtruar=rua=rua a|"
    "txtNr=nrrua=5 b|txtbairror=bairro=centro|txtcidader=cidade=são josé|txtufr=uf=mg=MG|txtmemo=obs=linha|"_s;

} // namespace

TEST_F(Keeping, SimpleRegisters)
{
    keeps<frmCadConvenios>({.boxes = u"txtnome=nmconv=d'ouro|txtPDesc=pdesc=12,5=12,50=12.5000"_s,
                            .table = u"convenios"_s,
                            .stampedBy = bound});
    keeps<frmCadEspecialidade>(
        {.boxes = u"txtnome=nmesp=d'or"_s, .table = u"especialidades"_s, .stampedBy = bound});
    keeps<frmCadProcedimentos>({.boxes = u"txtnome=nmproc=d'agua|cboCH=ondeatd=1=1 - Home=1"_s,
                                .table = u"procedimentos"_s,
                                .stampedBy = bound,
                                .left = u"|1 - Home"_s});
    keeps<frmCadGrupoEstoque>({.boxes = u"txtnome=dsgrupo=zeta"_s, .table = u"grupoestoque"_s});
    keeps<frmCadCentroCusto>(
        {.boxes = u"txtnome=nmcen=zeta"_s, .table = u"centrocusto"_s, .stamps = u"evcad"_s});
    keeps<frmCadSubCentro>({.boxes = u"txtnome=nmscen=zeta"_s,
                            .table = u"subcentrocusto"_s,
                            .stamps = u"evcad"_s,
                            .key = u"cdscen"_s});
}

TEST_F(Keeping, People)
{
    execute(u"insert into convenios (idconv,idlic,nmconv) values (7,'C1','BOA VIDA');"
            "insert into especialidades (idesp,idlic,nmesp) values (4,'C1','GERIATRIA')"_s);
    keeps<frmcadcli>(
        {.boxes =
             person +
             u"txtnome=nmPac=joana d'ávila|txtfone=fonepac=31|txtNmResp=nmresp=eva|"
             "txtFoneResp=foneresp=33|txtIdConv=idconv=7=7|cboAler=taler=1=1 - SIM=1|txtAler=dsaler=pó|"
             "cboMed=tmed=0=0 - NÃO=0|txtMed=dsmed=nenhuma|cboCir=tcir=1=1 - SIM=1|txtCir=dscir=hérnia"_s,
         .table = u"pacientes"_s,
         .stamps = u"evup"_s,
         .stampedBy = bound,
         .focus = u"txtcodcli"_s,
         .searches = {{Qt::Key_F10, u"Nome: "_s}},
         .searchTitle = u"Pesquisa paciente já cadastrado"_s});
    keeps<frmCadProfissionais>({.boxes = person +
                                         u"txtnome=nmpro=bruno d'or|txtfone=fonefixo=31|txtIdEsp=idesp=4=4|"
                                         "txtNoCon=nrcon=crm 5|cboCH=ondeatd=2=2 - HOME E CLINICA=2|"
                                         "txtVR=valor=1500,5=R$ 1.500,50=1500.50"_s,
                                .table = u"profissionais"_s,
                                .stamps = u"evup"_s,
                                .stampedBy = bound,
                                .focus = u"txtcodcli"_s,
                                .searches = {{Qt::Key_F10, u"Nome: "_s}},
                                .searchTitle = u"Pesquisa profissionais já cadastrado"_s});
}

TEST_F(Keeping, SuppliersAndProducts)
{
    keeps<frmCadFor>(
        {.boxes = u"TXTCPF=cpf=11.222.333/0001-81=11.222.333/0001-81|TXTRG=rg=ie 1|txtnome=nmfor=farmácia|"
                  "txtcontato=nmfant=zé|txtfone=fonefixo=113333|txtnrcel=fonecel=119999|txtemail=email=a@b.c|"
                  "txtcepr=cep=01001|txtruar=rua=rua a|txtnr=nrcasa=12 b|txtbairror=bairro=sé|"
                  "txtcidader=cidade=são paulo|txtufr=uf=sp=SP|txtmemo=obs=\"2a.\""_s,
         .table = u"fornecedores"_s,
         .stamps = u"evcad upev"_s,
         .focus = u"TXTCPF"_s,
         .searches = {{Qt::Key_F10, u"Nome: "_s}, {Qt::Key_F11, u"Apelido: "_s}},
         .searchTitle = u"Pesquisa fornecedor já cadastrado"_s});
    execute(u"insert into grupoestoque (cdgrupo,idlic,dsgrupo) values (5,'C1','SOROS')"_s);
    keeps<frmCadProduto>(
        {.boxes = u"txtCdPro=cdpro=0013=0013|txtDsPro=dspro=seringa d'água|txtUN=un=un=UN|"
                  "txtCdGrupo=cdgrupo=5=5|txtFator=vcusto=R$ 1.234,56789=1234,5679=1234.5679|"
                  "txtDtUA=qmin=1.000=1000,0000=1000.0000|cboLote=caplote=1=1 - não=1|txtmemo=obs=nota"_s,
         .table = u"produtos"_s,
         .focus = u"txtCdPro"_s,
         .codeBox = u"txtCdPro"_s,
         .searches = {{Qt::Key_F10, u"Produto: "_s}},
         .searchTitle = u"Pesquisa produto já cadastrado"_s});
}

TEST_F(Keeping, WhatIsTypedElsewhereIsLimitedToo)
{
    expectLimits(frmCadHorarios(), {{u"txtHR"_s, u"diahr.hr"_s}});
    expectLimits(frmCadFeriados(), {{u"txtobs"_s, u"feriados.obs"_s}});
    expectLimits(frmcadusuario(), {{u"Combo1"_s, u"usuarios.nmusuario"_s},
                                   {u"txtsenha"_s, u"usuarios.ususenha"_s},
                                   {u"txtoksenha"_s, u"usuarios.ususenha"_s}});
    expectLimits(frmCli_Agenda(), {{u"txtDt"_s, u"agenda_clinica.dia"_s},
                                   {u"txtIdPac"_s, u"agenda_clinica.idpac"_s},
                                   {u"txtNmPac"_s, u"agenda_clinica.nmpac"_s},
                                   {u"txtIdConv"_s, u"agenda_clinica.idconv"_s},
                                   {u"txtVR"_s, u"agenda_clinica.valor"_s},
                                   {u"txtObs"_s, u"agenda_clinica.obs"_s},
                                   {u"txtFone"_s, u"agenda_clinica.fone"_s}});
    expectLimits(frmCli_AgendaCF(), {{u"txtIdProc"_s, u"atendimentos.idproc"_s},
                                     {u"txtQt"_s, u"atendimentos.qtde"_s},
                                     {u"txtVR"_s, u"atendimentos.valor"_s},
                                     {u"txtIdConv"_s, u"atendimentos.idconv"_s},
                                     {u"txtVrMp"_s, u"atendimento_finan.valor"_s},
                                     {u"txtobs"_s, u"atendimento_finan.obs"_s}});
}
