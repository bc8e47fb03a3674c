#pragma once

#include "../generator/clinic.h"

#include <QByteArray>

/// An answer of the two services.
struct Answer
{
    QByteArray status; ///< of the protocol, "200 OK"
    QByteArray type;
    QByteArray body;
};

/// What the services say to a path, from the made-up clinic's own streets and suppliers:
///   /ws/<cep>/xml/ and /ws/<cep>/json/   a postal code of 8 digits. One that nobody has is answered as well,
///                                        with <erro> or "erro" and no address
///   /v1/cnpj/<cnpj>                      a company's number, bare or masked; 404 for one that is not valid
Answer answerTo(const QByteArray& path, const Clinic& clinic);
