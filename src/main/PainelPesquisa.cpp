#include "main/PainelPesquisa.h"

#include "ui_PainelPesquisa.h"

#include "controls/Handler.h"
#include "main/Linhas_Musicas.h"
#include "main/SQL_Pesquisa.h"
#include "main/ServicosPrincipal.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "store/Preenche.h"
#include "viewer/frmVisualizar.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

void Deixa_Eventos()
{
    QCoreApplication::processEvents();
}

/// While a list is emptied and filled again its last picture stays on the screen: every letter
/// typed into a box would flash otherwise.
class PinturaParada
{
public:
    explicit PinturaParada(QWidget& controle)
        : m_controle(&controle)
        , m_pintava(controle.updatesEnabled())
    {
        controle.setUpdatesEnabled(false);
    }
    ~PinturaParada()
    {
        if (m_controle)
            m_controle->setUpdatesEnabled(m_pintava);
    }
    PinturaParada(const PinturaParada&) = delete;
    PinturaParada& operator=(const PinturaParada&) = delete;

private:
    QPointer<QWidget> m_controle;
    bool m_pintava;
};

QString Texto_Contagem(int registros)
{
    return QString::number(registros) % u" Registro(s) Encontrado(s).";
}

} // namespace

PainelPesquisa::PainelPesquisa(QWidget* parent)
    : Painel(parent)
    , ui(std::make_unique<Ui::PainelPesquisa>())
{
    ui->setupUi(this);
    ui->Label3->setForegroundRole(QPalette::PlaceholderText);
    ui->lstTema->setMode(ListBox::CheckBoxes);
    ui->lblResultado->setKeyboardReachable(true);
    // Room for any count: the line below the list must not be laid out anew at every search.
    ui->lblResultado->ensurePolished();
    ui->lblResultado->setMinimumWidth(
        ui->lblResultado->fontMetrics().horizontalAdvance(Texto_Contagem(88888)));
}

PainelPesquisa::~PainelPesquisa() = default;

void PainelPesquisa::Liga_Eventos(ServicosPrincipal& principal)
{
    m_principal = &principal;
    Liga_Caixas();
    Liga_Lista();
    const auto pesquisa = [this] { Pesquisa(); };
    ConnectHandler(ui->chkReligiosa, &QCheckBox::clicked, this, pesquisa);
    ConnectHandler(ui->chkSecular, &QCheckBox::clicked, this, pesquisa);
    ConnectHandler(ui->chkOrdenar, &QCheckBox::clicked, this, pesquisa);
    ConnectHandler(ui->lstTema, &ListBox::Click, this, pesquisa);
    ConnectHandler(ui->fraAlfa, &FaixaAlfabeto::Click, this, &PainelPesquisa::lblAlfa_Click);
    ConnectHandler(ui->lblResultado, &ClickableLabel::clicked, this,
                   &PainelPesquisa::lblResultado_Click);
}

void PainelPesquisa::Liga_Caixas()
{
    const std::array<TextBox*, 3> caixas{ui->txtTitulo, ui->txtReferencia, ui->txtLetra};
    const std::array<ImageButton*, 3> teclados{ui->imgTeclado_0, ui->imgTeclado_1,
                                               ui->imgTeclado_2};
    for (int i = 0; i < 3; ++i) {
        TextBox* caixa = caixas[static_cast<std::size_t>(i)];
        ConnectUnattended(caixa, &TextBox::Change, this,
                          [this] { m_principal->Reinicia_Timer1(); });
        ConnectHandler(caixa, &TextBox::DblClick, this, [caixa] { caixa->clear(); });
        ConnectHandler(caixa, &TextBox::KeyDown, this, [this](int tecla) {
            if (tecla == Qt::Key_Return)
                Abre_Primeira_Musica();
        });
        ConnectHandler(teclados[static_cast<std::size_t>(i)], &ImageButton::clicked, this,
                       [this, i] { imgTeclado_Click(i); });
    }
}

void PainelPesquisa::Liga_Lista()
{
    ConnectHandler(ui->lstMusicas, &ListaMusicas::ColumnClick, this,
                   &PainelPesquisa::lstMusicas_ColumnClick);
    ConnectHandler(ui->lstMusicas, &ListaMusicas::DblClick, this,
                   &PainelPesquisa::lstMusicas_DblClick);
    ConnectHandler(ui->lstMusicas, &ListaMusicas::KeyDown, this,
                   &PainelPesquisa::lstMusicas_KeyDown);
    ConnectHandler(ui->lstMusicas, &ListaMusicas::BotaoDireito, this,
                   &PainelPesquisa::lstMusicas_BotaoDireito);
}

void PainelPesquisa::Preenche_Temas()
{
    Funcoes::SQL = QStringLiteral("SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO");
    Funcoes::Preenche_ListBox(*ui->lstTema, Funcoes::SQL, QString(), true);
}

Pedido_Pesquisa PainelPesquisa::Le_Pedido(const QString& inicial) const
{
    Pedido_Pesquisa pedido;
    pedido.inicial = inicial;
    pedido.titulo = ui->txtTitulo->text();
    pedido.referencia = ui->txtReferencia->text();
    pedido.letra = ui->txtLetra->text();
    pedido.religiosa = ui->chkReligiosa->isChecked() ? 1 : 0;
    pedido.secular = ui->chkSecular->isChecked() ? 1 : 0;
    for (int i = 0; i < ui->lstTema->ListCount(); ++i) {
        if (ui->lstTema->Selected(i))
            pedido.temas.append(ui->lstTema->ItemData(i));
    }
    pedido.ordenar = ui->chkOrdenar->isChecked();
    return pedido;
}

void PainelPesquisa::Pesquisa(const QString& inicial)
{
    const quint64 vez = ui->lstMusicas->Anuncia_Preenchimento();
    Deixa_Eventos();
    if (!ui->lstMusicas->Vale(vez))
        return;
    ui->lblResultado->setText(QStringLiteral("Aguarde..."));
    ui->fraAlfa->Marca(inicial.isEmpty() ? -1 : inicial.at(0).unicode() - u'A');
    Funcoes::SQL = Monta_SQL_Pesquisa(Le_Pedido(inicial));
    Preenche_Musicas(Funcoes::SQL, *ui->lstMusicas);
}

void PainelPesquisa::Preenche_Musicas(QString sql, ListaMusicas& lista)
{
    const QPointer<ListaMusicas> viva(&lista); // a form may close while events run
    const quint64 vez = lista.Anuncia_Preenchimento();
    const auto ultrapassado = [&viva, vez] { return !viva || !viva->Vale(vez); };

    Deixa_Eventos();
    if (ultrapassado())
        return;
    Recordset musicas;
    {
        const PinturaParada parada(lista);
        lista.Limpa();
        musicas = Funcoes::Conexao.Execute(sql);
        Funcoes::Consulta = musicas;
        if (musicas.Eof()) {
            Funcoes::Consulta = Recordset();
            ui->lblResultado->setText(Texto_Contagem(0));
            return;
        }
        Deixa_Eventos();
        if (ultrapassado())
            return;
        lista.Preenche_De(Fonte_Musicas(musicas));
        Funcoes::Consulta = Recordset();
    }
    Deixa_Eventos();
    if (!ultrapassado())
        ui->lblResultado->setText(Texto_Contagem(musicas.RecordCount()));
}

void PainelPesquisa::Abre_Musica(double id)
{
    try {
        auto* visualizador = new frmVisualizar; // deletes itself when it is closed
        visualizador->ID_Musica = id;
        visualizador->Show();
    } catch (const RuntimeError&) {
        // a song that cannot be shown is not opened, and that is all
    }
    m_principal->Oculta_Teclado();
}

void PainelPesquisa::Abre_Primeira_Musica()
{
    if (ui->lstMusicas->ListCount() > 0)
        Abre_Musica(static_cast<double>(ui->lstMusicas->Tag(0)));
}

void PainelPesquisa::Foca_Titulo()
{
    ui->txtTitulo->setFocus();
}

void PainelPesquisa::Abandona_Pesquisas()
{
    ui->lstMusicas->Anuncia_Preenchimento();
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
    } catch (const RuntimeError&) {
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
