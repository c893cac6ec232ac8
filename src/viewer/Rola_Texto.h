#pragma once

#include <cstdint>

class RichTextBox;

namespace Funcoes {

/// Scrolls the box so that a vertical position is at its top.
/// @param posicao  pixels, from 0 to what Calcula_Limite_Rolagem tells
/// @throws RuntimeError Overflow from position 32768 on; the box then stays where it is
void Rola_Texto(RichTextBox& caixa, std::int32_t posicao);

} // namespace Funcoes
