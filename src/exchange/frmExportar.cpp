#include "exchange/frmExportar.h"

#include "ui_frmExportar.h"

#include "controls/Dialogs.h"
#include "controls/FileDialogs.h"
#include "controls/Handler.h"
#include "controls/HeldKeys.h"
#include "controls/LongTexts.h"
#include "exchange/Aviso_Exportacao.h"
#include "exchange/Exporta_Musicas.h"
#include "exchange/SQL_Exportacao.h"
#include "exchange/ServicosExportacao.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QPointer>

#include <optional>
#include <utility>

namespace {

/// Pictures follow each other so closely that the bar seems to move, and cost little.
constexpr qint64 EntreEventosMs = 40;

} // namespace

/// The form while songs are written: the bar in view and with the focus, nothing to press.
class frmExportar::Escrita
{
public:
    explicit Escrita(frmExportar& form)
        : m_form(&form)
    {
        form.m_escrevendo = true;
    }
    ~Escrita()
    {
        if (!m_form)
            return;
        Termina();
        m_form->m_escrevendo = false;
    }
    Escrita(const Escrita&) = delete;
    Escrita& operator=(const Escrita&) = delete;

    /// @return false when the form is gone
    bool Avanca(int posicao, int total)
    {
        if (posicao == 0)
            Comeca(total);
        m_form->ui->ProgressBar->setValue(posicao);
        if (posicao > 0 && posicao < total && m_desde.elapsed() < EntreEventosMs)
            return true;
        m_retrato.reset();
        m_form->ui->ProgressBar->setUpdatesEnabled(true);
        QCoreApplication::processEvents();
        if (!m_form)
            return false;
        if (posicao == total)
            Termina();
        else
            Prossegue();
        m_desde.restart();
        return true;
    }

private:
    void Comeca(int total)
    {
        QProgressBar& barra = *m_form->ui->ProgressBar;
        m_foco = m_form->focusWidget();
        barra.setRange(0, total);
        barra.show();
        barra.setFocus(); // else it goes on to the list when its control is disabled
        Habilita(false);
        m_comecou = true;
    }

    void Prossegue()
    {
        // A bar paints itself at each new per cent, at once; here it is painted when events run.
        m_form->ui->ProgressBar->setUpdatesEnabled(false);
        m_retrato.emplace(Funcoes::Conexao);
    }

    void Termina()
    {
        if (!std::exchange(m_comecou, false))
            return;
        Habilita(true);
        if (m_foco)
            m_foco->setFocus();
        m_form->ui->ProgressBar->setUpdatesEnabled(true);
        m_form->ui->ProgressBar->hide();
    }

    void Habilita(bool sim)
    {
        Ui::frmExportar& controles = *m_form->ui;
        for (QWidget* controle : {static_cast<QWidget*>(controles.chkArquivo),
                                  static_cast<QWidget*>(controles.cmdExportar),
                                  static_cast<QWidget*>(controles.cmdCancelar)})
            controle->setEnabled(sim);
    }

    QPointer<frmExportar> m_form;
    QPointer<QWidget> m_foco;
    QElapsedTimer m_desde;
    /// Each song's themes are a query of their own, and locking the catalogue would cost more than
    /// it. Never held while events run: other programs wait no longer than between two pictures.
    std::optional<Connection::Snapshot> m_retrato;
    bool m_comecou = false;
};

frmExportar::frmExportar(ServicosExportacao& principal, QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::frmExportar>())
    , m_principal(principal)
{
    using Form = frmExportar;
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->setupUi(this);
    ui->lstExportar->header()->setSectionsClickable(false);
    ui->lblAviso->setForegroundRole(QPalette::PlaceholderText);
    ui->lblAviso->hide();
    // The form does not jump when the bar comes and goes.
    QSizePolicy lugar = ui->ProgressBar->sizePolicy();
    lugar.setRetainSizeWhenHidden(true);
    ui->ProgressBar->setSizePolicy(lugar);
    ui->ProgressBar->hide();
    ConnectHandler(ui->cmdExportar, &QPushButton::clicked, this, &Form::cmdExportar_Click);
    ConnectHandler(ui->cmdCancelar, &QPushButton::clicked, this, &Form::cmdCancelar_Click);
    ConnectHandler(ui->lblAviso, &ClickableLabel::clicked, this, &Form::lblAviso_Click);
    ConnectHandler(ui->lstExportar, &ListaMusicas::KeyDown, this, &Form::lstExportar_KeyDown);
    new HeldKeys(*this, HeldKeys::Enter);
}

frmExportar::~frmExportar() = default;

// The text comes by value: the list that it is kept from may change while events run.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool frmExportar::Inicializa(QString MusicasExportar)
{
    const QPointer<frmExportar> viva(this);
    Funcoes::SQL = SQL_Musicas_Marcadas(MusicasExportar);
    m_principal.Preenche_Musicas(Funcoes::SQL, *ui->lstExportar);
    if (!viva)
        return false;
    ui->lblTitulo->setText(u"A(s) " % QString::number(ui->lstExportar->ListCount()) %
                           u" música(s) abaixo serão exportadas.");
    Lista_Exportar = MusicasExportar;
    Mostra_Aviso();
    return true;
}

void frmExportar::Mostra_Aviso()
{
    Aviso_Exportacao aviso;
    try {
        aviso = Aviso_Exportacao::De(Lista_Exportar);
    } catch (const RuntimeError&) {
        // The form opens without a word: a store that fails tells so when it exports.
    }
    m_aviso = aviso.todas;
    ui->lblAviso->setText(aviso.resumo);
    ui->lblAviso->setToolTip(LongTexts::Literal(m_aviso));
    ui->lblAviso->setAccessibleDescription(m_aviso);
    ui->lblAviso->setVisible(!aviso.resumo.isEmpty());
}

void frmExportar::lblAviso_Click()
{
    Funcoes::Mostra_Mensagem(this, m_aviso, Icone::Exclamacao);
}

void frmExportar::ShowModal()
{
    const ModalScope scope;
    exec();
}

void frmExportar::showEvent(QShowEvent* evento)
{
    QDialog::showEvent(evento);
    ui->cmdExportar->setFocus();
}

void frmExportar::reject()
{
    if (!m_escrevendo)
        QDialog::reject();
}

void frmExportar::lstExportar_KeyDown(int tecla)
{
    if (tecla != Qt::Key_Delete)
        ui->cmdExportar->click(); // the list takes Enter from the default button
}

Destino_Exportacao frmExportar::Escolhe_Destino()
{
    if (!ui->chkArquivo->isChecked()) {
        const QString pasta =
            Funcoes::Escolhe_Arquivo(this, {.especie = Pedido_Arquivo::Pasta,
                                            .titulo = QStringLiteral("Selecione a pasta destino")});
        return {{}, pasta.isEmpty() ? QString() : QString(pasta % QDir::separator())};
    }
    const QString arquivo = Funcoes::Escolhe_Arquivo(
        this, {.especie = Pedido_Arquivo::Salvar,
               .titulo = QStringLiteral("Salvar Arquivo"),
               .filtro = QStringLiteral("Arquivo do Melodario (*.mld)|*.mld"),
               .extensao = QStringLiteral("*.mld")});
    return {arquivo, arquivo.left(arquivo.lastIndexOf(QDir::separator()) + 1)};
}

bool frmExportar::Exporta(const Destino_Exportacao& destino)
{
    Escrita escrita(*this);
    return Exporta_Musicas(Lista_Exportar, destino, [&escrita](int posicao, int total) {
        return escrita.Avanca(posicao, total);
    });
}

void frmExportar::cmdExportar_Click()
{
    const QPointer<frmExportar> viva(this);
    const Destino_Exportacao destino = Escolhe_Destino();
    if (!viva || destino.pasta.isEmpty() || !Exporta(destino))
        return;
    if (destino.arquivo.isEmpty())
        Funcoes::Mostra_Mensagem(this, u"Arquivos gerados com sucesso!\nLocal: " % destino.pasta,
                                 Icone::Informacao);
    else
        Funcoes::Mostra_Mensagem(this, u"Arquivo gerado com sucesso!\nLocal: " % destino.arquivo,
                                 Icone::Informacao);
    if (viva)
        cmdCancelar_Click();
}

void frmExportar::cmdCancelar_Click()
{
    close();
}
