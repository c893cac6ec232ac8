#include "tools/RepairedFile.h"

#include "runtime/FileTrouble.h"
#include "runtime/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <filesystem>

namespace {

const QString Standard = u"-"_qs;

[[noreturn]] void Fail(const QString& what, const QString& why = {})
{
    throw RuntimeError(RuntimeError::FileFailure, what, why);
}

bool IsThere(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

void CopyToStandard(const QString& path)
{
    constexpr qint64 Block = 1 << 20;
    QFile from(path);
    QFile out;
    if (!from.open(QIODevice::ReadOnly) || !out.open(stdout, QIODevice::WriteOnly))
        Fail(u"não foi possível escrever na saída padrão"_qs);
    for (QByteArray block = from.read(Block); !block.isEmpty(); block = from.read(Block)) {
        if (out.write(block) != block.size())
            Fail(u"não foi possível escrever na saída padrão"_qs, FileTrouble(out));
    }
    if (!out.flush())
        Fail(u"não foi possível escrever na saída padrão"_qs, FileTrouble(out));
}

} // namespace

RepairedFile::RepairedFile(QString path, bool force, bool simulate)
    : m_path(std::move(path))
    , m_force(force)
    , m_simulate(simulate)
{
    if (m_simulate || m_path == Standard) {
        m_folder.emplace();
        if (!m_folder->isValid())
            Fail(u"não há lugar para um arquivo provisório"_qs,
                 QDir::toNativeSeparators(QDir::tempPath()));
        m_draft = m_folder->filePath(u"Melodario.mdb"_qs);
        return;
    }
    m_draft = m_path + u".parcial";
    for (int i = 2; IsThere(m_draft); ++i)
        m_draft = m_path + u".parcial" + QString::number(i);
    // SQLite would only tell that it cannot; an empty file it takes for a new one.
    QFile draft(m_draft);
    if (!draft.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        Fail(m_path + u": não foi possível criar o arquivo", FileTrouble(draft));
}

RepairedFile::~RepairedFile()
{
    QFile::remove(m_draft);
}

void RepairedFile::CheckPlace(const QString& path, const QString& catalogue, bool force)
{
    if (path == Standard)
        return;
    if (QFileInfo(path).isDir())
        Fail(path + u": é uma pasta; o catálogo novo precisa de um nome de arquivo");
    const QString there = QFileInfo(path).canonicalFilePath();
    if (!there.isEmpty() && there == QFileInfo(catalogue).canonicalFilePath())
        Fail(path + u": é o próprio catálogo, que nunca é alterado");
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile())
        Fail(path + u": não é um arquivo comum; escolha outro nome");
    if (!force && IsThere(path))
        Fail(path + u": o arquivo já existe; --force o substitui");
    // Left where it is, it would be written over the new catalogue.
    for (const QString& rest : {u"-journal"_qs, u"-wal"_qs, u"-shm"_qs}) {
        if (IsThere(path + rest))
            Fail(path + rest + u": é de uma gravação interrompida; escolha outro nome");
    }
    const QString folder = QFileInfo(path).absolutePath();
    if (!QFileInfo(folder).isDir())
        Fail(folder + u": a pasta não existe");
    if (!QFileInfo(folder).isWritable())
        Fail(path + u": falta a permissão para escrever nessa pasta");
}

void RepairedFile::Keep()
{
    if (m_simulate)
        return;
    if (m_path == Standard) {
        CopyToStandard(m_draft);
        return;
    }
    if (!m_force) {
        if (!QFile::rename(m_draft, m_path))
            Fail(m_path + u": não foi possível criar o arquivo");
        return;
    }
    std::error_code failure;
    std::filesystem::rename(m_draft.toStdU16String(), m_path.toStdU16String(), failure);
    if (failure)
        Fail(m_path + u": não foi possível substituir o arquivo", FileTrouble(failure));
}
