// Pictures and colours. Read from two metres on a stage: a white sheet, a calm frame, few colours.

#include "viewer/frmVisualizar.h"

#include "artwork/Artwork.h"
#include "controls/Appearance.h"
#include "ui_frmVisualizar.h"

#include <QAbstractItemView>
#include <QApplication>

namespace {

constexpr int LarguraListaAberta = 480; // pixels

/// Gives a control's ground or text the colour of a role.
void Pinta(QWidget* controle, QPalette::ColorRole papel, QPalette::ColorRole cor)
{
    QPalette palette = controle->palette();
    palette.setColor(papel, QApplication::palette().color(cor));
    controle->setPalette(palette);
}

} // namespace

void frmVisualizar::Prepara_Aparencia()
{
    // Pictures are called like the controls they belong to.
    for (ImageButton* botao : findChildren<ImageButton*>())
        botao->setImage(Artwork::Path(u"viewer/"_qs + botao->objectName()));
    for (ImagemSvg* imagem : findChildren<ImagemSvg*>()) {
        const QString nome = imagem->objectName();
        const bool moldura = nome.startsWith(u"imgFundo");
        imagem->Mostra_Imagem(Artwork::Path((moldura ? u"frame/"_qs : u"viewer/"_qs) + nome));
    }

    // Titles with their references are longer than the box: opened, the list takes more room.
    ui->cmbLista->view()->setMinimumWidth(LarguraListaAberta);

    // The sheet is paper, under every look.
    QPalette folha = ui->pctMusica->palette();
    folha.setColor(QPalette::Window, Appearance::Surface);
    folha.setColor(QPalette::Highlight, Appearance::Accent); // of the ring around what is typed in
    ui->pctMusica->setPalette(folha);
    Pinta(ui->lblTemas, QPalette::WindowText, QPalette::PlaceholderText);
    Pinta(ui->lblCont, QPalette::WindowText, QPalette::PlaceholderText);
    // The key in the colour of the chords.
    Pinta(ui->lblTom, QPalette::WindowText, QPalette::Link);
    Pinta(ui->lblVersao, QPalette::WindowText, QPalette::Link);
}
