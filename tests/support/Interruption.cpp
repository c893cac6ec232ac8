#include "support/Interruption.h"

#include "support/PlainSqlite.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
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

QStringList Interruption::StatesAfterKills(const QString& program, const QString& catalogue,
                                           const QString& action,
                                           const std::function<QString(const QString&)>& state)
{
    QStringList states;
    for (bool stood = true; stood;) {
        const QTemporaryDir folder;
        const QString copy = folder.filePath(QStringLiteral("Melodario.mdb"));
        if (!QFile::copy(catalogue, copy))
            qFatal("no copy of %s", qPrintable(catalogue));
        stood = StartAndKill(program, {copy, action, QString::number(states.size())});
        const QString whole =
            PlainSqlite(copy).Rows(QStringLiteral("PRAGMA integrity_check")).first().first();
        states.append(whole == u"ok" ? state(copy) : QStringLiteral("damaged"));
    }
    return states;
}

QString Interruption::WhatIsNotWhole(const QString& before, const QStringList& states, int atLeast)
{
    const QString& after = states.last();
    const qsizetype kills = states.size() - 1;
    const qsizetype first = states.indexOf(after);
    if (kills < atLeast)
        return QStringLiteral("only %1 boundaries").arg(kills);
    if (after == before)
        return QStringLiteral("the action changes nothing");
    if (first == 0 || first == kills)
        return QStringLiteral("not killed on both sides of the commit");
    for (qsizetype i = 0; i < kills; ++i) {
        if (states[i] != (i < first ? before : after))
            return QStringLiteral("killed at boundary %1: %2").arg(i).arg(states[i]);
    }
    return {};
}
