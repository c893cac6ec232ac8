#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <span>

/// What libFuzzer calls for each input, and the replay for each file of a corpus.
/// @return 0
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Fuzz {

/// The bytes of one input, read from the front as parameters. Behind the end everything is zero, so
/// that any bytes at all are an input.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(data, size)
    {
    }

    bool AtEnd() const { return m_rest.empty(); }

    unsigned Byte()
    {
        if (m_rest.empty())
            return 0;
        const unsigned byte = m_rest.front();
        m_rest = m_rest.subspan(1);
        return byte;
    }

    /// @param bound  1 to 256
    unsigned Below(unsigned bound) { return Byte() % bound; }
    bool Flag() { return (Byte() & 1U) != 0; }

    /// A number of 16 bits, mostly a small one.
    std::int16_t Whole()
    {
        const unsigned first = Byte();
        if (first < 0xE0)
            return static_cast<std::int16_t>(static_cast<int>(first % 61) - 30);
        return static_cast<std::int16_t>(first << 8 | Byte());
    }

    /// One of a few texts.
    const QString& Of(std::initializer_list<QString> texts)
    {
        return *(texts.begin() + Below(static_cast<unsigned>(texts.size())));
    }

    /// At most so many bytes.
    QByteArray Bytes(std::size_t most)
    {
        const auto taken = m_rest.first(std::min(most, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return QByteArray(reinterpret_cast<const char*>(taken.data()),
                          static_cast<qsizetype>(taken.size()));
    }

    QByteArray Rest() { return Bytes(m_rest.size()); }

    /// A text of at most so many bytes in one of four spellings: one byte a character, UTF-8, raw
    /// UTF-16 with whatever surrogates, or whole pieces, one byte each.
    QString Text(std::size_t most, std::span<const QString> pieces)
    {
        const unsigned spelling = Below(4);
        const QByteArray bytes = Bytes(most);
        if (spelling == 0)
            return QString::fromLatin1(bytes);
        if (spelling == 1)
            return QString::fromUtf8(bytes);
        QString text;
        if (spelling == 2) {
            for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
                text += QChar(static_cast<uchar>(bytes[i]), static_cast<uchar>(bytes[i + 1]));
            return text;
        }
        for (const char byte : bytes)
            text += pieces[static_cast<uchar>(byte) % pieces.size()];
        return text;
    }

private:
    std::span<const std::uint8_t> m_rest;
};

/// Ends the program with what two routes to one answer say, if they differ.
inline void Same(const char* what, const QString& one, const QString& other)
{
    if (one == other)
        return;
    std::fprintf(stderr, "%s differs:\n<%s>\n<%s>\n", what, qUtf8Printable(one),
                 qUtf8Printable(other));
    std::abort();
}

inline void Same(const char* what, const QByteArray& one, const QByteArray& other)
{
    Same(what, QString::fromLatin1(one), QString::fromLatin1(other));
}

inline void Same(const char* what, std::int64_t one, std::int64_t other)
{
    Same(what, QString::number(one), QString::number(other));
}

inline void Holds(const char* what, bool holds)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace Fuzz
