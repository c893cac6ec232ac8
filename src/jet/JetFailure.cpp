#include "jet/JetFailure.h"

void JetFailure::Throw(const QString& whatFailed, const QString& description)
{
    throw JetError(whatFailed, description);
}

void JetFailure::ThrowDamaged(const QString& description)
{
    Throw(QStringLiteral("O catálogo antigo está danificado."), description);
}
