#pragma once

#include <QString>

/// The statements of the export. A marking list holds each MUSICA.ID with a comma behind it; the
/// "0" before it becomes a leading zero of the first one.

/// @param lista  marking list
/// @return the songs with their themes' links, as a song list shows them
QString SQL_Musicas_Marcadas(const QString& lista);

/// @param lista  marking list
/// @return all that is exported of the songs but their themes: ID, TITULO, REFERENCIA, MUSICA,
///         MUSICA2, TOM, VARIACAO and CATEGORIA
QString SQL_Musicas_Exportadas(const QString& lista);

/// @param id  MUSICA.ID in decimal
/// @return the DESCRICAO of each theme that the song is linked to
QString SQL_Temas_Exportados(const QString& id);
