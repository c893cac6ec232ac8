#include "runtime/RuntimeError.h"

#include <utility>

RuntimeError::RuntimeError(int number, QString whatFailed, QString description)
    : m_number(number)
    , m_whatFailed(std::move(whatFailed))
    , m_description(std::move(description))
    , m_what((m_whatFailed + u" " + m_description).toUtf8())
{
}

void RuntimeError::ThrowOverflow()
{
    throw RuntimeError(Overflow, QStringLiteral("Um número é grande demais."),
                       QStringLiteral("Overflow"));
}

void RuntimeError::ThrowSubscriptOutOfRange()
{
    throw RuntimeError(SubscriptOutOfRange, QStringLiteral("Uma posição não existe."),
                       QStringLiteral("Subscript out of range"));
}

void RuntimeError::ThrowTypeMismatch()
{
    throw RuntimeError(TypeMismatch, QStringLiteral("Um texto não é um número."),
                       QStringLiteral("Type mismatch"));
}
