#pragma once

#include "mld/ExchangeSongs.h"

#include <functional>
#include <optional>

class QIODevice;

/// Reads exchange files. A file is read once, front to back, and is either well-formed from its
/// first to its last byte or refused as a whole: nobody gets a song of it before its end was seen.
namespace ExchangeReader {

/// Told now and then how far reading has come. @param bytes  read so far
/// @return false to give up
using Progress = std::function<bool(qint64 bytes)>;

/// @param file  open for reading
/// @return its songs; nothing where it is not well-formed, asks for anything outside itself, cannot
///         be read to its end, or progress gave up
/// @throws what progress throws, or std::bad_alloc
std::optional<ExchangeSongs> Read(QIODevice& file, const Progress& progress = {});

} // namespace ExchangeReader
