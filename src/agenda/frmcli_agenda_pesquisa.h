#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmCli_Agenda_Pesquisa;
}

/// On which day is a patient booked? Searches the appointments from today on by a part of the name, at each
/// keystroke, with all professionals. The agenda leaves its professional in RetornoCodigo and opens this
/// modally. The choice goes to RetornoCodigo (the day, as a workstation writes it) and RetornoNome (the
/// time); both are empty when the user gave up.
class frmCli_Agenda_Pesquisa : public Form
{
    Q_OBJECT

public:
    frmCli_Agenda_Pesquisa();
    ~frmCli_Agenda_Pesquisa() override;

    /// As wide as the workstation's screen has room for: two telephones stand side by side.
    QSize openingSize() const override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void wire();
    void txtnmpac_Change();
    void Command1_Click();

    std::unique_ptr<Ui::frmCli_Agenda_Pesquisa> ui;
    Adodc Adodc1;
    QString idpro_; ///< of the agenda that asks; the search is not narrowed to it
    bool escolhido_ = false;
    AutoResize Resize{*this};
};
