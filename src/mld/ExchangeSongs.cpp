#include "mld/ExchangeSongs.h"

#include "store/text/Utf8.h"

const char* ExchangeSongs::NameOf(Field field)
{
    static constexpr std::array<const char*, Fields> names{
        "titulo", "referencia", "letra1", "letra2", "tom", "variacao", "categoria", "temas"};
    return names[static_cast<std::size_t>(field)];
}

QString ExchangeSongs::TextOf(const Entry& entry, const Range& range) const
{
    const char* const start = m_text.constData() + entry.text + range.start;
    return Utf8::ToText({start, range.end - range.start});
}

ExchangeSong ExchangeSongs::At(qsizetype index) const
{
    const Entry& entry = m_entries[static_cast<std::size_t>(index)];
    const auto text = [&](Field field) {
        return TextOf(entry, entry.fields[static_cast<std::size_t>(field)]);
    };
    ExchangeSong song;
    song.titulo = text(Field::Titulo);
    song.referencia = text(Field::Referencia);
    song.letra1 = text(Field::Letra1);
    song.letra2 = text(Field::Letra2);
    song.tom = text(Field::Tom);
    song.variacao = text(Field::Variacao);
    song.categoria = entry.categoria;
    for (quint64 i = 0; i < entry.themeCount; ++i)
        song.temas.append(TextOf(entry, m_themes[entry.themes + i]));
    return song;
}
