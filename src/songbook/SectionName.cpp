#include "songbook/SectionName.h"

#include <QHash>
#include <QRegularExpression>

namespace Songbook {

namespace {

/// @param number  may be empty, or "1", "1a", "a"
QString Numbered(const QString& name, const QString& number)
{
    if (number.isEmpty())
        return name;
    if (name != u"Estrofe")
        return name + u' ' + number;
    qsizetype digits = 0;
    while (digits < number.size() && number[digits].isDigit())
        ++digits;
    if (digits == 0)
        return name + u' ' + number;
    const QString part = number.mid(digits);
    return number.first(digits) + u"\u00AA estrofe" + (part.isEmpty() ? part : u" " + part);
}

} // namespace

QString SectionName(const QString& code)
{
    static const QHash<QChar, QString> names = {{u'v', u"Estrofe"_qs},
                                                {u'c', u"Refr\u00E3o"_qs},
                                                {u'b', u"Ponte"_qs},
                                                {u'p', u"Pr\u00E9-refr\u00E3o"_qs},
                                                {u't', u"Final"_qs},
                                                {u'e', u"Final"_qs},
                                                {u'i', u"Introdu\u00E7\u00E3o"_qs},
                                                {u's', u"Solo"_qs},
                                                {u'm', u"Interl\u00FAdio"_qs},
                                                {u'o', u"Outra parte"_qs}};
    static const QRegularExpression form(QStringLiteral("^([A-Za-z])(\\d{0,3}[a-z]?)$"));
    QString trimmed = code.trimmed();
    const auto match = form.match(trimmed);
    if (!match.hasMatch())
        return trimmed;
    const QString name = names.value(match.captured(1).front().toLower());
    return name.isEmpty() ? trimmed : Numbered(name, match.captured(2));
}

QString SectionOfKind(const QString& kind)
{
    static const QHash<QString, QString> names = {{u"verse"_qs, u"Estrofe"_qs},
                                                  {u"chorus"_qs, u"Refr\u00E3o"_qs},
                                                  {u"refrain"_qs, u"Refr\u00E3o"_qs},
                                                  {u"bridge"_qs, u"Ponte"_qs},
                                                  {u"pre-chorus"_qs, u"Pr\u00E9-refr\u00E3o"_qs},
                                                  {u"prechorus"_qs, u"Pr\u00E9-refr\u00E3o"_qs},
                                                  {u"pre_chorus"_qs, u"Pr\u00E9-refr\u00E3o"_qs},
                                                  {u"intro"_qs, u"Introdu\u00E7\u00E3o"_qs},
                                                  {u"ending"_qs, u"Final"_qs},
                                                  {u"outro"_qs, u"Final"_qs},
                                                  {u"tag"_qs, u"Final"_qs},
                                                  {u"coda"_qs, u"Coda"_qs},
                                                  {u"solo"_qs, u"Solo"_qs},
                                                  {u"interlude"_qs, u"Interl\u00FAdio"_qs},
                                                  {u"instrumental"_qs, u"Instrumental"_qs},
                                                  {u"other"_qs, u"Outra parte"_qs}};
    return names.value(kind.toLower());
}

QString SectionOfLine(QStringView line)
{
    static const QRegularExpression bracketed(QStringLiteral("^\\[([^\\[\\]]{1,60})\\]:?$"));
    static const QRegularExpression named(
        QStringLiteral("^(verse|chorus|refrain|bridge|pre-?chorus|intro|ending|outro|tag|coda|solo|"
                       "interlude|instrumental)\\s*(\\d{0,3})\\s*:?$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression ours(
        QStringLiteral("^((refr\u00E3o|estrofe|verso|parte|ponte|pr\u00E9-refr\u00E3o|introdu\u00E7"
                       "\u00E3o|final|coro|interl\u00FAdio|parte)\\s*\\d{0,3}|"
                       "\\d{1,3}[\u00AAa\u00BA]\\s*(estrofe|parte|vez))\\s*:?$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    QString text = line.trimmed().toString();
    if (text.size() > 70)
        return {};
    const auto inBrackets = bracketed.match(text);
    if (inBrackets.hasMatch())
        text = inBrackets.captured(1).trimmed();
    const auto english = named.match(text);
    if (english.hasMatch())
        return Numbered(SectionOfKind(english.captured(1)), english.captured(2));
    if (inBrackets.hasMatch())
        return text;
    if (!ours.match(text).hasMatch())
        return {};
    if (text.endsWith(u':'))
        text.chop(1);
    return text.trimmed();
}

} // namespace Songbook
