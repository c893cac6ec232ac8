#pragma once

#include "store/shelf/SongRow.h"
#include "store/shelf/SongSearch.h"
#include "store/shelf/TitleOrder.h"

#include <cstdint>
#include <memory>
#include <vector>

/// All songs in the order of their IDs, each at a place of its own that it keeps, and the
/// orders that searches show them in.
class SongTable
{
public:
    using Place = std::uint32_t;
    static constexpr Place Nowhere = UINT32_MAX;

    SongTable();

    /// Where the texts of songs to be added are kept.
    TextPool& Texts() { return m_pile->texts; }

    /// Adds a song, in any order; Arrange() ends it.
    void Add(const SongRow& row);
    void Arrange();

    /// Puts a song in the place of the one with its ID, or behind the last.
    /// @return false for a new song that would not be the last; nothing is changed then
    bool Put(const SongRow& row);

    /// Takes a song out; its place stays empty.
    void Remove(qint64 id);

    /// @return how many places there are, empty ones included.
    Place Places() const noexcept { return static_cast<Place>(m_rows.size()); }

    /// @return the song, or nullptr at an empty place
    const SongRow* At(Place place) const { return m_rows[place]; }

    /// @return the category of the song at a place; nothing at an empty one.
    const SongRow::Number& CategoryAt(Place place) const { return m_categories[place]; }

    /// @return the ID of the song that is or was at a place.
    qint64 IdAt(Place place) const { return m_ids[place]; }

    Place PlaceOf(qint64 id) const;

    /// @return false when InOrder would have to sort first.
    bool IsSorted(SongSearch::Order order) const;

    /// @return the places of all songs in an order; by ID also those that are empty.
    const std::vector<Place>& InOrder(SongSearch::Order order);

    /// What results hold on to.
    std::shared_ptr<const SongPile> Pile() const { return m_pile; }

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

    /// @return true when songs that changed take more room than those that are.
    bool IsWasteful() const noexcept { return m_pile->rows.size() > 2 * m_rows.size() + 1000; }

private:
    /// The songs ordered by one of their texts.
    struct Order
    {
        TitleOrder::Key key;
        std::vector<Place> places;
        bool isKept = false; ///< sorted, and kept so from then on
    };

    std::vector<Place>::iterator PlaceInOrder(Order& order, const SongRow& row);
    const std::vector<Place>& Sorted(Order& order);
    void ForgetOrders();

    /// An order is kept up with a few changes; after more of them without a search between, as an
    /// import brings, sorting anew once somebody asks is less work.
    static constexpr int MostChanges = 100;

    std::shared_ptr<SongPile> m_pile;
    std::vector<const SongRow*> m_rows;
    std::vector<qint64> m_ids;
    std::vector<SongRow::Number> m_categories; ///< apart: every search asks for all of them
    Order m_byTitle{TitleOrder::Key::Title, {}, false};
    Order m_byLabel{TitleOrder::Key::Label, {}, false};         ///< once somebody asked
    Order m_byReference{TitleOrder::Key::Reference, {}, false}; ///< once somebody asked
    std::vector<Place> m_byCount;                               ///< empty while nobody asked
    int m_changes = 0;         ///< since somebody asked for an order
    std::vector<Place> m_byId; ///< once somebody asked
};
