#include "jet/CatalogueSwap.h"

#include "runtime/FileTrouble.h"
#include "runtime/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

namespace {

constexpr qint64 Piece = qint64{1} << 20; // bytes read at once

std::filesystem::path Native(const QString& path)
{
    return {path.toStdU16String()};
}

[[noreturn]] void Throw(const QString& verb, const QString& path, const QString& description)
{
    throw RuntimeError(
        RuntimeError::FileFailure,
        u"Não foi possível %1 o arquivo “%2”."_qs.arg(verb, QDir::toNativeSeparators(path)),
        description);
}

bool SameContent(const QString& one, const QString& other)
{
    QFile a(one);
    QFile b(other);
    if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly) || a.size() != b.size())
        return false;
    while (!a.atEnd()) {
        const QByteArray bytes = a.read(Piece);
        if (bytes.isEmpty() || bytes != b.read(Piece))
            return false;
    }
    return true;
}

bool IsFree(const QString& path)
{
    const QFileInfo file(path);
    return !file.exists() && !file.isSymLink();
}

} // namespace

QString CatalogueSwap::RealPath(const QString& path)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

QString CatalogueSwap::DraftPath(const QString& path)
{
    return path + u".parcial"_qs;
}

QString CatalogueSwap::KeptPath(const QString& path)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    const QString stem = file.dir().filePath(file.completeBaseName());
    QString kept = stem + u" (formato antigo)" + suffix;
    for (int i = 2; !IsFree(kept); ++i)
        kept = stem + u" (formato antigo " + QString::number(i) + u')' + suffix;
    return kept;
}

void CatalogueSwap::CheckPlace(const QString& path)
{
    for (const QString& rest : {u"-journal"_qs, u"-wal"_qs, u"-shm"_qs}) {
        if (IsFree(path + rest))
            continue;
        throw RuntimeError(RuntimeError::FileFailure,
                           u"O arquivo “%1” é de uma gravação interrompida e estragaria o catálogo "
                           "novo; escolha outro nome ou mude-o de lugar."_qs.arg(
                               QDir::toNativeSeparators(path + rest)),
                           {});
    }
}

void CatalogueSwap::KeepOld(const QString& path, const QString& kept)
{
    std::error_code failure;
    std::filesystem::create_hard_link(Native(path), Native(kept), failure);
    if (failure && !IsFree(kept))
        Throw(u"guardar"_qs, kept, FileTrouble(failure));
    if (failure)
        CopyOld(path, kept);
}

void CatalogueSwap::CopyOld(const QString& path, const QString& kept)
{
    QFile old(path);
    QSaveFile copy(kept);
    bool copied = old.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly);
    while (copied && !old.atEnd()) {
        const QByteArray bytes = old.read(Piece);
        copied = !bytes.isEmpty() && copy.write(bytes) == bytes.size();
    }
    if (!copied || !copy.flush() || !copy.commit())
        Throw(u"guardar"_qs, kept,
              old.error() == QFile::NoError ? FileTrouble(copy) : FileTrouble(old));
    if (!SameContent(path, kept)) {
        QFile::remove(kept);
        Throw(u"guardar"_qs, kept, u"a cópia saiu diferente"_qs);
    }
}

void CatalogueSwap::PutBeside(const QString& draft, const QString& path)
{
    CheckPlace(path);
    // Somebody may have put a file there meanwhile.
    if (!QFile::rename(draft, path))
        Throw(u"criar"_qs, path, {});
}

void CatalogueSwap::PutInPlace(const QString& draft, const QString& path)
{
    CheckPlace(path);
    if (QFile::exists(path))
        QFile::setPermissions(draft, QFile::permissions(path));
    std::error_code failure;
    std::filesystem::rename(Native(draft), Native(path), failure);
    if (failure)
        Throw(u"substituir"_qs, path, FileTrouble(failure));
}
