// config.ini: what is written is read back and leaves every other line alone, reading takes
// anything, and the code page keeps every byte.

#include "Input.h"

#include "store/CodePage.h"
#include "store/Ini.h"

#include <QList>

#include <algorithm>
#include <array>

using namespace Fuzz;

namespace {

const std::array<QString, 32>& Pieces()
{
    static const std::array<QString, 32> pieces = {u"[BANCO]"_qs,
                                                   u"[banco]\n"_qs,
                                                   u"[ BANCO ]\r\n"_qs,
                                                   u"Endereco="_qs,
                                                   u"ENDERECO = "_qs,
                                                   u"Endereco"_qs,
                                                   u"\r\n"_qs,
                                                   u"\n"_qs,
                                                   u"\r"_qs,
                                                   u"[C]\r\n"_qs,
                                                   u"[Seção]\n"_qs,
                                                   u"Ímã="_qs,
                                                   u"ímã = "_qs,
                                                   u"x=1\r\n"_qs,
                                                   u";"_qs,
                                                   u"; nota\r\n"_qs,
                                                   u"="_qs,
                                                   u"["_qs,
                                                   u"]"_qs,
                                                   u" "_qs,
                                                   u"\t"_qs,
                                                   u"\""_qs,
                                                   u"'"_qs,
                                                   u"/home/ana/M.mdb"_qs,
                                                   u"é"_qs,
                                                   u"Ã©"_qs,
                                                   u"歌"_qs,
                                                   u"\U0001F3B8"_qs,
                                                   u"\uFEFF"_qs,
                                                   u"\u0301"_qs,
                                                   u"\u0081"_qs,
                                                   u"€"_qs};
    return pieces;
}

QByteArray Content(Input& input)
{
    const bool utf8 = input.Flag();
    if (input.Below(4) == 0)
        return input.Rest();
    const QString text = input.Text(4096, Pieces());
    return utf8 ? text.toUtf8() : CodePage::FromUnicode(text);
}

QList<QByteArray> LinesOf(const QByteArray& content)
{
    QList<QByteArray> lines;
    QByteArray line;
    for (qsizetype i = 0; i < content.size(); ++i) {
        line += content[i];
        const bool inside = content[i] == '\r' && i + 1 < content.size() && content[i + 1] == '\n';
        if ((content[i] == '\r' && !inside) || content[i] == '\n')
            lines.append(std::exchange(line, QByteArray()));
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}

QByteArray WithoutEnd(QByteArray line)
{
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

/// One line was replaced, or one or two were added behind another; all others are the same bytes.
void CheckOtherLines(const QByteArray& before, const QByteArray& after)
{
    const QList<QByteArray> old = LinesOf(before);
    const QList<QByteArray> now = LinesOf(after);
    Holds("no line is lost", now.size() >= old.size() && now.size() <= old.size() + 2);
    const bool replaced = now.size() == old.size();
    qsizetype front = 0;
    while (front < old.size() && front < now.size() && old[front] == now[front])
        ++front;
    // The last line gets an end when another one comes behind it.
    if (front + 1 == old.size() && WithoutEnd(old[front]) == WithoutEnd(now[front]) && !replaced)
        ++front;
    qsizetype back = 0;
    while (back < old.size() - front && old[old.size() - 1 - back] == now[now.size() - 1 - back])
        ++back;
    Holds("other lines are the same", front + back + (replaced ? 1 : 0) >= old.size());
}

void WriteAndRead(Input& input)
{
    const bool accented = input.Below(4) == 0;
    const QString section = accented ? u"Seção"_qs : u"BANCO"_qs;
    const QString key = accented ? u"Ímã"_qs : u"Endereco"_qs;
    QString value = input.Text(input.Below(40), Pieces());
    // What no path can hold: half a character, the end of a line.
    value = QString::fromUtf8(value.toUtf8()).remove(u'\r').remove(u'\n');
    const QByteArray before = Content(input);
    Ini::Read(before, section, key);
    const QByteArray after = Ini::Write(before, section, key, value);
    Same("written and read back", value, Ini::Read(after, section, key));
    Same("written twice", after, Ini::Write(after, section, key, value));
    CheckOtherLines(before, after);
}

/// Whatever the value is, it stays in its line.
void WriteAnything(Input& input)
{
    const QString value = input.Text(input.Below(40), Pieces());
    const QByteArray before = Content(input);
    CheckOtherLines(before, Ini::Write(before, u"BANCO", u"Endereco", value));
}

void CodePageBothWays(Input& input)
{
    const QString text = input.Text(input.Below(64), Pieces());
    const QByteArray bytes = CodePage::FromUnicode(text);
    if (CodePage::Holds(text))
        Same("text in the code page", text, CodePage::ToUnicode(bytes));
    const QByteArray any = input.Rest();
    Same("bytes of the code page", any, CodePage::FromUnicode(CodePage::ToUnicode(any)));
    Holds("every byte is a character", CodePage::Holds(CodePage::ToUnicode(any)));
    const QString decoded = Ini::DecodeValue(any);
    Same("value's bytes", decoded, Ini::DecodeValue(Ini::EncodeValue(decoded)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    switch (input.Below(4)) {
    case 0:
        CodePageBothWays(input);
        break;
    case 1:
        WriteAnything(input);
        break;
    default:
        WriteAndRead(input);
    }
    return 0;
}
