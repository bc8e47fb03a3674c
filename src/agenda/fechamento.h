#pragma once

#include <QString>
#include <vector>

/// The amount that the currency form of `valor` shows, to the cent.
double emCentavos(double valor);

/// A procedure that is charged.
struct ProcedimentoCobrado
{
    QString nome;
    QString qtde; ///< a number as typed
    double valor; ///< of one, to the cent
    QString convenio, idconv, idproc;

    double total() const;
    /// The line of the list: name, quantity, price, plan, the plan's code and the procedure's, with "|"
    /// between them, on 45, 6, 15, 25, 10 and 10 characters.
    QString linha() const;
    /// The list's head.
    static QString titulo();
};

/// A payment of one kind.
struct PagamentoRecebido
{
    QString tipo;
    double valor; ///< to the cent
    QString obs;

    /// The line of the list: kind and amount on 20 and 15 characters, then the remark.
    QString linha() const;
    static QString titulo();
};

/// The closing of an attendance: what is charged and paid, and its rows in the database.
struct Fechamento
{
    QString idpac;
    QString idprof;
    QString idagenda;
    QString data; ///< dd/mm/yyyy
    QString hora; ///< hh:nn
    std::vector<ProcedimentoCobrado> procedimentos;
    std::vector<PagamentoRecebido> pagamentos;

    double total() const;
    double pago() const;

    /// Writes a row of atendimentos for each procedure and one of atendimento_finan for each payment, bound
    /// by one key of this moment, and moves the appointment to status 2. Every row is committed by itself: an
    /// error (ADODB::Error) leaves those that were written before it.
    void grava() const;

private:
    void grava(const ProcedimentoCobrado& procedimento, const QString& idatendimento) const;
    void grava(const PagamentoRecebido& pagamento, const QString& idatendimento) const;
};
