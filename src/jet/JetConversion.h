#pragma once

#include "jet/JetReader.h"

#include <QString>
#include <QStringList>

#include <functional>

/// Makes a new catalogue of one in the older format.
namespace JetConversion {

/// What the program does not know and no new catalogue gets.
struct LeftBehind
{
    QStringList tables;
    QStringList columns; ///< as table.column

    bool operator==(const LeftBehind&) const = default;
    bool IsEmpty() const { return tables.isEmpty() && columns.isEmpty(); }

    /// @return "a tabela X; as colunas A.B e A.C" and the like; "" for nothing
    QString ToText() const;
};

struct Report
{
    qint64 songs = 0;
    qint64 themes = 0;
    qint64 setlists = 0;
    LeftBehind left;
};

/// @param done  of the whole, from 0 to 1; may let events run
using Progress = std::function<void(double done)>;

/// Looks at the tables only, for a moment at most.
/// @throws RuntimeError StoreFailure
LeftBehind Preview(const QString& source);

/// Converts in memory, and compares every row of the result with the source, read once more.
/// @param source  a catalogue in the older format; never changed
/// @throws RuntimeError StoreFailure with a sentence that tells why it cannot be converted
Report TryOut(const QString& source, const Progress& progress);

/// The same into a file, which appears whole or not at all.
/// @param replace  whether the destination may be there already; it is replaced at once then
/// @throws RuntimeError StoreFailure, FileFailure
Report Convert(const QString& source, const QString& destination, bool replace,
               const Progress& progress);

/// Converts a catalogue and puts the new one in its place.
/// @param path  the catalogue; after a failure it is what it was
/// @param kept  where the old one is kept; nothing may be there
/// @throws RuntimeError StoreFailure, FileFailure
Report ConvertInPlace(const QString& path, const QString& kept, const Progress& progress);

} // namespace JetConversion
