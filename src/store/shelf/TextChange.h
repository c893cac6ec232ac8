#pragma once

#include "store/dialect/Syntax.h"

#include <optional>

/// What a statement that changes rows does to the songs' texts (MUSICA.MUSICA, MUSICA2).
class TextChange
{
public:
    /// @param statement  resolved
    explicit TextChange(const Syntax::Statement& statement);

    /// @return whether it writes or deletes any that are there.
    bool IsThere() const noexcept { return m_isThere; }

    /// @return the ID of the only song that it reaches; nothing where that cannot be told
    std::optional<qint64> Song() const noexcept { return m_song; }

private:
    bool m_isThere = false;
    std::optional<qint64> m_song;
};
