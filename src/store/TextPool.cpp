#include "store/TextPool.h"

#include <algorithm>
#include <cstring>

namespace {

/// A longer text gets a block of its own.
constexpr std::size_t FirstBlock = std::size_t{4} * 1024;
constexpr std::size_t LargestBlock = std::size_t{1024} * 1024;

} // namespace

std::string_view TextPool::Keep(std::string_view text)
{
    if (text.empty())
        return "";
    if (text.size() > m_free) {
        // Small results take small blocks, large ones few.
        const std::size_t usual =
            std::min(LargestBlock, FirstBlock << std::min<std::size_t>(m_blocks.size(), 8));
        const std::size_t size = std::max(usual, text.size());
        // Not make_unique, which would write zeros first.
        m_blocks.emplace_back(new char[size]);
        m_next = m_blocks.back().get();
        m_free = size;
        m_size += size;
    }
    char* const kept = m_next;
    std::memcpy(kept, text.data(), text.size());
    m_next += text.size();
    m_free -= text.size();
    return {kept, text.size()};
}
