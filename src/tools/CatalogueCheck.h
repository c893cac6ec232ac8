#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class CheckedCatalogue;

/// Looks for what is wrong with a catalogue, or worth a second look, and changes nothing.
namespace CatalogueCheck {

/// One kind of thing that was found, in Portuguese.
struct Finding
{
    QString what;          ///< "Músicas sem tema"
    qsizetype count = 0;   ///< how many; 0 where counting makes no sense
    QStringList cases;     ///< a line for each
    bool mendable = false; ///< whether a repair takes care of it
};

struct Result
{
    qint64 songs = 0;
    qint64 themes = 0;
    qint64 setlists = 0;
    QList<Finding> findings; ///< in the order of their weight
};

/// Told now and then how far the work is. @param what  is counted, in Portuguese: "músicas"
using Progress = std::function<void(qsizetype done, qsizetype all, const QString& what)>;

/// Loads Notas and Notas_Mais with the usual scale.
/// @return all that was found; what damage keeps from being looked at is a finding of its own
Result Check(const CheckedCatalogue& catalogue, const Progress& progress = {});

/// Looks for songs that are the same but for little: with the same letters in title and lyrics, or
/// most of them. Reads MUSICA.
/// @throws RuntimeError StoreFailure
Finding FindLookAlikes(const CheckedCatalogue& catalogue, const Progress& progress = {});

} // namespace CatalogueCheck
