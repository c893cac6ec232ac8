#include "chords/NoteTable.h"

#include <algorithm>

namespace Chords {

namespace {

constexpr std::array<NoteCode, TableSize> PlainCharacters() noexcept
{
    std::array<NoteCode, TableSize> codes{};
    for (const char16_t letter : Characters)
        codes[letter] = PlainCharacter;
    return codes;
}

constexpr std::array<NoteCode, TableSize> OnlyPlainCharacters = PlainCharacters();

/// A code for each entry of both arrays, in the order in which names are looked up.
template <typename Visit>
void ForEachName(Visit visit)
{
    for (std::size_t index = 1; index <= OneArray; ++index)
        visit(Funcoes::Notas[index], static_cast<NoteCode>(index));
    for (std::size_t index = 1; index <= OneArray; ++index)
        visit(Funcoes::Notas_Mais[index], static_cast<NoteCode>(index + OneArray));
}

} // namespace

QString TableOf(NoteCode code)
{
    if (code == NoNote)
        return {};
    return code > OneArray ? QStringLiteral("2") : QStringLiteral("1");
}

NoteTable::NoteTable()
    : m_single(OnlyPlainCharacters)
{
    ForEachName([this](const QString& name, NoteCode code) { Enter(name, code); });
}

void NoteTable::Enter(const QString& name, NoteCode code) noexcept
{
    // A place that is taken stays: the first of several equal names is the one that is found. A
    // chord character is never asked for alone, so its mark may stay too.
    const auto take = [code](NoteCode& place) {
        if (place == NoNote)
            place = code;
    };
    const QStringView text = name;
    if (text.isEmpty() || text.size() > 2 || text[0].unicode() >= TableSize)
        return;
    const char16_t letter = text[0].unicode();
    if (text.size() == 1)
        take(m_single[letter]);
    else if (text[1] == u'#')
        take(m_sharp[letter]);
    else if (text[1] == u'b')
        take(m_flat[letter]);
}

NoteCode NoteTable::WideName(QStringView name) noexcept
{
    NoteCode found = NoNote;
    ForEachName([name, &found](const QString& candidate, NoteCode code) {
        if (found == NoNote && candidate == name)
            found = code;
    });
    return found;
}

ShiftedNames::ShiftedNames(std::int16_t deslocamento)
{
    for (NoteCode code = 1; code < NoteCodes; ++code) {
        Name& name = m_names[code];
        const int shifted = Funcoes::Corrige_Oitava(IndexOf(code) + deslocamento);
        name.exists = shifted >= 0 && shifted <= OneArray;
        if (!name.exists)
            continue;
        const auto& notas = code > OneArray ? Funcoes::Notas_Mais : Funcoes::Notas;
        name.text = notas[static_cast<std::size_t>(shifted)];
        std::copy_n(name.text.utf16(), std::min<qsizetype>(name.text.size(), 2), name.head);
    }
}

} // namespace Chords
