#pragma once

#include "songbook/Reading.h"

#include <QSet>
#include <QString>

#include <functional>

/// Tells the user what happens to songs on their way, and counts the sources of which something
/// stayed behind.
class ConversionReport
{
public:
    struct Listener
    {
        /// A line for the user: file, place and what is to be said.
        std::function<void(const QString& line)> tell;
        /// @param what  is counted, in Portuguese: "arquivos"
        std::function<void(qsizetype done, qsizetype all, const QString& what)> progress;
    };

    /// @param tellNotes  also what is only written in another way, not only what stays behind
    ConversionReport(Listener listener, bool tellNotes)
        : m_listener(std::move(listener))
        , m_tellNotes(tellNotes)
    {
    }

    /// @param source  as the user wrote it
    /// @param title   of the song that they are about, where a source has many; else empty
    void Tell(const QString& source, const QString& title, const QList<Songbook::Remark>& remarks);

    /// A source that could not be read. @param line  from 1, or 0
    void TellUnread(const QString& source, int line, const QString& why);

    /// A file that is none of the sources, of which nothing is lost.
    void TellLeftOut(const QString& path, const QString& why) const
    {
        m_listener.tell(path + u": deixado fora: " + why);
    }

    void Progress(qsizetype done, qsizetype all, const QString& what) const
    {
        m_listener.progress(done, all, what);
    }

    qsizetype SourcesWithLosses() const { return m_lossy.size(); }

private:
    Listener m_listener;
    bool m_tellNotes;
    QSet<QString> m_lossy;
};
