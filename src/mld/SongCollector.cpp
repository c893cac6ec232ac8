#include "mld/SongCollector.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr qsizetype LongestTitleShown = 60;

bool IsWhite(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsWhite(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return IsWhite(c); });
}

/// @return the number of 16 bits that a text denotes, white space around it apart.
std::optional<std::int16_t> WholeOf(const QString& text)
{
    try {
        if (const auto number = Number::FromText(text.trimmed()))
            return Number::ToInteger(*number);
    } catch (const RuntimeError&) {
        // out of range
    }
    return std::nullopt;
}

} // namespace

std::uint32_t SongCollector::Place() const
{
    return static_cast<std::uint32_t>(m_songs.m_text.size() - m_entry.text);
}

void SongCollector::Begin(std::optional<Field> field)
{
    m_inRootText = false;
    const std::size_t depth = m_levels.size() + 1; // of the new element; the root's is 1
    if (m_themesDepth != 0 && depth == m_themesDepth + 1) {
        EndTheme(); // text in front of it
        m_inThemeElement = true;
    }
    m_levels.push_back({});
    if (depth == SongDepth)
        BeginSong();
    if (depth <= SongDepth || !field || m_hasField[static_cast<std::size_t>(*field)])
        return;
    const auto index = static_cast<std::size_t>(*field);
    m_hasField[index] = true;
    ++m_openFields;
    m_levels.back().field = field;
    m_entry.fields[index].start = Place();
    if (*field == Field::Temas) {
        m_themesDepth = depth;
        m_themeStart = Place();
        m_inThemeElement = false;
    }
}

void SongCollector::End()
{
    m_inRootText = false;
    const std::size_t depth = m_levels.size();
    if (m_themesDepth != 0 && depth == m_themesDepth + 1)
        EndTheme();
    if (const auto field = m_levels.back().field)
        EndField(*field);
    m_levels.pop_back();
    if (depth == SongDepth)
        EndSong();
}

void SongCollector::EndField(Field field)
{
    if (field == Field::Temas) {
        EndTheme(); // text behind the last element
        m_themesDepth = 0;
    }
    const auto index = static_cast<std::size_t>(field);
    m_entry.fields[index].end = Place();
    --m_openFields;
}

/// What was collected since the last theme is one more: an element's text, or text of its own that
/// is more than white space.
void SongCollector::EndTheme()
{
    if (m_isTooLong)
        return; // its text is gone already
    const Range range{m_themeStart, Place()};
    const QByteArray& text = m_songs.m_text;
    const std::string_view inside(text.constData() + m_entry.text + range.start,
                                  range.end - range.start);
    if (m_inThemeElement || !IsWhite(inside)) {
        m_songs.m_themes.push_back(range);
        ++m_entry.themeCount;
    }
    m_inThemeElement = false;
    m_themeStart = range.end;
}

void SongCollector::Add(std::string_view utf8, bool isPlain)
{
    if (m_levels.size() == RootDepth) {
        if (!m_inRootText && !(isPlain && IsWhite(utf8))) {
            RefuseChild();
            m_inRootText = true;
        }
        return;
    }
    if (m_openFields == 0 || m_isTooLong)
        return;
    if (utf8.size() > m_longestText - Place()) {
        // Its text is given up at once, not only when the song ends.
        m_isTooLong = true;
        m_songs.m_text.resize(m_entry.text);
        return;
    }
    m_songs.m_text.append(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

void SongCollector::AddOther()
{
    if (m_themesDepth != 0 && m_levels.size() == m_themesDepth)
        EndTheme(); // text in front of it
    if (m_levels.size() != RootDepth)
        return;
    m_inRootText = false;
    RefuseChild();
}

void SongCollector::RefuseChild()
{
    ++m_child;
    Refuse(ExchangeDefect::Kind::NoElement, QString());
}

void SongCollector::BeginSong()
{
    ++m_child;
    m_entry = {};
    m_entry.text = m_songs.m_text.size();
    m_entry.themes = m_songs.m_themes.size();
    m_hasField.fill(false);
    m_isTooLong = false;
}

void SongCollector::EndSong()
{
    if (Check()) {
        m_songs.m_entries.push_back(m_entry);
        return;
    }
    m_songs.m_text.resize(m_entry.text);
    m_songs.m_themes.resize(m_entry.themes);
}

/// @return whether the song that ends is a good one; else it is written down
bool SongCollector::Check()
{
    if (m_isTooLong) {
        Refuse(ExchangeDefect::Kind::TooLong, QString());
        return false;
    }
    QStringList missing;
    for (std::size_t i = 0; i < ExchangeSongs::Fields; ++i) {
        if (!m_hasField[i])
            missing.append(QString::fromLatin1(ExchangeSongs::NameOf(static_cast<Field>(i))));
    }
    if (!missing.isEmpty()) {
        Refuse(ExchangeDefect::Kind::FieldMissing, missing.join(u", "));
        return false;
    }
    constexpr auto Categoria = static_cast<std::size_t>(Field::Categoria);
    const auto number = WholeOf(m_songs.TextOf(m_entry, m_entry.fields[Categoria]));
    if (!number) {
        Refuse(ExchangeDefect::Kind::NoNumber,
               QString::fromLatin1(ExchangeSongs::NameOf(Field::Categoria)));
        return false;
    }
    m_entry.categoria = *number;
    return true;
}

void SongCollector::Refuse(ExchangeDefect::Kind kind, QString fields)
{
    ++m_songs.m_defectCount;
    if (m_songs.m_defects.size() == ExchangeSongs::MostDefects)
        return;
    ExchangeDefect defect{kind, m_child, QString(), std::move(fields)};
    constexpr auto Titulo = static_cast<std::size_t>(Field::Titulo);
    if (kind != ExchangeDefect::Kind::NoElement && m_hasField[Titulo] && !m_isTooLong) {
        Range range = m_entry.fields[Titulo];
        // A title may be as long as a file; what is shown of it is not.
        range.end = std::min<std::uint32_t>(range.end, range.start + 4 * LongestTitleShown);
        defect.titulo = m_songs.TextOf(m_entry, range).simplified().left(LongestTitleShown);
        if (defect.titulo.endsWith(QChar(QChar::ReplacementCharacter)) ||
            (!defect.titulo.isEmpty() && defect.titulo.back().isHighSurrogate()))
            defect.titulo.chop(1); // half a character
    }
    m_songs.m_defects.append(defect);
}
