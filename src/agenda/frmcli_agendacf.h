#pragma once

#include "agenda/fechamento.h"
#include "layout/autoresize.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmCli_AgendaCF;
}

/// What the agenda hands over of the appointment that is to be closed: the texts of its panel.
struct AtendimentoAFechar
{
    QString idPac;
    QString nmPac;
    QString idAgenda;
    QString profissional; ///< the whole item of cboPro: "name|code|..."
    QString data;         ///< dd/mm/yyyy
    QString hora;         ///< hh:nn
    QString procedimento; ///< the whole item of cboTP: "name|code"
    QString valor;
    QString idConv;
    QString nmConv;
};

/// Closes an attendance: the procedures to charge, the payments, and a check that what was received covers
/// what is due. "Encerrar" writes the rows and sets RetornoFechamento to "S"; the caller has set it to "N"
/// before, and called recebe.
class frmCli_AgendaCF : public Form
{
    Q_OBJECT

public:
    frmCli_AgendaCF();
    ~frmCli_AgendaCF() override;

    /// Shows the appointment; its procedure stands ready in the boxes, to be added by the user. To be called
    /// before ShowModal.
    void recebe(const AtendimentoAFechar& atendimento);

private:
    void wire();
    void procuraProcedimento();
    void procuraConvenio();
    void txtIdProc_Change();
    void txtIdProc_LostFocus();
    void txtIdConv_Change();
    void txtIdConv_LostFocus();
    void txtQt_Click();
    void txtVR_Click();
    void List1_DblClick();
    void List2_DblClick();
    void cboMP_Click();
    void Command1_Click();
    void Command2_Click();
    void Command16_Click();
    void Command17_Click();

    bool recusa();
    void permite(bool sim);
    void Totaliza();

    std::unique_ptr<Ui::frmCli_AgendaCF> ui;
    Fechamento fechamento_; ///< its procedures are the lines of List1, its payments those of List2
    double Falta = 0;       ///< still to be received, to the cent; negative when overpaid
    AutoResize Resize{*this};
};
