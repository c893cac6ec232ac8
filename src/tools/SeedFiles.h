#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/// The text files that a new catalogue is made from. UTF-8, lines ended by LF or CR LF; lines that
/// start with "#" are comments (in a song file only above its texts).
namespace Seed {

/// One theme of the themes file.
struct Theme
{
    QString description;
    int order = 0; ///< sort group, 0 to 32767
    int line = 0;  ///< where it stands, from 1
};

/// One song file.
struct Song
{
    QString title;
    QString reference;
    QString key;               ///< a name of the column NOTA
    QString variation;         ///< a text of the column NOMENCLATURA, may be empty
    int category = 0;          ///< 1 Religiosa, 2 Secular
    QStringList themes;        ///< descriptions, at least one, none twice
    QString text;              ///< version 1, lines separated by CR LF, never empty
    QString secondText;        ///< version 2, may be empty
    QHash<QString, int> lines; ///< field name as written in the file ("TOM") to its line, from 1
};

/// Ends the work with a message a user can act on: file, line and what is wrong there.
/// @param line  from 1; 0 when it concerns the file as a whole
/// @throws RuntimeError FileFailure with "file:line: what" as its text
[[noreturn]] void FailAt(const QString& file, int line, const QString& what);

/// @return the lines of a text file without their ends. @throws RuntimeError FileFailure when the
/// file cannot be read or is not UTF-8
QStringList ReadLines(const QString& file);

/// Lines of the form "1 Natal": sort group, blank, description.
/// @throws RuntimeError FileFailure on the first line that is wrong, or when there is no theme
QList<Theme> ReadThemes(const QString& file);

/// Fields "TITULO: ...", REFERENCIA, TOM, VARIACAO, CATEGORIA ("Religiosa" or "Secular") and TEMAS
/// (separated by commas), each once; then "== MUSICA" and its lines, and if there is a second
/// version "== MUSICA2" and its lines. Blank lines around a text are not part of it.
/// @throws RuntimeError FileFailure on the first line that is wrong
Song ReadSong(const QString& file);

} // namespace Seed
