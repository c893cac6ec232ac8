#pragma once

#include <QString>

/// What a conversion fails with: RuntimeError StoreFailure, in words for the user.
namespace JetFailure {

[[noreturn]] void Throw(const QString& whatFailed, const QString& description = {});

/// The file says something that no sound file says.
[[noreturn]] void ThrowDamaged(const QString& description);

} // namespace JetFailure
