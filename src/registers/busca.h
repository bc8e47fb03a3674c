#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"
#include "platform/forms/recordsetmodel.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace Ui {
class Busca;
}

/// One way to search in a dialog: a key and its button, the input box, and the rows for what was typed.
struct Pesquisa
{
    Qt::Key tecla;
    QString botao;
    QString titulo;
    QString pergunta;
    std::function<QString(const QString& texto)> consulta;
};

/// What tells one search dialog from another.
struct DescricaoBusca
{
    QString titulo;
    std::function<QString()> consulta;
    std::vector<Pesquisa> pesquisas; ///< up to four
    QString codigo;                  ///< column that goes to RetornoCodigo
    QString nome; ///< column that goes to RetornoNome; empty: RetornoNome keeps what it held
    bool fimCalado =
        false;       ///< selecting where no row is does nothing; otherwise it is the data layer's error
    QString direito; ///< menu entry of the register, whose state is the right to open it
    QString recusa;  ///< said to who does not have it
    std::function<void()> cadastro; ///< opens the register
    std::vector<GridColumn> colunas;
    Qt::Key teclaNovo = Qt::Key_F12;
    QString botaoNovo = u"F12 NOVO"_s;
    bool enterAnda = true;
};

/// A dialog that finds a code for the screen that opens it: a grid of the table's rows, searches, a choice,
/// and a way to the register for a new row. The choice goes to RetornoCodigo and RetornoNome; an empty
/// RetornoCodigo means that the user gave up.
class Busca : public Form
{
    Q_OBJECT

public:
    explicit Busca(const DescricaoBusca& descricao);
    ~Busca() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

    /// Whether the user may open the register of this menu entry: the entry's state in the main menu.
    virtual bool podeCadastrar(const QString& direito) const;

private:
    void wire();
    void pesquisa(const Pesquisa& qual);
    void Command5_Click();
    void Command6_Click();

    std::unique_ptr<Ui::Busca> ui;
    Adodc Adodc1;
    DescricaoBusca descricao_;
    bool escolhido_ = false;
    AutoResize Resize{*this};
};
