#include "mld/ExchangeReader.h"

#include "mld/ExchangeDecoder.h"
#include "mld/ExchangeXml.h"
#include "mld/SongCollector.h"

#include <QIODevice>

namespace {

constexpr qint64 PieceSize = qint64{64} * 1024;
constexpr qint64 ProgressStep = qint64{1024} * 1024;

/// The pieces of a file as the parser is given them.
class Pieces
{
public:
    Pieces(QIODevice& file, const ExchangeReader::Progress& progress)
        : m_file(file)
        , m_progress(progress)
        , m_raw(ReadRaw())
        , m_decoder(m_raw)
    {
    }

    const ExchangeDecoder& Decoder() const { return m_decoder; }
    bool IsGood() const { return m_isGood; }

    QByteArray Next()
    {
        QByteArray text;
        // Half a character is no text yet, and an empty piece would be the end.
        while (m_isGood && text.isEmpty() && !m_raw.isEmpty()) {
            m_isGood = m_decoder.Decode(m_raw, text) && GoesOn();
            m_raw = ReadRaw();
        }
        if (m_raw.isEmpty() && text.isEmpty())
            m_isGood = m_isGood && m_decoder.Finish();
        return m_isGood ? text : QByteArray();
    }

private:
    QByteArray ReadRaw()
    {
        QByteArray raw(PieceSize, Qt::Uninitialized);
        qint64 size = 0;
        // A device may give less than it was asked for; the start has to be long enough to know
        // the encoding.
        while (size < PieceSize) {
            const qint64 more = m_file.read(raw.data() + size, PieceSize - size);
            m_isGood = m_isGood && more >= 0;
            if (more <= 0)
                break;
            size += more;
        }
        raw.truncate(size);
        m_read += size;
        return raw;
    }

    bool GoesOn()
    {
        if (!m_progress || m_read - m_told < ProgressStep)
            return true;
        m_told = m_read;
        return m_progress(m_read);
    }

    QIODevice& m_file;
    const ExchangeReader::Progress& m_progress;
    bool m_isGood = true;
    qint64 m_read = 0;
    qint64 m_told = 0;
    QByteArray m_raw;
    ExchangeDecoder m_decoder;
};

} // namespace

std::optional<ExchangeSongs> ExchangeReader::Read(QIODevice& file, const Progress& progress)
{
    Pieces pieces(file, progress);
    SongCollector collector;
    const bool isWhole = ExchangeXml::Parse([&pieces] { return pieces.Next(); },
                                            pieces.Decoder().OverridesDeclaration(), collector);
    if (!isWhole || !pieces.IsGood())
        return std::nullopt;
    return collector.Take();
}
