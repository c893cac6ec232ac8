#pragma once

#include "store/TextPool.h"

#include <QtGlobal>

#include <deque>
#include <optional>
#include <string>
#include <string_view>

/// One song as lists and searches need it: everything but its texts.
struct SongRow
{
    using Number = std::optional<qint64>;
    using Text = std::optional<std::string_view>; ///< UTF-8, in the pile's pool

    qint64 id = 0;
    Number category;
    Number count;
    Text title;
    Text reference;
    Text key;
    Text variation;

    /// @return "title - reference"; what is missing is empty
    std::string Label() const
    {
        std::string label;
        label.append(title.value_or(std::string_view())).append(" - ");
        return label.append(reference.value_or(std::string_view()));
    }
};

/// Songs of one reading of the catalogue. A song that changes is added anew, the old one stays for
/// the results that show it: a result holds its pile.
struct SongPile
{
    TextPool texts;
    std::deque<SongRow> rows; ///< its elements never move

    /// @return bytes taken, about.
    std::size_t Size() const noexcept { return texts.Size() + rows.size() * sizeof(SongRow); }
};
