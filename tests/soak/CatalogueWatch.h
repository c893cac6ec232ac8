#pragma once

#include "support/PlainSqlite.h"

#include <QMap>
#include <QSet>
#include <QStringList>

/// A song as it lies in the file, without its count of plays.
struct StoredSong
{
    QString title, reference, text, text2, key, variation, category;
    QStringList themes; ///< TEMA.ID each, sorted

    bool operator==(const StoredSong&) const = default;

    /// @return the first field that is another one, both ways; "" for none
    QString DifferenceFrom(const StoredSong& other) const;
};

/// Everything that a user keeps, by its ID.
struct StoredRows
{
    QMap<qint64, StoredSong> songs;
    QMap<qint64, QString> themes;
    QMap<qint64, QStringList> setlists; ///< name, date, then MUSICA.ID each in its order

    bool operator==(const StoredRows&) const = default;
};

/// What the action under way may change. Whatever else changes is a finding.
struct Permitted
{
    QSet<qint64> songs; ///< may change or go
    bool newSongs = false;
    bool themes = false;
    bool setlists = false;
};

/// Looks at the catalogue as any other program would.
class CatalogueWatch
{
public:
    explicit CatalogueWatch(const QString& path);

    /// Reads the rows again if anything was written since.
    /// @return what changed though it was not permitted; "" for nothing
    QString Look(const Permitted& permitted);

    const StoredRows& Rows() const { return m_rows; }

    /// @return what is not sound; "" for nothing
    QString Unsound();

private:
    StoredRows Read();
    static QString Difference(const StoredRows& before, const StoredRows& after,
                              const Permitted& permitted);

    PlainSqlite m_file;
    QString m_version; ///< changes with every commit of the program
    StoredRows m_rows;
};
