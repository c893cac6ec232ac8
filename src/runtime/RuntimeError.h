#pragma once

#include <QString>

#include <exception>

/// An error that ends the handler it happens in. Handlers never let one cross a Qt signal: the
/// general error path (controls/Handler.h) catches it and tells the user.
class RuntimeError : public std::exception
{
public:
    /// The numbers that callers test for. Any other error of the store has StoreFailure.
    enum Code : int {
        Overflow = 6,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        FileFailure = 75,
        InvalidUseOfNull = 94,
        InvalidIndex = 381,
        NoCurrentRecord = 3021,
        ItemNotFound = 3265,
        ObjectClosed = 3704,
        StoreFailure = -2147217900,
    };

    /// @param number       one of Code, or a code of the failing library
    /// @param whatFailed   a sentence in Portuguese for the user
    /// @param description  the store's own words; of a FileFailure the reason in Portuguese; may be
    /// empty
    RuntimeError(int number, QString whatFailed, QString description);

    int Number() const noexcept { return m_number; }
    const QString& WhatFailed() const noexcept { return m_whatFailed; }
    const QString& Description() const noexcept { return m_description; }

    const char* what() const noexcept override { return m_what.constData(); }

    [[noreturn]] static void ThrowOverflow();
    [[noreturn]] static void ThrowSubscriptOutOfRange();
    [[noreturn]] static void ThrowTypeMismatch();

private:
    int m_number;
    QString m_whatFailed;
    QString m_description;
    QByteArray m_what;
};
