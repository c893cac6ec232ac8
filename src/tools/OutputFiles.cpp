#include "tools/OutputFiles.h"

#include "tools/ConversionOrder.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

QString WriteToStandard(const QByteArray& bytes)
{
    QFile out;
    const bool written =
        out.open(stdout, QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.flush();
    return written ? QString() : out.errorString();
}

QString WriteFile(const OutputFile& output)
{
    if (output.path == Standard())
        return WriteToStandard(output.bytes);
    QSaveFile file(output.path);
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(output.bytes) == output.bytes.size() && file.commit();
    return written ? QString() : file.errorString();
}

} // namespace

QString FirstTaken(const QList<OutputFile>& files)
{
    for (const OutputFile& file : files) {
        const QFileInfo target(file.path);
        if (file.path != Standard() && (target.exists() || target.isSymLink()))
            return file.path;
    }
    return {};
}

QString WriteFiles(const QList<OutputFile>& files, const QString& folder)
{
    if (!folder.isEmpty() && !QDir().mkpath(folder))
        return folder + u": a pasta não pode ser criada"_qs;
    for (const OutputFile& file : files) {
        const QString failure = WriteFile(file);
        if (!failure.isEmpty())
            return file.path + u": não foi possível escrever: " + failure;
    }
    return {};
}
