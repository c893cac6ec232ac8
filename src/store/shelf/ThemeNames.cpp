#include "store/shelf/ThemeNames.h"

#include "store/text/Collation.h"

#include <algorithm>

namespace {

using List = std::vector<qint64>;

/// @return the list, a copy of its own where somebody still shows it
List& ToChange(std::shared_ptr<List>& ids)
{
    if (ids.use_count() > 1)
        ids = std::make_shared<List>(*ids);
    return *ids;
}

} // namespace

ThemeNames::Groups::iterator ThemeNames::GroupOf(std::string_view name)
{
    const auto [from, to] = m_groups.equal_range(Collation::Shared().HashOf(name));
    const auto found = std::find_if(from, to, [name](const auto& entry) {
        return Collation::Shared().Compare(entry.second.name, name) == 0;
    });
    return found == to ? m_groups.end() : found;
}

void ThemeNames::Put(qint64 id, std::optional<std::string_view> name)
{
    Remove(id);
    Name& kept = m_names[id];
    if (!name)
        return;
    kept = QByteArray(name->data(), static_cast<qsizetype>(name->size()));
    m_nameBytes += name->size();
    auto group = GroupOf(*name);
    if (group == m_groups.end())
        group = m_groups.emplace(Collation::Shared().HashOf(*name),
                                 Group{std::string(*name), std::make_shared<List>()});
    List& ids = ToChange(group->second.ids);
    ids.insert(std::upper_bound(ids.begin(), ids.end(), id), id); // nearly always behind the last
}

void ThemeNames::Remove(qint64 id)
{
    const auto known = m_names.find(id);
    if (known == m_names.end())
        return;
    const Name name = std::move(known->second);
    m_names.erase(known);
    if (!name)
        return;
    const std::string_view text(name->constData(), static_cast<std::size_t>(name->size()));
    m_nameBytes -= text.size();
    const auto group = GroupOf(text);
    List& ids = ToChange(group->second.ids);
    ids.erase(std::lower_bound(ids.begin(), ids.end(), id));
    if (ids.empty())
        m_groups.erase(group);
}

const ThemeNames::Name* ThemeNames::NameOf(qint64 id) const
{
    const auto known = m_names.find(id);
    return known == m_names.end() ? nullptr : &known->second;
}

void ThemeNames::Clear()
{
    m_groups.clear();
    m_names.clear();
    m_nameBytes = 0;
}

ThemeNames::Ids ThemeNames::Find(std::string_view name) const
{
    const auto [from, to] = m_groups.equal_range(Collation::Shared().HashOf(name));
    for (auto entry = from; entry != to; ++entry) {
        if (Collation::Shared().Compare(entry->second.name, name) == 0)
            return entry->second.ids;
    }
    return std::make_shared<List>();
}

std::size_t ThemeNames::Size() const noexcept
{
    constexpr std::size_t Node = 16 * sizeof(void*);
    // A name may lie here twice, as a theme's and as its group's.
    return (m_names.size() + m_groups.size()) * Node + 2 * m_nameBytes;
}
