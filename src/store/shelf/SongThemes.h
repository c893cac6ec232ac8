#pragma once

#include "store/dialect/Syntax.h"

#include <QString>

#include <optional>

/// The question which themes a song is linked to, as an export asks it of every song:
///
///     SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA
///     WHERE ID_MUSICA = 12
struct SongThemes
{
    qint64 song = 0;     ///< MUSICA.ID
    QString name;        ///< of the result's column
    qsizetype place = 0; ///< where the number begins in the statement

    /// @param statement  resolved
    /// @return nothing for a query of any other shape
    static std::optional<SongThemes> Recognise(const Syntax::Statement& statement);
};
