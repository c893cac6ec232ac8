#pragma once

#include <QString>

class QTextStream;

/// Messages and, on a terminal, one line below them that tells how far the work is.
class Messages
{
public:
    /// @param err  what the messages are written to; must outlive them
    explicit Messages(QTextStream& err);
    ~Messages() { Clear(); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

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
