#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class ConversionReport;
struct ChosenSongs;
struct ConversionOrder;

/// A file that is to be written.
struct OutputFile
{
    QString path; ///< "-" is the standard output
    QByteArray bytes;
};

/// One of the things that songs can be turned into.
struct DestinationKind
{
    QString ending; ///< of the destination, "/" of a folder
    QString format; ///< how --formato calls what is written
    bool
        isBook; ///< songs come in the order of their titles, a setlist's as often as they are in it
    bool hasPaper;

    /// Makes all that is to be written, without writing anything. Null for a catalogue, which is
    /// not made of songs (CatalogueConversion.h).
    QList<OutputFile> (*make)(const ChosenSongs& songs, const ConversionOrder& order,
                              ConversionReport& report);
};

/// @param destination  as the user wrote it
/// @param format       what --formato said, in small letters; empty when nothing
/// @param wrong        receives what is wrong, in Portuguese
/// @return one of a few that live as long as the program; null for wrong use
const DestinationKind* FindDestination(const QString& destination, const QString& format,
                                       QString& wrong);

// One for each kind, in a file of its own.
QList<OutputFile> MakeExchangeFile(const ChosenSongs&, const ConversionOrder&, ConversionReport&);
QList<OutputFile> MakeTextFile(const ChosenSongs&, const ConversionOrder&, ConversionReport&);
QList<OutputFile> MakeChordProFile(const ChosenSongs&, const ConversionOrder&, ConversionReport&);
QList<OutputFile> MakePdfBook(const ChosenSongs&, const ConversionOrder&, ConversionReport&);
QList<OutputFile> MakeChordProFolder(const ChosenSongs&, const ConversionOrder&, ConversionReport&);
QList<OutputFile> MakeTextFolder(const ChosenSongs&, const ConversionOrder&, ConversionReport&);
