#pragma once

#include "store/dialect/Syntax.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

/// A query that the songs in memory can answer:
///
///     SELECT columns of MUSICA FROM MUSICA
///     WHERE CATEGORIA IN (...) AND TITULO, REFERENCIA or MUSICA LIKE '...' AND
///           ID IN (SELECT ID_MUSICA FROM TEMA_MUSICA [WHERE ID_TEMA IN (...)])
///     ORDER BY [CONTADOR DESC,] TITULO
///
/// which is what FoldLinkJoin makes of a search. Each condition may be missing. Also, with the same
/// conditions, what is suggested while a song is being entered:
///
///     SELECT columns or TITULO & ' - ' & REFERENCIA ... ORDER BY TITULO & ' - ' & REFERENCIA
///     SELECT DISTINCT 1, REFERENCIA ... ORDER BY REFERENCIA
///
/// and songs that were marked, in the order of their IDs, which SQLite gives them in as well:
///
///     SELECT columns or MUSICA2 ... WHERE ID IN (...)
struct SongSearch
{
    enum class Field {
        Id,
        Title,
        Reference,
        Text,
        SecondText,
        Key,
        Variation,
        Category,
        Count,
        Label,
        One
    };
    enum class Order { Title, MostPlayed, Label, Reference, Id };

    struct Pattern
    {
        Field field = Field::Title; ///< Title, Reference or Text
        QByteArray like;            ///< UTF-8
    };

    struct Links
    {
        std::optional<std::vector<qint64>> themes; ///< TEMA.ID; nothing for any theme
    };

    std::vector<Field> columns;
    QStringList names;                             ///< of the columns
    std::optional<std::vector<qint64>> ids;        ///< sorted; some more than once
    std::optional<std::vector<qint64>> categories; ///< sorted
    std::vector<Pattern> patterns;
    std::optional<Links> links; ///< of a song, one at least has to exist
    Order order = Order::Title;
    bool eachReferenceOnce = false; ///< of songs whose references are alike, the first by its ID

    /// @param statement  resolved, its join folded
    /// @return nothing for a query of any other shape
    static std::optional<SongSearch> Recognise(const Syntax::Statement& statement);
};
