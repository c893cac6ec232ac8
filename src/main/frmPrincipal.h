#pragma once

#include "exchange/ServicosExportacao.h"
#include "main/ServicosPrincipal.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <memory>

class Painel;
class QAction;
class QTimer;
class frmExportar;

namespace Ui {
class frmPrincipal;
}

/// The main form: menu bar, toolbar and three panels of which one is shown. It wires them together
/// and owns nothing of what they hold.
class frmPrincipal : public QMainWindow, public ServicosPrincipal, public ServicosExportacao
{
    Q_OBJECT

public:
    explicit frmPrincipal(QWidget* parent = nullptr);
    ~frmPrincipal() override;

    /// Lays the form out, opens the connection, fills the themes and starts the clock of the first
    /// search; then imports the file that the program was started with. Shows nothing.
    /// @param linha_comando  path of an exchange file; "" for none
    /// @throws RuntimeError when filling or importing fails; the form can be shown nevertheless
    void Form_Load(const QString& linha_comando);

    /// Interprets a text command of the form verb "@" argument: "abrir" with MUSICA.ID asks and
    /// opens the song, "msg" shows the argument. Anything else does nothing.
    void Executa_Comando(const QString& comando);

    void mnuPesquisa_Click();
    void mnuCadastro_Click() override;
    void mnuLista_Click();
    /// Shows the songs that are marked in the result list in the export form.
    virtual void mnuExportar_Click();
    virtual void mnuImportar_Click();
    void mnuSobre_Click();
    void mnuSair_Click();

    void Reinicia_Timer1() override;
    void Pesquisa() override;
    void Abre_Musica(double id) override;
    void Inicializa_Cadastro(double id) override;
    void cmdExcluir_Click() override;
    void Mostra_Teclado(TextBox& caixa) override;
    void Oculta_Teclado() override;
    void Preenche_Musicas(QString sql, ListaMusicas& lista) override;

protected:
    /// @return true when the setlist has no unsaved changes or the user gives them up
    virtual bool Verifica_Modificacoes();

    /// @return false when the form was closed meanwhile; it may be gone then
    virtual bool Inicializa_Lista();

    /// Imports an exchange file. @param caminho  its path
    virtual void Importa_Musicas(const QString& caminho);

    /// Opens the catalogue that config.ini names; does not return when it cannot.
    virtual void Conecta_Banco();

    void closeEvent(QCloseEvent* evento) override;

private:
    enum Indice { QuadroPesquisa, QuadroLista, QuadroCadastro, Quadros };

    void Monta_Toolbar();
    void Liga_Eventos();
    void Posiciona();
    void Mostra_Painel(Indice indice);
    void Toolbar_ButtonClick(const QAction* botao);
    void pctFrame_Click();
    void Timer1_Timer();
    void Form_Unload();

    /// @return MUSICA.ID of each song marked in the result list, in the order shown, with a comma
    ///         behind it; "" when none is marked
    QString Musicas_Selecionadas() const;

    std::unique_ptr<Ui::frmPrincipal> ui;
    std::array<Painel*, Quadros> pctFrame{};
    QTimer* Timer1;
    QPointer<frmExportar> m_exportar; ///< while it is being filled or shown
    bool m_conectado = false;
};
