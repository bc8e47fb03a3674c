#include "app/frmprogresso.h"

#include "ui_frmprogresso.h"

frmProgresso::frmProgresso() : ui(std::make_unique<Ui::frmProgresso>())
{
    ui->setupUi(this);
    // Lower than a screen usually may be.
    Resize.setHMin(sizeHint().height() * AutoResize::twipsPerPixel);
}

frmProgresso::~frmProgresso() = default;

void frmProgresso::mostraPasso(int passo)
{
    ui->ProgressBar1->setValue(passo);
    Repaint();
}
