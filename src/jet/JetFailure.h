#pragma once

#include "runtime/RuntimeError.h"

/// StoreFailure of a conversion; unlike the store's own words its description is in Portuguese.
class JetError final : public RuntimeError
{
public:
    JetError(const QString& whatFailed, const QString& description)
        : RuntimeError(StoreFailure, whatFailed, description)
    {
    }
};

/// Throws what a conversion fails with, in words for the user.
namespace JetFailure {

/// @throws JetError
[[noreturn]] void Throw(const QString& whatFailed, const QString& description = {});

/// The file says something that no sound file says.
[[noreturn]] void ThrowDamaged(const QString& description);

} // namespace JetFailure
