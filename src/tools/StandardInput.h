#pragma once

#include <QString>

class QTemporaryFile;

/// Puts the standard input into a file: a catalogue is read back and forth, which a pipe does not
/// allow.
/// @return why it could not be kept, in Portuguese; empty when it was
QString KeepInput(QTemporaryFile& file);
