#pragma once

#include "controls/ModeloMusicas.h"
#include "store/Recordset.h"

/// @param musicas  a query's rows with ID, TITULO, REFERENCIA, TOM, VARIACAO and CONTADOR, in any
///                 order of columns
/// @return all of them, read as a song list shows them; NULL reads as empty text
/// @throws RuntimeError ObjectClosed; ItemNotFound without one of the columns
std::shared_ptr<const FonteMusicas> Fonte_Musicas(Recordset musicas);
