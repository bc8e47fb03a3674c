#pragma once

#include "registers/cadastrosimples.h"

/// Insurance plans, with the discount that each gives.
class frmCadConvenios : public CadastroSimples
{
    Q_OBJECT

public:
    frmCadConvenios();

protected:
    bool recusa() override;
    void mostraCampos(ADODB::Recordset& linha) override;
    void limpaCampos() override;
    void gravaCampos(ADODB::Recordset& linha) override;
    bool achaParaEditar() override;
};

/// Medical specialities.
class frmCadEspecialidade : public CadastroSimples
{
    Q_OBJECT

public:
    frmCadEspecialidade();
};

/// Procedures, each done at the clinic or at home.
class frmCadProcedimentos : public CadastroSimples
{
    Q_OBJECT

public:
    frmCadProcedimentos();

protected:
    bool recusa() override;
    void mostraCampos(ADODB::Recordset& linha) override;
    void gravaCampos(ADODB::Recordset& linha) override;

private:
    QString local() const;
};

/// The registers that save by a statement of their own: a quote in the name breaks it.
class CadastroPorComando : public CadastroSimples
{
    Q_OBJECT

public:
    /// The two statements for a name, the change also for a code.
    using Insere = std::function<QString(const QString& nome)>;
    using Altera = std::function<QString(const QString& nome, const QString& codigo)>;

    CadastroPorComando(const DescricaoCadastro& descricao, Insere insere, Altera altera);

protected:
    void grava() override;

private:
    Insere insere_;
    Altera altera_;
};

/// Groups of products.
class frmCadGrupoEstoque : public CadastroPorComando
{
    Q_OBJECT

public:
    frmCadGrupoEstoque();
};

class frmCadCentroCusto : public CadastroPorComando
{
    Q_OBJECT

public:
    frmCadCentroCusto();
};

class frmCadSubCentro : public CadastroPorComando
{
    Q_OBJECT

public:
    frmCadSubCentro();
};
