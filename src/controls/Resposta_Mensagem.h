#pragma once

#include <cstdint>

namespace Funcoes {

/// The answer that the last of the dialogs with several choices left; whoever shows one sets it to
/// 0 before and reads it afterwards. What the numbers mean stands with the dialog.
inline std::int16_t Resposta_Mensagem = 0;

} // namespace Funcoes
