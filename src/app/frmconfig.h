#pragma once

#include "layout/autoresize.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmconfig;
}

/// Keeps the configuration file. What it saves is read at the next start of the program.
class frmconfig : public Form
{
    Q_OBJECT

public:
    frmconfig();
    ~frmconfig() override;

protected:
    void Form_Load() override;

private:
    void wire();
    void Command1_Click();
    void Command2_Click();

    std::unique_ptr<Ui::frmconfig> ui;
    AutoResize Resize{*this};
};
