#pragma once

#include "support/GeneratedSongs.h"

#include <QStringList>

/// @return generated song text of exactly that many lines
inline QString Sheet(int lines)
{
    SongGenerator generator(200);
    QStringList text;
    while (text.size() < lines)
        text += generator.Next().text.split(u"\r\n"_qs);
    return text.mid(0, lines).join(u"\r\n"_qs);
}
