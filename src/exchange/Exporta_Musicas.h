#pragma once

#include <QString>

#include <functional>

/// Where songs are exported to.
struct Destino_Exportacao
{
    QString arquivo; ///< the one file for all songs; "" for one file per song
    QString pasta;   ///< of the files, with a separator at its end; "" when the user gave up
};

/// Told after each song. @param posicao  of the song, from 1; 0 before the first
/// @param total    how many songs there are
/// @return false when nobody waits for the export any more
using Andamento_Exportacao = std::function<bool(int posicao, int total)>;

/// Writes songs into exchange files. Each is written whole or not at all and replaces a file of its
/// name without a question; of several songs with equal names the last one stays.
/// Reads MUSICA, TEMA and TEMA_MUSICA.
/// @param lista      MUSICA.ID each, with a comma behind it
/// @param andamento  may let events run
/// @return false when it was stopped by andamento: the one file is not written then
/// @throws RuntimeError of the store; FileFailure; InvalidUseOfNull where a song without a title
///         should name its file. Files that are written by then stay
bool Exporta_Musicas(const QString& lista, const Destino_Exportacao& destino,
                     const Andamento_Exportacao& andamento);
