#include "runtime/Number.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int SignificantDigits = 15;
constexpr double LeastRounded = 1e15; ///< has more digits
constexpr QStringView NumberSigns = u"0123456789+-,eE";

template <typename Whole>
Whole RoundTo(double number)
{
    // std::nearbyint rounds half to even in the default rounding mode, which nothing here changes.
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<Whole>::min() &&
          rounded <= std::numeric_limits<Whole>::max()))
        RuntimeError::ThrowOverflow();
    return static_cast<Whole>(rounded);
}

template <typename Whole>
Whole Checked(std::int64_t number)
{
    if (number < std::numeric_limits<Whole>::min() || number > std::numeric_limits<Whole>::max())
        RuntimeError::ThrowOverflow();
    return static_cast<Whole>(number);
}

} // namespace

QString Number::ToText(double number)
{
    // Whole numbers of at most fifteen digits, which all identifiers are, need no rounding.
    if (std::abs(number) < LeastRounded && std::trunc(number) == number && !std::signbit(number))
        return QString::number(static_cast<std::int64_t>(number));
    return QString::number(number, 'g', SignificantDigits).replace(u'.', u',').toUpper();
}

std::optional<double> Number::FromText(QStringView text)
{
    // QLocale alone would also take "inf", "nan" and a decimal point.
    QString digits = Text::Trim(text);
    if (!std::all_of(digits.cbegin(), digits.cend(),
                     [](QChar letter) { return NumberSigns.contains(letter); }))
        return std::nullopt;
    digits.replace(u',', u'.');
    bool ok = false;
    const double number = QLocale::c().toDouble(digits, &ok);
    if (!ok)
        return std::nullopt;
    return number;
}

bool Number::IsNumeric(QStringView text)
{
    return FromText(text).has_value();
}

double Number::ToDouble(QStringView text)
{
    const auto number = FromText(text);
    if (!number)
        RuntimeError::ThrowTypeMismatch();
    return *number;
}

std::int32_t Number::ToLong(double number)
{
    return RoundTo<std::int32_t>(number);
}

std::int16_t Number::ToInteger(double number)
{
    return RoundTo<std::int16_t>(number);
}

std::int16_t Number::AddInteger(int a, int b)
{
    return Checked<std::int16_t>(std::int64_t{a} + b);
}

std::int32_t Number::AddLong(std::int32_t a, std::int32_t b)
{
    return Checked<std::int32_t>(std::int64_t{a} + b);
}

std::int32_t Number::MultiplyLong(std::int32_t a, std::int32_t b)
{
    return Checked<std::int32_t>(std::int64_t{a} * b);
}
