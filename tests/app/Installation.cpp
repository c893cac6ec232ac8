#include "app/Installation.h"

#include "app/VirtualScreen.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QtDebug>

Installation::Installation(const QString& subfolder)
    : m_folder(m_temporary.path())
{
    if (!subfolder.isEmpty()) {
        QDir(m_folder).mkdir(subfolder);
        m_folder = m_temporary.filePath(subfolder);
    }
    if (!QFile::copy(QStringLiteral(MELODARIO_PROGRAM), Program()))
        qFatal("the program cannot be copied to %s", qPrintable(Program()));
}

QStringList Installation::Names() const
{
    QStringList names = QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                 QDir::NoDotAndDotDot);
    names.removeAll(QStringLiteral("melodario"));
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
    m_process->setProcessEnvironment(environment);
    // Not in its folder: the program must find its files wherever it is started.
    m_process->setWorkingDirectory(QStringLiteral("/"));
    QStringList command = wrapper;
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
