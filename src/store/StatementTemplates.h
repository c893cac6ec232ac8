#pragma once

#include "store/dialect/Dialect.h"
#include "store/dialect/Shape.h"
#include "store/shelf/SameSong.h"
#include "store/shelf/SongThemes.h"

#include <QHash>

#include <variant>
#include <vector>

/// What a statement asks that memory may answer.
struct AskedOfMemory
{
    /// @param statement  resolved
    explicit AskedOfMemory(const Syntax::Statement& statement);
    AskedOfMemory() = default;

    std::variant<std::monostate, SameSong, SameTheme, SongThemes> question;
};

/// A statement that was read before, and where the values of the next one of its shape go.
struct StatementTemplate
{
    /// @param shape  of the statement that is to run: it has the template's key
    /// @return what SQLite is given
    Translation With(const Shape& shape) const;

    /// As With. @return what memory is asked, if anything
    AskedOfMemory AskedWith(const Shape& shape) const;

    /// A literal whose value had a say in how the statement was rewritten.
    struct Fixed
    {
        qsizetype literal = 0;
        QString text;
    };

    Translation translation;           ///< without its values
    std::vector<qsizetype> parameters; ///< the literal that each value comes from
    std::vector<Fixed> fixed;          ///< all other literals
    AskedOfMemory asked;
};

/// The statements that were read last: queries and insertions that hold other values each time are
/// neither parsed nor resolved again. A template serves a statement only where every literal that
/// is no bound parameter is the same; it holds for one schema.
class StatementTemplates
{
public:
    /// More than all statements of the program take.
    static constexpr int Capacity = 64;
    /// Of one shape, told apart by what is fixed.
    static constexpr std::size_t MostVariants = 8;

    /// @return the template for a statement, nullptr where it has to be read; valid until the next
    ///         Keep or Clear
    const StatementTemplate* Find(const Shape& shape) const;

    /// Keeps what became of a statement, unless its values decide more than what is bound.
    /// @param statement    resolved, of the shape
    /// @param translation  of the statement, its numbers bound
    /// @param asked        of the statement
    void Keep(const Shape& shape, const Syntax::Statement& statement,
              const Translation& translation, const AskedOfMemory& asked);

    /// To be called when the schema changes.
    void Clear() { m_byKey.clear(); }

private:
    QHash<QString, std::vector<StatementTemplate>> m_byKey;
};
