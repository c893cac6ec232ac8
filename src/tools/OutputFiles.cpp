#include "tools/OutputFiles.h"

#include "runtime/FileTrouble.h"
#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"
#include "tools/DraftFolder.h"
#include "tools/Interruption.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

QString WriteToStandard(const QByteArray& bytes)
{
    Interruption::LetThrough(); // whoever reads may take as long as he likes
    QFile out;
    const bool written =
        out.open(stdout, QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.flush();
    return written ? QString() : FileTrouble(out);
}

bool IsThere(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

} // namespace

QString WhyNoFile(const QString& path)
{
    const QString failed = path + u": não foi possível escrever: ";
    const QFileInfo target(path);
    // Through a link the file beyond it is written.
    const QFileInfo place(target.isSymLink() ? QFileInfo(target.symLinkTarget()).path()
                                             : target.path());
    if (target.isDir())
        return failed + u"é uma pasta";
    if (!place.isDir())
        return failed + u"a pasta não existe";
    if (!place.isWritable() || (target.exists() && !target.isWritable()))
        return failed + u"falta a permissão";
    return {};
}

QString WhyNoFolder(const QString& folder)
{
    QFileInfo place(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()));
    if (place.isDir())
        return place.isWritable() ? QString() : folder + u": falta a permissão para escrever";
    while (!IsThere(place.filePath()) && !place.isRoot())
        place.setFile(place.path());
    return place.isDir() && place.isWritable() ? QString()
                                               : folder + u": a pasta não pode ser criada";
}

QString WhyNotWritten(const QList<OutputFile>& files, const QString& folder, bool force)
{
    for (const OutputFile& file : files) {
        if (file.path != Standard() && !force && IsThere(file.path))
            return file.path + u": o arquivo já existe; --force o substitui";
    }
    QString noFolder = folder.isEmpty() ? QString() : WhyNoFolder(folder);
    if (!noFolder.isEmpty() || (!folder.isEmpty() && !IsThere(folder)))
        return noFolder;
    for (const OutputFile& file : files) {
        QString noFile = file.path == Standard() ? QString() : WhyNoFile(file.path);
        if (!noFile.isEmpty())
            return noFile;
    }
    return {};
}

QString WriteFile(const OutputFile& output, bool mayEnd)
{
    if (output.path == Standard())
        return WriteToStandard(output.bytes);
    QSaveFile file(output.path);
    // A commit alone would not notice that the last bytes did not reach the disk.
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(output.bytes) == output.bytes.size() && file.flush();
    if (mayEnd)
        Interruption::Check();
    return written && file.commit() ? QString() : FileTrouble(file);
}

QString WriteFiles(const QList<OutputFile>& files, const QString& folder,
                   const ConversionReport& report)
{
    if (folder.isEmpty()) {
        for (const OutputFile& file : files) {
            const QString failure = WriteFile(file);
            if (!failure.isEmpty())
                return file.path + u": não foi possível escrever: " + failure;
        }
        return {};
    }
    DraftFolder draft(folder);
    QString noDraft = draft.Begin();
    if (!noDraft.isEmpty())
        return noDraft;
    qsizetype done = 0;
    for (const OutputFile& file : files) {
        const QString failure = draft.Add(file);
        if (!failure.isEmpty())
            return file.path + u": não foi possível escrever: " + failure;
        report.Progress(++done, files.size(), u"arquivos gravados"_qs);
    }
    return draft.Keep();
}
