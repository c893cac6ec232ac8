#include "songbook/ChordProDirective.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace Songbook {

namespace {

const QString Start = QStringLiteral("start_of_");
const QString End = QStringLiteral("end_of_");

/// @return the long name of a directive
QString LongName(const QString& name)
{
    static const QHash<QString, QString> names = {{u"t"_qs, u"title"_qs},
                                                  {u"st"_qs, u"subtitle"_qs},
                                                  {u"su"_qs, u"subtitle"_qs},
                                                  {u"c"_qs, u"comment"_qs},
                                                  {u"highlight"_qs, u"comment"_qs},
                                                  {u"cb"_qs, u"comment_box"_qs},
                                                  {u"ci"_qs, u"comment_italic"_qs},
                                                  {u"soc"_qs, u"start_of_chorus"_qs},
                                                  {u"eoc"_qs, u"end_of_chorus"_qs},
                                                  {u"sov"_qs, u"start_of_verse"_qs},
                                                  {u"eov"_qs, u"end_of_verse"_qs},
                                                  {u"sob"_qs, u"start_of_bridge"_qs},
                                                  {u"eob"_qs, u"end_of_bridge"_qs},
                                                  {u"sot"_qs, u"start_of_tab"_qs},
                                                  {u"eot"_qs, u"end_of_tab"_qs},
                                                  {u"sog"_qs, u"start_of_grid"_qs},
                                                  {u"eog"_qs, u"end_of_grid"_qs},
                                                  {u"ns"_qs, u"new_song"_qs},
                                                  {u"np"_qs, u"new_page"_qs},
                                                  {u"npp"_qs, u"new_physical_page"_qs},
                                                  {u"colb"_qs, u"column_break"_qs},
                                                  {u"col"_qs, u"columns"_qs},
                                                  {u"g"_qs, u"grid"_qs},
                                                  {u"ng"_qs, u"no_grid"_qs},
                                                  {u"topic"_qs, u"tag"_qs},
                                                  {u"theme"_qs, u"tag"_qs},
                                                  {u"tema"_qs, u"tag"_qs}};
    return names.value(name, name);
}

const QSet<QString>& LayoutNames()
{
    static const QSet<QString> names = {u"new_page"_qs,
                                        u"new_physical_page"_qs,
                                        u"column_break"_qs,
                                        u"columns"_qs,
                                        u"grid"_qs,
                                        u"no_grid"_qs,
                                        u"diagrams"_qs,
                                        u"pagetype"_qs,
                                        u"titles"_qs,
                                        u"chordfont"_qs,
                                        u"chordsize"_qs,
                                        u"chordcolour"_qs,
                                        u"chordcolor"_qs,
                                        u"textfont"_qs,
                                        u"textsize"_qs,
                                        u"textcolour"_qs,
                                        u"textcolor"_qs,
                                        u"tabfont"_qs,
                                        u"tabsize"_qs,
                                        u"tabcolour"_qs,
                                        u"tabcolor"_qs,
                                        u"gridfont"_qs,
                                        u"gridsize"_qs,
                                        u"gridcolour"_qs,
                                        u"chorusfont"_qs,
                                        u"chorussize"_qs,
                                        u"choruscolour"_qs,
                                        u"titlefont"_qs,
                                        u"titlesize"_qs,
                                        u"titlecolour"_qs,
                                        u"tocfont"_qs,
                                        u"tocsize"_qs,
                                        u"toccolour"_qs,
                                        u"footerfont"_qs,
                                        u"footersize"_qs,
                                        u"footercolour"_qs,
                                        u"labelfont"_qs,
                                        u"labelsize"_qs,
                                        u"labelcolour"_qs,
                                        u"cf"_qs,
                                        u"cs"_qs,
                                        u"tf"_qs,
                                        u"ts"_qs};
    return names;
}

const QSet<QString>& OtherNames()
{
    static const QSet<QString> names = {
        u"title"_qs,       u"sorttitle"_qs, u"subtitle"_qs, u"artist"_qs,
        u"composer"_qs,    u"lyricist"_qs,  u"arranger"_qs, u"copyright"_qs,
        u"album"_qs,       u"year"_qs,      u"key"_qs,      u"time"_qs,
        u"tempo"_qs,       u"duration"_qs,  u"capo"_qs,     u"meta"_qs,
        u"tag"_qs,         u"keywords"_qs,  u"comment"_qs,  u"comment_box"_qs,
        u"chorus"_qs,      u"define"_qs,    u"chord"_qs,    u"comment_italic"_qs,
        u"transpose"_qs,   u"image"_qs,     u"new_song"_qs, u"x_linha"_qs,
        u"x_versao"_qs,    u"author"_qs,    u"x_tom"_qs,    u"x_variacao"_qs,
        u"x_categoria"_qs, u"ccli"_qs,      u"footer"_qs};
    return names;
}

} // namespace

QString ChordProDirective::Begins() const
{
    return name.startsWith(Start) ? name.mid(Start.size()) : QString();
}

QString ChordProDirective::Ends() const
{
    return name.startsWith(End) ? name.mid(End.size()) : QString();
}

QString ChordProDirective::Label() const
{
    static const QRegularExpression label(
        QStringLiteral("\\blabel\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|(\\S+))"));
    static const QRegularExpression attribute(QStringLiteral("^\\w+\\s*="));
    const auto match = label.match(value);
    if (match.hasMatch()) {
        const QString quoted = match.captured(1) + match.captured(2) + match.captured(3);
        return quoted.trimmed();
    }
    return attribute.match(value).hasMatch() ? QString() : value;
}

bool ChordProDirective::IsLayout() const
{
    return LayoutNames().contains(name);
}

bool ChordProDirective::IsKnown() const
{
    return IsLayout() || OtherNames().contains(name) || !Begins().isEmpty() || !Ends().isEmpty();
}

std::optional<ChordProDirective> ReadDirective(QStringView line)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*([A-Za-z][A-Za-z0-9_]*)(?:-([A-Za-z0-9_!]+))?\\s*(?::\\s?|\\s|$)"));
    const QStringView trimmed = line.trimmed();
    if (trimmed.size() < 3 || trimmed.front() != u'{' || trimmed.back() != u'}')
        return std::nullopt;
    const QString inside = trimmed.sliced(1, trimmed.size() - 2).toString();
    const auto match = form.match(inside);
    if (!match.hasMatch())
        return std::nullopt;
    ChordProDirective directive;
    directive.name = LongName(match.captured(1).toLower());
    directive.selector = match.captured(2).toLower();
    directive.exact = inside.mid(match.capturedEnd());
    directive.value = directive.exact.trimmed();
    if (directive.name != u"meta")
        return directive;
    static const QRegularExpression item(QStringLiteral("^([A-Za-z_]\\w*)\\s*:?\\s*"));
    const auto named = item.match(directive.value);
    if (named.hasMatch()) {
        directive.name = LongName(named.captured(1).toLower());
        directive.value = directive.value.mid(named.capturedEnd());
        directive.exact = directive.value;
    }
    return directive;
}

} // namespace Songbook
