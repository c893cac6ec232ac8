#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct DestinationKind;

/// What the user asked for.
struct ConversionOrder
{
    QStringList sources;
    QString destination;
    const DestinationKind* kind = nullptr; ///< of the destination
    bool simulate = false;
    bool force = false;
    QString setlist;    ///< a setlist's name; empty for none
    QStringList themes; ///< names of themes; none asks for nothing
    QStringList titles; ///< parts of titles; none asks for nothing
    int semitones = 0;
    int version = 0; ///< 1 or 2; 0 when nothing was said
    bool phone = false;

    bool Chooses() const { return !setlist.isEmpty() || !themes.isEmpty() || !titles.isEmpty(); }
};

/// What stands for the standard input or output.
inline const QString& Standard()
{
    static const QString standard = u"-"_qs;
    return standard;
}

/// @param arguments  without the program's name
/// @param wrong      receives what is wrong, in Portuguese
/// @return nothing for wrong use
std::optional<ConversionOrder> ReadOrder(const QStringList& arguments, QString& wrong);
