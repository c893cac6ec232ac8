#include "mld/ExchangeWriter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr QStringView LineBreak = u"\r\n";
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

void Open(QString& document, QStringView name)
{
    document.append(u"       <").append(name).append(u'>');
}

void Close(QString& document, QStringView name)
{
    document.append(u"</").append(name).append(u'>').append(LineBreak);
}

void AppendText(QString& document, QStringView name, const std::optional<QString>& text,
                QStringView whenMissing, Breaks breaks = Breaks::Kept)
{
    Open(document, name);
    if (text)
        AppendClean(document, ExchangeWriter::Composed(*text), breaks);
    else
        document.append(whenMissing);
    Close(document, name);
}

void AppendAsStored(QString& document, QStringView name, const std::optional<QString>& text,
                    QStringView whenMissing)
{
    Open(document, name);
    if (text)
        document.append(ExchangeWriter::Composed(*text));
    else
        document.append(whenMissing);
    Close(document, name);
}

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
    document.append(u"   <musica>\r\n");
    AppendText(document, u"titulo", song.titulo, u"Sem Título");
    AppendText(document, u"referencia", song.referencia, u"Sem Referência");
    AppendText(document, u"letra1", song.letra1, u"Sem Letra", Breaks::Marked);
    AppendText(document, u"letra2", song.letra2, u"Sem Letra", Breaks::Marked);
    AppendAsStored(document, u"tom", song.tom, u"C");
    AppendAsStored(document, u"variacao", song.variacao, u"");
    Open(document, u"categoria");
    document.append(QString::number(song.categoria.value_or(1)));
    Close(document, u"categoria");
    document.append(u"       <temas>\r\n");
    for (const QString& tema : song.temas)
        document.append(u"           <descricao>")
            .append(Composed(tema))
            .append(u"</descricao>\r\n");
    document.append(u"       </temas>\r\n   </musica>\r\n");
}

QString ExchangeWriter::FileName(const QString& titulo)
{
    QString name = titulo;
    for (const QChar unfit : {u'|', u'>', u'<', u'"', u'?', u':', u'*', u'\\', u'/'})
        name.remove(unfit);
    name.replace(u' ', u'_');
    return name + QStringLiteral(".mld");
}
