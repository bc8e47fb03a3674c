#include "platform/forms/aboutbox.h"

#include "platform/forms/help.h"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

struct Work
{
    const char* name;
    const char* use;
    const char* licence;
};

constexpr Work works[] = {
    {"Qt", "janelas, rede, figuras SVG", "LGPL 3"},
    {"unixODBC", "acesso a bancos de dados", "LGPL 2.1 ou posterior"},
    {"MariaDB Connector/ODBC", "driver do banco de dados", "LGPL 2.1 ou posterior"},
    {"OpenSSL", "conexões cifradas", "Apache 2.0"},
    {"Adobe Core 14 AFM", "medidas das letras dos documentos PDF", "livre, com o aviso da Adobe"},
    {"Inter", "letra das telas", "SIL OFL 1.1"},
    {"DejaVu Sans Mono", "letra das listas", "Bitstream Vera"},
    {"GNU libstdc++", "biblioteca da linguagem", "GPL 3 com exceção de biblioteca"},
};

} // namespace

AboutBox::AboutBox()
{
    const QString program = QApplication::applicationName();
    setWindowTitle(u"Sobre "_s + program);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    column->addWidget(Help::label(program, u"title"_s));

    const auto [card, grid] = Help::card();
    int row = 0;
    for (const Work& work : works) {
        QString name = QString::fromUtf8(work.name);
        if (name == u"Qt")
            name += u' ' + QString::fromLatin1(qVersion());
        grid->addWidget(Help::label(name, u"strong"_s), row, 0);
        grid->addWidget(Help::label(QString::fromUtf8(work.use), u"value"_s), row, 1);
        grid->addWidget(Help::label(QString::fromUtf8(work.licence), u"value"_s), row++, 2);
    }
    column->addWidget(card);

    auto* close = new QPushButton(u"Fechar"_s);
    close->setObjectName(u"cmdfechar"_s);
    close->setProperty("role", u"primary"_s);
    column->addWidget(close, 0, Qt::AlignRight);
    onClick(close, &AboutBox::Unload);
}
