#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A program for Windows under Wine, as a test on this system sees it.
namespace WindowsFolder {

struct Ended
{
    int code = -1; ///< -1 when it did not end by itself
    QByteArray out;
    QByteArray err;
};

/// Runs a command under Wine to its end. @param command  the program and its arguments
Ended Run(const QStringList& command);

/// Runs a program of this system to its end.
Ended RunHere(const QStringList& command);

} // namespace WindowsFolder
