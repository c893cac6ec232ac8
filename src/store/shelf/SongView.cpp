#include "store/shelf/SongView.h"

#include "runtime/RuntimeError.h"
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
        return TextAt(row);
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

Value SongView::TextAt(int row) const
{
    const auto at = static_cast<std::size_t>(row);
    if (m_reader)
        return m_reader(m_rows[at]->id);
    return at < m_texts.size() ? m_texts[at] : Value();
}

void SongView::Settle()
{
    const bool showsTexts =
        std::find(m_columns.begin(), m_columns.end(), SongSearch::Field::Text) != m_columns.end();
    const TextReader reader = std::exchange(m_reader, nullptr);
    if (!reader || !showsTexts)
        return;
    try {
        m_texts.reserve(m_rows.size());
        for (const SongRow* song : m_rows)
            m_texts.push_back(reader(song->id));
    } catch (const RuntimeError&) {
        // Told to whoever runs a statement next.
    }
}
