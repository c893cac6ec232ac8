#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What the user asks melodario-verifica for.
struct VerificationOrder
{
    QString catalogue;
    QString repaired; ///< the new catalogue; empty for a check alone
    bool simulate = false;
    bool force = false;
    bool everything = false; ///< all cases are told, not only the first ones
};

/// @param wrong  receives why the arguments make no sense, in Portuguese
std::optional<VerificationOrder> ReadVerificationOrder(const QStringList& arguments,
                                                       QString& wrong);
