#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmCadProduto;
}

/// Products and supplies. The code is the user's: one that is not found opens a new product under it.
class frmCadProduto : public Form
{
    Q_OBJECT

public:
    frmCadProduto();
    ~frmCadProduto() override;

    /// Takes the next number of the code allocator into CodigoGerado. Nothing on the screen asks for one.
    void GeraCodigoProduto();

    QString CodigoGerado; ///< four digits at least: "0012"

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void wire();
    void txtCdPro_LostFocus();
    void txtFator_LostFocus();
    void txtCdGrupo_Change();
    void DataGrid1_DblClick();
    void cmdsalva_Click();
    void cmdretorna_Click();
    void Command2_Click();
    void Command3_Click();

    void Limpa();
    void mostra();
    bool recusa();
    void grava(double custo, double minimo);

    std::unique_ptr<Ui::frmCadProduto> ui;
    Adodc Adodc1;
    AutoResize Resize{*this};
};
