#include "store/shelf/SongTable.h"

#include <algorithm>
#include <numeric>

SongTable::SongTable()
    : m_pile(std::make_shared<SongPile>())
{
}

void SongTable::Add(const SongRow& row)
{
    m_rows.push_back(&m_pile->rows.emplace_back(row));
}

void SongTable::Arrange()
{
    const auto byId = [](const SongRow* a, const SongRow* b) { return a->id < b->id; };
    if (!std::is_sorted(m_rows.begin(), m_rows.end(), byId))
        std::sort(m_rows.begin(), m_rows.end(), byId);
    m_ids.reserve(m_rows.size());
    m_categories.reserve(m_rows.size());
    for (const SongRow* row : m_rows) {
        m_ids.push_back(row->id);
        m_categories.push_back(row->category);
    }
    for (Order* order : {&m_byTitle, &m_byLabel, &m_byReference})
        order->isKept = false;
    Sorted(m_byTitle);
}

SongTable::Place SongTable::PlaceOf(qint64 id) const
{
    if (m_ids.empty() || id < m_ids.front() || id > m_ids.back())
        return Nowhere;
    // Without gaps between the IDs the distance is the place; gaps only bring it nearer.
    const auto distance = static_cast<quint64>(id) - static_cast<quint64>(m_ids.front());
    const std::size_t farthest = std::min<quint64>(distance, m_ids.size() - 1);
    if (m_ids[farthest] == id)
        return static_cast<Place>(farthest);
    const auto end = m_ids.begin() + static_cast<std::ptrdiff_t>(farthest);
    const auto found = std::lower_bound(m_ids.begin(), end, id);
    return found != end && *found == id ? static_cast<Place>(found - m_ids.begin()) : Nowhere;
}

const std::vector<SongTable::Place>& SongTable::Sorted(Order& order)
{
    if (!order.isKept)
        order.places = TitleOrder::Sorted(m_rows, order.key);
    order.isKept = true;
    return order.places;
}

std::vector<SongTable::Place>::iterator SongTable::PlaceInOrder(Order& order, const SongRow& row)
{
    const auto isBefore = [&](Place place, const SongRow& song) {
        return TitleOrder::IsBefore(*m_rows[place], song, order.key);
    };
    return std::lower_bound(order.places.begin(), order.places.end(), row, isBefore);
}

bool SongTable::Put(const SongRow& row)
{
    Place place = PlaceOf(row.id);
    if (place == Nowhere) {
        if (!m_ids.empty() && row.id < m_ids.back())
            return false;
        place = Places();
        m_ids.push_back(row.id);
        m_rows.push_back(nullptr);
        m_categories.emplace_back();
    }
    Remove(row.id);
    if (++m_changes > MostChanges)
        ForgetOrders();
    const SongRow& kept = m_pile->rows.emplace_back(row);
    for (Order* order : {&m_byTitle, &m_byLabel, &m_byReference}) {
        if (order->isKept)
            order->places.insert(PlaceInOrder(*order, kept), place);
    }
    m_rows[place] = &kept;
    m_categories[place] = kept.category;
    return true;
}

void SongTable::Remove(qint64 id)
{
    const Place place = PlaceOf(id);
    if (place == Nowhere || !m_rows[place])
        return;
    m_byCount.clear();
    for (Order* order : {&m_byTitle, &m_byLabel, &m_byReference}) {
        if (order->isKept)
            order->places.erase(PlaceInOrder(*order, *m_rows[place]));
    }
    m_rows[place] = nullptr;
    m_categories[place].reset();
}

void SongTable::ForgetOrders()
{
    for (Order* order : {&m_byTitle, &m_byLabel, &m_byReference}) {
        order->isKept = false;
        order->places.clear();
    }
    m_byCount.clear();
}

bool SongTable::IsSorted(SongSearch::Order order) const
{
    switch (order) {
    case SongSearch::Order::Title:
        return m_byTitle.isKept;
    case SongSearch::Order::Label:
        return m_byLabel.isKept;
    case SongSearch::Order::Reference:
        return m_byReference.isKept;
    case SongSearch::Order::MostPlayed:
        return m_byTitle.isKept && m_byCount.size() == m_byTitle.places.size();
    case SongSearch::Order::Id:
        return m_byId.size() == m_rows.size();
    }
    return false;
}

const std::vector<SongTable::Place>& SongTable::InOrder(SongSearch::Order order)
{
    m_changes = 0;
    switch (order) {
    case SongSearch::Order::Title:
        break;
    case SongSearch::Order::Label:
        return Sorted(m_byLabel);
    case SongSearch::Order::Reference:
        return Sorted(m_byReference);
    case SongSearch::Order::MostPlayed:
        if (!IsSorted(order)) {
            m_byCount = Sorted(m_byTitle);
            // No count is the lowest one.
            std::stable_sort(m_byCount.begin(), m_byCount.end(), [this](Place a, Place b) {
                return m_rows[b]->count < m_rows[a]->count;
            });
        }
        return m_byCount;
    case SongSearch::Order::Id:
        if (m_byId.size() != m_rows.size()) {
            m_byId.resize(m_rows.size());
            std::iota(m_byId.begin(), m_byId.end(), Place{0});
        }
        return m_byId;
    }
    return Sorted(m_byTitle);
}

std::size_t SongTable::Size() const noexcept
{
    return m_pile->Size() + m_rows.size() * (sizeof(void*) + sizeof(qint64) +
                                             sizeof(SongRow::Number) + 5 * sizeof(Place));
}
