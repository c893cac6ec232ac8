#pragma once

#include <QString>

#include <functional>

/// Puts a converted catalogue into the place of the old one. Whenever the program ends meanwhile,
/// the old catalogue or the new one is in that place, and the old file's bytes are somewhere.
namespace CatalogueSwap {

/// @return the file itself where the path is a link to it
QString RealPath(const QString& path);

/// @param path  a catalogue that exists
/// @return where the new one is made: beside it
QString DraftPath(const QString& path);

/// @return a name beside the old catalogue that nobody has yet and under which it may be kept
QString KeptPath(const QString& path);

/// What an interrupted writer left beside a catalogue of that name would be taken for a part of the
/// new one, whose rows the next opening would then undo.
/// @param path  where the new catalogue is to be
/// @throws RuntimeError FileFailure while such a file is there
void CheckPlace(const QString& path);

/// Gives the old catalogue its second name: the very file, or, where a disk knows no second names,
/// a copy.
/// @throws RuntimeError FileFailure, also when there is a file of that name, which stays
void KeepOld(const QString& path, const QString& kept);

/// Makes a copy that has its name only when all of it is on the disk, and compares it.
/// @throws RuntimeError FileFailure; there is no copy then
void CopyOld(const QString& path, const QString& kept);

/// Puts the new catalogue where there is none yet. @throws RuntimeError FileFailure
void PutBeside(const QString& draft, const QString& path);

/// Puts the new catalogue into the place of the old one, with its permissions.
/// @throws RuntimeError FileFailure; the old one is in its place then
void PutInPlace(const QString& draft, const QString& path);

} // namespace CatalogueSwap
