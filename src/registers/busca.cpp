#include "registers/busca.h"

#include "app/core/menu.h"
#include "app/core/variaveis.h"
#include "platform/forms/dialogs.h"
#include "ui_busca.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

Busca::Busca(const DescricaoBusca& descricao) : ui(std::make_unique<Ui::Busca>()), descricao_(descricao)
{
    ui->setupUi(this);
    setWindowTitle(descricao_.titulo);
    setEnterMovesOn(descricao_.enterAnda);
    ui->DataGrid1->setColumns(descricao_.colunas);
    ui->DataGrid1->setDataSource(&Adodc1);
    wire();
}

Busca::~Busca() = default;

void Busca::wire()
{
    QPushButton* const botoes[] = {ui->Command1, ui->Command2, ui->Command3, ui->Command4};
    for (std::size_t i = 0; i < std::size(botoes); ++i) {
        const bool existe = i < descricao_.pesquisas.size();
        botoes[i]->setVisible(existe);
        if (!existe)
            continue;
        const Pesquisa& qual = descricao_.pesquisas[i];
        const auto executa = [this, i] { pesquisa(descricao_.pesquisas[i]); };
        botoes[i]->setText(qual.botao);
        connect(botoes[i], &QPushButton::clicked, this, executa);
        onKey(qual.tecla, executa);
    }
    ui->Command6->setText(descricao_.botaoNovo);
    onClick(ui->Command6, &Busca::Command6_Click);
    onKey(descricao_.teclaNovo, &Busca::Command6_Click);
    onClick(ui->Command5, &Busca::Command5_Click);
    onKey(Qt::Key_F10, &Busca::Command5_Click);
    onDblClick(ui->DataGrid1, &Busca::Command5_Click, u"seleciona"_s);
}

void Busca::Form_Load()
{
    Adodc1.setConnectionString(StringConexao);
    Adodc1.setRecordSource(descricao_.consulta());
    Adodc1.Refresh();
}

void Busca::pesquisa(const Pesquisa& qual)
{
    if (const auto texto = InputBox(qual.pergunta, qual.titulo)) {
        Adodc1.setRecordSource(qual.consulta(*texto));
        Adodc1.Refresh();
    }
    ui->DataGrid1->setFocus();
}

void Busca::Command5_Click()
{
    ADODB::Recordset& linhas = Adodc1.Recordset();
    if (descricao_.fimCalado && linhas.Eof())
        return;
    RetornoCodigo = linhas.Fields(descricao_.codigo).text();
    if (!descricao_.nome.isEmpty())
        RetornoNome = linhas.Fields(descricao_.nome).text();
    escolhido_ = true;
    Unload();
}

bool Busca::podeCadastrar(const QString& direito) const
{
    return Menu::principal().enabled(direito);
}

void Busca::Command6_Click()
{
    if (!podeCadastrar(descricao_.direito)) {
        MsgBox(descricao_.recusa, u"Atenção"_s);
        return;
    }
    descricao_.cadastro();
    Adodc1.Refresh();
    ui->DataGrid1->setFocus();
}

/// Esc and the window's own closing give up; what was chosen before is then gone as well.
void Busca::Form_Unload()
{
    if (!escolhido_) {
        RetornoCodigo.clear();
        RetornoNome.clear();
    }
    Adodc1.Close();
}
