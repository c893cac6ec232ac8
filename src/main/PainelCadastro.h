#pragma once

#include "main/Painel.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

class ClickableLabel;
class Recordset;
class RichTextBox;
class ServicosPrincipal;
class Value;

namespace Ui {
class PainelCadastro;
}

/// The song entry panel: shows one song, stores it, makes its two versions equal, deletes it, and
/// keeps the themes.
///
/// Which song it holds is told by txtCadTitulo's Tag alone: MUSICA.ID in decimal digits, "0" for a
/// new one. What the boxes hold is never asked for before it is replaced, but by cmdCadLimpar.
class PainelCadastro : public Painel
{
    Q_OBJECT

public:
    explicit PainelCadastro(QWidget* parent = nullptr);
    ~PainelCadastro() override;

    /// Connects the panel's controls. @param principal  outlives the panel
    void Liga_Eventos(ServicosPrincipal& principal);

    /// Prepares the panel and shows version 1. Reads MUSICA, TOM, VARIACAO, TEMA and TEMA_MUSICA;
    /// writes Funcoes::SQL, Consulta, Notas and Notas_Mais. A song that is gone leaves the fields
    /// as they are, and so does one that cannot be loaded to its end.
    /// @param id  MUSICA.ID; 0 for a new song
    /// @throws RuntimeError of the store
    void Inicializa_Cadastro(double id);

    /// Deletes the song that the panel holds, after a question, and searches anew.
    /// @throws RuntimeError of the store
    void cmdExcluir_Click();

    /// Gives the focus to txtCadTitulo.
    void Foca_Titulo();

private:
    static constexpr std::int16_t AjusteFonte = -6; ///< half points

    /// What a save stores, as the statements take it.
    struct Valores
    {
        QString titulo;
        QString referencia;
        std::array<QString, 2> letra;
        QString tom;
        QString variacao;
        int categoria = 0; ///< 1 or 2; 0 when none is chosen
    };

    /// @return txtCadTitulo's Tag
    QString Identidade() const;
    void Guarda_Identidade(const QString& id);
    void Habilita_Musica_Guardada(bool guardada);

    // Loading.
    void Prepara_Musica_Nova();
    void Carrega_Musica(double id);
    std::optional<std::array<QString, 2>> Carrega_Dados(double id);
    void Mostra_Letras(const std::array<QString, 2>& letras);
    std::function<void()> Guarda_Estado();
    void Preenche_Tons(const Value& selecao);
    void Preenche_Variacoes(const Value& selecao);
    void Preenche_Categorias(int posicao);
    void Preenche_Temas(const QString& selecionados);

    // Saving and deleting.
    Valores Le_Valores() const;
    bool Confere(const Valores& valores);
    bool Recusa(const QString& texto, QWidget& campo);
    bool Tem_Tema() const;
    void Executa_E_Pesquisa(const std::function<void()>& comandos);
    void Atualiza(double id, const Valores& valores);
    void Insere(const Valores& valores);
    void Insere_Temas(double id);
    void Exclui(double id);

    // Themes.
    QString Pede_Tema(const QString& pedido, const QString& titulo, const QString& inicial);
    bool Verifica_Tema_Duplicado(const QString& descricao);
    bool Recusa_Tema_Duplicado(const QString& descricao);

    void lblMostraMusica_Click(int indice);
    void cmdCadSalvar_Click();
    void cmdCadIgualarSalvar_Click();
    void cmdCadLimpar_Click();
    void cmdVisualizar_Click();
    void cmdCadTema_Click();
    void lstCadTema_MouseUp(Qt::MouseButton botao);
    void lstCadTema_KeyDown(int tecla);

    std::unique_ptr<Ui::PainelCadastro> ui;
    std::array<ClickableLabel*, 2> lblMostraMusica{};
    std::array<RichTextBox*, 2> txtCadLetra{};
    ServicosPrincipal* m_principal = nullptr;
};
