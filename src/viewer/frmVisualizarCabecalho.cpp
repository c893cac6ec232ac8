// The header row: title, key, reference and themes side by side. Lengths are twips.

#include "viewer/frmVisualizar.h"

#include "chords/Notas.h"
#include "controls/Twips.h"
#include "ui_frmVisualizar.h"

#include <algorithm>

namespace {

constexpr int Margem = 120;
constexpr int Espaco = 240;
constexpr int ParteMinima = 8; // a caption is never cut below this part of the row

int Largura(const QWidget* controle)
{
    return Twips::FromPixels(controle->width());
}

void Poe_Esquerda(QWidget* controle, int esquerda)
{
    controle->move(Twips::ToPixels(esquerda), controle->y());
}

} // namespace

void frmVisualizar::Cabecalho_Musica()
{
    QString titulo = Titulo + u" ("_qs + Referencia + u")"_qs;
    setWindowTitle(titulo.replace(u"[*]"_qs, u"[*][*]"_qs)); // one alone marks a changed document
    ui->lblTitulo->Mostra_Texto(Titulo);
    // The key is always spelled from Notas, also when the song is stored in the other spelling.
    ui->lblTom->Mostra_Texto(u"("_qs + Funcoes::Notas.at(static_cast<std::size_t>(Tom_Atual)) +
                             Variacao + u")"_qs);
    ui->lblReferencia->Mostra_Texto(Referencia);
    ui->lblTemas->Mostra_Texto(Temas);
    Arruma_Cabecalho();
}

/// Gives the captions their widths, as far as there is room, and puts them side by side.
void frmVisualizar::Arruma_Cabecalho()
{
    for (RotuloCabecalho* rotulo : {ui->lblTitulo, ui->lblTom, ui->lblReferencia, ui->lblTemas})
        rotulo->Limita_Largura(rotulo->Largura_Inteira());
    Encurta_Cabecalho();

    const int titulo = Largura(ui->lblTitulo);
    const int tom = Largura(ui->lblTom);
    const int referencia = Largura(ui->lblReferencia);
    Poe_Esquerda(ui->lblTom, titulo + Margem + Espaco);
    Poe_Esquerda(ui->lblReferencia, titulo + Margem + Margem + tom + Espaco);
    Poe_Esquerda(ui->lblTemas, titulo + Margem + Margem + tom + Margem + referencia + Espaco);
}

void frmVisualizar::Encurta_Cabecalho()
{
    const int fim = std::max(Twips::FromPixels(ui->lblCont->x()) - Margem, 0);
    int uso = Margem + Largura(ui->lblTitulo) + Espaco + Largura(ui->lblTom);
    int adiante = 0; // up to here there is something to be seen
    for (const RotuloCabecalho* rotulo : {ui->lblReferencia, ui->lblTemas}) {
        adiante += Margem + Largura(rotulo); // an empty one keeps its place between the others
        if (!rotulo->text().isEmpty()) {
            uso += adiante;
            adiante = 0;
        }
    }

    // What matters least on stage gives way first. A key is short: only a variation of many letters
    // is cut.
    for (RotuloCabecalho* rotulo : {ui->lblTemas, ui->lblReferencia, ui->lblTitulo, ui->lblTom}) {
        const int inteira = Largura(rotulo);
        const int minima = std::min(inteira, fim / ParteMinima);
        const int corte = std::clamp(uso - fim, 0, inteira - minima);
        if (corte == 0)
            continue;
        rotulo->Limita_Largura(Twips::ToPixels(inteira - corte));
        uso -= corte;
    }
}
