#include "tools/SongFiles.h"

#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"
#include "tools/FileArgument.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>

namespace {

class Walk
{
public:
    Walk(const QString& destination, ConversionReport& report)
        : m_destination(destination == Standard() ? QString()
                                                  : QFileInfo(destination).canonicalFilePath())
        , m_report(report)
    {
    }

    void Add(const QString& source)
    {
        if (source != Standard() && QFileInfo(source).isDir())
            AddFolder(QDir(source));
        else
            m_files.append(source);
    }

    QStringList Take() { return std::move(m_files); }

private:
    struct Names
    {
        QStringList files;
        QStringList folders;
    };

    /// @return the path of what a folder holds, which QDir alone takes for another place where a
    /// colon begins the name
    static QString Inside(const QDir& folder, const QString& name)
    {
        return folder.filePath(FileArgument(name));
    }

    void AddFolder(const QDir& folder)
    {
        Names names = NamesIn(folder);
        names.files.sort();
        names.folders.sort();
        for (const QString& name : names.files)
            m_files.append(Inside(folder, name));
        for (const QString& name : names.folders)
            AddFolder(QDir(Inside(folder, name)));
    }

    /// QDir would pass in silence over what it cannot read.
    Names NamesIn(const QDir& folder)
    {
        Names names;
        std::error_code failure;
        std::filesystem::directory_iterator entry(folder.path().toStdU16String(), failure);
        for (; entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
            const std::u8string native = entry->path().filename().u8string();
            const QByteArray bytes(reinterpret_cast<const char*>(native.data()),
                                   static_cast<qsizetype>(native.size()));
            const QString name = QString::fromUtf8(bytes);
            if (name.toUtf8() == bytes)
                Sort(folder, name, names);
            else if (!name.startsWith(u'.'))
                m_report.TellUnread(Inside(folder, name), 0, u"o nome não está em UTF-8"_qs);
        }
        if (failure)
            m_report.TellUnread(folder.path(), 0, u"a pasta não pode ser lida"_qs);
        return names;
    }

    void Sort(const QDir& folder, const QString& name, Names& names)
    {
        const QString path = Inside(folder, name);
        const QFileInfo file(path);
        if (file.isHidden())
            return;
        if (!m_destination.isEmpty() && file.canonicalFilePath() == m_destination)
            m_report.TellLeftOut(path, u"é o destino"_qs);
        else if (!file.exists())
            m_report.TellUnread(path, 0, u"o atalho não leva a um arquivo"_qs);
        else if (file.isDir() && file.isSymLink())
            m_report.TellUnread(path, 0, u"atalhos para pastas não são seguidos"_qs);
        else if (file.isDir())
            names.folders.append(name);
        else if (file.isFile())
            names.files.append(name);
        else
            m_report.TellUnread(path, 0, u"não é um arquivo"_qs);
    }

    QString m_destination; ///< canonical; empty while it does not exist
    ConversionReport& m_report;
    QStringList m_files;
};

} // namespace

QStringList FindSongFiles(const QStringList& sources, const QString& destination,
                          ConversionReport& report)
{
    Walk walk(destination, report);
    for (const QString& source : sources)
        walk.Add(source);
    return walk.Take();
}
