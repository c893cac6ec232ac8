#include "tools/Messages.h"

#include <QFile>
#include <QTextStream>

namespace {

/// @return true when the messages go to a terminal, where a line can be written over. Systems
/// without this folder get no progress line.
bool MessagesGoToATerminal()
{
    const QString target = QFile::symLinkTarget(u"/proc/self/fd/2"_qs);
    return target.startsWith(u"/dev/pts/") || target.startsWith(u"/dev/tty");
}

} // namespace

Messages::Messages(QTextStream& err)
    : m_err(err)
    , m_terminal(MessagesGoToATerminal())
{
}

void Messages::Tell(const QString& line)
{
    Clear();
    m_err << line << Qt::endl;
}

void Messages::Progress(qsizetype done, qsizetype all, const QString& what)
{
    constexpr qsizetype Step = 20;
    if (!m_terminal || all < 2 || (done % Step != 0 && done != all))
        return;
    m_err << u'\r' << done << u" de "_qs << all << u' ' << what << Qt::flush;
    m_shown = true;
    if (done == all)
        Clear();
}

void Messages::Clear()
{
    if (m_shown)
        m_err << u'\r' << QString(40, u' ') << u'\r' << Qt::flush;
    m_shown = false;
}
