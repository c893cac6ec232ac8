#pragma once

#include <QString>

class QSettings;

/// With which program the user's desktop opens exchange files (.mld), as Windows keeps it for each
/// user under HKEY_CURRENT_USER\Software\Classes. Nothing is changed for others, nothing needs an
/// administrator.
namespace FileAssociation {

/// Makes a program the one for exchange files, and keeps who was it before.
/// @param classes  the user's classes
/// @param program  its full path
/// @return success
bool Register(QSettings& classes, const QString& program);

/// Takes everything away that Register() wrote; whoever was there before is it again. What
/// another program registered since stays.
/// @return success
bool Unregister(QSettings& classes);

/// @return the path of the program that Register() was called for; "" for none
QString RegisteredProgram(const QSettings& classes);

/// @return whether exchange files are opened with that program, as far as the classes tell
bool IsUsual(const QSettings& classes);

} // namespace FileAssociation
