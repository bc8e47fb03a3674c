#pragma once

#include <QString>
#include <QStringList>

/// The text lines of a professional's day: a free time alone ("08:30"), an appointment as ten fields with "|"
/// between them, or the one line of a day without working hours.
///
/// The fields of an appointment, from 0: time, patient, telephone, code and name of the procedure, special
/// mobility, status, plan, remarks, last change, key. The first eight stand on fixed widths; the rest runs
/// off the list's visible part.
namespace LinhaAgenda {

enum Campo
{
    Hora,
    Paciente,
    Telefone,
    Procedimento,
    Mobilidade,
    Situacao,
    Convenio,
    Observacao
};

enum class Estado
{
    Livre,
    Agendado,
    Notificado,
    Encerrado,
    Bloqueado
};

QString bloqueada();

/// The headings, laid out as the fields that they head.
QString titulo();

/// The line of an appointment; `campos` are all ten.
QString compromisso(QStringList campos);

/// The time as a line shows it, on its five characters.
QString horario(const QString& hora);

/// Where one of the first eight fields begins, and its width, in characters.
qsizetype inicio(Campo qual);
qsizetype largura(Campo qual);

/// One of the first eight fields of a line, without the blanks around it; empty in a line that ends before.
QString campo(const QString& linha, Campo qual);

/// An appointment's key.
QString chave(const QString& linha);

/// True for a line that starts with a time such as 08:30.
bool isHorario(const QString& linha);

/// True for a time with nobody on it.
bool isLivre(const QString& linha);

Estado estado(const QString& linha);

} // namespace LinhaAgenda
