#include "registers/cadastropessoa.h"

#include "app/core/caixas.h"
#include "app/core/rotirnas.h"
#include "app/core/sql.h"
#include "app/core/variaveis.h"
#include "lookups/consultasweb.h"
#include "lookups/validadocumento.h"
#include "platform/forms/dialogs.h"
#include "platform/forms/hourglass.h"
#include "platform/forms/textlimit.h"
#include "platform/forms/wrongboxes.h"
#include "platform/system/clock.h"
#include "platform/values/date.h"
#include "platform/values/format.h"
#include "platform/values/number.h"

using namespace Qt::StringLiterals;

using namespace Variaveis;

namespace {

const QString atencao = u"ATENÇÃO"_s;

/// A service's answer, which may be longer than the column behind the box.
void preenche(QLineEdit* caixa, const QString& texto)
{
    caixa->setText(TextLimit::of(caixa).admitted({}, texto, {}));
}

QString hoje()
{
    return Format(Clock::today(), u"dd/mm/yyyy");
}

} // namespace

CadastroPessoa::CadastroPessoa(const DescricaoPessoa& descricao) : descricao_(descricao) {}

void CadastroPessoa::monta(const ControlesPessoa& controles)
{
    pessoa = controles;
    textos_ = {{u"cpf"_s, pessoa.TXTCPF},
               {u"rg"_s, pessoa.TXTRG},
               {u"dtnasc"_s, pessoa.txtdtnasc},
               {descricao_.nome, pessoa.txtnome},
               {descricao_.fonefixo, pessoa.txtfone},
               {u"fonecel"_s, pessoa.txtnrcel},
               {u"eMail"_s, pessoa.txtemail},
               {u"cep"_s, pessoa.txtcepr},
               {u"rua"_s, pessoa.txtruar},
               {u"nrrua"_s, pessoa.txtNr},
               {u"bairro"_s, pessoa.txtbairror},
               {u"cidade"_s, pessoa.txtcidader},
               {u"uf"_s, pessoa.txtufr}};
    pessoa.DataGrid1->setColumns(descricao_.colunas);
    pessoa.DataGrid1->setDataSource(&Adodc1);
    wire();
}

void CadastroPessoa::wire()
{
    onLostFocus(pessoa.txtcodcli, &CadastroPessoa::txtcodcli_LostFocus);
    onLostFocus(pessoa.TXTCPF, &CadastroPessoa::TXTCPF_LostFocus);
    onLostFocus(pessoa.txtcepr, &CadastroPessoa::txtcepr_LostFocus);
    onChange(pessoa.codigoLigado, &CadastroPessoa::codigoLigado_Change);
    onLostFocus(pessoa.codigoLigado, &CadastroPessoa::codigoLigado_LostFocus);
    onKeyPress(pessoa.txtdtnasc, [this](int& tecla) { Rotirnas::MascaraData(tecla, *pessoa.txtdtnasc); });
    onKeyPress(pessoa.txtdtcad, [this](int& tecla) {
        if (!pessoa.txtdtcad->isReadOnly())
            Rotirnas::MascaraData(tecla, *pessoa.txtdtcad);
    });
    explain(u"Datas"_s, u"só os algarismos: as barras entram sozinhas"_s);
    onDblClick(pessoa.DataGrid1, &CadastroPessoa::DataGrid1_DblClick, levaOCodigo);
    onClick(pessoa.cmdsalva, &CadastroPessoa::cmdsalva_Click);
    onClick(pessoa.cmdretorna, &CadastroPessoa::cmdretorna_Click);
    onClick(pessoa.Command3, &CadastroPessoa::Command3_Click);
    onKey(Qt::Key_F10, &CadastroPessoa::Command3_Click);
    onKey(Qt::Key_F2, &CadastroPessoa::pesquisaLigado);
}

void CadastroPessoa::Form_Load()
{
    Adodc1.setConnectionString(StringConexao);
    Adodc1.setRecordSource(consulta());
    Adodc1.Refresh();
    mostraCadastro(hoje());
}

void CadastroPessoa::Form_Unload()
{
    FechaConexao();
    Adodc1.Close();
}

QString CadastroPessoa::consulta(const QString& filtro) const
{
    return "select * from " + descricao_.tabela + " where idlic = " + aspas(idlic) + filtro + " order by " +
           descricao_.nome;
}

bool CadastroPessoa::codigoInformado() const
{
    return isNumeric(pessoa.txtcodcli->text());
}

QString CadastroPessoa::condicaoDoCodigo() const
{
    return descricao_.codigo + " = " + codigoDaCaixa(pessoa.txtcodcli);
}

/// The code box keeps its text: leaving it empty or with an unknown code comes through here.
void CadastroPessoa::Limpa()
{
    limpaCampos();
    for (const Par& par : textos_)
        par.caixa->clear();
    pessoa.codigoLigado->clear();
    pessoa.nomeLigado->clear();
    pessoa.txtCdMun->clear();
    pessoa.txtmemo->clear();
    mostraCadastro(hoje());
    pessoa.cmdsalva->setEnabled(true);
    pessoa.DataGrid1->rest();
}

/// The date is never saved, and so the box only shows it; but that of a row without one has to be typed, or
/// the save would refuse the row for ever.
void CadastroPessoa::mostraCadastro(const QString& dia)
{
    pessoa.txtdtcad->setText(dia);
    const bool soMostra = isDate(dia);
    pessoa.txtdtcad->setReadOnly(soMostra);
    pessoa.txtdtcad->setFocusPolicy(soMostra ? Qt::ClickFocus : Qt::StrongFocus);
}

void CadastroPessoa::cmdretorna_Click()
{
    Limpa();
    pointAtNothing(*this);
    if (descricao_.limpaCodigo)
        pessoa.txtcodcli->clear();
    pessoa.Frame1->setEnabled(true);
    pessoa.TXTCPF->setFocus();
}

void CadastroPessoa::DataGrid1_DblClick()
{
    if (Adodc1.Recordset().Eof())
        return;
    pessoa.txtcodcli->setText(Adodc1.Recordset().Fields(descricao_.codigo).text());
    pessoa.txtcodcli->setFocus();
}

void CadastroPessoa::Command3_Click()
{
    const QString nome = InputBox(u"Nome: "_s, descricao_.tituloPesquisa).value_or(QString());
    Adodc1.setRecordSource(consulta(" AND " + descricao_.nome + " like " + contem(nome)));
    Adodc1.Refresh();
    pessoa.DataGrid1->setFocus();
}

void CadastroPessoa::pesquisaLigado()
{
    // Left behind the choice, the code box would empty the screen or load a row over it.
    if (pessoa.txtcodcli->hasFocus())
        pessoa.codigoLigado->setFocus();
    const auto escolha = descricao_.ligacao.pesquisa();
    if (!escolha)
        return;
    pessoa.codigoLigado->setText(escolha->codigo);
    pessoa.codigoLigado->setFocus();
}

void CadastroPessoa::codigoLigado_Change()
{
    pessoa.nomeLigado->clear();
}

void CadastroPessoa::codigoLigado_LostFocus()
{
    if (!isNumeric(pessoa.codigoLigado->text()))
        return;
    const DescricaoPessoa::Ligacao& ligacao = descricao_.ligacao;
    const auto nome =
        nomeDoCodigo("select * from " + ligacao.tabela + " where idlic = " + aspas(idlic) + " and " +
                         ligacao.codigo + " like " + codigoInteiro(pessoa.codigoLigado->text()),
                     ligacao.nome);
    pessoa.nomeLigado->setText(nome.value_or(QString()));
}

void CadastroPessoa::txtcodcli_LostFocus()
{
    if (!codigoInformado())
        return Limpa();
    std::optional<Hourglass> ampulheta(std::in_place);
    Adodc1.Refresh();
    Adodc1.Recordset().Find(condicaoDoCodigo());
    if (Adodc1.Recordset().Eof()) {
        ampulheta.reset();
        pointAt({pessoa.txtcodcli});
        MsgBox(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s, atencao);
        return Limpa();
    }
    mostra();
}

void CadastroPessoa::mostra()
{
    ADODB::Recordset& linha = Adodc1.Recordset();
    for (const Par& par : textos_)
        par.caixa->setText(linha.Fields(par.coluna).text());
    if (linha.Fields("dtnasc").isNull())
        pessoa.txtdtnasc->setText(u"Não Informado"_s);
    mostraCadastro(linha.Fields("dtcad").text());
    pessoa.txtmemo->setPlainText(linha.Fields("obs").text());
    pessoa.codigoLigado->setText(linha.Fields(descricao_.ligacao.codigo).text());
    mostraCampos(linha);
    codigoLigado_LostFocus();
}

void CadastroPessoa::TXTCPF_LostFocus()
{
    QString documento = pessoa.TXTCPF->text();
    const qsizetype tamanho = documento.trimmed().size();
    if (tamanho == 0)
        return;
    // It puts the mask of a bare CNPJ into this copy; the box keeps what was typed.
    Rotirnas::ValidaDocumento(documento);
    if (!Resultado.toBool())
        return pessoa.TXTCPF->clear();
    constexpr int cnpjSemMascara = 14;
    if (tamanho == cnpjSemMascara && MsgYesNo(u"Buscar dados cadastrais na receita?"_s, u"Atenção"_s))
        preencheEmpresa();
}

void CadastroPessoa::preencheEmpresa()
{
    const Hourglass ampulheta;
    const QString empresa = Funcoes::BuscaCnpj(pessoa.TXTCPF->text());
    const auto valor = [&empresa](const char* campo) {
        return Funcoes::ValorJson(empresa, QString::fromLatin1(campo));
    };
    preenche(pessoa.txtnome, valor("nome"));
    const QString cep = valor("cep"); // 12.345-678
    preenche(pessoa.txtcepr, cep.mid(0, 2) + cep.mid(3, 3) + cep.mid(7, 3));
    preenche(pessoa.txtruar, valor("logradouro"));
    preenche(pessoa.txtNr, valor("numero"));
    preenche(pessoa.txtbairror, valor("bairro"));
    preenche(pessoa.txtcidader, valor("municipio"));
    preenche(pessoa.txtufr, valor("uf"));
    preenche(pessoa.txtemail, valor("email"));
    const QString endereco = Funcoes::BuscaCepJson(pessoa.txtcepr->text());
    // The first two figures are the state's.
    preenche(pessoa.txtCdMun, Funcoes::ValorJson(endereco, u"ibge"_s).mid(2, 10));
}

void CadastroPessoa::txtcepr_LostFocus()
{
    const QString cep = pessoa.txtcepr->text().trimmed();
    if (cep.size() != 8)
        return;
    const Hourglass ampulheta;
    const QString endereco = Funcoes::BuscaCep(cep);
    if (endereco.isEmpty())
        return;
    const QStringList partes = endereco.split(QLatin1Char('|'));
    QLineEdit* const caixas[] = {pessoa.txtruar, pessoa.txtbairror, pessoa.txtcidader, pessoa.txtufr,
                                 pessoa.txtCdMun};
    for (qsizetype i = 0; i < qsizetype(std::size(caixas)); ++i)
        preenche(caixas[i], partes.value(i));
}

bool CadastroPessoa::desisteSemNascimento()
{
    if (isDate(pessoa.txtdtnasc->text()))
        return false;
    pointAt({pessoa.txtdtnasc});
    return !MsgYesNo(u"Atenção!!! Data de nascimento não informada ou inválida!\n"
                     "Prosseguir assim mesmo?"_s,
                     u"Atençã"_s);
}

bool CadastroPessoa::semTelefone()
{
    if (!isVazia(pessoa.txtfone) || !isVazia(pessoa.txtnrcel))
        return false;
    pointAtAnyOf({pessoa.txtfone, pessoa.txtnrcel});
    MsgBox(u"Informe o fone fixo e/ou celular!"_s, u"Atenção"_s);
    return true;
}

bool CadastroPessoa::recusaCadastro()
{
    if (isDate(pessoa.txtdtcad->text()))
        return false;
    pointAt({pessoa.txtdtcad});
    MsgBox(u"--- ERRO --- DATA DE CADASTRO INCORRETA!"_s, atencao);
    return true;
}

void CadastroPessoa::cmdsalva_Click()
{
    if (desisteSemNascimento() || recusa() || recusaCadastro() || !posicionaParaGravar())
        return;
    const Hourglass ampulheta;
    grava();
    Adodc1.Refresh();
    cmdretorna_Click();
    pessoa.txtcodcli->clear();
    pessoa.txtcodcli->setFocus();
}

/// Begins a new row, or makes the row of the typed code the current one again: the grid may have moved away
/// from it, and a search may have left it out of the rows, since the code box was left.
bool CadastroPessoa::posicionaParaGravar()
{
    ADODB::Recordset& linhas = Adodc1.Recordset();
    if (!codigoInformado()) {
        linhas.AddNew();
        linhas.Fields("idlic") = idlic;
        linhas.Fields("dtcad") = Clock::today();
        return true;
    }
    linhas.Find(condicaoDoCodigo());
    if (!linhas.Eof())
        return true;
    pessoa.Frame1->setEnabled(true);
    pointAt({pessoa.txtcodcli});
    MsgBox(u"--- ERRO --- CÓDIGO NÃO ENCONTRADO!"_s, atencao);
    return false;
}

void CadastroPessoa::grava()
{
    ADODB::Recordset& linha = Adodc1.Recordset();
    for (const Par& par : textos_)
        linha.Fields(par.coluna) = par.caixa->text();
    linha.Fields(descricao_.ligacao.codigo) = integerPart(pessoa.codigoLigado->text());
    gravaCampos(linha);
    linha.Fields("obs") = pessoa.txtmemo->toPlainText();
    linha.Fields("evup") = carimboRegistro();
    linha.Update();
}
