#pragma once

#include <QObject>

#include <array>
#include <functional>

class ListBox;
class QKeyEvent;
class QWidget;
class RichTextBox;
class TextBox;

/// What the song entry panel suggests below a box that is being typed into: songs whose title
/// begins like the one typed, which warns of duplicates, and references in use, which can be taken
/// over.
///
/// The lists float over the panels. Appearing they never take the focus; they cover neither their
/// box nor anything outside the form.
class Sugestoes : public QObject
{
    Q_OBJECT

public:
    /// The boxes of the entry panel that the suggestions belong to.
    struct Caixas
    {
        TextBox* txtCadTitulo;
        TextBox* txtCadReferencia;
        std::array<RichTextBox*, 2> txtCadLetra; ///< one of them is shown
    };

    /// Makes the lists and connects them and the boxes.
    /// @param painel       the entry panel, also the owner; the lists lie on its parent
    /// @param abre_musica  opens the song with that MUSICA.ID in a viewer
    Sugestoes(QWidget& painel, const Caixas& caixas, std::function<void(double)> abre_musica);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void Liga_Titulo();
    void Liga_Referencia();

    void txtCadTitulo_Change();
    void txtCadTitulo_GotFocus();
    void txtCadTitulo_LostFocus();
    void lstMusicasSemelhantes_DblClick();
    void Mostra_Musicas_Semelhantes();
    void Oculta_Musicas_Semelhantes();

    void txtCadReferencia_Change();
    void txtCadReferencia_GotFocus();
    void txtCadReferencia_KeyDown(int tecla);
    void lstReferenciasSemelhantes_DblClick();
    void lstReferenciasSemelhantes_KeyDown(QKeyEvent& evento);
    void lstReferenciasSemelhantes_LostFocus();
    void Mostra_Referencias_Semelhantes();
    void Oculta_Referencias_Semelhantes();

    void txtCadLetra_GotFocus();

    Caixas m_caixas;
    std::function<void(double)> m_abre_musica;
    ListBox* lstMusicasSemelhantes;
    ListBox* lstReferenciasSemelhantes;
};
