#pragma once

#include "mld/ExchangeSong.h"

#include <QList>
#include <QString>

/// A song and where it comes from.
struct ChosenSong
{
    ExchangeSong song;
    QString source;         ///< as the user wrote it
    bool amongMany = false; ///< its source is a catalogue or an exchange file

    /// @return its title where a message has to name the song, else empty
    QString TitleAmongMany() const
    {
        return amongMany ? song.titulo.value_or(QString()) : QString();
    }
};

/// What is to be written: chosen, transposed and in its order.
struct ChosenSongs
{
    QList<ChosenSong> songs;
    QString name; ///< of the setlist or the themes that they were chosen by; empty otherwise
    QString date; ///< of the setlist, dd/mm/yyyy
};

/// @param version  1 or 2; 0 is what the viewer opens a song with, the second
/// @return that text, or the other one where it is empty
QString TextOf(const ExchangeSong& song, int version);
