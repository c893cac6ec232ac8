#pragma once
#include <QString>
#include <QStringList>
#include <optional>

/// One song as an exchange file carries it, detached from any catalogue. A text without a value is
/// a NULL column on the way out; on the way in every text has a value.
struct ExchangeSong
{
    std::optional<QString> titulo;
    std::optional<QString> referencia;
    std::optional<QString> letra1;
    std::optional<QString> letra2;
    std::optional<QString> tom;
    std::optional<QString> variacao;
    std::optional<int> categoria; ///< 1 or 2 in our own files, 16 bits from anywhere else
    QStringList temas;            ///< in the file's order, doubles included
};
