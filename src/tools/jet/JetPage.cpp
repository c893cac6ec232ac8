#include "tools/jet/JetPage.h"

#include "tools/jet/JetTrouble.h"
#include "tools/jet/Libmdb.h"

#include <cstddef>

namespace {

constexpr unsigned EntrySize = 2;
constexpr unsigned OwnerAt = 4;
constexpr unsigned PlaceMask = 0x1FFF;
constexpr unsigned MovedFlag = 0x4000;
constexpr unsigned DeletedFlag = 0x8000;

} // namespace

JetPage::JetPage(const unsigned char* bytes, unsigned pageSize, unsigned countAt,
                 std::uint32_t owner)
    : m_bytes(bytes)
    , m_size(pageSize)
    , m_entries(countAt + EntrySize)
    , m_count(Libmdb::Word(bytes + countAt))
{
    if (bytes[0] != MDB_PAGE_DATA || Libmdb::DoubleWord(bytes + OwnerAt) != owner)
        JetTrouble::Damaged("uma página de linhas é de outra coisa");
    if (m_entries + m_count * EntrySize > m_size)
        JetTrouble::Damaged("uma página diz ter mais linhas do que lhe cabem");
}

unsigned JetPage::Entry(unsigned number) const
{
    return Libmdb::Word(m_bytes + m_entries + std::size_t{number} * EntrySize);
}

JetPage::Row JetPage::At(unsigned number) const
{
    if (number >= m_count)
        JetTrouble::Damaged("falta uma linha na sua página");
    const unsigned entry = Entry(number);
    // A deleted row carries both flags, one that was moved to its page only that of deletion.
    Row row{entry & PlaceMask, 0, (entry & DeletedFlag) != 0, (entry & MovedFlag) != 0};
    const unsigned end = number == 0 ? m_size : Entry(number - 1) & PlaceMask;
    if (row.start > end || end > m_size || row.start < m_entries + m_count * EntrySize)
        JetTrouble::Damaged("uma linha está fora da sua página");
    row.size = end - row.start;
    return row;
}
