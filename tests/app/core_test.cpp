#include "app/core/arquivosini.h"
#include "app/core/criptografa.h"
#include "app/core/menu.h"
#include "app/core/rotirnas.h"
#include "platform/system/files.h"
#include "platform/values/error.h"
#include "support/fixedclock.h"
#include "support/print.h"
#include "support/scripteddialogs.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Configuration : public testing::Test
{
protected:
    Configuration() { Files::setProgramFolder(folder.path()); }
    ~Configuration() override { Files::setProgramFolder({}); }

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
                {u"localhost"_s, u"5E5853585D51574646"_s},
                {u"ção€"_s, u"D5D45FB9"_s},
                {u"2709198527091985456"
                 "2"_s,
                 QString(40, u'0')}};
    for (const auto& row : rows) {
        EXPECT_EQ(Criptografa::Cifrar(row.plain), row.cipher);
        EXPECT_EQ(Criptografa::Decifrar(row.cipher), row.plain);
        EXPECT_EQ(Criptografa::Decifrar(row.cipher.toLower()), row.plain);
    }
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
    const QString fits(127, u'€');
    ArquivosINI::Grava({fits + u'x', {}, {}, {}, {}});
    EXPECT_EQ(read().conexao, fits);
    Files::write(ArquivosINI::Caminho(), "[CONFIG]\r\n");
    EXPECT_EQ(read().idlic, Criptografa::Decifrar(u"DefaultUser"_s)) << "an absent key gives nonsense";
}

TEST(Routines, DateBoxes)
{
    const struct
    {
        QString typed, shown;
    } rows[] = {{u"31122026"_s, u"31/12/2026"_s}, {u"3a1x1-2"_s, u"31/12"_s}};
    for (const auto& row : rows) {
        QLineEdit box;
        for (const QChar c : row.typed) {
            int key = c.unicode();
            Rotirnas::MascaraData(key, box);
            if (key)
                box.insert(QChar(key));
        }
        EXPECT_EQ(box.text(), row.shown);
        int backspace = 8;
        Rotirnas::MascaraData(backspace, box);
        EXPECT_EQ(backspace, 8) << "left to the box";
    }
}

TEST(Routines, Age)
{
    for (const auto& [today, age] : {std::pair(QDate(2025, 2, 28), u"32"_s),
                                     {QDate(2026, 3, 1), u"34"_s},
                                     {QDate(2028, 2, 29), u"36"_s}}) {
        const FixedClock clock(today.startOfDay());
        EXPECT_EQ(Rotirnas::CalculaIdade(u"29/02/1992"_s), age) << today.toString().toStdString();
    }
    EXPECT_EQ(Rotirnas::CalculaIdade(u"Não Informado"_s), u"");
}

TEST(MainMenu, EntriesAreFoundRunAndNested)
{
    Menu& menu = Menu::principal();
    QStringList heads;
    for (const Menu::Entry& entry : menu.entries())
        if (entry.isHead)
            heads << QString(entry.level, u'.') + entry.name;
    EXPECT_EQ(heads.join(u' '), u"mnuCad mnumov .movfinan ..mnuctpg mnurel mnuti");
    EXPECT_THROW(menu.enabled(u"cadconv"_s), RuntimeError) << "names are asked for to the letter";
    ScriptedDialogs dialogs;
    dialogs.expect(u"\"Histórico de Compra de Insumos\" ainda não está disponível nesta versão."_s);
    menu.run(u"hstcmpins"_s);
}
