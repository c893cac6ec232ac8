#pragma once

#include "mld/ExchangeSong.h"
#include "songbook/CatalogueSongs.h"
#include "store/text/Like.h"

#include <QStringList>

#include <vector>

namespace Songbook {

/// Chooses songs as the program's search does: letter case never counts, a letter typed without an
/// accent finds it with any, a letter typed with one only that.
class SongChoice
{
public:
    /// @param titles  parts of titles, of which one has to be found; none asks for nothing. "%" and
    ///                its kin mean what they mean in the search
    /// @param themes  whole names of themes, of which the song needs one; none asks for nothing
    SongChoice(const QStringList& titles, const QStringList& themes);

    bool Takes(const ExchangeSong& song) const;

private:
    bool TakesTitle(const ExchangeSong& song) const;
    bool TakesThemes(const ExchangeSong& song) const;

    std::vector<Like> m_titles;
    std::vector<Like> m_themes;
};

/// What a setlist's name was found to mean.
struct FoundSetlist
{
    std::optional<Setlist> list;
    QString failure; ///< in Portuguese; empty when there is a list
};

/// @param name  a setlist's name or a part of it, with its date behind it ("Missa 05/03/2009")
///              where the name is not enough
FoundSetlist FindSetlist(const QList<Setlist>& lists, const QString& name);

} // namespace Songbook
