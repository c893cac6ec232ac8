#include "store/StatementTemplates.h"

#include <algorithm>

using namespace Syntax;

namespace {

/// Sorting by what a result column shows, or by a column's number, depends on the values of both.
bool SortsByComputed(const Select& select)
{
    return std::any_of(select.orderBy.begin(), select.orderBy.end(), [](const OrderTerm& term) {
        return term.value.kind != Expression::Kind::Column;
    });
}

/// Updates and deletions are one a user's action, and the songs in memory look into them.
bool CanRepeat(const Statement& statement)
{
    if (const auto* select = std::get_if<Select>(&statement))
        return !SortsByComputed(*select);
    const auto* insert = std::get_if<Insert>(&statement);
    return insert && (!insert->query || !SortsByComputed(*insert->query));
}

bool Serves(const StatementTemplate& known, const Shape& shape)
{
    return std::all_of(known.fixed.begin(), known.fixed.end(), [&shape](const auto& fixed) {
        return shape.At(fixed.literal).text == fixed.text;
    });
}

/// @return the literals of a translation's values; nothing where one of them is not what the shape
///         says: then both have read the statement in different ways
std::optional<std::vector<qsizetype>> Parameters(const Shape& shape, const Translation& translation)
{
    std::vector<qsizetype> parameters;
    for (std::size_t i = 0; i < translation.values.size(); ++i) {
        const qsizetype literal = shape.Find(translation.places[i]);
        if (literal < 0 || Shape::ValueOf(shape.At(literal)) != translation.values[i])
            return std::nullopt;
        parameters.push_back(literal);
    }
    return parameters;
}

QString TextAt(const Shape& shape, qsizetype literal)
{
    return Shape::ValueOf(shape.At(literal)).ToText();
}

// What memory is asked, with the values of a statement of the template's shape.

std::monostate With(std::monostate nothing, const Shape&)
{
    return nothing;
}

SameSong With(SameSong song, const Shape& shape)
{
    song.title = TextAt(shape, song.titlePlace);
    song.reference = TextAt(shape, song.referencePlace);
    return song;
}

SameTheme With(SameTheme theme, const Shape& shape)
{
    theme.description = TextAt(shape, theme.place);
    return theme;
}

SongThemes With(SongThemes themes, const Shape& shape)
{
    themes.song = Shape::ValueOf(shape.At(themes.place)).ToNumber();
    return themes;
}

// In a template a place is the number of a literal: the next statement has them elsewhere.

void NumberPlaces(std::monostate, const Shape&) {}

void NumberPlaces(SameSong& song, const Shape& shape)
{
    song.titlePlace = shape.Find(song.titlePlace);
    song.referencePlace = shape.Find(song.referencePlace);
}

template <typename Question>
void NumberPlaces(Question& question, const Shape& shape)
{
    question.place = shape.Find(question.place);
}

} // namespace

AskedOfMemory::AskedOfMemory(const Statement& statement)
{
    if (auto song = SameSong::Recognise(statement))
        question = std::move(*song);
    else if (auto theme = SameTheme::Recognise(statement))
        question = std::move(*theme);
    else if (auto themes = SongThemes::Recognise(statement))
        question = std::move(*themes);
}

Translation StatementTemplate::With(const Shape& shape) const
{
    Translation result = translation;
    result.values.reserve(parameters.size());
    for (const qsizetype literal : parameters)
        result.values.push_back(Shape::ValueOf(shape.At(literal)));
    return result;
}

AskedOfMemory StatementTemplate::AskedWith(const Shape& shape) const
{
    AskedOfMemory result;
    std::visit([&](const auto& question) { result.question = ::With(question, shape); },
               asked.question);
    return result;
}

const StatementTemplate* StatementTemplates::Find(const Shape& shape) const
{
    const auto variants = m_byKey.constFind(shape.Key());
    if (variants == m_byKey.cend())
        return nullptr;
    const auto found =
        std::find_if(variants->begin(), variants->end(),
                     [&shape](const StatementTemplate& known) { return Serves(known, shape); });
    return found == variants->end() ? nullptr : &*found;
}

void StatementTemplates::Keep(const Shape& shape, const Statement& statement,
                              const Translation& translation, const AskedOfMemory& asked)
{
    if (!translation.cacheable || !CanRepeat(statement))
        return;
    auto parameters = Parameters(shape, translation);
    if (!parameters)
        return;
    StatementTemplate known;
    known.translation = {translation.sql, {}, {}, translation.isQuery, true};
    known.parameters = std::move(*parameters);
    for (qsizetype i = 0; i < shape.Count(); ++i) {
        const auto& bound = known.parameters;
        if (std::find(bound.begin(), bound.end(), i) == bound.end())
            known.fixed.push_back({i, shape.At(i).text.toString()});
    }
    known.asked = asked;
    std::visit([&shape](auto& question) { NumberPlaces(question, shape); }, known.asked.question);
    if (m_byKey.size() >= Capacity && !m_byKey.contains(shape.Key()))
        m_byKey.clear();
    auto& variants = m_byKey[shape.Key()];
    if (variants.size() >= MostVariants)
        variants.erase(variants.begin());
    variants.push_back(std::move(known));
}
