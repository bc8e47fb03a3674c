#pragma once

#include "registers/busca.h"

/// The search dialogs. Each is opened modally by the screen that needs a code.

class frmBuscaConvenios : public Busca
{
    Q_OBJECT

public:
    frmBuscaConvenios();
};

class frmBuscaEspecialidades : public Busca
{
    Q_OBJECT

public:
    frmBuscaEspecialidades();
};

class frmBuscaGrupo : public Busca
{
    Q_OBJECT

public:
    frmBuscaGrupo();
};

/// The two dialogs of cost centres look the right up row by row, for a user whose name nothing ever fills:
/// unless a row with an empty name exists, nobody may open the register from here.
class BuscaDeCentro : public Busca
{
    Q_OBJECT

public:
    using Busca::Busca;

protected:
    bool podeCadastrar(const QString& direito) const override;
};

class frmBuscaCentroCusto : public BuscaDeCentro
{
    Q_OBJECT

public:
    frmBuscaCentroCusto();
};

class frmBuscaSubCentroCusto : public BuscaDeCentro
{
    Q_OBJECT

public:
    frmBuscaSubCentroCusto();
};

/// Procedures of the clinic, whoever asks: the place is set when the dialog is loaded.
class frmBuscaProcedimentos : public Busca
{
    Q_OBJECT

public:
    frmBuscaProcedimentos();

protected:
    void Form_Load() override;
};

/// Products; hands back the code alone.
class frmBuscaProd : public Busca
{
    Q_OBJECT

public:
    frmBuscaProd();
};

class frmBuscaFornecedor : public Busca
{
    Q_OBJECT

public:
    frmBuscaFornecedor();
};

class frmBuscaPacientes : public Busca
{
    Q_OBJECT

public:
    frmBuscaPacientes();
};

/// Professionals who visit at home.
class frmBuscaProf : public Busca
{
    Q_OBJECT

public:
    frmBuscaProf();
};
