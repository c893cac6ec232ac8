#include "jet/FrameReader.h"

#include "jet/JetFailure.h"

#include <QtEndian>

#include <bit>

namespace {

constexpr qsizetype HeadSize = 5; // kind and length

} // namespace

const char* FrameContent::Take(qsizetype size)
{
    if (size > m_content.size() - m_at)
        JetFailure::ThrowDamaged(u"um bloco lido acaba cedo demais"_qs);
    const char* taken = m_content.constData() + m_at;
    m_at += size;
    return taken;
}

quint8 FrameContent::Byte()
{
    return static_cast<quint8>(*Take(1));
}

quint32 FrameContent::Whole()
{
    return qFromLittleEndian<quint32>(Take(sizeof(quint32)));
}

double FrameContent::Real()
{
    return std::bit_cast<double>(qFromLittleEndian<quint64>(Take(sizeof(quint64))));
}

QByteArrayView FrameContent::Bytes()
{
    const qsizetype size = Whole();
    return {Take(size), size};
}

void FrameContent::ExpectEnd() const
{
    if (m_at != m_content.size())
        JetFailure::ThrowDamaged(u"um bloco lido continua depois do fim"_qs);
}

void FrameReader::Add(const QByteArray& bytes)
{
    const auto size = static_cast<quint64>(bytes.size());
    if (size > m_left)
        JetFailure::ThrowDamaged(u"sai mais do que o arquivo pode conter"_qs);
    m_left -= size;
    m_bytes.remove(0, m_at);
    m_at = 0;
    m_bytes += bytes;
}

std::optional<FrameContent> FrameReader::Next()
{
    if (m_bytes.size() - m_at < HeadSize)
        return std::nullopt;
    const char* const head = m_bytes.constData() + m_at;
    const auto length = qFromLittleEndian<quint32>(head + 1);
    if (length > RowStream::LargestFrame)
        JetFailure::ThrowDamaged(u"um bloco lido é longo demais"_qs);
    if (m_bytes.size() - m_at - HeadSize < qsizetype{length})
        return std::nullopt;
    FrameContent frame(static_cast<RowStream::Frame>(*head),
                       QByteArray(head + HeadSize, qsizetype{length}));
    m_at += HeadSize + qsizetype{length};
    return frame;
}
