// Pictures and colours. Read from two metres on a stage: a white sheet, a calm frame, few colours.

#include "viewer/frmVisualizar.h"

#include "artwork/Artwork.h"
#include "controls/Appearance.h"
#include "ui_frmVisualizar.h"

#include <QAbstractItemView>

namespace {

constexpr int LarguraListaAberta = 480; // pixels

void Pinta(QWidget* controle, QPalette::ColorRole papel, QColor cor)
{
    QPalette palette = controle->palette();
    palette.setColor(papel, cor);
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

    Pinta(this, QPalette::Window, Appearance::Window);
    Pinta(ui->pctMusica, QPalette::Window, Appearance::Surface);
    Pinta(ui->lblTitulo, QPalette::WindowText, Appearance::Text);
    Pinta(ui->lblReferencia, QPalette::WindowText, Appearance::Text);
    Pinta(ui->lblTemas, QPalette::WindowText, Appearance::MutedText);
    Pinta(ui->lblCont, QPalette::WindowText, Appearance::MutedText);
    // The key in the colour of the chords.
    Pinta(ui->lblTom, QPalette::WindowText, Appearance::Accent);
    Pinta(ui->lblVersao, QPalette::WindowText, Appearance::Accent);
}
