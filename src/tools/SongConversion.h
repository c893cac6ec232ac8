#pragma once

#include "songbook/Source.h"

#include <QString>
#include <QStringList>

#include <functional>

/// Turns song files of other programs into one exchange file.
class SongConversion
{
public:
    /// Told about one file after the other.
    struct Listener
    {
        /// A line for the user: file, place and what is to be said.
        std::function<void(const QString& line)> tell;
        /// @param done  files so far, of all
        std::function<void(qsizetype done, qsizetype all)> progress;
    };

    /// @param tellNotes  also what is only written in another way, not only what stays behind
    SongConversion(Listener listener, bool tellNotes)
        : m_listener(std::move(listener))
        , m_tellNotes(tellNotes)
    {
    }

    /// Reads files, and folders with all below them in the order of their names; "-" is the
    /// standard input. A file that cannot be read is told, and the others go on.
    void Read(const QStringList& sources);

    qsizetype Files() const { return m_files; }
    qsizetype Songs() const { return m_songs; }

    /// @return files of which something stayed behind, or that could not be read
    qsizetype FilesWithLosses() const { return m_losses; }

    /// @return the whole exchange file, encoded
    QByteArray Document() const;

private:
    void ReadFile(const QString& path);
    void Convert(const QString& path, const QByteArray& bytes);
    bool Tell(const QString& path, const QList<Songbook::Remark>& remarks) const;

    Listener m_listener;
    bool m_tellNotes;
    qsizetype m_files = 0;
    qsizetype m_songs = 0;
    qsizetype m_losses = 0;
    QString m_document; ///< the songs, without head and tail
};
