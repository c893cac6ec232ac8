#pragma once

class TextBox;

/// What a panel asks of the main form: the clock that delays a search, the on-screen keyboard and
/// the other panels, which it does not know itself.
class ServicosPrincipal
{
public:
    virtual ~ServicosPrincipal() = default;

    /// Restarts the 200 ms after which a search runs.
    virtual void Reinicia_Timer1() = 0;

    /// Searches anew by what the search panel's controls say. Lets events run.
    /// @throws RuntimeError of the store
    virtual void Pesquisa() = 0;

    /// Opens a song in one more viewer. Errors are ignored. @param id  MUSICA.ID
    virtual void Abre_Musica(double id) = 0;

    /// Shows the song entry panel for a new song, unless the user stays with an unsaved setlist.
    virtual void mnuCadastro_Click() = 0;

    /// Prepares the song entry panel. @param id  MUSICA.ID; 0 for a new song
    virtual void Inicializa_Cadastro(double id) = 0;

    /// Deletes the song that the song entry panel holds, after a question.
    virtual void cmdExcluir_Click() = 0;

    /// Shows the on-screen keyboard below a box of the search panel.
    virtual void Mostra_Teclado(TextBox& caixa) = 0;

    virtual void Oculta_Teclado() = 0;
};
