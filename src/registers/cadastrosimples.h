#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"
#include "platform/forms/recordsetmodel.h"

#include <memory>

namespace Ui {
class CadastroSimples;
}

/// What tells one simple register from another.
struct DescricaoCadastro
{
    QString titulo;
    QString rotuloNome;
    QString codigo;                    ///< column of the code, which the server numbers
    QString nome;                      ///< column of the name
    std::function<QString()> consulta; ///< all rows of the tenant
    std::vector<GridColumn> colunas;
    QString codigoDoClique = codigo; ///< column that a double click on the grid takes the code from
};

/// A register of codes and names: a code box, a name box, the grid of all rows and three buttons. A new row
/// is saved with the code box empty; a code that is typed must exist. Rows are saved through the bound rows
/// of the grid unless a register says otherwise, and nothing can be deleted.
class CadastroSimples : public Form
{
    Q_OBJECT

public:
    explicit CadastroSimples(const DescricaoCadastro& descricao);
    ~CadastroSimples() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

    /// True, after the message, if what is typed cannot be saved.
    virtual bool recusa();
    /// The row under the code that was typed, for the boxes beside the name.
    virtual void mostraCampos(ADODB::Recordset&) {}
    virtual void limpaCampos() {}
    /// Sets the columns beside the name.
    virtual void gravaCampos(ADODB::Recordset&) {}
    /// Makes the row to be changed the current one; false if there is none. As it stands, the row is the one
    /// that the leaving of the code box found, wherever the grid has gone since.
    virtual bool achaParaEditar();
    virtual void grava();

    bool codigoInformado() const;

    std::unique_ptr<Ui::CadastroSimples> ui;
    Adodc Adodc1;

private:
    void wire();
    void txtcodcli_LostFocus();
    void DataGrid1_DblClick();
    void cmdsalva_Click();
    void cmdretorna_Click();
    void Command1_Click();
    void Limpa();

    DescricaoCadastro descricao_;
    std::optional<ADODB::RowMark> achada_; ///< the row under the code in its box
    AutoResize Resize{*this};
};
