#pragma once

#include "registers/cadastropessoa.h"

#include <memory>

namespace Ui {
class frmcadcli;
}

/// Patients, each with a plan, and three yes-or-no questions that want a description when the answer is yes.
class frmcadcli : public CadastroPessoa
{
    Q_OBJECT

public:
    frmcadcli();
    ~frmcadcli() override;

protected:
    bool recusa() override;
    void mostraCampos(ADODB::Recordset& linha) override;
    void gravaCampos(ADODB::Recordset& linha) override;
    void limpaCampos() override;

private:
    struct Pergunta
    {
        QComboBox* resposta;
        QLineEdit* descricao;
        QString colunaResposta;
        QString colunaDescricao;
        QString falta; ///< said where the answer is yes without a description
    };

    std::unique_ptr<Ui::frmcadcli> ui;
    std::vector<Pergunta> perguntas_;
};
