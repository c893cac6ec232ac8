#include "store/Ini.h"

#include "store/CodePage.h"

#include <QList>
#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace {

constexpr QByteArrayView Utf8Mark("\xEF\xBB\xBF");
constexpr char LineEnd[] = "\r\n";

bool IsBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

QByteArrayView Trimmed(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && IsBlank(bytes.front()))
        bytes = bytes.sliced(1);
    while (!bytes.isEmpty() && IsBlank(bytes.back()))
        bytes.chop(1);
    return bytes;
}

bool SameName(QByteArrayView bytes, QStringView name)
{
    return Ini::DecodeValue(Trimmed(bytes)).compare(name.trimmed(), Qt::CaseInsensitive) == 0;
}

struct Line
{
    qsizetype start;
    QByteArrayView text;
    QByteArrayView end;
};

Line LineAt(QByteArrayView content, qsizetype start)
{
    qsizetype stop = start;
    while (stop < content.size() && content.at(stop) != '\r' && content.at(stop) != '\n')
        ++stop;
    qsizetype next = stop;
    if (next < content.size())
        next += content.sliced(next).startsWith(LineEnd) ? 2 : 1;
    return {start, content.sliced(start, stop - start), content.sliced(stop, next - stop)};
}

QList<Line> Lines(QByteArrayView content)
{
    QList<Line> lines;
    qsizetype at = content.startsWith(Utf8Mark) ? Utf8Mark.size() : 0;
    while (at < content.size()) {
        lines.append(LineAt(content, at));
        at += lines.last().text.size() + lines.last().end.size();
    }
    return lines;
}

std::optional<QByteArrayView> SectionName(QByteArrayView line)
{
    line = Trimmed(line);
    if (!line.startsWith('['))
        return std::nullopt;
    const qsizetype end = line.indexOf(']');
    if (end < 0)
        return std::nullopt;
    return line.sliced(1, end - 1);
}

/// @return where the value begins in the line, or nothing when the line holds another key or none.
std::optional<qsizetype> ValueStart(QByteArrayView line, QStringView key)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0 || Trimmed(line).startsWith(';') || !SameName(line.first(equals), key))
        return std::nullopt;
    return equals + 1;
}

struct Place
{
    std::optional<Line> line; // the line that holds the key
    qsizetype value = 0;      // where its value begins in the line
    std::optional<Line> last; // the section's last line with text
};

Place Find(QByteArrayView content, QStringView section, QStringView key)
{
    Place place;
    for (const Line& line : Lines(content)) {
        if (const auto name = SectionName(line.text)) {
            if (place.last)
                break;
            if (SameName(*name, section))
                place.last = line;
        } else if (place.last) {
            if (const auto value = ValueStart(line.text, key)) {
                place.line = line;
                place.value = *value;
                break;
            }
            if (!Trimmed(line.text).isEmpty())
                place.last = line;
        }
    }
    return place;
}

QByteArrayView WithoutQuotes(QByteArrayView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

/// @return the text as far as a line holds it
QString WithinLine(const QString& text)
{
    const auto end =
        std::find_if(text.begin(), text.end(), [](QChar c) { return c == u'\r' || c == u'\n'; });
    return text.first(end - text.begin());
}

/// @return the bytes in quotes where reading would take blanks or quotes off them
QByteArray Protected(const QByteArray& value)
{
    return WithoutQuotes(Trimmed(value)) == value ? value : QByteArray('"' + value + '"');
}

} // namespace

QString Ini::DecodeValue(QByteArrayView bytes)
{
    // A path may start with what elsewhere would be a byte order mark.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = utf8.decode(bytes);
    return utf8.hasError() ? CodePage::ToUnicode(bytes) : text;
}

QByteArray Ini::EncodeValue(const QString& value)
{
    QByteArray bytes = CodePage::FromUnicode(value);
    return DecodeValue(bytes) == value ? bytes : value.toUtf8();
}

QString Ini::Read(QByteArrayView content, QStringView section, QStringView key)
{
    const Place place = Find(content, section, key);
    if (!place.line)
        return QString();
    return DecodeValue(WithoutQuotes(Trimmed(place.line->text.sliced(place.value))));
}

QByteArray Ini::Write(const QByteArray& content, QStringView section, QStringView key,
                      const QString& value)
{
    const QByteArray valueLine = Protected(EncodeValue(WithinLine(value))) + LineEnd;
    const QByteArray keyLine = EncodeValue(key.toString()) + '=' + valueLine;
    const Place place = Find(content, section, key);
    QByteArray result = content;
    if (place.line) {
        const Line& line = *place.line;
        return result.replace(line.start + place.value,
                              line.text.size() - place.value + line.end.size(), valueLine);
    }
    if (place.last) {
        const Line& line = *place.last;
        const QByteArray missingEnd(line.end.isEmpty() ? LineEnd : "");
        return result.insert(line.start + line.text.size() + line.end.size(),
                             QByteArray(missingEnd + keyLine));
    }
    if (!result.isEmpty() && !result.endsWith('\n') && !result.endsWith('\r'))
        result += LineEnd;
    return result + '[' + EncodeValue(section.toString()) + ']' + LineEnd + keyLine;
}
