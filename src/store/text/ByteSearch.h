#pragma once

#include <string>
#include <string_view>

/// Finds one sequence of bytes in many texts.
class ByteSearch
{
public:
    explicit ByteSearch(std::string needle);

    /// @return whether the needle occurs in text; an empty one occurs everywhere.
    bool FoundIn(std::string_view text) const noexcept { return Find(text) != Nowhere; }

    /// @return the first place from a place on, in bytes from 0; Nowhere when there is none
    std::size_t Find(std::string_view text, std::size_t from = 0) const noexcept;

    static constexpr std::size_t Nowhere = std::string_view::npos;

    const std::string& Needle() const noexcept { return m_needle; }

private:
    std::size_t FindPlain(std::string_view text, std::size_t from) const noexcept;

    std::string m_needle;
};
