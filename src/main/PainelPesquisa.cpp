#include "main/PainelPesquisa.h"

#include "ui_PainelPesquisa.h"

#include "artwork/Artwork.h"
#include "main/Linhas_Musicas.h"
#include "main/SQL_Pesquisa.h"
#include "main/ServicosPrincipal.h"
#include "store/Connection.h"
#include "store/Preenche.h"
#include "viewer/frmVisualizar.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace {

void Deixa_Eventos()
{
    QCoreApplication::processEvents();
}

/// While a list is emptied and filled again its last picture stays on the screen: every letter
/// typed into a box would flash otherwise. Should a box be opened meanwhile, the list is painted
/// again from then on: nobody knows how long the box will stand.
class PinturaParada final : public QObject
{
public:
    explicit PinturaParada(ListaMusicas& lista)
        : m_lista(&lista)
        , m_segurava(lista.Segurada())
    {
        lista.Segura(true);
        lista.window()->installEventFilter(this);
    }
    ~PinturaParada() override { Retoma(); }
    PinturaParada(const PinturaParada&) = delete;
    PinturaParada& operator=(const PinturaParada&) = delete;

    bool eventFilter(QObject* /*janela*/, QEvent* evento) override
    {
        if (evento->type() == QEvent::WindowBlocked)
            Retoma();
        return false;
    }

private:
    void Retoma()
    {
        if (m_lista)
            m_lista->Segura(m_segurava);
        m_lista.clear();
    }

    QPointer<ListaMusicas> m_lista;
    bool m_segurava;
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
    // Room for any count, and none to give: with a size of its own the panel is not laid out anew
    // twice at every search.
    ui->lblResultado->ensurePolished();
    ui->lblResultado->setFixedSize(
        ui->lblResultado->fontMetrics().horizontalAdvance(Texto_Contagem(8888888)),
        ui->lblResultado->sizeHint().height());
}

PainelPesquisa::~PainelPesquisa() = default;

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

// The text comes by value: whatever runs while events are let through writes the shared buffer.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
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
            lista.ShowWhenEmpty(Artwork::Path(QStringLiteral("toolbar/pesquisa")));
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
    } catch (const std::exception&) {
        // a song that cannot be shown is not opened, and that is all
    }
    try {
        m_principal->Oculta_Teclado();
    } catch (const std::exception&) {
        // the song is open all the same
    }
}

void PainelPesquisa::Abre_Primeira_Musica()
{
    if (ui->lstMusicas->ListCount() > 0)
        Abre_Musica(static_cast<double>(ui->lstMusicas->Tag(0)));
}

QList<qint64> PainelPesquisa::Musicas_Marcadas() const
{
    return ui->lstMusicas->Itens_Selecionados();
}

void PainelPesquisa::Foca_Titulo()
{
    ui->txtTitulo->setFocus();
}

void PainelPesquisa::Abandona_Pesquisas()
{
    ui->lstMusicas->Anuncia_Preenchimento();
}
