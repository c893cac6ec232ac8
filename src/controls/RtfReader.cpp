#include "controls/RtfReader.h"

#include "store/CodePage.h"

#include <algorithm>
#include <utility>

namespace {

/// Groups nested deeper than this are read as if they were one: hostile input costs no memory.
constexpr std::size_t DeepestGroup = 256;
constexpr int LargestHalfPoints = 3276;
constexpr int LongestNumber = 9; // digits that certainly fit into an int

/// Where the text of a group goes.
enum class Destination { Body, FontTable, ColourTable, Ignored };

struct State
{
    Destination destination = Destination::Body;
    bool bold = false;
    QRgb colour = 0;
    int halfPoints = 24;
    int unicodeSkip = 1; ///< characters that stand in for a \u for readers that lack it
};

struct ControlWord
{
    QStringView name;
    int number = 0;
    bool hasNumber = false;
};

bool IsLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

class Reader
{
public:
    explicit Reader(QStringView rtf)
        : m_rtf(rtf)
    {
        m_document.text.reserve(rtf.size());
    }

    RtfDocument Read();

private:
    void OpenGroup();
    void CloseGroup();
    void Control();
    ControlWord ReadWord();
    void Apply(const ControlWord& word);
    void Format(const ControlWord& word);
    void TableWord(const ControlWord& word);
    void HexCharacter();
    void UnicodeCharacter(int code);
    void Literal(QChar c);
    void LiteralStretch();
    void Append(QStringView text);
    void LineBreak();
    void Finish();

    QStringView m_rtf;
    qsizetype m_at = 0;
    std::vector<State> m_groups;
    std::size_t m_tooDeep = 0;
    State m_state;
    int m_skip = 0; ///< characters still to be skipped after a \u
    bool m_endsWithBreak = false;
    bool m_fontRead = false;
    std::vector<QRgb> m_colours;
    int m_red = 0;
    int m_green = 0;
    int m_blue = 0;
    bool m_colourGiven = false;
    RtfDocument m_document;
};

RtfDocument Reader::Read()
{
    while (m_at < m_rtf.size()) {
        const QChar c = m_rtf[m_at];
        if (c == u'{') {
            ++m_at;
            OpenGroup();
        } else if (c == u'}') {
            ++m_at;
            CloseGroup();
        } else if (c == u'\\') {
            ++m_at;
            Control();
        } else if (c == u'\r' || c == u'\n') {
            ++m_at;
        } else {
            LiteralStretch();
        }
    }
    Finish();
    return std::move(m_document);
}

void Reader::OpenGroup()
{
    m_skip = 0;
    if (m_groups.size() < DeepestGroup)
        m_groups.push_back(m_state);
    else
        ++m_tooDeep;
}

void Reader::CloseGroup()
{
    m_skip = 0;
    if (m_tooDeep > 0) {
        --m_tooDeep;
    } else if (!m_groups.empty()) {
        m_state = m_groups.back();
        m_groups.pop_back();
    }
}

void Reader::Control()
{
    if (m_at >= m_rtf.size())
        return;
    const QChar c = m_rtf[m_at];
    if (IsLetter(c)) {
        Apply(ReadWord());
        return;
    }
    ++m_at;
    switch (c.unicode()) {
    case u'\\':
    case u'{':
    case u'}':
        Literal(c);
        break;
    case u'\'':
        HexCharacter();
        break;
    case u'*': // what follows may be ignored by who does not know it, and is
        m_state.destination = Destination::Ignored;
        break;
    case u'~':
        Literal(QChar(QChar::Nbsp));
        break;
    case u'\r':
    case u'\n':
        LineBreak();
        break;
    default:
        break;
    }
}

ControlWord Reader::ReadWord()
{
    const qsizetype from = m_at;
    while (m_at < m_rtf.size() && IsLetter(m_rtf[m_at]))
        ++m_at;
    ControlWord word{m_rtf.sliced(from, m_at - from)};
    const bool negative =
        m_at + 1 < m_rtf.size() && m_rtf[m_at] == u'-' && IsDigit(m_rtf[m_at + 1]);
    if (negative)
        ++m_at;
    for (int digits = 0; m_at < m_rtf.size() && IsDigit(m_rtf[m_at]); ++m_at, ++digits) {
        word.hasNumber = true;
        if (digits < LongestNumber)
            word.number = word.number * 10 + (m_rtf[m_at].unicode() - u'0');
    }
    if (negative)
        word.number = -word.number;
    if (m_at < m_rtf.size() && m_rtf[m_at] == u' ') // one blank belongs to the word
        ++m_at;
    return word;
}

void Reader::Apply(const ControlWord& word)
{
    if (word.name == u"fonttbl") {
        m_state.destination = Destination::FontTable;
    } else if (word.name == u"colortbl") {
        m_state.destination = Destination::ColourTable;
    } else if (word.name == u"stylesheet" || word.name == u"info" || word.name == u"pict" ||
               word.name == u"header" || word.name == u"footer") {
        m_state.destination = Destination::Ignored;
    } else if (m_state.destination == Destination::ColourTable) {
        TableWord(word);
    } else if (m_state.destination == Destination::Body) {
        if (word.name == u"par" || word.name == u"line")
            LineBreak();
        else if (word.name == u"tab")
            Literal(u'\t');
        else if (word.name == u"u" && word.hasNumber)
            UnicodeCharacter(word.number);
        else
            Format(word);
    }
}

void Reader::Format(const ControlWord& word)
{
    if (word.name == u"b") {
        m_state.bold = !word.hasNumber || word.number != 0;
    } else if (word.name == u"cf") {
        const auto index = static_cast<std::size_t>(std::max(word.number, 0));
        m_state.colour = index < m_colours.size() ? m_colours[index] : 0;
    } else if (word.name == u"fs" && word.hasNumber) {
        m_state.halfPoints = std::clamp(word.number, 1, LargestHalfPoints);
        m_document.halfPoints = m_state.halfPoints;
    } else if (word.name == u"uc" && word.hasNumber) {
        m_state.unicodeSkip = std::clamp(word.number, 0, 8);
    } else if (word.name == u"plain") {
        const State plain;
        m_state.bold = plain.bold;
        m_state.colour = plain.colour;
        m_state.halfPoints = plain.halfPoints;
    }
}

void Reader::TableWord(const ControlWord& word)
{
    const int level = std::clamp(word.number, 0, 255);
    m_colourGiven = true;
    if (word.name == u"red")
        m_red = level;
    else if (word.name == u"green")
        m_green = level;
    else if (word.name == u"blue")
        m_blue = level;
}

void Reader::HexCharacter()
{
    bool ok = false;
    const QStringView digits = m_rtf.sliced(m_at, std::min<qsizetype>(2, m_rtf.size() - m_at));
    const uint byte = digits.toUInt(&ok, 16);
    m_at += digits.size();
    if (ok && digits.size() == 2)
        Append(CodePage::ToUnicode(QByteArray(1, static_cast<char>(byte))));
}

void Reader::UnicodeCharacter(int code)
{
    // Written as a signed 16-bit number.
    Append(QString(QChar(static_cast<char16_t>(code & 0xFFFF))));
    m_skip = m_state.unicodeSkip;
}

void Reader::Literal(QChar c)
{
    Append(QStringView(&c, 1));
}

void Reader::LiteralStretch()
{
    const qsizetype from = m_at;
    while (m_at < m_rtf.size()) {
        const QChar c = m_rtf[m_at];
        if (c == u'{' || c == u'}' || c == u'\\' || c == u'\r' || c == u'\n')
            break;
        ++m_at;
    }
    Append(m_rtf.sliced(from, m_at - from));
}

void Reader::Append(QStringView text)
{
    const qsizetype skipped = std::min<qsizetype>(m_skip, text.size());
    m_skip -= static_cast<int>(skipped);
    text = text.sliced(skipped);
    if (text.isEmpty())
        return;
    switch (m_state.destination) {
    case Destination::Ignored:
        return;
    case Destination::FontTable:
        if (!m_fontRead) {
            const qsizetype end = text.indexOf(u';');
            m_document.font += text.first(end < 0 ? text.size() : end);
            m_fontRead = end >= 0;
        }
        return;
    case Destination::ColourTable:
        for (const QChar c : text) {
            if (c != u';')
                continue;
            m_colours.push_back(m_colourGiven ? qRgb(m_red, m_green, m_blue) : 0);
            m_red = m_green = m_blue = 0;
            m_colourGiven = false;
        }
        return;
    case Destination::Body:
        break;
    }
    const RtfDocument::Run run{m_document.text.size(), text.size(), m_state.bold, m_state.colour,
                               m_state.halfPoints};
    m_document.text += text;
    m_endsWithBreak = false;
    if (!m_document.runs.empty() && m_document.runs.back().SameFormat(run))
        m_document.runs.back().length += run.length;
    else
        m_document.runs.push_back(run);
}

void Reader::LineBreak()
{
    if (m_state.destination != Destination::Body)
        return;
    m_skip = 0;
    Append(u"\n");
    m_endsWithBreak = true;
}

void Reader::Finish()
{
    m_document.font = m_document.font.trimmed();
    if (!m_endsWithBreak)
        return;
    m_document.text.chop(1);
    if (--m_document.runs.back().length == 0)
        m_document.runs.pop_back();
}

} // namespace

RtfDocument ReadRtf(QStringView rtf)
{
    return Reader(rtf).Read();
}
