#include "store/dialect/Functions.h"

#include "store/dialect/Names.h"

#include <algorithm>
#include <array>

const Function* FindFunction(QStringView name)
{
    static constexpr std::array<Function, 7> Functions{{
        {u"DAY", Names::Day, ValueType::Number},
        {u"MONTH", Names::Month, ValueType::Number},
        {u"YEAR", Names::Year, ValueType::Number},
        {u"CDATE", Names::Cdate, ValueType::Date},
        {u"MAX", "MAX", ValueType::Unknown, true},
        {u"MIN", "MIN", ValueType::Unknown, true},
        {u"COUNT", "COUNT", ValueType::Number, true, true},
    }};
    const auto* const found =
        std::find_if(Functions.begin(), Functions.end(), [name](const Function& function) {
            return name.compare(function.name, Qt::CaseInsensitive) == 0;
        });
    return found == Functions.end() ? nullptr : found;
}
