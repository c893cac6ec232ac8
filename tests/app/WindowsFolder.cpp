#include "app/WindowsFolder.h"

#include "app/VirtualScreen.h"

#include <QProcess>

WindowsFolder::Ended WindowsFolder::Run(const QStringList& command)
{
    return RunHere(QStringList(u"wine"_qs) + command);
}

WindowsFolder::Ended WindowsFolder::RunHere(const QStringList& command)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(command.first(), command.mid(1));
    Ended ended;
    if (process.waitForFinished(VirtualScreen::Patience) &&
        process.exitStatus() == QProcess::NormalExit)
        ended.code = process.exitCode();
    ended.out = process.readAllStandardOutput();
    ended.err = process.readAllStandardError();
    return ended;
}
