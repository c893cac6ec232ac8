#include "support/Interruption.h"

#include <QProcess>
#include <QThread>

#include <cstdio>

namespace {

constexpr const char* StandingStill = "standing still";
constexpr int PatienceMs = 60000; // a sanitized program on a busy machine

} // namespace

void Interruption::Boundaries::Reached()
{
    if (m_reached++ != m_stopAt)
        return;
    std::puts(StandingStill);
    std::fflush(stdout);
    for (;;)
        QThread::sleep(1);
}

bool Interruption::StartAndKill(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    if (!process.waitForStarted(PatienceMs))
        qFatal("%s does not start", qPrintable(program));
    QByteArray told;
    while (!told.contains(StandingStill) && process.waitForReadyRead(PatienceMs))
        told += process.readAllStandardOutput();
    if (told.contains(StandingStill)) {
        process.kill();
        if (!process.waitForFinished(PatienceMs) || process.exitStatus() != QProcess::CrashExit)
            qFatal("%s was not killed", qPrintable(program));
        return true;
    }
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(PatienceMs))
        qFatal("%s neither stands still nor ends", qPrintable(program));
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s failed", qPrintable(program));
    return false;
}
