#include "controls/RtfWriter.h"

#include <QHash>
#include <QStringList>

namespace {

using Rtf::Document;
using Rtf::Format;

/// The document's colours, numbered from 1; 0 is the display's own.
class Colours
{
public:
    explicit Colours(const Document& document)
    {
        for (const Rtf::Run& run : document.runs) {
            if (run.format.colour && !m_numbers.contains(*run.format.colour))
                Enter(*run.format.colour);
        }
    }

    const QString& Table() const { return m_table; }
    qsizetype NumberOf(const Format& format) const
    {
        return format.colour ? m_numbers.value(*format.colour) : 0;
    }

private:
    void Enter(std::uint32_t colour)
    {
        m_numbers.insert(colour, m_numbers.size() + 1);
        m_table += u"\\red%1\\green%2\\blue%3;"_qs.arg(colour >> 16 & 0xFF)
                       .arg(colour >> 8 & 0xFF)
                       .arg(colour & 0xFF);
    }

    QHash<std::uint32_t, qsizetype> m_numbers;
    QString m_table;
};

QString FontTableName(QString name)
{
    for (const QChar special : u"\\{};\r\n"_qs)
        name.remove(special);
    return name;
}

QString Head(const Document& document, const Colours& colours)
{
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 "_qs +
           FontTableName(document.fontName) + u";}}\r\n{\\colortbl ;"_qs + colours.Table() +
           u"}\r\n\\viewkind4\\uc1\\pard\\f0\\fs"_qs + QString::number(document.halfPoints);
}

/// @return the control words that lead from one format to another, with the blank that ends them
QString Change(const Format& from, const Format& to, const Colours& colours)
{
    QString words;
    if (from.bold != to.bold)
        words += to.bold ? u"\\b"_qs : u"\\b0"_qs;
    if (from.colour != to.colour)
        words += u"\\cf"_qs + QString::number(colours.NumberOf(to));
    if (from.halfPoints != to.halfPoints)
        words += u"\\fs"_qs + QString::number(to.halfPoints);
    return words.isEmpty() ? words : QString(words + u' ');
}

void WriteText(QStringView text, QString& rtf)
{
    for (const QChar letter : text) {
        if (letter == u'\n')
            rtf += u"\\par\r\n"_qs;
        else if (letter == u'\\' || letter == u'{' || letter == u'}')
            rtf += u'\\' + QString(letter);
        else if (letter != u'\r')
            rtf += letter;
    }
}

} // namespace

QString Rtf::Write(const Document& document)
{
    const Colours colours(document);
    QString rtf = Head(document, colours) + u"\r\n"_qs;
    Format current;
    current.halfPoints = document.halfPoints;
    QStringView rest = document.text;
    for (const Run& run : document.runs) {
        rtf += Change(current, run.format, colours);
        current = run.format;
        WriteText(rest.first(run.length), rtf);
        rest = rest.sliced(run.length);
    }
    // The break that a reader drops.
    return rtf + u"\\par\r\n}"_qs;
}
