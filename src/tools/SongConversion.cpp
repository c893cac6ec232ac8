#include "tools/SongConversion.h"

#include "mld/ExchangeWriter.h"
#include "songbook/Exchangeable.h"
#include "songbook/SourceText.h"
#include "store/CodePage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

const QString StandardInput = QStringLiteral("-");

/// Appends the files of a folder and of all folders below, each folder's files first.
void AppendFiles(const QDir& folder, QStringList& files)
{
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        files.append(folder.filePath(name));
    const auto folders = QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks;
    for (const QString& name : folder.entryList(folders, QDir::Name))
        AppendFiles(QDir(folder.filePath(name)), files);
}

QStringList FilesOf(const QStringList& sources)
{
    QStringList files;
    for (const QString& source : sources) {
        if (source != StandardInput && QFileInfo(source).isDir())
            AppendFiles(QDir(source), files);
        else
            files.append(source);
    }
    return files;
}

/// What the file's line is called in a message.
QString Place(const QString& path, int line)
{
    const QString name = path == StandardInput ? u"(entrada)"_qs : path;
    return line > 0 ? QString(name + u':' + QString::number(line)) : name;
}

} // namespace

void SongConversion::Read(const QStringList& sources)
{
    const QStringList files = FilesOf(sources);
    for (const QString& path : files) {
        ReadFile(path);
        ++m_files;
        m_listener.progress(m_files, files.size());
    }
}

void SongConversion::ReadFile(const QString& path)
{
    QFile file(path);
    const bool isOpen = path == StandardInput ? file.open(stdin, QIODevice::ReadOnly)
                                              : file.open(QIODevice::ReadOnly);
    // One byte more than a source may have shows that there is too much.
    const QByteArray bytes = isOpen ? file.read(Songbook::LargestSource + 1) : QByteArray();
    if (!isOpen || file.error() != QFile::NoError) {
        ++m_losses;
        m_listener.tell(Place(path, 0) + u": n\u00E3o lido: " + file.errorString());
        return;
    }
    Convert(path, bytes);
}

void SongConversion::Convert(const QString& path, const QByteArray& bytes)
{
    const QString name = path == StandardInput ? QString() : QFileInfo(path).completeBaseName();
    const Songbook::Reading reading = Songbook::ReadSource(bytes, name).reading;
    if (!reading.failure.isEmpty()) {
        ++m_losses;
        m_listener.tell(Place(path, reading.failureLine) + u": n\u00E3o lido: " + reading.failure);
        return;
    }
    Songbook::Remarks narrowed;
    for (const ExchangeSong& song : reading.songs) {
        ExchangeWriter::Append(m_document, Songbook::MadeExchangeable(song, narrowed));
        ++m_songs;
    }
    const bool lostInReading = Tell(path, reading.remarks);
    const bool lostInWriting = Tell(path, narrowed.All());
    m_losses += lostInReading || lostInWriting ? 1 : 0;
}

bool SongConversion::Tell(const QString& path, const QList<Songbook::Remark>& remarks) const
{
    bool lost = false;
    for (const Songbook::Remark& remark : remarks) {
        const bool isLost = remark.kind == Songbook::Remark::Kind::Lost;
        lost = lost || isLost;
        if (isLost || m_tellNotes)
            m_listener.tell(Place(path, remark.line) + u": " + remark.what);
    }
    return lost;
}

QByteArray SongConversion::Document() const
{
    const QString whole = ExchangeWriter::Head() + m_document + ExchangeWriter::Tail();
    return CodePage::FromUnicode(whole);
}
