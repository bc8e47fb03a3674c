#include "app/core/menu.h"

#include "platform/forms/dialogs.h"
#include "platform/values/error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char* name;
    const char* caption;
    const char* description;
    int level;
};

constexpr Row rows[] = {
    {"mnuCad", "Cadastros", "Os cadastros da clínica.", 0},
    {"cadConv", "Convênios", "Os convênios que a clínica atende.", 1},
    {"cadEsp", "Especialidades", "As especialidades dos profissionais.", 1},
    {"cadFer", "Feriados", "Os feriados, que a agenda mostra no dia.", 1},
    {"cadfor", "Fornecedores", "Quem fornece insumos e serviços à clínica.", 1},
    {"cadgru", "Grupos de Insumos", "Os grupos em que os insumos se dividem.", 1},
    {"cadHor", "Horários", "Os horários de atendimento de cada profissional.", 1},
    {"cadinsi", "Insumos", "Os insumos que a clínica compra e entrega.", 1},
    {"cadPac", "Pacientes", "Os pacientes, com endereço, telefones e convênio.", 1},
    {"cadproc", "Procedimentos", "Os procedimentos da clínica e do home care.", 1},
    {"cadProf", "Profissionais", "Os profissionais da clínica e do home care.", 1},
    {"cadUsu", "Usuários", "Os usuários, as senhas e o que cada um pode abrir.", 1},
    {"cliAG", "Agenda", "Os atendimentos do dia: marcar, avisar, desmarcar, encerrar e imprimir.", 0},
    {"mnumov", "Movimento", "O movimento do dia a dia: compras, contratos e contas.", 0},
    {"moventinsu", "Entrada de Insumos", "As notas de compra de insumos, com lotes e validades.", 1},
    {"movcont", "Contratos", "Os contratos de home care, com procedimentos e visitas.", 1},
    {"movordsrv", "Ordem de Serviço", "A entrega de insumos e a evolução de cada visita.", 1},
    {"movfinan", "Financeiro", "As contas da clínica.", 1},
    {"mnuctpg", "Contas a Pagar", "As despesas e os centros de custos.", 2},
    {"ctpgcadcen", "Cadastrar Centro de Custos", "Os centros de custos das despesas.", 3},
    {"ctpgcadscen", "Cadastrar Sub Centro de Custos", "As divisões de cada centro de custos.", 3},
    {"ctpgcad", "Inclusão de Despesas", "Lança uma despesa e as suas parcelas.", 3},
    {"fincpgbx", "Baixa de Despesas", "Registra o pagamento de parcelas, com recibo.", 2},
    {"mnurel", "Relatórios", "Relatórios para conferir e imprimir.", 0},
    {"finrelcon", "Relatórios de Despesas", "As despesas de um período, na tela ou em PDF.", 1},
    {"hstcmpins", "Histórico de Compra de Insumos", "O que foi comprado, quando, de quem e por quanto.", 1},
    {"mnuti", "Util", "A configuração deste computador.", 0},
    {"mnupram", "Parametros", "O servidor e o banco de dados que este computador usa.", 1},
    {"mnuoff", "F10 LogOff", "Encerra a sua sessão e volta ao login; o programa continua aberto.", 0},
    {"mnuupdate", "Atualização", "Baixa e instala a versão mais nova do programa.", 0},
};

} // namespace

Menu& Menu::principal()
{
    static Menu menu;
    return menu;
}

Menu::Menu()
{
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Entry entry;
        entry.name = QString::fromUtf8(rows[i].name);
        entry.caption = QString::fromUtf8(rows[i].caption);
        entry.description = QString::fromUtf8(rows[i].description);
        entry.level = rows[i].level;
        entry.isHead = i + 1 < std::size(rows) && rows[i + 1].level > rows[i].level;
        entries_.push_back(std::move(entry));
    }
}

std::size_t Menu::indexOf(const QString& name) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.name == name; });
    if (found == entries_.end())
        Errors::subscriptOutOfRange();
    return static_cast<std::size_t>(found - entries_.begin());
}

bool Menu::enabled(const QString& name) const
{
    return entries_[indexOf(name)].enabled;
}

void Menu::setEnabled(const QString& name, bool enabled)
{
    put(indexOf(name), enabled);
}

void Menu::disableAll()
{
    for (std::size_t i = 0; i < entries_.size(); ++i)
        put(i, false);
}

void Menu::put(std::size_t index, bool enabled)
{
    entries_[index].enabled = enabled;
    Q_EMIT enabledChanged(entries_[index]);
}

void Menu::bind(const QString& name, std::function<void()> action)
{
    entries_[indexOf(name)].action = std::move(action);
}

void Menu::run(const QString& name)
{
    // A copy: the action may take long and end with the menu set anew.
    const Entry entry = entries_[indexOf(name)];
    if (entry.action)
        entry.action();
    else
        notYet(entry.caption);
}

void Menu::notYet(const QString& caption)
{
    MsgBox(u"\"%1\" ainda não está disponível nesta versão."_s.arg(caption), u"Atenção"_s, Icon::Information);
}
