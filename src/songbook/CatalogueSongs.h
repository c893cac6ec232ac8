#pragma once

#include "mld/ExchangeSong.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

class Statement;
struct sqlite3;

namespace Songbook {

/// A setlist of a catalogue.
struct Setlist
{
    qint64 id = 0; ///< LISTA.ID
    QString name;
    QString date; ///< dd/mm/yyyy; empty without one

    /// @return "Missa das dez 05/03/2009"
    QString FullName() const;
};

/// The songs of a catalogue, for work that must not change it: the file is opened for reading only,
/// and everything is seen in one state.
class CatalogueSongs
{
public:
    /// Loads Notas and Notas_Mais from the table TOM.
    /// @throws RuntimeError StoreFailure when the file is no catalogue, is damaged or locked
    explicit CatalogueSongs(const QString& path);
    ~CatalogueSongs();
    CatalogueSongs(const CatalogueSongs&) = delete;
    CatalogueSongs& operator=(const CatalogueSongs&) = delete;

    /// @return all setlists, newest first. @throws RuntimeError StoreFailure
    QList<Setlist> Setlists();

    /// @param progress  told after each song how many of all were read; may be empty. What it
    ///                  throws ends the reading
    /// @return all songs in the order of their ID; NULL columns have no value.
    /// @throws RuntimeError StoreFailure
    QList<ExchangeSong>
    Songs(const std::function<void(qsizetype done, qsizetype all)>& progress = {});

    /// @param setlist  LISTA.ID
    /// @param gone     receives how many of its songs the catalogue has no more
    /// @param repeats  whether a repeated song comes each time or only the first
    /// @return its songs in its order. @throws RuntimeError StoreFailure
    QList<ExchangeSong> SongsOf(qint64 setlist, bool repeats, int& gone);

private:
    struct CloseHandle
    {
        void operator()(sqlite3* handle) const noexcept;
    };

    QList<ExchangeSong> Read(Statement& rows, bool repeats, int& gone,
                             const std::function<void(qsizetype done)>& progress = {});
    void ReadThemes(qint64 song, ExchangeSong& into);
    void LoadScale();

    std::unique_ptr<sqlite3, CloseHandle> m_handle;
};

} // namespace Songbook
