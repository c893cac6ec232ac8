#pragma once

#include <QWidget>

#include <array>
#include <cstdint>
#include <memory>

class QTimer;
class RichTextBox;
class TelaAcesa;
class TeclasEdicao;

namespace Ui {
class frmVisualizar;
}

/// The viewer: one song as a chord sheet over the whole screen. Every opening makes a new one with
/// new, shows it with Show() and forgets it: a viewer belongs to nobody and deletes itself when it
/// is closed. Several live side by side, each with its own state; only the note arrays, the
/// statement buffer and the connection are shared.
///
/// The procedures keep the names that the rest of the program knows them by. Those that end in
/// Atualiza_Musica stop the automatic scrolling and put the sheet back to its top.
class frmVisualizar : public QWidget
{
    Q_OBJECT

public:
    frmVisualizar();
    ~frmVisualizar() override;

    /// MUSICA.ID of the song to show; 0 when a setlist is opened. Setting it loads nothing.
    double ID_Musica = 0;
    /// LISTA.ID of the setlist to play; 0 when a single song is opened. Setting it loads nothing.
    double ID_Lista = 0;

    /// Loads what the two variables name and shows the form, modeless and without an owner.
    /// Reads MUSICA, TOM, TEMA and TEMA_MUSICA.
    /// @throws RuntimeError when loading fails; the form then deletes itself and is never seen
    void Show();

    // The song and its header.
    void Carrega_Musica();
    void Cabecalho_Musica();

    /// The render cycle. @param versao  1, or any other value for version 2
    void Atualiza_Musica(std::int16_t versao);

    // Key: Deslocamento runs from -12 to 12 semitones, and past either end goes on at 1 or -1.
    void Sobe_Tom();
    void Desce_Tom();
    void Reseta_Tom();

    // Font: Ajuste_Fonte runs from -20 to 16 half points in steps of 4.
    void Aumenta_Fonte();
    void Diminui_Fonte();

    void Mostra_Cifra();
    void Muda_Versao();

    /// Puts the shown version's plain text on the clipboard and says so. No button calls it.
    void Copia_Musica();

    /// @param inicia  true starts the automatic scrolling, false stops it
    void Auto_Rolagem(bool inicia = false);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The window manager's own close asks like cmdFechar while the song is edited.
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Loading and layout.
    void Prepara_Aparencia();
    void Prepara_Teclado();
    void Liga_Eventos();
    void Form_Load();
    void Confugura_Posicao();
    void Arruma_Controles();
    void Posiciona_Faixa();
    void Posiciona_Lista();
    void Posiciona_Moldura();
    void Posiciona_Linhas();
    void Carrega_Tons(const QString& tom);
    void Arruma_Cabecalho();
    void Encurta_Cabecalho();
    RichTextBox& Caixa(std::int16_t versao) const;

    void cmdSobe_Click();
    void cmdDesce_Click();
    void cmdTomOriginal_Click();
    void cmdLetra_Click();
    void cmdAumentaFonte_Click();
    void cmdDiminuiFonte_Click();
    void lblVersao_Click();
    void cmdAnterior_Click();
    void cmdProxima_Click();
    void cmdFechar_Click();
    void cmdMinimizar_Click();

    // Moving through the song list.
    void Carrega_Lista_Inicial();
    /// Fills cmbLista: without a song with the setlist, of which the entry at indice (from 0) is
    /// selected; else with the song's category. Reads MUSICA and LISTA_MUSICA.
    void Carrega_Musicas_Lista(int indice);
    void Vai_Para_Musica(int indice);
    void Proxima_Musica();
    void Musica_Anterior();
    void Mostra_Proximo_Anterior();
    void cmbLista_Click();
    void Carrega_Escolhida();

    // Keys.
    /// @param codigo    the key's number (CodigosTecla.h)
    /// @param shift     1 for Shift, 2 for Ctrl, 4 for Alt, added up
    /// @param repetida  the key is held down and this is not its first press
    /// @return true when the key goes on to the control that has the focus
    bool Form_KeyDown(int codigo, int shift, bool repetida);

    // Scrolling of the shown box; positions and amounts in pixels.
    void Prepara_Rolagem();
    /// @return the new position, not below 0
    double Sobe_Rolagem(double quantidade);
    /// @return the new position, not past the limit that the box's Tag holds
    double Desce_Rolagem(double quantidade);
    double Limite_Rolagem() const;
    static void Guarda_Limite_Rolagem(RichTextBox& caixa);
    /// @throws RuntimeError Overflow from position 32768 on
    void Rola_Ate(double posicao);
    void Rola_Acima();
    void Rola_Abaixo();
    void Rola_Inicio();
    void Rola_Fim();
    void Alterna_Rolagem();
    /// The Tag of TimerRolagem is the period in ms as decimal text; the bar shows its level, 1 to
    /// 16.
    void Acelera_Rolagem();
    void Freia_Rolagem();
    void TimerRolagem_Timer();
    void cmdAutoRolagem_Click();
    void cmdAutoRolagem2_Click();

    // Play count.
    void Prepara_Contagem();
    void tmrContador_Timer();
    /// Counts one play of the song, once in a run of the program. Writes MUSICA.CONTADOR.
    /// @param id  MUSICA.ID; one of no song counts nothing
    void Conta_Musica(double id);

    // Editing in place.
    void Liga_Edicao();
    /// Switches the controls into or out of edit mode. Editando is set by who calls, and before.
    void Muda_Status_Edicao(bool editar);
    void Mostra_Pares(bool editar);
    void Permite_Digitar(bool editar);
    void Leva_Foco(bool editar);
    /// Asks, and on Yes leaves edit mode and shows the stored text again.
    void Descartar_Edicao();
    /// Asks what to do with what was typed, and does it. Writes MUSICA.
    /// @return false when the user goes on editing: nothing changed then
    /// @throws RuntimeError when saving fails; what was typed stays in the box
    bool Salvar();
    void Iguala_Versoes();
    void Grava_Musica();
    void Comeca_Edicao();
    void Traz_A_Frente();
    void RichTextBox_GotFocus();
    void cmdEditar_Click();
    void cmdSalvar_Click();
    void cmdDescartar_Click();

    std::unique_ptr<Ui::frmVisualizar> ui;
    std::unique_ptr<TelaAcesa> Tela_Acesa; ///< from the showing to the end
    bool Abrindo = false;                  ///< the list is set without anything being loaded
    int Indice_Mostrado = -1;              ///< of the shown song in cmbLista, from 0
    QTimer* TimerRolagem;
    QTimer* tmrContador;
    TeclasEdicao* Teclas_Edicao;

    QString Titulo;
    QString Referencia;
    std::array<QString, 3> Musica; ///< 1 and 2: the two versions as loaded
    QString Tom;
    QString Variacao;
    QString Temas;
    std::int16_t Tom_Base = 0;       ///< index 1 to 12 of the stored key; 0 for an unknown one
    std::int16_t Tom_Atual = 0;      ///< index of the key that is displayed
    std::int16_t Deslocamento = 0;   ///< semitones, -12 to 12
    std::int16_t Ajuste_Fonte = 0;   ///< half points, -20 to 16
    bool Exibe_Cifras = true;        ///< false leaves the chord lines out
    std::int16_t Versao = 2;         ///< 1 or 2
    bool Editando = false;           ///< edit mode
    std::array<double, 3> Posicao{}; ///< 1 and 2: scroll position of either box, in pixels
    std::int16_t Contagem = 0;       ///< seconds left before the play is counted
    bool Desenho_Pendente = false;   ///< the sheet was rendered and is not yet painted
    QSize Tamanho_Arrumado;          ///< the form's size that the controls were laid out for
};
