#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// The program in a folder of its own, as somebody would copy it. MELODARIO_WINDOWS in the
/// environment names the folder of one for Windows with all that it carries: that is copied then
/// and runs under Wine.
class Installation
{
public:
    /// @param subfolder  the folder's name inside the temporary one; "" for that one itself
    explicit Installation(const QString& subfolder = QString());

    QString Folder() const { return m_folder; }
    QString Program() const;
    QString Configuration() const { return Path(QStringLiteral("config.ini")); }
    QString Catalogue() const { return Path(QStringLiteral("Melodario.mdb")); }
    QString Path(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

    /// @return what the program and its user call a path of this system
    static QString NameOf(const QString& path);

    /// @return the names of everything in the folder but the program and what it carries, sorted.
    QStringList Names() const;

    /// Puts an empty catalogue with the usual tables in the place. @return success
    bool AddCatalogue(const QString& path) const;
    bool AddCatalogue() const { return AddCatalogue(Catalogue()); }

    /// Starts the program. @param wrapper  a command that runs it, and its arguments
    void Start(const QProcessEnvironment& environment, const QStringList& wrapper = {});

    bool IsRunning() const { return m_process && m_process->state() == QProcess::Running; }

    /// Waits for the program to end by itself.
    /// @return its exit code; -1 when it does not end, -2 when it crashed or a sanitizer complained
    int WaitForEnd();

    static QByteArray Content(const QString& path);
    static bool Put(const QString& path, const QByteArray& content);

private:
    void CopyForWindows() const;

    QTemporaryDir m_temporary;
    QString m_folder;
    QStringList m_carried;
    std::unique_ptr<QProcess> m_process;
};
