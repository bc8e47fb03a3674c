#pragma once

#include "layout/autoresize.h"
#include "platform/data/recordset.h"
#include "platform/forms/form.h"

#include <QTimer>
#include <memory>

namespace Ui {
class frmtelainicial;
}

/// The login. It opens the connection for the first time, offers the first access on a workstation without
/// configuration or a tenant without users, compares name and password, and sets the menu by the user's rows.
/// Its result goes to LoginAberto, Logado and Usuario.
class frmtelainicial : public Form
{
    Q_OBJECT

public:
    frmtelainicial();
    ~frmtelainicial() override;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Escape() override;
    QString escapeHelp() const override;
    void Form_Unload() override;

private:
    void wire();
    void Command1_Click();
    void Command2_Click();
    void Label4_Click();
    void Timer1_Timer();
    void AplicaPerfil();
    void FechaConexaoDaTela();

    std::unique_ptr<Ui::frmtelainicial> ui;
    ADODB::Recordset rs;
    QTimer Timer1;
    AutoResize Resize{*this};
};
