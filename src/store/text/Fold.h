#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Text as a search compares it: letter case ignored, accents split off their letters, so that
/// composed and decomposed spellings are the same. Pure; all texts are UTF-8, and bytes that are
/// no UTF-8 count as U+FFFD.
namespace Fold {

/// One character as its reader sees it: a letter or sign with all accents on it.
struct Letter
{
    char32_t base = 0;         ///< in lower case, without accents
    std::uint64_t accents = 0; ///< up to three code points, packed in canonical order; 0 for none

    bool operator==(const Letter&) const = default;
};

/// Reads a text letter by letter. The text has to outlive the reader.
class Reader
{
public:
    explicit Reader(std::string_view text)
        : m_text(text)
    {
    }

    /// @return false at the end of the text; letter is then left alone
    bool Next(Letter& letter);

    /// @return the position in bytes behind the letter read last.
    std::size_t Position() const noexcept { return m_at; }

private:
    bool PlainNext(Letter& letter);

    std::string_view m_text;
    std::size_t m_at = 0;
};

/// @return all letters of a text.
std::vector<Letter> Letters(std::string_view text);

/// Appends the base of each letter to out: the text in lower case without any accent. Wherever
/// letters match letters, their bases are the same bytes, so a search for bases finds every
/// candidate; without accents in the pattern it finds exactly the matches.
void AppendBases(std::string& out, std::string_view text);

std::string Bases(std::string_view text);

/// A letter with accents among the bases of a text.
struct Accented
{
    std::size_t at = 0;        ///< where its base begins, in bytes from 0
    std::uint64_t accents = 0; ///< as in Letter
};

/// Appends the letters of a text that carry accents. With its bases they say all that a search
/// asks of a text, and take little room in any language written with Latin letters.
void AppendAccented(std::vector<Accented>& out, std::string_view text);

/// @return all letters of a text of which bases and accented letters are known.
std::vector<Letter> Letters(std::string_view bases, const std::vector<Accented>& accented);

/// Appends the base of one letter.
void AppendBase(std::string& out, const Letter& letter);

} // namespace Fold
