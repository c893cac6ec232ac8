#pragma once

#include <QByteArray>
#include <QFileInfo>
#include <QString>

/// @param path  of a database
/// @return what SQLite is to be given for it: an absolute path is never taken for one of its
/// special
///         names (":memory:", "file:...")
inline QByteArray SqliteFileName(const QString& path)
{
    return QFileInfo(path).absoluteFilePath().toUtf8();
}
