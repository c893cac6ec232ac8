#include "tools/Messages.h"

#include "jet/JetFailure.h"
#include "runtime/RuntimeError.h"

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

void TellOnlyTheFatal(QtMsgType type, const QMessageLogContext&, const QString& words)
{
    if (type == QtFatalMsg || type == QtCriticalMsg)
        QTextStream(stderr) << words << Qt::endl;
}

} // namespace

QString WrongUse(const QString& why, const QString& help)
{
    return Showable(why) + u"\n\n" + help.section(u'\n', 0, 0) +
           u"\n--help mostra todas as opções.\n";
}

void SilenceLibraries()
{
    qInstallMessageHandler(TellOnlyTheFatal);
}

QString Reason(const RuntimeError& error)
{
    const bool isPortuguese =
        error.Number() == RuntimeError::FileFailure || dynamic_cast<const JetError*>(&error);
    return isPortuguese && !error.Description().isEmpty()
               ? error.WhatFailed() + u" (" + error.Description() + u')'
               : error.WhatFailed();
}

QString Showable(QString text)
{
    for (QChar& sign : text) {
        if (!sign.isPrint() && !sign.isSurrogate())
            sign = u'?';
    }
    return text;
}

Messages::Messages(QTextStream& err)
    : m_err(err)
    , m_terminal(MessagesGoToATerminal())
{
}

void Messages::Tell(const QString& line)
{
    Clear();
    m_err << Showable(line) << Qt::endl;
}

void Messages::Progress(qsizetype done, qsizetype all, const QString& what)
{
    constexpr qsizetype Step = 20;
    if (all < 2 || (done % Step != 0 && done != all))
        return;
    Show(QString::number(done) + u" de " + QString::number(all) + u' ' + what);
    if (done == all)
        Clear();
}

void Messages::Show(const QString& line)
{
    if (!m_terminal)
        return;
    m_err << u'\r' << line << Qt::flush;
    m_shown = true;
}

void Messages::Clear()
{
    if (m_shown)
        m_err << u'\r' << QString(40, u' ') << u'\r' << Qt::flush;
    m_shown = false;
}
