#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// Numbers as the platform writes, reads and rounds them.
namespace Number {

/// @return the shortest decimal text with at most 15 significant digits and a decimal comma.
QString ToText(double number);

/// @return the number that text denotes (blanks around it allowed, decimal comma), or nothing.
std::optional<double> FromText(QStringView text);

/// @return true when text denotes a number.
bool IsNumeric(QStringView text);

/// @return the number that text denotes.
/// @throws RuntimeError TypeMismatch when it denotes none
double ToDouble(QStringView text);

/// Rounds half to even.
/// @throws RuntimeError Overflow outside 32 bits
std::int32_t ToLong(double number);

/// Rounds half to even.
/// @throws RuntimeError Overflow outside 16 bits
std::int16_t ToInteger(double number);

/// Checked 16-bit sum. @throws RuntimeError Overflow
std::int16_t AddInteger(int a, int b);

/// Checked 32-bit sum. @throws RuntimeError Overflow
std::int32_t AddLong(std::int32_t a, std::int32_t b);

/// Checked 32-bit product. @throws RuntimeError Overflow
std::int32_t MultiplyLong(std::int32_t a, std::int32_t b);

} // namespace Number
