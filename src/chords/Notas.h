#pragma once

#include <QString>

#include <array>
#include <cstdint>

/// The two spellings of the twelve semitones and the lookup and shift of note names.
namespace Funcoes {

/// Index 0 holds "?", 1 to 12 the semitones in chromatic order.
using Escala = std::array<QString, 13>;

extern Escala Notas;        ///< column NOTA of the table TOM
extern Escala Notas_Mais;   ///< column MAIS of the same rows: the same pitches by their other names
extern QString Tabela_Nota; ///< where the last lookup found its name: "1" Notas, "2" Notas_Mais, ""

/// @param nome    a note name, compared exactly
/// @param tabela  receives "1", "2" or "" (the callers pass Tabela_Nota)
/// @return the index 1 to 12 of the name in Notas, else in Notas_Mais, else 0
std::int16_t Procura_Nota(QStringView nome, QString& tabela);

/// @param indice  the sum of an index and an offset in semitones
/// @return indice brought back by one octave at most: 1 to 12 for every index 1 to 12 and offset
///         -12 to +12, anything for others
int Corrige_Oitava(int indice) noexcept;

/// @param indice        0 to 12
/// @param deslocamento  semitones, -12 to +12
/// @return the name that many semitones further in the array that Tabela_Nota tells; "" when the
///         last lookup found nothing
/// @throws RuntimeError Overflow beyond 16 bits; SubscriptOutOfRange when the index leaves 0 to 12
///         after one correction by an octave
QString Transpoe_Nota(std::int16_t indice, std::int16_t deslocamento);

} // namespace Funcoes
