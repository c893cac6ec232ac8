#pragma once

#include <QByteArray>
#include <QStringView>

/// What stays of a song when two spellings of it are to be the same.
namespace LyricLetters {

/// Takes the letters and digits of a song: in lower case, without accents, chord lines, blanks and
/// punctuation. Reads Notas and Notas_Mais.
/// @param title  in front of the lyrics
/// @param text   the song, lines separated by CR LF
/// @return UTF-8
QByteArray Of(QStringView title, QStringView text);

} // namespace LyricLetters
