#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmCadHorarios;
}

/// The times at which a professional can be booked: for each weekday and place one text of times with "/"
/// between them. A day may have several rows; a row cannot be changed, only deleted and typed again.
class frmCadHorarios : public Form
{
    Q_OBJECT

public:
    frmCadHorarios();
    ~frmCadHorarios() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void wire();
    void cboPro_Click();
    void Command1_Click();
    void DataGrid2_DblClick();

    /// The controls that wait for a professional to be chosen.
    void habilita(bool escolhido);
    /// True, after the message, if what is typed cannot be saved.
    bool recusa();
    void grava();

    std::unique_ptr<Ui::frmCadHorarios> ui;
    Adodc Adodc2;
    QString idpro_; ///< of the chosen professional, 0 for home care; empty before the first choice
    QString idesp_; ///< the speciality, likewise
    AutoResize Resize{*this};
};
