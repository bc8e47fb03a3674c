#include "app/core/arquivosini.h"
#include "platform/system/files.h"
#include "platform/values/error.h"

#include <QCoreApplication>
#include <cstdio>

/// Writes the enciphered configuration file of an installation. The values come from the environment, so that
/// no password stands in a process list:
///   TREMOSILVA_SERVER, TREMOSILVA_DATABASE, TREMOSILVA_USER, TREMOSILVA_PASSWORD, TREMOSILVA_TENANT
/// and the program's folder is the one argument.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("tremosilva-configuration: the program's folder is missing\n", stderr);
        return 2;
    }
    ArquivosINI::Configuracao values;
    values.conexao = qEnvironmentVariable("TREMOSILVA_SERVER");
    values.banco = qEnvironmentVariable("TREMOSILVA_DATABASE");
    values.userbco = qEnvironmentVariable("TREMOSILVA_USER");
    values.senha = qEnvironmentVariable("TREMOSILVA_PASSWORD");
    values.idlic = qEnvironmentVariable("TREMOSILVA_TENANT");
    Files::setProgramFolder(arguments[1]);
    try {
        ArquivosINI::Grava(values);
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "tremosilva-configuration: %s\n", qPrintable(error.description()));
        return 1;
    }
    return 0;
}
