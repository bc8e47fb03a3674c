#pragma once

#include <QString>
#include <QtGlobal>

using namespace Qt::StringLiterals;

/// The values of an installation. Each has a default that an environment variable takes the place of.
namespace Instalacao {

inline QString valor(const char* variable, const char* standard)
{
    return qEnvironmentVariable(variable, QString::fromUtf8(standard));
}

/// The program's name and version, as the main window's caption shows them.
inline QString nomePrograma()
{
    return u"Tremosilva 1.0"_s;
}

/// The vendor's name, the title of a message about its own services.
inline QString fornecedor()
{
    return valor("TREMOSILVA_FORNECEDOR", "Tremosilva Sistemas");
}

/// The vendor's web address, shown in the first panel of the status bar.
inline QString site()
{
    return valor("TREMOSILVA_SITE", "www.tremosilva.example");
}

/// The vendor's contact line, the foot of printed documents.
inline QString contato()
{
    return valor("TREMOSILVA_CONTATO", "Tremosilva Sistemas - www.tremosilva.example - (00) 0000-0000");
}

/// Scheme and host of the vendor's downloads, the update and the support tool, without a slash at the end.
inline QString servidorDownload()
{
    return valor("TREMOSILVA_HOST_DOWNLOAD", "https://www.tremosilva.example");
}

/// Scheme and host of the postal-code service, without a slash at the end.
inline QString servicoCep()
{
    return valor("TREMOSILVA_HOST_CEP", "https://cep.tremosilva.example");
}

/// Scheme and host of the company-data service, without a slash at the end.
inline QString servicoCnpj()
{
    return valor("TREMOSILVA_HOST_CNPJ", "https://cnpj.tremosilva.example");
}

} // namespace Instalacao
