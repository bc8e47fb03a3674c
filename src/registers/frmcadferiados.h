#pragma once

#include "layout/autoresize.h"
#include "platform/data/adodc.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmCadFeriados;
}

/// Holidays, each a day and a month that return every year, with a remark that the agenda shows.
class frmCadFeriados : public Form
{
    Q_OBJECT

public:
    frmCadFeriados();
    ~frmCadFeriados() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void wire();
    void Command1_Click();
    void DataGrid2_DblClick();

    void grava(const QString& dia, const QString& mes, const QString& nomeMes);

    std::unique_ptr<Ui::frmCadFeriados> ui;
    Adodc Adodc2;
    AutoResize Resize{*this};
};
