#pragma once

#include <QString>

#include <string>
#include <string_view>

/// UTF-8 one code point at a time, for text that may come from anywhere.
namespace Utf8 {

/// Stands for bytes that are no UTF-8.
inline constexpr char32_t Replacement = 0xFFFD;

/// @param at  position of a lead byte in text; moved behind the code point
/// @return the code point, Replacement for bytes that form none
char32_t Next(std::string_view text, std::size_t& at);

void Append(std::string& out, char32_t code);

/// @return all of text: QString takes a U+FEFF at the beginning for a mark and drops it, while a
/// stored text may well begin with one.
QString ToText(std::string_view text);

} // namespace Utf8
