#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/data/recordset.h"
#include "platform/forms/form.h"

#include <QDate>
#include <memory>

namespace Ui {
class frmCli_Agenda;
}

/// The reception's day: the slots and appointments of one professional in a text list, the home visits of
/// all contracts in a grid, and the floating panel in which the day's appointments are worked on. While that
/// is open on a time, the choice of the professional, the search and the printing are disabled.
class frmCli_Agenda : public Form
{
    Q_OBJECT

public:
    frmCli_Agenda();
    ~frmCli_Agenda() override;

    /// As much of the day as the workstation's screen has room for.
    QSize openingSize() const override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Escape() override;
    QString escapeHelp() const override;
    void showEvent(QShowEvent* event) override;

private:
    void wire();

    void cboPro_Click();
    void Calendar1_Click();
    void lHoje_Click();
    void Command1_Click();
    void Command6_Click();
    void DataGrid1_DblClick();
    void List1_Click();
    void List1_DblClick();
    void txtIdPac_LostFocus();
    void txtIdConv_LostFocus();
    void F2();
    void F3();
    void painelAbrindo();
    void painelDeixado();
    void colocaPainel();

    void MontaAgenda();
    void mostraFeriado(QDate dia);
    int montaLista(QDate dia);
    int listaCompromissos(QDate dia, const QString& horas);
    void listaLivres(const QString& horas);
    void mostraVisitas(QDate dia);

    std::unique_ptr<Ui::frmCli_Agenda> ui;
    Adodc Adodc1;
    QString idpro_; ///< of the chosen professional
    AutoResize Resize{*this};
};
