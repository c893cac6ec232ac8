#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// A command as a user meets it: its exit code and what it prints.
struct Outcome
{
    int code = -1;
    QString out;
    QString err;
    QByteArray raw; ///< of the standard output
};

inline Outcome RunTool(const QString& program, const QStringList& arguments,
                       const QByteArray& input = {})
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(300'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    const QByteArray raw = process.readAllStandardOutput();
    return {process.exitCode(), QString::fromUtf8(raw),
            QString::fromUtf8(process.readAllStandardError()), raw};
}
