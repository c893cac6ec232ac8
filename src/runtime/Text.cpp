#include "runtime/Text.h"

#include <algorithm>

namespace {
constexpr char16_t MicroSign = 0x00B5; // its capital is a Greek letter, not the sign
}

QString Text::Trim(QStringView text)
{
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && text[from] == u' ')
        ++from;
    while (to > from && text[to - 1] == u' ')
        --to;
    return text.sliced(from, to - from).toString();
}

QChar Text::UCase(QChar letter) noexcept
{
    return letter.unicode() == MicroSign ? letter : letter.toUpper();
}

QString Text::UCase(QStringView text)
{
    QString capitals(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), capitals.begin(),
                   [](QChar letter) { return UCase(letter); });
    return capitals;
}

QStringList Text::Split(QStringView text, QChar separator)
{
    if (text.isEmpty())
        return {};
    return text.toString().split(separator);
}
