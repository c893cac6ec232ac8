#pragma once

#include "mld/ExchangeSong.h"

/// Writes exchange files, as text that whoever stores it encodes (store/CodePage), or encoded. What
/// makes up a document: the head, any number of songs, the tail.
///
/// The format escapes nothing: "<" and ">" are dropped from titles, references and lyrics, and an
/// "&" is written as it is (mld/ExchangeLoss tells which songs that harms).
namespace ExchangeWriter {

/// @return the declaration and the root's beginning, each with its line break.
QString Head();

/// Appends a song's lines. Only a text without a value is replaced by its default; an empty one
/// stays empty.
void Append(QString& document, const ExchangeSong& song);

/// As Append above, encoded already. @param document  in the code page
void Append(QByteArray& document, const StoredSong& song);

/// @return the root's end, without a line break.
QString Tail();

/// @return field as it is encoded: letters and their marks joined where one letter holds both,
/// since the code page has no marks to join.
QString Composed(const QString& field);

/// @param titulo  of a song
/// @return the name of its own file: without | > < " ? : * \ and /, with _ for blanks, and with its
///         extension
QString FileName(const QString& titulo);

} // namespace ExchangeWriter
