#include "tools/jet/FrameWriter.h"

#include <bit>
#include <cstdio>

namespace {

constexpr unsigned ByteBits = 8;

template <typename Number>
std::string LittleEndian(Number number)
{
    std::string bytes;
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        bytes.push_back(static_cast<char>((number >> (i * ByteBits)) & 0xFFU));
    return bytes;
}

} // namespace

void FrameWriter::Begin(RowStream::Frame frame)
{
    m_frame = frame;
    m_content.clear();
}

void FrameWriter::Whole(std::uint32_t number)
{
    m_content += LittleEndian(number);
}

void FrameWriter::Real(double number)
{
    m_content += LittleEndian(std::bit_cast<std::uint64_t>(number));
}

void FrameWriter::Text(std::string_view bytes)
{
    Whole(static_cast<std::uint32_t>(bytes.size()));
    m_content += bytes;
}

void FrameWriter::Send()
{
    std::string head(1, static_cast<char>(m_frame));
    head += LittleEndian(static_cast<std::uint32_t>(m_content.size()));
    const bool sent =
        std::fwrite(head.data(), 1, head.size(), stdout) == head.size() &&
        std::fwrite(m_content.data(), 1, m_content.size(), stdout) == m_content.size();
    // A failure or the end of a list is worth being seen at once.
    const bool flushed = m_frame == RowStream::Frame::Row || std::fflush(stdout) == 0;
    if (!sent || !flushed)
        throw NobodyReads();
}

void FrameWriter::Send(RowStream::Frame frame)
{
    Begin(frame);
    Send();
}
