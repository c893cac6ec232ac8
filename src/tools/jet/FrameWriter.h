#pragma once

#include "jet/RowStream.h"

#include <string>
#include <string_view>

/// Writes frames to the standard output.
class FrameWriter
{
public:
    /// Thrown when nobody reads any more.
    struct NobodyReads
    {
    };

    void Begin(RowStream::Frame frame);
    void Add(RowStream::Field field) { Byte(static_cast<std::uint8_t>(field)); }
    void Add(RowStream::Trouble trouble) { Byte(static_cast<std::uint8_t>(trouble)); }
    void Whole(std::uint32_t number);
    void Real(double number);
    void Text(std::string_view bytes);

    /// Sends what was added since Begin. @throws NobodyReads
    void Send();

    /// Sends a frame without content. @throws NobodyReads
    void Send(RowStream::Frame frame);

private:
    void Byte(std::uint8_t byte) { m_content.push_back(static_cast<char>(byte)); }

    RowStream::Frame m_frame = RowStream::Frame::Done;
    std::string m_content;
};
