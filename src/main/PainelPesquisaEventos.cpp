// The panel's handlers, and which control's event calls which.

#include "main/PainelPesquisa.h"

#include "ui_PainelPesquisa.h"

#include "controls/Handler.h"
#include "main/ServicosPrincipal.h"

void PainelPesquisa::Liga_Eventos(ServicosPrincipal& principal)
{
    using Form = PainelPesquisa;
    m_principal = &principal;
    Liga_Caixas();
    constexpr auto clicado = &QCheckBox::clicked;
    ConnectHandler(ui->chkReligiosa, clicado, this, &Form::chkReligiosa_Click);
    ConnectHandler(ui->chkSecular, clicado, this, &Form::chkSecular_Click);
    ConnectHandler(ui->chkOrdenar, clicado, this, &Form::chkOrdenar_Click);
    ConnectHandler(ui->lstTema, &ListBox::Click, this, &Form::lstTema_Click);
    ConnectHandler(ui->fraAlfa, &FaixaAlfabeto::Click, this, &Form::lblAlfa_Click);
    ConnectHandler(ui->lblResultado, &ClickableLabel::clicked, this, &Form::lblResultado_Click);

    const ListaMusicas* lista = ui->lstMusicas;
    ConnectHandler(lista, &ListaMusicas::ColumnClick, this, &Form::lstMusicas_ColumnClick);
    ConnectHandler(lista, &ListaMusicas::DblClick, this, &Form::lstMusicas_DblClick);
    ConnectHandler(lista, &ListaMusicas::KeyDown, this, &Form::lstMusicas_KeyDown);
    ConnectHandler(lista, &ListaMusicas::BotaoDireito, this, &Form::lstMusicas_BotaoDireito);
}

void PainelPesquisa::Liga_Caixas()
{
    using Form = PainelPesquisa;
    ConnectUnattended(ui->txtTitulo, &TextBox::Change, this, &Form::txtTitulo_Change);
    ConnectUnattended(ui->txtReferencia, &TextBox::Change, this, &Form::txtReferencia_Change);
    ConnectUnattended(ui->txtLetra, &TextBox::Change, this, &Form::txtLetra_Change);
    ConnectHandler(ui->txtTitulo, &TextBox::DblClick, this, &Form::txtTitulo_DblClick);
    ConnectHandler(ui->txtReferencia, &TextBox::DblClick, this, &Form::txtReferencia_DblClick);
    ConnectHandler(ui->txtLetra, &TextBox::DblClick, this, &Form::txtLetra_DblClick);
    ConnectHandler(ui->txtTitulo, &TextBox::KeyDown, this, &Form::txtTitulo_KeyDown);
    ConnectHandler(ui->txtReferencia, &TextBox::KeyDown, this, &Form::txtReferencia_KeyDown);
    ConnectHandler(ui->txtLetra, &TextBox::KeyDown, this, &Form::txtLetra_KeyDown);
    const std::array<const ImageButton*, 3> teclados{ui->imgTeclado_0, ui->imgTeclado_1,
                                                     ui->imgTeclado_2};
    for (int i = 0; i < 3; ++i)
        ConnectHandler(teclados[static_cast<std::size_t>(i)], &ImageButton::clicked, this,
                       [this, i] { imgTeclado_Click(i); });
}

void PainelPesquisa::txtTitulo_Change()
{
    m_principal->Reinicia_Timer1();
}

void PainelPesquisa::txtTitulo_DblClick()
{
    ui->txtTitulo->clear();
}

void PainelPesquisa::txtTitulo_KeyDown(int tecla)
{
    if (tecla == Qt::Key_Return)
        Abre_Primeira_Musica();
}

void PainelPesquisa::txtReferencia_Change()
{
    m_principal->Reinicia_Timer1();
}

void PainelPesquisa::txtReferencia_DblClick()
{
    ui->txtReferencia->clear();
}

void PainelPesquisa::txtReferencia_KeyDown(int tecla)
{
    if (tecla == Qt::Key_Return)
        Abre_Primeira_Musica();
}

void PainelPesquisa::txtLetra_Change()
{
    m_principal->Reinicia_Timer1();
}

void PainelPesquisa::txtLetra_DblClick()
{
    ui->txtLetra->clear();
}

void PainelPesquisa::txtLetra_KeyDown(int tecla)
{
    if (tecla == Qt::Key_Return)
        Abre_Primeira_Musica();
}

void PainelPesquisa::chkReligiosa_Click()
{
    Pesquisa();
}

void PainelPesquisa::chkSecular_Click()
{
    Pesquisa();
}

void PainelPesquisa::chkOrdenar_Click()
{
    Pesquisa();
}

void PainelPesquisa::lstTema_Click()
{
    Pesquisa();
}

void PainelPesquisa::lblAlfa_Click(int indice)
{
    if (indice >= FaixaAlfabeto::Tudo)
        Pesquisa();
    else
        Pesquisa(QString(QChar(static_cast<char16_t>(u'A' + indice))));
}

void PainelPesquisa::imgTeclado_Click(int indice)
{
    switch (indice) {
    case 0:
        m_principal->Mostra_Teclado(*ui->txtTitulo);
        break;
    case 1:
        m_principal->Mostra_Teclado(*ui->txtReferencia);
        break;
    case 2:
        m_principal->Mostra_Teclado(*ui->txtLetra);
        break;
    default:
        break;
    }
}

void PainelPesquisa::lblResultado_Click()
{
    const bool relatorio = ui->lstMusicas->View() == ListaMusicas::ReportView;
    ui->lstMusicas->SetView(relatorio ? ListaMusicas::ListView : ListaMusicas::ReportView);
}

void PainelPesquisa::lstMusicas_ColumnClick(int coluna)
{
    try {
        ui->lstMusicas->Ordena_Por(coluna);
    } catch (const std::exception&) {
        // the list stays as it is
    }
}

void PainelPesquisa::lstMusicas_DblClick()
{
    if (const auto id = ui->lstMusicas->Item_Selecionado())
        Abre_Musica(static_cast<double>(*id));
}

void PainelPesquisa::lstMusicas_KeyDown(int tecla)
{
    // The row is read before anything is asked: while a question is open the list may be filled
    // anew.
    const auto id = ui->lstMusicas->Item_Selecionado();
    if (!id)
        return;
    if (tecla != Qt::Key_Delete) {
        Abre_Musica(static_cast<double>(*id));
        return;
    }
    m_principal->mnuCadastro_Click();
    m_principal->Inicializa_Cadastro(static_cast<double>(*id));
    m_principal->cmdExcluir_Click();
}

void PainelPesquisa::lstMusicas_BotaoDireito()
{
    const auto id = ui->lstMusicas->Item_Selecionado();
    if (!id)
        return;
    m_principal->mnuCadastro_Click();
    m_principal->Inicializa_Cadastro(static_cast<double>(*id));
}
