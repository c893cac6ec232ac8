#include "store/shelf/SongView.h"

#include "store/sqlite/Failure.h"
#include "store/text/Utf8.h"

#include <algorithm>
#include <utility>

namespace {

Value ToValue(const SongRow::Number& number)
{
    return number ? Value(*number) : Value();
}

Value ToValue(const SongRow::Text& text)
{
    return text ? Value(Utf8::ToText(*text)) : Value();
}

Value ToValue(const std::optional<QByteArray>& text)
{
    if (!text)
        return {};
    return Utf8::ToText({text->constData(), static_cast<std::size_t>(text->size())});
}

std::optional<QByteArray> ToBytes(const SongRow::Text& text)
{
    if (!text)
        return std::nullopt;
    return QByteArray::fromRawData(text->data(), static_cast<qsizetype>(text->size()));
}

} // namespace

SongView::SongView(const SongSearch& search, std::shared_ptr<const SongPile> pile,
                   std::vector<const SongRow*> rows, TextReader reader)
    : Rows(search.names)
    , m_columns(search.columns)
    , m_pile(std::move(pile))
    , m_rows(std::move(rows))
    , m_reader(std::move(reader))
{
}

Value SongView::At(int row, int column) const
{
    using Field = SongSearch::Field;
    const SongRow& song = *m_rows[static_cast<std::size_t>(row)];
    switch (m_columns[static_cast<std::size_t>(column)]) {
    case Field::Id:
        return song.id;
    case Field::Title:
        return ToValue(song.title);
    case Field::Reference:
        return ToValue(song.reference);
    case Field::Text:
        return ToValue(TextsOf(song.id).first);
    case Field::SecondText:
        return ToValue(TextsOf(song.id).second);
    case Field::Key:
        return ToValue(song.key);
    case Field::Variation:
        return ToValue(song.variation);
    case Field::Category:
        return ToValue(song.category);
    case Field::Count:
        return ToValue(song.count);
    case Field::Label:
        return Value(QString::fromStdString(song.Label()));
    case Field::One:
        return Value(qint64{1});
    }
    return {};
}

std::optional<QByteArray> SongView::Utf8At(int row, int column) const
{
    using Field = SongSearch::Field;
    const SongRow& song = *m_rows[static_cast<std::size_t>(row)];
    switch (m_columns[static_cast<std::size_t>(column)]) {
    case Field::Title:
        return ToBytes(song.title);
    case Field::Reference:
        return ToBytes(song.reference);
    case Field::Text:
        return TextsOf(song.id).first;
    case Field::SecondText:
        return TextsOf(song.id).second;
    case Field::Key:
        return ToBytes(song.key);
    case Field::Variation:
        return ToBytes(song.variation);
    default:
        return Rows::Utf8At(row, column);
    }
}

/// @return a song's texts, valid until the next call; null when the song is gone
const SongTexts* SongView::FindTexts(qint64 id) const
{
    const auto kept = m_texts.find(id);
    if (kept != m_texts.end())
        return &kept->second;
    if (!m_reader)
        Failure::ThrowClosed();
    if (!m_last || m_last->first != id) {
        std::optional<SongTexts> texts = m_reader(id);
        if (!texts)
            return nullptr;
        m_last.emplace(id, std::move(*texts));
    }
    return &m_last->second;
}

const SongTexts& SongView::TextsOf(qint64 id) const
{
    const SongTexts* texts = FindTexts(id);
    if (!texts)
        Failure::ThrowGone();
    return *texts;
}

void SongView::KeepText(qint64 id)
{
    using Field = SongSearch::Field;
    const bool showsTexts = std::any_of(m_columns.begin(), m_columns.end(), [](Field column) {
        return column == Field::Text || column == Field::SecondText;
    });
    if (!showsTexts)
        return;
    if (const SongTexts* texts = FindTexts(id))
        m_texts.try_emplace(id, *texts);
}

void SongView::KeepAllTexts()
{
    for (const SongRow* song : m_rows)
        KeepText(song->id);
}
