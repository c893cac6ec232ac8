#pragma once

#include <memory>
#include <string_view>
#include <vector>

/// Keeps copies of texts one behind the other, in blocks that never move. Nothing is given back
/// before the pool itself goes.
class TextPool
{
public:
    /// @return the copy; never without an address, also when text is empty
    std::string_view Keep(std::string_view text);

    /// @return bytes that the blocks take.
    std::size_t Size() const noexcept { return m_size; }

private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    std::size_t m_size = 0;
    std::size_t m_free = 0; ///< bytes left in the last block
    char* m_next = nullptr; ///< where they start
};
