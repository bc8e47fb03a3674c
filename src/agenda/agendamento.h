#pragma once

#include <QString>

/// An appointment of the clinic, each value as its column takes it.
struct Agendamento
{
    QString idagenda; ///< the key; blank for a new one, which gets its own when it is saved
    QString idpro;    ///< "0" for one at home, which belongs to no professional
    QString idesp;
    QString idconv;
    QString idpac;
    QString nmpac;
    QString fone;
    QString dia;     ///< yyyy/mm/dd
    QString diaNovo; ///< the day that a new one is inserted on
    QString hr;
    QString obs;
    QString idproc;
    QString valor; ///< with a decimal point
    QString mobesp;
    QString ondeatd;

    /// The same patient at the same time with somebody else. Patient 0 is nobody, and can be booked twice.
    bool pacienteOcupado() const;

    /// Inserts it, or changes the row of its key, which keeps professional, speciality and status.
    void grava() const;

    static void notifica(const QString& idagenda);
    static void cancela(const QString& idagenda);

private:
    QString inclusao() const;
    QString alteracao() const;
};
