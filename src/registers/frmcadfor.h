#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmCadFor;
}

/// Suppliers: the companies and people from whom supplies and services are bought. A new one is saved with
/// the code box empty. Rows are saved by a statement: a quote in what is typed breaks it.
class frmCadFor : public Form
{
    Q_OBJECT

public:
    frmCadFor();
    ~frmCadFor() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void wire();
    void txtcodcli_LostFocus();
    void TXTCPF_LostFocus();
    void DataGrid1_DblClick();
    void cmdsalva_Click();
    void cmdretorna_Click();
    void Command2_Click();
    void Command3_Click();

    void Limpa();
    void mostra();
    void pesquisa(const QString& pergunta, const QString& coluna);
    QString inclusao() const;
    QString alteracao() const;

    std::unique_ptr<Ui::frmCadFor> ui;
    Adodc Adodc1;
    AutoResize Resize{*this};
};
