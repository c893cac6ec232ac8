#pragma once

#include "songbook/CatalogueSongs.h"
#include "songbook/SongChoice.h"
#include "tools/ChosenSongs.h"
#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"

#include <QSet>

class ExchangeSongs;
class QFile;

/// Reads what songs come from, and chooses among them.
class SongSources
{
public:
    SongSources(const ConversionOrder& order, ConversionReport& report);

    /// Reads files, and folders with all below them in the order of their names. A file that cannot
    /// be read is told, and the others go on.
    void Read();

    /// @return the songs in the order that the destination wants
    ChosenSongs Take();

    qsizetype Files() const { return m_files; }

    /// @return true for a file that was read, or tried, also by another way to it
    bool IsSource(const QString& path) const;

    /// @return how many songs there were to choose from
    qsizetype SongsSeen() const { return m_seen; }

    /// @return why the whole cannot be done, in Portuguese; empty when it can
    const QString& Failure() const { return m_failure; }

private:
    void ReadSource(const QString& source);
    void ReadFile(const QString& source, const QString& path);
    void ReadCatalogue(const QString& source, const QString& path);
    void ReadSetlist(const QString& source, Songbook::CatalogueSongs& catalogue);
    void ReadExchange(const QString& source, QFile& file);
    void ReadOthers(const QString& source, QFile& file);
    void TellDefects(const QString& source, const ExchangeSongs& songs);
    void Choose(const QString& source, const ExchangeSong& song, bool amongMany);
    void SortByTitle();

    const ConversionOrder& m_order;
    ConversionReport& m_report;
    Songbook::SongChoice m_choice;
    ChosenSongs m_chosen;
    QSet<QString> m_read; ///< canonical paths
    qsizetype m_files = 0;
    qsizetype m_seen = 0;
    QString m_failure;
};
