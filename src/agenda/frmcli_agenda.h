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
/// all contracts in a grid, and a floating panel in which an appointment is booked, changed, marked as
/// notified, cancelled, or handed on to be closed.
///
/// The panel is hidden, new (its key box is empty) or open on an appointment. While it is visible, the choice
/// of the professional, the search and the printing are disabled.
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

private:
    void wire();

    // The day, in frmcli_agenda.cpp.
    void cboPro_Click();
    void Calendar1_Click();
    void lHoje_Click();
    void Command1_Click();
    void Command6_Click();
    void DataGrid1_DblClick();
    void F2();
    void F3();
    void MontaAgenda();
    void tomaProfissional();
    void mostraFeriado(QDate dia);
    int montaLista(QDate dia);
    int listaCompromissos(QDate dia, const QString& horas);
    void listaLivres(const QString& horas);
    void mostraVisitas(QDate dia);

    // The panel, in frmcli_agendamento.cpp.
    void wirePainel();
    void colocaPainel();
    void List1_Click();
    void List1_DblClick();
    void carregaProcedimentos();
    void moveAberto(const QString& linha);
    void abreNovo(const QString& linha);
    void abreExistente(const QString& linha);
    void escolheProcedimento(const QString& codigo);
    void buscaPaciente();
    void buscaConvenio();
    void txtIdPac_LostFocus();
    void txtIdConv_LostFocus();
    void mostraPreco(double desconto);
    void Command4_Click();
    void Command5_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();

    // The saving, in frmcli_agendamento_salva.cpp.
    bool recusa();
    bool incompleto() const;
    bool pacienteOcupado();
    QString inclusao() const;
    QString alteracao() const;

    std::unique_ptr<Ui::frmCli_Agenda> ui;
    Adodc Adodc1;
    QString idpro_;     ///< the chosen professional, "0" while a home appointment is being saved
    double valor_ = 0;  ///< the professional's price
    qint64 idesp_ = 0;  ///< the professional's speciality
    qint64 idproc_ = 0; ///< the procedure of the appointment that is being saved
    AutoResize Resize{*this};
};
