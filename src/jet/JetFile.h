#pragma once

#include <QString>

namespace JetFile {

/// @return true when the first bytes of the file say that it is a catalogue in the older format,
/// sound or not; false also when there is no such file
bool Recognises(const QString& path);

} // namespace JetFile
