#pragma once

#include "mld/ExchangeSong.h"
#include "store/Recordset.h"

/// @param linha  the current row of the statement SQL_Musicas_Exportadas
/// @return the song without its themes; NULL columns have no value
/// @throws RuntimeError NoCurrentRecord; TypeMismatch where CATEGORIA is no number
ExchangeSong Musica_Exportada(const Recordset& linha);

/// As Musica_Exportada. @return texts that are valid as long as the recordset is open
StoredSong Musica_Guardada(const Recordset& linha);

/// @param linha  as for Musica_Exportada
/// @return MUSICA.ID in decimal
QString Id_Exportado(const Recordset& linha);

/// @param id  MUSICA.ID in decimal
/// @return the descriptions of the song's themes, in UTF-8, in the order of their IDs, a theme
/// linked twice twice; NULL is ""
/// @throws RuntimeError of the store
QList<QByteArray> Temas_Exportados(const QString& id);
