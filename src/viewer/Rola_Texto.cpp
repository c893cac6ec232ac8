#include "viewer/Rola_Texto.h"

#include "controls/RichTextBox.h"
#include "runtime/Number.h"

#include <QScrollBar>

namespace {

// A scroll order is one 32-bit number: what to do in the low half, the position in the high one.
constexpr std::int32_t MetadeAlta = 0x10000;
constexpr std::int32_t IrParaPosicao = 4;

} // namespace

void Funcoes::Rola_Texto(RichTextBox& caixa, std::int32_t posicao)
{
    const std::int32_t ordem =
        Number::AddLong(Number::MultiplyLong(posicao, MetadeAlta), IrParaPosicao);
    caixa.verticalScrollBar()->setValue(ordem / MetadeAlta);
}
