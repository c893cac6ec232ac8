#pragma once

#include "store/RecordsetRows.h"
#include "store/text/Utf8.h"

#include <vector>

/// A result of names alone, shared with whoever found them.
class NameRows final : public Recordset::Rows
{
public:
    using Name = std::optional<QByteArray>; ///< UTF-8; NULL has no value

    NameRows(const QString& name, std::vector<Name> names)
        : Rows(QStringList{name})
        , m_names(std::move(names))
    {
    }

    int Count() const noexcept override { return static_cast<int>(m_names.size()); }
    Value At(int row, int) const override
    {
        const Name& name = m_names[static_cast<std::size_t>(row)];
        if (!name)
            return {};
        return Utf8::ToText({name->constData(), static_cast<std::size_t>(name->size())});
    }
    std::optional<QByteArray> Utf8At(int row, int) const override
    {
        return m_names[static_cast<std::size_t>(row)];
    }

private:
    std::vector<Name> m_names;
};
