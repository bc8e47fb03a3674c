#include "app/core/arquivosini.h"
#include "app/core/criptografa.h"
#include "app/core/instalacao.h"
#include "app/core/menu.h"
#include "app/core/rotirnas.h"
#include "platform/system/files.h"
#include "platform/values/codepage.h"
#include "platform/values/error.h"
#include "support/fixedclock.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Every character of the code page but those that end a text or a line in other programs, and then some from
/// the front.
QString longText()
{
    QByteArray bytes;
    for (int code = 1; code < 256; ++code)
        bytes.append(static_cast<char>(code));
    return CodePage::decode(bytes);
}

class Configuration : public testing::Test
{
protected:
    Configuration() { Files::setProgramFolder(folder.path()); }
    ~Configuration() override { Files::setProgramFolder({}); }

    void write(const QByteArray& content) { Files::write(ArquivosINI::Caminho(), content); }
    static ArquivosINI::Configuracao read() { return ArquivosINI::Le(ArquivosINI::Caminho()); }

    QTemporaryDir folder;
};

} // namespace

TEST(Cipher, KnownTexts)
{
    // The key is 2709198527091985456...: "2" is 0x32, and so on.
    const struct
    {
        QString plain, cipher;
    } rows[] = {{u""_s, u""_s},
                {u"2"_s, u"00"_s},
                {u"localhost"_s, u"5E5853585D51574646"_s},
                {u"ção"_s, u"D5D45F"_s},
                {u"€"_s, u"B2"_s},
                {u"2709198527091985456"
                 "2"_s,
                 QString(40, u'0')}};
    for (const auto& row : rows) {
        EXPECT_EQ(Criptografa::Cifrar(row.plain), row.cipher);
        EXPECT_EQ(Criptografa::Decifrar(row.cipher), row.plain);
        EXPECT_EQ(Criptografa::Decifrar(row.cipher.toLower()), row.plain);
    }
    EXPECT_EQ(Criptografa::Decifrar(Criptografa::Cifrar(longText())), longText());
    // What is no hexadecimal reads as far as it goes:
    // 0x5 ^ '2', 0 ^ '7', 0xF ^ '0' (a lone digit at the end)
    EXPECT_EQ(Criptografa::Decifrar(u"5xG1F"_s), QString(QChar(0x5 ^ '2')) + QChar('7') + QChar(0xF ^ '0'));
}

TEST_F(Configuration, TheFileIsWrittenAsOthersReadIt)
{
    ArquivosINI::Grava({u"  srv "_s, u"2"_s, u""_s, u"ab"_s, u"7"_s});
    EXPECT_EQ(Files::read(folder.filePath(u"tremosilva.ini"_s)),
              "[CONFIG]\r\nconexao=414546\r\nsenha=00\r\nbanco=\r\nuserbco=5355\r\nidlic=05\r\n");
    const auto values = read();
    EXPECT_EQ(values.conexao, u"srv");
    EXPECT_EQ(values.banco, u"") << "an empty value is no absent key";
    EXPECT_EQ(values.idlic, u"7");

    QFile::rename(folder.filePath(u"tremosilva.ini"_s), folder.filePath(u"TREMOSILVA.INI"_s));
    EXPECT_EQ(read().senha, u"2") << "whatever the case of the file's name";
    ArquivosINI::Grava({u"x"_s, {}, {}, {}, {}});
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(Configuration, AnAbsentKeyGivesNonsenseAndALongValueIsCut)
{
    write("[CONFIG]\r\nconexao=5E\r\n");
    const auto values = read();
    EXPECT_EQ(values.conexao, u"l");
    EXPECT_EQ(values.idlic, Criptografa::Decifrar(u"DefaultUser"_s));
    EXPECT_FALSE(values.idlic.isEmpty());

    const QString fits(127, u'x');
    ArquivosINI::Grava({fits, fits + u'y', {}, {}, {}});
    EXPECT_EQ(read().conexao, fits);
    EXPECT_EQ(read().senha, fits);
}

TEST_F(Configuration, EveryCharacterThatALineHoldsComesBack)
{
    QString text = longText();
    text.remove(QChar(0x20)); // outer blanks are dropped
    for (qsizetype i = 0; i < text.size(); i += 100) {
        ArquivosINI::Grava({text.mid(i, 100), {}, {}, {}, {}});
        EXPECT_EQ(read().conexao, text.mid(i, 100));
    }
}

TEST(Routines, DateBoxes)
{
    const struct
    {
        QString typed, shown;
    } rows[] = {{u"31122026"_s, u"31/12/2026"_s}, {u"3a1x1-2"_s, u"31/12"_s}, {u"12/3"_s, u"12/3"_s}};
    for (const auto& row : rows) {
        QLineEdit box;
        for (const QChar c : row.typed) {
            int key = c.unicode();
            Rotirnas::MascaraData(key, box);
            if (key)
                box.insert(QChar(key));
        }
        EXPECT_EQ(box.text(), row.shown);
    }
    constexpr int Backspace = 8;
    QLineEdit box(u"31/12"_s);
    box.setCursorPosition(2);
    int key = '7';
    Rotirnas::MascaraData(key, box);
    EXPECT_EQ(box.text(), u"31//12");
    key = Backspace;
    Rotirnas::MascaraData(key, box);
    EXPECT_EQ(key, Backspace);
}

TEST(Routines, Age)
{
    for (const auto& [today, age] : {std::pair(QDate(2025, 2, 28), u"32"_s),
                                     {QDate(2026, 2, 28), u"33"_s},
                                     {QDate(2026, 3, 1), u"34"_s},
                                     {QDate(2028, 2, 29), u"36"_s}}) {
        const FixedClock clock(today.startOfDay());
        EXPECT_EQ(Rotirnas::CalculaIdade(u"29/02/1992"_s), age) << today.toString().toStdString();
    }
    EXPECT_EQ(Rotirnas::CalculaIdade(u"Não Informado"_s), u"");
}

TEST(MainMenu, IsTheOneThatUsersKnow)
{
    // A wrong name is a right lost, a wrong level an entry that nobody finds.
    QStringList lines;
    for (const Menu::Entry& entry : Menu::principal().entries())
        lines << QString(entry.level, u'.') + entry.name + u'=' + entry.caption +
                     (entry.isHead ? u">"_s : u""_s);
    EXPECT_EQ(
        lines.join(u' '),
        u"mnuCad=Cadastros> .cadConv=Convênios .cadEsp=Especialidades .cadFer=Feriados .cadfor=Fornecedores "
        ".cadgru=Grupos de Insumos .cadHor=Horários .cadinsi=Insumos .cadPac=Pacientes "
        ".cadproc=Procedimentos "
        ".cadProf=Profissionais .cadUsu=Usuários cliAG=Agenda mnumov=Movimento> .moventinsu=Entrada de "
        "Insumos "
        ".movcont=Contratos .movordsrv=Ordem de Serviço .movfinan=Financeiro> ..mnuctpg=Contas a Pagar> "
        "...ctpgcadcen=Cadastrar Centro de Custos ...ctpgcadscen=Cadastrar Sub Centro de Custos "
        "...ctpgcad=Inclusão de Despesas ..fincpgbx=Baixa de Despesas mnurel=Relatórios> "
        ".finrelcon=Relatórios de Despesas .hstcmpins=Histórico de Compra de Insumos mnuti=Util> "
        ".mnupram=Parametros mnuoff=F10 LogOff mnuupdate=Atualização");
}

TEST(MainMenu, EntriesAreFoundAndRun)
{
    Menu& menu = Menu::principal();
    EXPECT_THROW(menu.enabled(u"cadconv"_s), RuntimeError) << "names are asked for to the letter";
    ScriptedDialogs dialogs;
    dialogs.expect(u"\"Histórico de Compra de Insumos\" ainda não está disponível nesta versão."_s);
    menu.run(u"hstcmpins"_s);
}

TEST(Installation, ValuesAreOverridable)
{
    qputenv("TREMOSILVA_CONTATO", "Clínica");
    EXPECT_EQ(Instalacao::contato(), u"Clínica");
    qunsetenv("TREMOSILVA_CONTATO");
}
