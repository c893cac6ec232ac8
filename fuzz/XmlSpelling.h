#pragma once

#include <QByteArray>
#include <QString>

/// A document's text in different spellings that must read alike.
namespace Fuzz {

/// @return the text without what no XML document can hold; line ends as a parser gives them
inline QString XmlText(const QString& text)
{
    QString held;
    const QString whole = QString::fromUtf8(text.toUtf8());
    for (const QChar sign : whole) {
        const bool control = sign < u' ' && sign != u'\t' && sign != u'\n';
        if (!control && sign != u'\uFFFE' && sign != u'\uFFFF' && sign != u'\uFEFF')
            held += sign;
    }
    return held;
}

/// With entities for every sign of markup.
inline QString Escaped(const QString& text)
{
    QString escaped = text;
    return escaped.replace(u'&', u"&amp;"_qs).replace(u'<', u"&lt;"_qs).replace(u'>', u"&gt;"_qs);
}

/// With a reference for every sign.
inline QString Referenced(const QString& text)
{
    QString referenced;
    for (const uint sign : text.toUcs4())
        referenced += u"&#" + QString::number(sign) + u';';
    return referenced;
}

} // namespace Fuzz
