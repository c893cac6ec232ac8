#pragma once

#include "store/Value.h"
#include "store/dialect/Syntax.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// A statement of the program's SQL dialect, rewritten for SQLite.
struct Translation
{
    QByteArray sql;            ///< one SQLite statement, UTF-8
    std::vector<Value> values; ///< its bound parameters in order: every literal text of the source
    std::vector<qsizetype> places; ///< where each of them begins there, in characters from 0
    bool isQuery = false;          ///< true for a SELECT
    bool cacheable = true;         ///< false when the text holds a list that hardly occurs twice
};

/// Reads one statement: its names resolved, joins with links folded (LinkJoin.h).
/// @param schema  the tables and columns that names are looked up in; must outlive the tree
/// @throws RuntimeError StoreFailure as Translate
Syntax::Statement ReadStatement(QStringView sql, const Schema& schema);

/// Rewrites one statement.
/// @param sql     the statement as the program wrote it, with at most one ';' at its end
/// @param schema  the tables and columns that names are looked up in
/// @throws RuntimeError StoreFailure when it is no statement of the dialect: a syntax error, an
///         unknown table or column, anything behind the ';'
Translation Translate(QStringView sql, const Schema& schema);
