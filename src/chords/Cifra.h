#pragma once

#include <QString>

#include <cstdint>

namespace Funcoes {

/// Tells chord lines from lyric lines by their characters alone. Reads Notas and Notas_Mais.
/// @param linha  the characters of one line, without any line separator
/// @return true when every character is a note name, one of the 42 chord characters or the first
///         of a pair with "#" or "b"; so an empty line is a chord line
bool Linha_Cifra(QStringView linha);

/// Renders a song as an RTF document: lyrics plain, chord lines blue, bold and transposed, lines
/// that start with four blanks as headings in capitals. Reads Notas and Notas_Mais; leaves the
/// table of the last lookup in Tabela_Nota.
/// @param texto         the song, lines separated by CR LF
/// @param deslocamento  semitones, -12 to +12
/// @param ajuste_fonte  added to 34 half points
/// @param exibe_cifras  false leaves the chord lines out
/// @return the RTF document
/// @throws RuntimeError Overflow when the font size leaves 16 bits
QString Monta_Cifra(QStringView texto, std::int16_t deslocamento, std::int16_t ajuste_fonte,
                    bool exibe_cifras);

} // namespace Funcoes
