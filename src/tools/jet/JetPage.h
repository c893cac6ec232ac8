#pragma once

#include <cstdint>

/// A page of rows: where each lies, checked against the page's bounds.
class JetPage
{
public:
    struct Row
    {
        unsigned start = 0;
        unsigned size = 0;
        bool deleted = false; ///< or moved here from another page, when such a row points to it
        bool moved = false;   ///< holds a pointer to the row instead of the row
    };

    /// The owner of pages that hold long texts.
    static constexpr std::uint32_t LongTexts = 0x4C41564C; // "LVAL"

    /// @param bytes     a page; outlives this
    /// @param pageSize  its length
    /// @param countAt   where the number of rows stands
    /// @param owner     the table's definition page, or LongTexts
    /// @throws JetTrouble when the page is no such page
    JetPage(const unsigned char* bytes, unsigned pageSize, unsigned countAt, std::uint32_t owner);

    unsigned RowCount() const { return m_count; }

    /// @param number  from 0
    /// @throws JetTrouble when there is none, or it does not lie within the page
    Row At(unsigned number) const;

private:
    unsigned Entry(unsigned number) const;

    const unsigned char* m_bytes;
    unsigned m_size;
    unsigned m_entries; ///< where the rows' places begin
    unsigned m_count;
};
