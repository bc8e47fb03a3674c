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
    int level;
};

constexpr Row rows[] = {
    {"mnuCad", "Cadastros", 0},
    {"cadConv", "Convênios", 1},
    {"cadEsp", "Especialidades", 1},
    {"cadFer", "Feriados", 1},
    {"cadfor", "Fornecedores", 1},
    {"cadgru", "Grupos de Insumos", 1},
    {"cadHor", "Horários", 1},
    {"cadinsi", "Insumos", 1},
    {"cadPac", "Pacientes", 1},
    {"cadproc", "Procedimentos", 1},
    {"cadProf", "Profissionais", 1},
    {"cadUsu", "Usuários", 1},
    {"cliAG", "Agenda", 0},
    {"mnumov", "Movimento", 0},
    {"moventinsu", "Entrada de Insumos", 1},
    {"movcont", "Contratos", 1},
    {"movordsrv", "Ordem de Serviço", 1},
    {"movfinan", "Financeiro", 1},
    {"mnuctpg", "Contas a Pagar", 2},
    {"ctpgcadcen", "Cadastrar Centro de Custos", 3},
    {"ctpgcadscen", "Cadastrar Sub Centro de Custos", 3},
    {"ctpgcad", "Inclusão de Despesas", 3},
    {"fincpgbx", "Baixa de Despesas", 2},
    {"mnurel", "Relatórios", 0},
    {"finrelcon", "Relatórios de Despesas", 1},
    {"hstcmpins", "Histórico de Compra de Insumos", 1},
    {"mnuti", "Util", 0},
    {"mnupram", "Parametros", 1},
    {"mnuoff", "F10 LogOff", 0},
    {"mnuupdate", "Atualização", 0},
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
    Q_EMIT enabledChanged(entries_[index].name, enabled);
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
