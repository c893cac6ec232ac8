#pragma once

#include <string>
#include <string_view>

/// Finds one sequence of bytes in many texts.
class ByteSearch
{
public:
    explicit ByteSearch(std::string needle);

    /// @return whether the needle occurs in text; an empty one occurs everywhere.
    bool FoundIn(std::string_view text) const noexcept;

    const std::string& Needle() const noexcept { return m_needle; }

private:
    std::string m_needle;
};
