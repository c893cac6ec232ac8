#include "jet/JetFailure.h"

#include "runtime/RuntimeError.h"

void JetFailure::Throw(const QString& whatFailed, const QString& description)
{
    throw RuntimeError(RuntimeError::StoreFailure, whatFailed, description);
}

void JetFailure::ThrowDamaged(const QString& description)
{
    Throw(QStringLiteral("O catálogo antigo está danificado."), description);
}
