#pragma once

#include <QByteArray>

#include <functional>

class SongCollector;

/// The XML parser (libxml2), set up so that it reads what it is given and nothing else: a file that
/// asks for anything outside itself, an external entity or a DTD, is not well-formed for us.
/// Entities that the file declares itself are expanded, within the parser's limits and one of ours.
namespace ExchangeXml {

/// Gives the next piece of the file. @return it; empty at the end
/// @throws anything: parsing ends, and the exception goes on to whoever called Parse
using Source = std::function<QByteArray()>;

/// @param source     the file, in UTF-8 or as declared
/// @param isUtf8     true: whatever encoding is declared, the source is UTF-8
/// @param collector  told of everything in the order of the document, of an unfinished one also
/// @return true when the whole document is well-formed
bool Parse(const Source& source, bool isUtf8, SongCollector& collector);

} // namespace ExchangeXml
