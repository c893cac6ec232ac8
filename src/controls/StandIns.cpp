#include "controls/StandIns.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr QChar Sign(0xFDD2);                           // a noncharacter that Qt gives no meaning
constexpr int Original = QTextFormat::UserProperty + 1; // the number of what it stands for

// Qt begins and ends frames with two of them.
constexpr QStringView Breaks = u"\u2029\uFDD0\uFDD1";

constexpr char32_t EndOfLatin = 0x250;

struct Character
{
    char32_t code;
    qsizetype length; ///< in units of UTF-16
};

/// @param at  below the text's size
Character CharacterAt(QStringView text, qsizetype at)
{
    if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(text[at], text[at + 1]), 2};
    return {text[at].unicode(), 1};
}

bool IsMark(char32_t code)
{
    return code >= EndOfLatin && QChar::isMark(code);
}

/// @return whether only shaping tells how wide a character is
bool NeedsShaping(char32_t code)
{
    return code < u' ' || (code >= 0x7F && code < 0xA0) || code >= EndOfLatin;
}

bool IsBreak(QChar letter)
{
    return letter.unicode() >= 0x2029 && Breaks.contains(letter);
}

} // namespace

StandIns::StandIns()
    : StandIns(Limits())
{
}

StandIns::StandIns(Limits limits)
    : m_limits(limits)
{
    Clear();
}

bool StandIns::MayBeIn(QStringView text)
{
    return text.contains(Sign);
}

void StandIns::BeginLine()
{
    m_shaped = 0;
    m_marks = 0;
}

void StandIns::Clear()
{
    BeginLine();
    m_originals.clear();
    for (const QChar letter : Breaks)
        m_originals.append(letter);
}

void StandIns::Insert(QTextCursor& cursor, QStringView text, const QTextCharFormat& look)
{
    while (!text.isEmpty()) {
        const qsizetype plain = Drawable(text);
        if (plain > 0)
            cursor.insertText(text.first(plain).toString(), look);
        text = text.sliced(plain);
        if (text.isEmpty())
            return;
        const QStringView held = Held(text);
        qsizetype number = held.size() == 1 ? Breaks.indexOf(held[0]) : -1;
        if (number < 0) {
            number = m_originals.size();
            m_originals.append(held.toString());
        }
        Put(cursor, number, look);
        text = text.sliced(held.size());
    }
}

/// @return how much of the text goes into the document as it is
qsizetype StandIns::Drawable(QStringView text)
{
    for (qsizetype i = 0; i < text.size();) {
        const QChar letter = text[i];
        if (letter == u'\n') {
            BeginLine();
            ++i;
            continue;
        }
        if (m_shaped >= m_limits.shaped || IsBreak(letter))
            return i;
        const Character character = CharacterAt(text, i);
        m_marks = IsMark(character.code) ? m_marks + 1 : 0;
        if (m_marks > m_limits.marks)
            return i;
        m_shaped += NeedsShaping(character.code);
        i += character.length;
    }
    return text.size();
}

/// @param text  what follows what is drawable
/// @return what one stand-in has to hold of it
QStringView StandIns::Held(QStringView text)
{
    if (m_shaped >= m_limits.shaped) {
        const qsizetype end = text.indexOf(u'\n');
        return end < 0 ? text : text.first(end);
    }
    ++m_shaped;
    if (IsBreak(text[0])) {
        m_marks = 0;
        return text.first(1);
    }
    qsizetype end = 0;
    for (Character character = CharacterAt(text, 0); IsMark(character.code);) {
        end += character.length;
        if (end == text.size())
            break;
        character = CharacterAt(text, end);
    }
    return text.first(end);
}

void StandIns::Put(QTextCursor& cursor, qsizetype number, QTextCharFormat look)
{
    look.setProperty(Original, static_cast<int>(number));
    cursor.insertText(Sign, look);
}

QString StandIns::Restored(const QString& text, const QTextCharFormat& format) const
{
    const int number = format.hasProperty(Original) ? format.intProperty(Original) : -1;
    if (number < 0 || number >= m_originals.size())
        return text;
    QString restored = text;
    return restored.replace(Sign, m_originals[number]);
}

QString StandIns::Text(const QTextDocument& document, int from, int to) const
{
    QString text;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.position() > from)
            text += u"\r\n";
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const int first = std::max(from - fragment.position(), 0);
            const int end = std::min(to - fragment.position(), fragment.length());
            if (first < end)
                text += Restored(fragment.text().mid(first, end - first), fragment.charFormat());
        }
    }
    return text;
}

QString StandIns::Text(const QTextDocument& document) const
{
    // toPlainText would turn every no-break space into a blank.
    QString text = document.toRawText();
    if (MayBeIn(text))
        return Text(document, 0, document.characterCount() - 1);
    return text.replace(QChar::ParagraphSeparator, u"\r\n"_qs);
}
