#include "jet/JetFile.h"

#include "store/CatalogueFile.h"

#include <QFile>
#include <QFileInfo>

bool JetFile::Recognises(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return false;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) &&
           CatalogueFile::IsOlderFormat(file.read(CatalogueFile::HeaderLength));
}
