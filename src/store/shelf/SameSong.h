#pragma once

#include "store/dialect/Syntax.h"

#include <QString>

#include <optional>

/// The question which theme has a name, as an import asks it for every theme of a song:
///
///     SELECT ID FROM TEMA WHERE DESCRICAO = '...'
struct SameTheme
{
    QString description;
    QString name;        ///< of the result's column
    qsizetype place = 0; ///< where the text begins in the statement

    /// @param statement  resolved
    /// @return nothing for a query of any other shape
    static std::optional<SameTheme> Recognise(const Syntax::Statement& statement);
};

/// The question whether a song is stored already, as an import asks it of every song:
///
///     SELECT ID FROM MUSICA WHERE TITULO = '...' AND REFERENCIA = '...'
struct SameSong
{
    QString title;
    QString reference;
    QString name;             ///< of the result's column
    qsizetype titlePlace = 0; ///< where both texts begin in the statement
    qsizetype referencePlace = 0;

    /// @param statement  resolved
    /// @return nothing for a query of any other shape
    static std::optional<SameSong> Recognise(const Syntax::Statement& statement);
};
