#include "answers.h"

#include <QRegularExpression>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Fields = std::vector<std::pair<const char*, std::string>>;

QString textOf(const std::string& value)
{
    return QString::fromStdString(value);
}

/// A line for each field: who reads such an answer as a text relies on the blank behind the colon.
Answer json(const Fields& fields)
{
    QStringList lines;
    for (const auto& [name, value] : fields)
        lines << u"  \"%1\": \"%2\""_s.arg(QString::fromLatin1(name), textOf(value));
    return {"200 OK", "application/json; charset=utf-8", u"{\n%1\n}"_s.arg(lines.join(u",\n"_s)).toUtf8()};
}

Answer xml(const Fields& fields)
{
    QString body = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmlcep>\n"_s;
    for (const auto& [name, value] : fields)
        body += u"  <%1>%2</%1>\n"_s.arg(QString::fromLatin1(name), textOf(value).toHtmlEscaped());
    return {"200 OK", "application/xhtml+xml; charset=utf-8", body.toUtf8() + "</xmlcep>\n"};
}

Answer refusal(const QByteArray& status)
{
    return {status, "text/plain; charset=utf-8", status + '\n'};
}

Fields addressFields(const QString& cep)
{
    const std::optional<Address> found = addressOf(cep.toStdString());
    if (!found)
        return {{"erro", "true"}};
    return {{"cep", found->postalCode},   {"logradouro", found->street}, {"complemento", ""},
            {"bairro", found->district},  {"localidade", found->town},   {"uf", found->state},
            {"ibge", found->municipality}};
}

/// A supplier of the clinic, or a company made up from the number itself.
Company companyOf(const std::string& masked, const std::string& digits, const Clinic& clinic)
{
    for (std::int64_t i = 0; i < clinic.suppliers(); ++i)
        if (cnpj(clinic.seed(), static_cast<std::uint64_t>(i)) == masked) {
            Random draw = clinic.random(Stream::Supplier, i);
            return company(draw, static_cast<std::uint64_t>(i));
        }
    const std::int64_t number = std::stoll(digits);
    Random draw = clinic.random(Stream::Supplier, number);
    return company(draw, static_cast<std::uint64_t>(number));
}

/// For a number that no company can have, such as a person's. All fields are there: who reads such an answer
/// as a text takes a missing one for a failure.
Fields noCompany()
{
    Fields fields{{"status", "ERROR"}, {"message", "CNPJ inválido"}};
    for (const char* field :
         {"nome", "fantasia", "logradouro", "numero", "cep", "bairro", "municipio", "uf", "email"})
        fields.emplace_back(field, "");
    return fields;
}

Answer companyAnswer(QString number, const Clinic& clinic)
{
    const std::string digits = number.remove(QRegularExpression(u"[./-]"_s)).toStdString();
    const std::optional<std::string> masked = maskedCnpj(digits);
    if (!masked)
        return json(noCompany());
    const Company found = companyOf(*masked, digits, clinic);
    const std::string& code = found.office.postalCode;
    const std::string cep = code.substr(0, 2).append(".").append(code, 2);
    return json({{"situacao", "ATIVA"},
                 {"tipo", "MATRIZ"},
                 {"nome", found.name},
                 {"fantasia", found.tradeName},
                 {"logradouro", found.office.street},
                 {"numero", found.office.number},
                 {"complemento", ""},
                 {"cep", cep},
                 {"bairro", found.office.district},
                 {"municipio", found.office.town},
                 {"uf", found.office.state},
                 {"email", "contato@example.com"},
                 {"cnpj", *masked},
                 {"status", "OK"}});
}

} // namespace

Answer answerTo(const QByteArray& path, const Clinic& clinic)
{
    static const QRegularExpression place(u"^/ws/([0-9]{8})/(xml|json)/?$"_s);
    static const QRegularExpression company(u"^/v1/cnpj/([0-9./-]+)$"_s);
    const QString text = QString::fromUtf8(QByteArray::fromPercentEncoding(path));
    if (const auto match = place.match(text); match.hasMatch()) {
        const Fields fields = addressFields(match.captured(1));
        return match.captured(2) == u"xml"_s ? xml(fields) : json(fields);
    }
    if (const auto match = company.match(text); match.hasMatch())
        return companyAnswer(match.captured(1), clinic);
    return refusal(text.startsWith(u"/ws/"_s) ? "400 Bad Request" : "404 Not Found");
}
