#pragma once

#include <QString>

#include <algorithm>
#include <cstring>

/// The growing RTF document: room is reserved once per line, so that writing a character is one
/// store.
namespace Chords {

class SheetBuffer
{
public:
    explicit SheetBuffer(qsizetype expected)
        : m_text(expected, Qt::Uninitialized)
        , m_next(First())
        , m_end(m_next + expected)
    {
    }

    /// Makes room for so many UTF-16 units after Next().
    void Reserve(qsizetype units)
    {
        if (m_end - m_next < units) [[unlikely]]
            Grow(units);
    }

    /// Where the next character goes; whoever writes there in the reserved room tells by Advance.
    char16_t* Next() const noexcept { return m_next; }
    void Advance(char16_t* next) noexcept { m_next = next; }

    /// Writes a literal into the reserved room.
    template <std::size_t Size>
    void Put(const char16_t (&literal)[Size]) noexcept
    {
        std::memcpy(m_next, literal, (Size - 1) * sizeof *literal);
        m_next += Size - 1;
    }

    /// Writes text into the reserved room.
    void Put(QStringView text) noexcept
    {
        if (!text.isEmpty())
            std::memcpy(m_next, text.utf16(),
                        static_cast<std::size_t>(text.size()) * sizeof *m_next);
        m_next += text.size();
    }

    /// Writes a text that no room was reserved for, and reserves room after it.
    /// @param next  where it goes, at or after Next()
    /// @return where it ends
    char16_t* PutLong(char16_t* next, QStringView text, qsizetype room)
    {
        m_next = next;
        Reserve(text.size() + room);
        Put(text);
        return m_next;
    }

    /// How much is written; Rewind takes back what came after that.
    qsizetype Size() noexcept { return m_next - First(); }
    void Rewind(qsizetype size) noexcept { m_next = First() + size; }

    QString Take()
    {
        m_text.resize(Size());
        return std::move(m_text);
    }

private:
    char16_t* First() noexcept { return reinterpret_cast<char16_t*>(m_text.data()); }

    void Grow(qsizetype units)
    {
        const qsizetype size = Size();
        m_text.resize(std::max(m_text.size() * 2, size + units));
        m_next = First() + size;
        m_end = First() + m_text.size();
    }

    QString m_text;
    char16_t* m_next;
    char16_t* m_end;
};

} // namespace Chords
