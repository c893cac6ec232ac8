#pragma once

#include "store/RecordsetRows.h"

#include <memory>
#include <vector>

/// A result of identifiers alone, shared with whoever found them.
class IdRows final : public Recordset::Rows
{
public:
    using Ids = std::shared_ptr<const std::vector<qint64>>;

    IdRows(const QString& name, Ids ids)
        : Rows(QStringList{name})
        , m_ids(std::move(ids))
    {
    }

    int Count() const noexcept override { return static_cast<int>(m_ids->size()); }
    Value At(int row, int) const override { return (*m_ids)[static_cast<std::size_t>(row)]; }

private:
    Ids m_ids;
};
