#include "app/Installation.h"

#include "app/VirtualScreen.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QtDebug>

namespace {

QString WindowsFolder()
{
    return qEnvironmentVariable("MELODARIO_WINDOWS");
}

} // namespace

Installation::Installation(const QString& subfolder)
    : m_folder(m_temporary.path())
{
    if (!subfolder.isEmpty()) {
        QDir(m_folder).mkdir(subfolder);
        m_folder = m_temporary.filePath(subfolder);
    }
    if (!WindowsFolder().isEmpty())
        CopyForWindows();
    else if (!QFile::copy(QStringLiteral(MELODARIO_PROGRAM), Program()))
        qFatal("the program cannot be copied to %s", qPrintable(Program()));
    m_carried = Names();
}

QString Installation::Program() const
{
    return Path(WindowsFolder().isEmpty() ? QStringLiteral("melodario")
                                          : QStringLiteral("Melodario.exe"));
}

QString Installation::NameOf(const QString& path)
{
    if (WindowsFolder().isEmpty())
        return path;
    // Wine shows the whole system as one drive.
    return QStringLiteral("Z:") + QString(path).replace(QLatin1Char('/'), QLatin1Char('\\'));
}

void Installation::CopyForWindows() const
{
    const QDir from(WindowsFolder());
    QDirIterator files(from.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString name = from.relativeFilePath(file);
        if (name == u"Melodario.mdb" || name == u"config.ini")
            continue;
        if (!QFileInfo(Path(name)).dir().mkpath(QStringLiteral(".")) ||
            !QFile::copy(file, Path(name)))
            qFatal("%s cannot be copied", qPrintable(file));
    }
    if (!QFile::exists(Program()))
        qFatal("no program in %s", qPrintable(from.path()));
}

QStringList Installation::Names() const
{
    QStringList names = QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                 QDir::NoDotAndDotDot);
    for (const QString& name : m_carried)
        names.removeAll(name);
    names.sort();
    return names;
}

bool Installation::AddCatalogue(const QString& path) const
{
    return QFile::copy(TestCatalogue().Path(), path);
}

void Installation::Start(const QProcessEnvironment& environment, const QStringList& wrapper)
{
    m_process = std::make_unique<QProcess>();
    QProcessEnvironment own = environment;
    if (!WindowsFolder().isEmpty())
        own.remove(QStringLiteral("QT_QPA_PLATFORM")); // Wine shows the windows here
    m_process->setProcessEnvironment(own);
    // Not in its folder: the program must find its files wherever it is started.
    m_process->setWorkingDirectory(QStringLiteral("/"));
    QStringList command = wrapper;
    if (!WindowsFolder().isEmpty())
        command.append(QStringLiteral("wine"));
    command.append(Program());
    m_process->start(command.takeFirst(), command);
    m_process->waitForStarted();
}

int Installation::WaitForEnd()
{
    if (!m_process->waitForFinished(VirtualScreen::Patience))
        return -1;
    const QByteArray words = m_process->readAllStandardError();
    if (m_process->exitStatus() == QProcess::NormalExit && !words.contains("Sanitizer") &&
        !words.contains("runtime error"))
        return m_process->exitCode();
    qWarning("%s", words.constData());
    return -2;
}

QByteArray Installation::Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

bool Installation::Put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}
