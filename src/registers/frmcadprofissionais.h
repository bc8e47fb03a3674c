#pragma once

#include "registers/cadastropessoa.h"

#include <memory>

namespace Ui {
class frmCadProfissionais;
}

/// Professionals, each with a speciality, the price of a consultation and the place of work.
class frmCadProfissionais : public CadastroPessoa
{
    Q_OBJECT

public:
    frmCadProfissionais();
    ~frmCadProfissionais() override;

protected:
    bool recusa() override;
    void mostraCampos(ADODB::Recordset& linha) override;
    void gravaCampos(ADODB::Recordset& linha) override;
    void limpaCampos() override;

private:
    void txtVR_LostFocus();
    QString local() const;

    std::unique_ptr<Ui::frmCadProfissionais> ui;
};
