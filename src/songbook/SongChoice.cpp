#include "songbook/SongChoice.h"

#include "songbook/Reading.h"

#include <algorithm>

namespace Songbook {

namespace {

/// @return a pattern that means the text itself
QString Literally(const QString& text)
{
    QString pattern;
    for (const QChar sign : text) {
        if (sign == u'%' || sign == u'_' || sign == u'[')
            pattern += u'[' + QString(sign) + u']';
        else
            pattern += sign;
    }
    return pattern;
}

Like Compiled(const QString& pattern)
{
    const QByteArray utf8 = pattern.toUtf8();
    return Like(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

bool Matches(const Like& pattern, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return pattern.Matches(
        std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

/// The most setlists that a message names.
constexpr qsizetype MostNamed = 8;

QString Named(const QList<Setlist>& lists)
{
    QStringList names;
    for (const Setlist& list : lists.first(qMin(lists.size(), MostNamed)))
        names += u'"' + Excerpt(list.FullName()) + u'"';
    if (lists.size() > MostNamed)
        names += u"..."_qs;
    return names.join(u", ");
}

QList<Setlist> Matching(const QList<Setlist>& lists, const QString& pattern, bool byName)
{
    const Like like = Compiled(pattern);
    QList<Setlist> found;
    for (const Setlist& list : lists) {
        if (Matches(like, byName ? list.name.trimmed() : list.FullName()))
            found += list;
    }
    return found;
}

} // namespace

SongChoice::SongChoice(const QStringList& titles, const QStringList& themes)
{
    for (const QString& title : titles)
        m_titles.push_back(Compiled(u'%' + title + u'%'));
    for (const QString& theme : themes)
        m_themes.push_back(Compiled(Literally(theme.trimmed())));
}

bool SongChoice::Takes(const ExchangeSong& song) const
{
    return TakesTitle(song) && TakesThemes(song);
}

bool SongChoice::TakesTitle(const ExchangeSong& song) const
{
    if (m_titles.empty())
        return true;
    const QString title = song.titulo.value_or(QString());
    return std::any_of(m_titles.begin(), m_titles.end(),
                       [&title](const Like& like) { return Matches(like, title); });
}

bool SongChoice::TakesThemes(const ExchangeSong& song) const
{
    if (m_themes.empty())
        return true;
    return std::any_of(m_themes.begin(), m_themes.end(), [&song](const Like& like) {
        return std::any_of(song.temas.begin(), song.temas.end(), [&like](const QString& theme) {
            return Matches(like, theme.trimmed());
        });
    });
}

FoundSetlist FindSetlist(const QList<Setlist>& lists, const QString& name)
{
    if (lists.isEmpty())
        return {{}, u"o catálogo não tem listas"_qs};
    const QString literal = Literally(name.trimmed());
    QList<Setlist> found = Matching(lists, literal, true);
    if (found.isEmpty())
        found = Matching(lists, literal, false);
    if (found.isEmpty())
        found = Matching(lists, u'%' + literal + u'%', false);
    if (found.isEmpty())
        return {{}, u"não há lista \"%1\"; há %2"_qs.arg(name, Named(lists))};
    if (found.size() > 1)
        return {{}, u"há mais de uma lista \"%1\": %2"_qs.arg(name, Named(found))};
    return {found.first(), {}};
}

} // namespace Songbook
