#pragma once

#include <QString>

namespace Funcoes {

/// The songs whose play was counted since the program started, whichever viewer showed them: each
/// MUSICA.ID as decimal text followed by a comma ("12,45,"). Never saved.
inline QString Musicas_Contadas;

} // namespace Funcoes
