#pragma once

#include <QStringView>

/// What an expression gives, as far as the statement alone tells.
enum class ValueType { Null, Number, Text, Date, Unknown };

/// A function of the dialect.
struct Function
{
    QStringView name;         ///< in the dialect, in capitals
    const char* sqlName;      ///< what SQLite calls it
    ValueType result;         ///< Unknown: the type of its argument
    bool aggregate = false;   ///< folds many rows into one
    bool acceptsStar = false; ///< COUNT(*)
};

/// @return the function, or nullptr; letter case is ignored.
const Function* FindFunction(QStringView name);
