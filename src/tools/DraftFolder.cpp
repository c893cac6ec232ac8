#include "tools/DraftFolder.h"

#include "runtime/FileTrouble.h"
#include "tools/OutputFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace {

std::filesystem::path Native(const QString& path)
{
    return {path.toStdU16String()};
}

QString NameOf(const OutputFile& file)
{
    return QFileInfo(file.path).fileName();
}

} // namespace

DraftFolder::DraftFolder(const QString& folder)
    : m_folder(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()))
{
    QFileInfo place(m_folder);
    while (!place.exists() && !place.isRoot())
        place.setFile(place.path());
    m_place = place.filePath();
}

DraftFolder::~DraftFolder()
{
    if (!m_draft.isEmpty())
        QDir(m_draft).removeRecursively();
}

QString DraftFolder::Begin()
{
    // Other runs may be at work in the same place. The dot keeps readers of the folder away.
    constexpr int MostRuns = 100;
    for (int run = 1; run <= MostRuns; ++run) {
        const QString draft = m_place + u"/.melodario-parcial-" + QString::number(run);
        if (!QFileInfo::exists(draft) && QDir().mkdir(draft)) {
            m_draft = draft;
            return {};
        }
    }
    return m_folder + u": a pasta não pode ser criada";
}

QString DraftFolder::Add(const OutputFile& file)
{
    QFile draft(m_draft + u'/' + NameOf(file));
    const bool written = draft.open(QIODevice::WriteOnly) &&
                         draft.write(file.bytes) == file.bytes.size() && draft.flush();
    if (!written)
        return FileTrouble(draft);
    m_files.append(file);
    return {};
}

QString DraftFolder::Keep()
{
    if (!QFileInfo::exists(m_folder))
        return KeepInNewFolder();
    for (qsizetype i = 0; i < m_files.size(); ++i) {
        const QString failure = KeepFile(m_files[i]);
        if (!failure.isEmpty())
            return m_files[i].path +
                   u": não foi possível escrever: %1; já escritos: %2 de %3"_qs.arg(failure)
                       .arg(i)
                       .arg(m_files.size());
    }
    return {};
}

QString DraftFolder::KeepInNewFolder()
{
    if (QDir().mkpath(QFileInfo(m_folder).path()) && QDir().rename(m_draft, m_folder)) {
        m_draft.clear();
        return {};
    }
    return m_folder + u": a pasta não pode ser criada";
}

QString DraftFolder::KeepFile(const OutputFile& file) const
{
    // Through a link the file beyond it is written, which may be on another disk.
    if (QFileInfo(file.path).isSymLink())
        return WriteFile(file, false);
    std::error_code failure;
    std::filesystem::rename(Native(m_draft + u'/' + NameOf(file)), Native(file.path), failure);
    return failure ? u"o arquivo pronto não pôde receber o seu nome"_qs : QString();
}
