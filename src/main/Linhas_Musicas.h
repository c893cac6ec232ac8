#pragma once

#include "controls/ModeloMusicas.h"
#include "store/Recordset.h"

/// @param musicas  a query's rows with ID, TITULO, REFERENCIA, TOM, VARIACAO and CONTADOR, in any
///                 order of columns; read from the current row to the last
/// @return what a song list shows of them; NULL reads as empty text
/// @throws RuntimeError ItemNotFound without one of the columns
std::vector<LinhaMusica> Le_Linhas_Musicas(Recordset& musicas);
