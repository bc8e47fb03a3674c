#pragma once

#include "layout/autoresize.h"
#include "platform/data/recordset.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmcadusuario;
}

/// Keeps the login accounts and, for each, one row per entry of the main menu. The list of rights is the menu
/// itself: an entry added there becomes a right here.
class frmcadusuario : public Form
{
    Q_OBJECT

public:
    frmcadusuario();
    ~frmcadusuario() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void wire();
    void Combo1_LostFocus();
    void txtoksenha_Change();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command5_Click();

    void montaLista();
    void marcaLista();
    void grava(const QString& nome, const QString& senhaNova);
    void limpaTela();
    void reabre();

    std::unique_ptr<Ui::frmcadusuario> ui;
    ADODB::Recordset rs;
    bool achado_ = false; ///< the name in Combo1 was found among the accounts
    AutoResize Resize{*this};
};
