#pragma once

#include <QString>

/// @param argument  a path as the user wrote it
/// @return the same file's path as Qt understands it, which looks for a name with a colon in front
///         among the program's own resources
inline QString FileArgument(const QString& argument)
{
    return argument.startsWith(u':') ? QString(u"./" + argument) : argument;
}
