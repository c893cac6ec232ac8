#pragma once
#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

/// One song as an exchange file carries it, detached from any catalogue. A text without a value is
/// a NULL column on the way out; on the way in every text has a value.
template <typename Text>
struct ExchangeSongOf
{
    std::optional<Text> titulo;
    std::optional<Text> referencia;
    std::optional<Text> letra1;
    std::optional<Text> letra2;
    std::optional<Text> tom;
    std::optional<Text> variacao;
    std::optional<int> categoria; ///< 1 or 2 in our own files, 16 bits from anywhere else
    QList<Text> temas;            ///< in the file's order, doubles included
};

using ExchangeSong = ExchangeSongOf<QString>;
/// In UTF-8, as a catalogue holds it: a library of many megabytes is not worth two conversions.
using StoredSong = ExchangeSongOf<QByteArray>;
