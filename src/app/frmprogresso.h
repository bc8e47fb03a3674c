#pragma once

#include "layout/autoresize.h"
#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class frmProgresso;
}

/// Shows how far the download of the update is. It takes no input: who shows it unloads it.
class frmProgresso : public Form
{
    Q_OBJECT

public:
    frmProgresso();
    ~frmProgresso() override;

    /// Moves the bar, whose end is 3, and paints the window.
    void mostraPasso(int passo);

protected:
    void Form_Escape() override {}
    void Form_Help() override {}

private:
    std::unique_ptr<Ui::frmProgresso> ui;
    AutoResize Resize{*this};
};
