#include "mld/ExchangeWriter.h"

#include "mld/EncodedText.h"
#include "store/CodePage.h"
#include "store/text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Stands for a line break inside lyrics: each field stays on one line.
constexpr QStringView BreakMark = u"[br]";

enum class Breaks { Kept, Marked };

/// Characters that are looked at in one go: nearly all of a library's many megabytes are such that
/// nothing has to be done about them.
class Four
{
public:
    static constexpr std::ptrdiff_t Units = 4;

    /// @param units  Units of them
    explicit Four(const QChar* units) { std::memcpy(&m_bits, units, sizeof m_bits); }

    /// @return whether all are below U+0200
    bool AreLow() const { return (m_bits & Each(0xFE00)) == 0; }

    /// @return whether one is "<", ">" or a line feed
    bool HaveSpecial() const
    {
        const std::uint64_t brackets = (m_bits & Each(0xFFFD)) ^ Each(u'<'); // differ in one bit
        return HasZero(brackets) || HasZero(m_bits ^ Each(u'\n'));
    }

private:
    static constexpr std::uint64_t Each(std::uint64_t unit) { return unit * 0x0001'0001'0001'0001; }
    static bool HasZero(std::uint64_t units)
    {
        return ((units - Each(1)) & ~units & Each(0x8000)) != 0;
    }

    std::uint64_t m_bits = 0;
};

bool AreBelow(char16_t limit, QStringView text)
{
    const QChar* in = text.begin();
    while (in != text.end()) {
        if (text.end() - in >= Four::Units && Four(in).AreLow())
            in += Four::Units;
        else if (*in++ >= QChar(limit))
            return false;
    }
    return true;
}

/// Appends text without "<" and ">". A line break that holds one of them counts all the same. In
/// one pass: a library has many megabytes of lyrics.
void AppendClean(QString& document, const QString& text, Breaks breaks)
{
    const qsizetype at = document.size();
    document.resize(at + 2 * text.size()); // a break of two characters becomes a mark of four
    QChar* const begin = document.data() + at;
    QChar* out = begin;
    const QChar* in = text.constData();
    const QChar* const end = in + text.size();
    while (in != end) {
        if (end - in >= Four::Units && !Four(in).HaveSpecial()) {
            out = std::copy_n(in, Four::Units, out);
            in += Four::Units;
            continue;
        }
        const QChar unit = *in++;
        if (unit == u'<' || unit == u'>')
            continue;
        if (unit == u'\n' && breaks == Breaks::Marked && out != begin && out[-1] == u'\r')
            out = std::copy(BreakMark.begin(), BreakMark.end(), out - 1);
        else
            *out++ = unit;
    }
    document.resize(at + (out - begin));
}

/// A document as text.
class TextDocument
{
public:
    explicit TextDocument(QString& document)
        : m_document(document)
    {
    }
    void Put(QLatin1StringView layout) { m_document.append(layout); }
    void AsStored(const QString& text) { m_document.append(ExchangeWriter::Composed(text)); }
    void Clean(const QString& text, Breaks breaks)
    {
        AppendClean(m_document, ExchangeWriter::Composed(text), breaks);
    }

private:
    QString& m_document;
};

/// A document in the code page, of texts in UTF-8.
class EncodedDocument
{
public:
    explicit EncodedDocument(QByteArray& document)
        : m_document(document)
    {
    }
    // The layout is Latin 1, where both code pages agree.
    void Put(QLatin1StringView layout) { m_document.append(layout.data(), layout.size()); }
    void AsStored(const QByteArray& text)
    {
        if (!EncodedText::Append(m_document, text, {}))
            CodePage::AppendFromUnicode(m_document, Composed(text));
    }
    void Clean(const QByteArray& text, Breaks breaks)
    {
        if (EncodedText::Append(m_document, text, {true, breaks == Breaks::Marked}))
            return;
        QString clean;
        AppendClean(clean, Composed(text), breaks);
        CodePage::AppendFromUnicode(m_document, clean);
    }

private:
    static QString Composed(const QByteArray& text)
    {
        return ExchangeWriter::Composed(
            Utf8::ToText({text.constData(), static_cast<std::size_t>(text.size())}));
    }

    QByteArray& m_document;
};

/// The one place that knows how a song is laid out.
template <typename Document, typename Text>
class SongWriter
{
public:
    explicit SongWriter(Document document)
        : m_document(document)
    {
    }

    void Write(const ExchangeSongOf<Text>& song)
    {
        m_document.Put("   <musica>\r\n       <titulo>"_L1);
        Clean(song.titulo, "Sem T\xEDtulo"_L1);
        m_document.Put("</titulo>\r\n       <referencia>"_L1);
        Clean(song.referencia, "Sem Refer\xEAncia"_L1);
        m_document.Put("</referencia>\r\n       <letra1>"_L1);
        Clean(song.letra1, "Sem Letra"_L1, Breaks::Marked);
        m_document.Put("</letra1>\r\n       <letra2>"_L1);
        Clean(song.letra2, "Sem Letra"_L1, Breaks::Marked);
        m_document.Put("</letra2>\r\n       <tom>"_L1);
        AsStored(song.tom, "C"_L1);
        m_document.Put("</tom>\r\n       <variacao>"_L1);
        AsStored(song.variacao, ""_L1);
        m_document.Put("</variacao>\r\n       <categoria>"_L1);
        m_document.Put(QLatin1StringView(QByteArray::number(song.categoria.value_or(1))));
        m_document.Put("</categoria>\r\n       <temas>\r\n"_L1);
        for (const Text& tema : song.temas) {
            m_document.Put("           <descricao>"_L1);
            m_document.AsStored(tema);
            m_document.Put("</descricao>\r\n"_L1);
        }
        m_document.Put("       </temas>\r\n   </musica>\r\n"_L1);
    }

private:
    void Clean(const std::optional<Text>& text, QLatin1StringView whenMissing,
               Breaks breaks = Breaks::Kept)
    {
        if (text)
            m_document.Clean(*text, breaks);
        else
            m_document.Put(whenMissing);
    }

    void AsStored(const std::optional<Text>& text, QLatin1StringView whenMissing)
    {
        if (text)
            m_document.AsStored(*text);
        else
            m_document.Put(whenMissing);
    }

    Document m_document;
};

} // namespace

QString ExchangeWriter::Head()
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>\r\n<musicas>\r\n");
}

QString ExchangeWriter::Tail()
{
    return QStringLiteral("</musicas>");
}

QString ExchangeWriter::Composed(const QString& field)
{
    // What lies below the first mark is composed already, and nearly every text is.
    constexpr char16_t FirstMark = 0x0300; // above what Four calls low
    const bool isComposed = AreBelow(FirstMark, field);
    return isComposed ? field : field.normalized(QString::NormalizationForm_C);
}

void ExchangeWriter::Append(QString& document, const ExchangeSong& song)
{
    SongWriter<TextDocument, QString>(TextDocument(document)).Write(song);
}

void ExchangeWriter::Append(QByteArray& document, const StoredSong& song)
{
    SongWriter<EncodedDocument, QByteArray>(EncodedDocument(document)).Write(song);
}

QString ExchangeWriter::FileName(const QString& titulo)
{
    QString name = titulo;
    for (const QChar unfit : {u'|', u'>', u'<', u'"', u'?', u':', u'*', u'\\', u'/'})
        name.remove(unfit);
    name.replace(u' ', u'_');
    return name + QStringLiteral(".mld");
}
