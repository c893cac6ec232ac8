#pragma once

#include "jet/JetConversion.h"

#include <optional>

/// What a catalogue in the older format has that the program does not know: told before its
/// conversion where it is known by then and short, and after it where not. Names are the file's.
namespace Texto_Deixado {

/// @param deixado  nothing where it was not to be known in time
/// @return the end of the question, empty where nothing stays behind
QString Antes(const std::optional<JetConversion::LeftBehind>& deixado);

/// @return whether that end of the question has told of each table and column
bool Diz_Tudo(const std::optional<JetConversion::LeftBehind>& deixado);

/// @param deixado   what stayed behind, at least one table or column
/// @param guardado  the name of the file that keeps it
/// @return the report after the conversion
QString Depois(const JetConversion::LeftBehind& deixado, const QString& guardado);

} // namespace Texto_Deixado
