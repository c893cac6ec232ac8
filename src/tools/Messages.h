#pragma once

#include <QString>

class QTextStream;
class RuntimeError;

/// @return what failed, for the user of a command, with the reason where it is in Portuguese: the
/// store's own words are not
QString Reason(const RuntimeError& error);

/// @return the text with '?' for what a terminal would obey instead of showing; the name of a file
/// may hold a line feed
QString Showable(QString text);

/// What somebody sees who used a command wrongly: why, and how it is used. The whole help would
/// push the reason out of the window.
/// @param help  begins with one line that shows the use
QString WrongUse(const QString& why, const QString& help);

/// The libraries' warnings are in English and not for the user of a command; only what ends it is
/// written.
void SilenceLibraries();

/// Messages and, on a terminal, one line below them that tells how far the work is.
class Messages
{
public:
    /// @param err  what the messages are written to; must outlive them
    explicit Messages(QTextStream& err);
    ~Messages() { Clear(); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    /// @param line  may hold names as the user wrote them
    void Tell(const QString& line);

    /// @param what  is counted, in Portuguese: "arquivos"
    void Progress(qsizetype done, qsizetype all, const QString& what);

    /// Writes the line, over the one before; on a terminal only.
    void Show(const QString& line);

    /// Takes that line away.
    void Clear();

private:
    QTextStream& m_err;
    bool m_terminal;
    bool m_shown = false;
};
