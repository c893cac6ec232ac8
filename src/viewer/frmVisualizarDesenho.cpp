// The render cycle and everything that leads to it: key, font, chords, version.

#include "viewer/frmVisualizar.h"

#include "chords/Cifra.h"
#include "controls/Dialogs.h"
#include "runtime/Number.h"
#include "ui_frmVisualizar.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

constexpr std::int16_t Oitava = 12;
constexpr std::int16_t PassoFonte = 4; // half points
constexpr std::int16_t LimiteFonte = 16;

} // namespace

void frmVisualizar::Atualiza_Musica(std::int16_t versao)
{
    ui->lblVersao->setText(u"v."_qs + QString::number(versao));
    Tom_Atual = Number::AddInteger(Tom_Base, Deslocamento);
    if (Tom_Atual > Oitava)
        Tom_Atual = Number::AddInteger(Tom_Atual, -Oitava);
    else if (Tom_Atual < 1)
        Tom_Atual = Number::AddInteger(Tom_Atual, Oitava);
    Cabecalho_Musica();

    const std::size_t b = versao == 1 ? 1 : 2;
    RichTextBox& caixa = Caixa(versao);
    caixa.SetTextRTF(Funcoes::Monta_Cifra(Musica[b], Deslocamento, Ajuste_Fonte, Exibe_Cifras));
    Guarda_Limite_Rolagem(caixa);
    Posicao[b] = 0;
    Desenho_Pendente = true;
    caixa.setVisible(true);
    Caixa(b == 1 ? 2 : 1).setVisible(false);
    Auto_Rolagem(false);
}

/// How far the box can scroll is kept in its Tag, in pixels as decimal text.
void frmVisualizar::Guarda_Limite_Rolagem(RichTextBox& caixa)
{
    caixa.setProperty("Tag", QString::number(Funcoes::Calcula_Limite_Rolagem(caixa)));
}

void frmVisualizar::Sobe_Tom()
{
    Deslocamento = Number::AddInteger(Deslocamento, 1);
    // Not 0: an octave is the key as stored, so the next semitone is the first one above it.
    if (Deslocamento > Oitava)
        Deslocamento = 1;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Desce_Tom()
{
    Deslocamento = Number::AddInteger(Deslocamento, -1);
    if (Deslocamento < -Oitava)
        Deslocamento = -1;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Reseta_Tom()
{
    Deslocamento = 0;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Aumenta_Fonte()
{
    Ajuste_Fonte = Number::AddInteger(Ajuste_Fonte, PassoFonte);
    if (Ajuste_Fonte > LimiteFonte)
        Ajuste_Fonte = LimiteFonte;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Diminui_Fonte()
{
    // The limit comes before the step, so the smallest sheet is one step below it.
    if (Ajuste_Fonte < -LimiteFonte)
        Ajuste_Fonte = -LimiteFonte;
    Ajuste_Fonte = Number::AddInteger(Ajuste_Fonte, -PassoFonte);
    Atualiza_Musica(Versao);
}

void frmVisualizar::Mostra_Cifra()
{
    Exibe_Cifras = !Exibe_Cifras;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Muda_Versao()
{
    Auto_Rolagem(false);
    Versao = Versao == 1 ? 2 : 1;
    Atualiza_Musica(Versao);
}

void frmVisualizar::Copia_Musica()
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(Caixa(Versao).Text());
    Funcoes::Mostra_Mensagem(this,
                             u"Música copiada para a Área de Transferência.\r\n"
                             u"Abra um editor de textos de sua preferência e pressione CTRL + V"_qs,
                             Icone::Informacao);
}
