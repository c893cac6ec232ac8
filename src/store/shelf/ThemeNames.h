#pragma once

#include <QByteArray>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The themes by their names. An import makes one more "Sem Tema" for each song without themes, so
/// that thousands may share a name: they are looked up without being looked through.
class ThemeNames
{
public:
    using Ids = std::shared_ptr<const std::vector<qint64>>;
    using Name = std::optional<QByteArray>; ///< UTF-8; nothing for a theme without one

    /// Sets the name of a theme. @param name  nothing for a theme without one
    void Put(qint64 id, std::optional<std::string_view> name);
    void Remove(qint64 id);
    void Clear();

    /// @return TEMA.ID of the themes whose name is equal in the catalogue's order, the smallest
    ///         first; never nullptr. It stays what it is when themes change
    Ids Find(std::string_view name) const;

    /// @return the name of a theme, nullptr where there is no such theme; valid until it changes
    const Name* NameOf(qint64 id) const;

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

private:
    /// Themes with one name, or with names that differ in what does not count.
    struct Group
    {
        std::string name;
        std::shared_ptr<std::vector<qint64>> ids; ///< sorted
    };
    using Groups = std::unordered_multimap<std::size_t, Group>;

    Groups::iterator GroupOf(std::string_view name);

    Groups m_groups; ///< by the name's hash
    std::unordered_map<qint64, Name> m_names;
    std::size_t m_nameBytes = 0; ///< of m_names
};
