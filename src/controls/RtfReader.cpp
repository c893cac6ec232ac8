#include "controls/RtfReader.h"

#include "store/CodePage.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using Rtf::Document;
using Rtf::Format;

constexpr std::size_t LargestDepth = 100;
constexpr std::size_t LargestTable = 1024; // entries of the font and of the colour table
constexpr qsizetype LongestName = 256;     // characters of a font's name
constexpr int LargestNumber = 1'000'000;

/// Groups that hold no text of the body.
constexpr std::array<std::u16string_view, 21> HiddenGroups = {
    u"author",   u"footer",    u"footerf",   u"footerl",           u"footerr",
    u"footnote", u"generator", u"header",    u"headerf",           u"headerl",
    u"headerr",  u"info",      u"listtable", u"listoverridetable", u"nonshppict",
    u"object",   u"operator",  u"pict",      u"stylesheet",        u"title",
    u"xmlnstbl"};

constexpr bool IsLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

constexpr bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

constexpr int HexValue(char16_t c)
{
    if (IsDigit(c))
        return c - u'0';
    const int letter = c | 0x20;
    return letter >= u'a' && letter <= u'f' ? letter - u'a' + 10 : -1;
}

constexpr bool EndsLiteral(char16_t c)
{
    return c == u'\\' || c == u'{' || c == u'}' || c == u'\r' || c == u'\n';
}

enum class Destination { Body, Fonts, Colours, Hidden };

/// What ends with its group.
struct State
{
    Destination destination = Destination::Body;
    Format format;
    int font = -1;     // number of the current font; -1 is the default one
    int fallbacks = 1; // characters that stand in for one \u
    bool fresh = true; // nothing of the group was read yet
};

struct Word
{
    std::u16string_view name;
    std::optional<int> number;

    int NumberOr(int otherwise) const { return number.value_or(otherwise); }
};

class Reader
{
public:
    explicit Reader(QStringView rtf)
        : m_at(rtf.utf16())
        , m_end(rtf.utf16() + rtf.size())
    {
    }

    Document Read();

private:
    void OpenGroup();
    void CloseGroup();
    void Control();
    void Symbol(char16_t symbol);
    void HexCharacter();
    Word ReadWord();
    void Obey(const Word& word);
    bool ObeyFormat(const Word& word);
    bool ObeyDestination(const Word& word);
    bool ObeyColour(const Word& word);
    void Unicode(int number);

    void Literal();
    void Text(QStringView text);
    void Character(char16_t letter) { Text(QStringView(&letter, 1)); }
    void FontText(QStringView text);
    void ColourText(QStringView text);
    void Break();
    void Begin();
    QString FontName(int number) const;

    struct Font
    {
        int number;
        QString name;
    };

    const char16_t* m_at;
    const char16_t* m_end;
    Document m_document;
    State m_state;
    std::vector<State> m_outer;
    std::size_t m_tooDeep = 0;
    bool m_closed = false;
    bool m_begun = false;
    int m_skip = 0; // fallback characters still to pass over
    int m_defaultFont = 0;
    int m_firstFont = -1;
    std::vector<Font> m_fonts;
    QString m_fontName;
    std::vector<std::optional<std::uint32_t>> m_colours;
    std::optional<std::uint32_t> m_colour;
};

Document Reader::Read()
{
    m_document.text.reserve(m_end - m_at);
    while (m_at != m_end && !m_closed) {
        switch (*m_at) {
        case u'{':
            ++m_at;
            OpenGroup();
            break;
        case u'}':
            ++m_at;
            CloseGroup();
            break;
        case u'\\':
            ++m_at;
            Control();
            break;
        case u'\r':
        case u'\n':
            ++m_at;
            break;
        default:
            Literal();
        }
    }
    if (!m_begun)
        Begin();
    if (m_document.text.endsWith(u'\n')) {
        m_document.text.chop(1);
        if (--m_document.runs.back().length == 0)
            m_document.runs.pop_back();
    }
    m_document.fontName = FontName(m_firstFont < 0 ? m_defaultFont : m_firstFont);
    return std::move(m_document);
}

void Reader::OpenGroup()
{
    m_skip = 0;
    if (m_tooDeep > 0 || m_outer.size() >= LargestDepth) {
        ++m_tooDeep;
        return;
    }
    m_outer.push_back(m_state);
    m_state.fresh = true;
}

void Reader::CloseGroup()
{
    m_skip = 0;
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    if (m_outer.empty())
        return;
    // What is in effect where a document without text ends, its editor goes on with.
    m_closed = m_outer.size() == 1;
    if (m_closed && !m_begun)
        Begin();
    m_state = m_outer.back();
    m_outer.pop_back();
}

void Reader::Control()
{
    if (m_at == m_end)
        return;
    if (!IsLetter(*m_at)) {
        Symbol(*m_at++);
        return;
    }
    const Word word = ReadWord();
    if (m_tooDeep == 0)
        Obey(word);
}

void Reader::Symbol(char16_t symbol)
{
    switch (symbol) {
    case u'\\':
    case u'{':
    case u'}':
        Character(symbol);
        break;
    case u'~':
        Character(QChar::Nbsp);
        break;
    case u'_':
        Character(u'\u2011'); // a hyphen that does not break
        break;
    case u'\'':
        HexCharacter();
        break;
    case u'*':
        // Only who knows the word that follows may read the group; we know none of those.
        if (m_state.fresh && m_tooDeep == 0)
            m_state.destination = Destination::Hidden;
        break;
    default:
        break;
    }
    m_state.fresh = false;
}

void Reader::HexCharacter()
{
    if (m_end - m_at < 2)
        return;
    const int high = HexValue(m_at[0]);
    const int low = HexValue(m_at[1]);
    if (high < 0 || low < 0)
        return;
    m_at += 2;
    const auto byte = static_cast<char>(high * 16 + low);
    Text(CodePage::ToUnicode(QByteArrayView(&byte, 1)));
}

/// Reads a control word, its number and the one blank that belongs to it.
Word Reader::ReadWord()
{
    const char16_t* const start = m_at;
    m_at = std::find_if_not(m_at, m_end, IsLetter);
    Word word{std::u16string_view(start, static_cast<std::size_t>(m_at - start)), std::nullopt};
    const bool negative = m_end - m_at >= 2 && *m_at == u'-' && IsDigit(m_at[1]);
    if (negative)
        ++m_at;
    if (m_at != m_end && IsDigit(*m_at)) {
        int number = 0;
        for (; m_at != m_end && IsDigit(*m_at); ++m_at)
            number = std::min(number * 10 + (*m_at - u'0'), LargestNumber);
        word.number = negative ? -number : number;
    }
    if (m_at != m_end && *m_at == u' ')
        ++m_at;
    return word;
}

void Reader::Obey(const Word& word)
{
    if (word.name == u"bin") {
        // Raw data follows, which may look like anything.
        m_at += std::min<qsizetype>(m_end - m_at, std::max(word.NumberOr(0), 0));
    } else if (m_skip > 0) {
        --m_skip; // a word counts as one fallback character
    } else if (m_state.destination == Destination::Hidden) {
        // nothing in here has a meaning
    } else if (word.name == u"u") {
        Unicode(word.NumberOr(0));
    } else if (word.name == u"uc") {
        m_state.fallbacks = std::max(word.NumberOr(1), 0);
    } else if (word.name == u"par") {
        Break();
    } else if (word.name == u"tab") {
        Character(u'\t');
    } else if (!ObeyFormat(word) && !ObeyColour(word)) {
        ObeyDestination(word);
    }
    m_state.fresh = false;
}

bool Reader::ObeyFormat(const Word& word)
{
    Format& format = m_state.format;
    if (word.name == u"b") {
        format.bold = word.NumberOr(1) != 0;
    } else if (word.name == u"cf") {
        const int number = word.NumberOr(0);
        const bool known = number >= 0 && static_cast<std::size_t>(number) < m_colours.size();
        format.colour = known ? m_colours[static_cast<std::size_t>(number)] : std::nullopt;
    } else if (word.name == u"fs") {
        const int size = word.NumberOr(Rtf::DefaultSize);
        if (size > 0)
            format.halfPoints = std::min(size, Rtf::LargestSize);
    } else if (word.name == u"plain") {
        format = Format();
    } else if (word.name == u"f") {
        m_state.font = word.NumberOr(0);
    } else if (word.name == u"deff") {
        m_defaultFont = word.NumberOr(0);
    } else {
        return false;
    }
    return true;
}

bool Reader::ObeyColour(const Word& word)
{
    if (m_state.destination != Destination::Colours)
        return false;
    const int shift = word.name == u"red" ? 16 : word.name == u"green" ? 8 : 0;
    if (shift == 0 && word.name != u"blue")
        return false;
    const auto part = static_cast<std::uint32_t>(std::clamp(word.NumberOr(0), 0, 255));
    m_colour = (m_colour.value_or(0) & ~(0xFFU << shift)) | (part << shift);
    return true;
}

bool Reader::ObeyDestination(const Word& word)
{
    if (!m_state.fresh)
        return false;
    if (word.name == u"fonttbl")
        m_state.destination = Destination::Fonts;
    else if (word.name == u"colortbl")
        m_state.destination = Destination::Colours;
    else if (std::find(HiddenGroups.begin(), HiddenGroups.end(), word.name) != HiddenGroups.end())
        m_state.destination = Destination::Hidden;
    else
        return false;
    return true;
}

/// @param number  a UTF-16 unit, by tradition negative from 0x8000 on
void Reader::Unicode(int number)
{
    if (number < -0x8000 || number > 0xFFFF)
        return;
    Character(static_cast<char16_t>(number & 0xFFFF));
    m_skip = m_state.fallbacks;
}

void Reader::Literal()
{
    const char16_t* const start = m_at;
    m_at = std::find_if(m_at, m_end, EndsLiteral);
    Text(QStringView(start, m_at));
    m_state.fresh = false;
}

void Reader::Text(QStringView text)
{
    if (m_tooDeep > 0)
        return;
    if (m_skip > 0) {
        const auto passed = std::min<qsizetype>(m_skip, text.size());
        m_skip -= static_cast<int>(passed);
        text = text.sliced(passed);
    }
    switch (m_state.destination) {
    case Destination::Body:
        // Characters that \u or \' spell out may not break lines either.
        if (text.size() == 1 && (text[0] == u'\r' || text[0] == u'\n'))
            return;
        if (!text.isEmpty() && !m_begun)
            Begin();
        m_document.Append(text, m_state.format);
        break;
    case Destination::Fonts:
        FontText(text);
        break;
    case Destination::Colours:
        ColourText(text);
        break;
    case Destination::Hidden:
        break;
    }
}

void Reader::FontText(QStringView text)
{
    for (const QChar letter : text) {
        if (letter != u';') {
            if (m_fontName.size() < LongestName)
                m_fontName += letter;
            continue;
        }
        if (m_fonts.size() < LargestTable)
            m_fonts.push_back({std::max(m_state.font, 0), m_fontName.trimmed()});
        m_fontName.clear();
    }
}

void Reader::ColourText(QStringView text)
{
    for (const QChar letter : text) {
        if (letter != u';')
            continue;
        if (m_colours.size() < LargestTable)
            m_colours.push_back(m_colour);
        m_colour.reset();
    }
}

void Reader::Break()
{
    if (m_state.destination != Destination::Body)
        return;
    if (!m_begun)
        Begin();
    m_document.Append(u"\n", m_state.format);
}

/// The text begins here, or ends without having begun.
void Reader::Begin()
{
    m_begun = true;
    m_firstFont = m_state.font;
    m_document.halfPoints = m_state.format.halfPoints;
}

QString Reader::FontName(int number) const
{
    const auto font = std::find_if(m_fonts.begin(), m_fonts.end(),
                                   [number](const Font& other) { return other.number == number; });
    return font == m_fonts.end() ? QString() : font->name;
}

} // namespace

Rtf::Document Rtf::Read(QStringView rtf)
{
    return Reader(rtf).Read();
}
