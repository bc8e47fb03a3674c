#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/datagrid.h"
#include "platform/forms/form.h"
#include "registers/escolha.h"

#include <QPushButton>

/// What tells one register of people from the other.
struct DescricaoPessoa
{
    QString tabela;
    QString codigo;   ///< column of the code, which the server numbers
    QString nome;     ///< column of the name
    QString fonefixo; ///< column of the fixed line's number
    QString tituloPesquisa;
    bool limpaCodigo = false; ///< LIMPA empties the code box as well
    std::vector<GridColumn> colunas;

    /// The table that one code of a person is from.
    struct Ligacao
    {
        QString tabela;
        QString codigo; ///< its column, which has the same name in the register's own table
        QString nome;
        std::function<std::optional<Escolha>()> pesquisa; ///< opens the search dialog
    };
    Ligacao ligacao;
};

/// The controls that both registers of people have, under the names that they bear in either.
struct ControlesPessoa
{
    QWidget* Frame1;
    QLineEdit *txtcodcli, *TXTCPF, *TXTRG, *txtnome, *txtdtcad, *txtdtnasc, *txtfone, *txtnrcel, *txtemail;
    QLineEdit *txtcepr, *txtruar, *txtNr, *txtbairror, *txtcidader, *txtufr, *txtCdMun;
    QLineEdit *codigoLigado, *nomeLigado; ///< of the row in the linked table
    QPlainTextEdit* txtmemo;
    DataGrid* DataGrid1;
    QPushButton *Command3, *cmdsalva, *cmdretorna;

    template <class Tela>
    static ControlesPessoa de(const Tela& ui, QLineEdit* codigo, QLineEdit* nome)
    {
        return {.Frame1 = ui.Frame1,
                .txtcodcli = ui.txtcodcli,
                .TXTCPF = ui.TXTCPF,
                .TXTRG = ui.TXTRG,
                .txtnome = ui.txtnome,
                .txtdtcad = ui.txtdtcad,
                .txtdtnasc = ui.txtdtnasc,
                .txtfone = ui.txtfone,
                .txtnrcel = ui.txtnrcel,
                .txtemail = ui.txtemail,
                .txtcepr = ui.txtcepr,
                .txtruar = ui.txtruar,
                .txtNr = ui.txtNr,
                .txtbairror = ui.txtbairror,
                .txtcidader = ui.txtcidader,
                .txtufr = ui.txtufr,
                .txtCdMun = ui.txtCdMun,
                .codigoLigado = codigo,
                .nomeLigado = nome,
                .txtmemo = ui.txtmemo,
                .DataGrid1 = ui.DataGrid1,
                .Command3 = ui.Command3,
                .cmdsalva = ui.cmdsalva,
                .cmdretorna = ui.cmdretorna};
    }
};

/// A register of people: document, contact and address boxes in Frame1, the grid of all rows, a search by
/// name. A new person is saved with the code box empty; a code that is typed must exist. Leaving the document
/// box checks the number and offers a company's data from the web; leaving the postal code's box fills the
/// address. Rows are saved through the bound rows of the grid; the municipality's code is shown and not
/// saved.
class CadastroPessoa : public Form
{
    Q_OBJECT

protected:
    explicit CadastroPessoa(const DescricaoPessoa& descricao);

    /// Once, when the controls are there.
    void monta(const ControlesPessoa& controles);

    void Form_Load() override;
    void Form_Unload() override;

    /// True, after the message, if what is typed cannot be saved. The date of birth has been looked at
    /// before, the date of registration comes behind.
    virtual bool recusa() = 0;
    /// True, after the message, if there is no telephone at all.
    bool semTelefone();

    /// The columns and boxes that the other register does not have.
    virtual void mostraCampos(ADODB::Recordset& linha) = 0;
    virtual void gravaCampos(ADODB::Recordset& linha) = 0;
    virtual void limpaCampos() = 0;

private:
    /// A column and the box that holds its text.
    struct Par
    {
        QString coluna;
        QLineEdit* caixa;
    };

    void wire();
    void txtcodcli_LostFocus();
    void TXTCPF_LostFocus();
    void txtcepr_LostFocus();
    void codigoLigado_Change();
    void codigoLigado_LostFocus();
    void DataGrid1_DblClick();
    void cmdsalva_Click();
    void cmdretorna_Click();
    void Command3_Click();
    void pesquisaLigado();

    void Limpa();
    void mostraCadastro(const QString& dia);
    void mostra();
    void preencheEmpresa();
    bool desisteSemNascimento();
    bool recusaCadastro();
    bool posicionaParaGravar();
    void grava();
    bool codigoInformado() const;
    /// The condition that finds the typed code among the rows.
    QString condicaoDoCodigo() const;
    QString consulta(const QString& filtro = {}) const;

    DescricaoPessoa descricao_;
    ControlesPessoa pessoa{};
    std::vector<Par> textos_;
    Adodc Adodc1;
    AutoResize Resize{*this};
};
