#include "store/sqlite/Failure.h"

#include "runtime/RuntimeError.h"

#include <QString>

#include <sqlite3.h>

namespace {

constexpr int PrimaryCode = 0xff;

QString WhatFailed(int code)
{
    switch (code & PrimaryCode) {
    case SQLITE_FULL:
        return QStringLiteral("O disco está cheio.");
    case SQLITE_READONLY:
        return QStringLiteral("O banco de dados só pode ser lido, não alterado.");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("O banco de dados está sendo usado por outro programa.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return QStringLiteral("O arquivo do banco de dados está danificado.");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_IOERR:
    case SQLITE_AUTH:
        return QStringLiteral("O arquivo do banco de dados não pode ser lido ou gravado.");
    case SQLITE_NOMEM:
        return QStringLiteral("Falta memória.");
    case SQLITE_TOOBIG:
        return QStringLiteral("Um texto é grande demais.");
    case SQLITE_INTERRUPT:
        return QStringLiteral("O comando foi interrompido.");
    default:
        return QStringLiteral("O banco de dados recusou um comando.");
    }
}

} // namespace

void Failure::Throw(int code, const QString& words, bool undone)
{
    if (words == QLatin1String(Overflow))
        RuntimeError::ThrowOverflow();
    if (words == QLatin1String(TypeMismatch))
        RuntimeError::ThrowTypeMismatch();
    if (words == QLatin1String(DateMismatch))
        throw RuntimeError(RuntimeError::TypeMismatch, QStringLiteral("Um texto não é uma data."),
                           QStringLiteral("Type mismatch"));
    QString whatFailed = WhatFailed(code);
    if (undone)
        whatFailed += QStringView(Undone);
    throw RuntimeError(RuntimeError::StoreFailure, whatFailed,
                       QStringLiteral("%1 (%2)").arg(words).arg(code));
}

void Failure::ThrowLast(sqlite3* database, bool inBatch)
{
    // Where the disk is full or cannot be read any more, SQLite may have to undo everything since
    // the batch began; a connection that is back in autocommit tells.
    const bool undone = inBatch && sqlite3_get_autocommit(database) != 0;
    Throw(sqlite3_extended_errcode(database), QString::fromUtf8(sqlite3_errmsg(database)), undone);
}

void Failure::ThrowClosed()
{
    throw RuntimeError(RuntimeError::ObjectClosed,
                       QStringLiteral("O banco de dados já está fechado."),
                       QStringLiteral("Operation is not allowed when the object is closed."));
}

void Failure::ThrowGone()
{
    throw RuntimeError(
        RuntimeError::StoreFailure, QStringLiteral("Outro programa excluiu a música."),
        QStringLiteral("Row handle referred to a deleted row or a row marked for deletion."));
}
