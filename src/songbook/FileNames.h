#pragma once

#include <QSet>
#include <QString>

namespace Songbook {

/// Names for the files of one folder, one after the other. Each is allowed on every system that a
/// folder may be carried to, none looks like another one to a system that ignores letter case.
class FileNames
{
public:
    /// @param title   of a song, any text
    /// @param ending  of the file, with its dot
    /// @return a name that was not given before: "Água Viva.cho", "Água Viva (2).cho"
    QString For(const QString& title, const QString& ending);

private:
    QSet<QString> m_given;
};

/// @param title  any text
/// @return what of it may stand in a file's name everywhere; never empty
QString SafeName(const QString& title);

} // namespace Songbook
