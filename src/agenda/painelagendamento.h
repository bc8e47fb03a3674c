#pragma once

#include "agenda/agendamento.h"

#include <QDate>
#include <QFrame>
#include <memory>
#include <optional>

class QLineEdit;

namespace Ui {
class PainelAgendamento;
}

/// The floating panel of the agenda, in which an appointment is booked, changed, marked as notified,
/// cancelled, or handed on to be closed. It is hidden, new (its key box is empty) or open on an appointment.
///
/// The screen hands it the day that it shows and the lines that are picked in it; what happened here it tells
/// by its signals.
class PainelAgendamento : public QFrame
{
    Q_OBJECT

public:
    explicit PainelAgendamento(QWidget* parent = nullptr);
    ~PainelAgendamento() override;

    /// The professional, as the item of cboPro has it ("name|code|price|speciality|place"), and the
    /// calendar's day, which new appointments are saved on.
    void recebe(const QString& profissional, QDate dia);

    /// A double click on a line of the day: a free time starts an appointment or takes the open one over, a
    /// taken one opens its appointment, and on any other line the panel shows itself as it is.
    void abre(const QString& linha);

    /// A single click, which a panel that stands takes the time of.
    void tomaHorario(const QString& linha);

    void buscaPaciente();
    void buscaConvenio();

    // The boxes whose leaving the screen tells.
    QLineEdit* txtIdPac() const;
    QLineEdit* txtIdConv() const;
    void txtIdPac_LostFocus();
    void txtIdConv_LostFocus();

Q_SIGNALS:
    void abrindo();  ///< it is about to be seen, on a time of the day
    void alterado(); ///< the day's appointments are no longer those that it shows
    void deixado();  ///< it is empty and about to be hidden

private:
    void wire();
    void permite(bool existente);
    void carregaProcedimentos();
    void moveAberto(const QString& linha);
    void abreNovo(const QString& linha);
    void abreExistente(const QString& linha);
    void escolheProcedimento(const QString& codigo);
    void mostraPreco(double desconto);
    /// The boxes that lack something of what a row must have.
    QWidgetList incompletas() const;
    /// Nothing, after the message, where it cannot be saved.
    std::optional<Agendamento> conferido() const;
    Agendamento lido(const QString& idproc) const;
    void Command4_Click();
    void Command5_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();

    std::unique_ptr<Ui::PainelAgendamento> ui;
    QString profissional_;
    QDate dia_;
};
