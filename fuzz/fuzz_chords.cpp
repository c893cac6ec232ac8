// The fast chord engine against the plain one, to the byte; and transposing there and back.

#include "Input.h"
#include "PlainEngine.h"
#include "Songs.h"

#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "runtime/RuntimeError.h"

#include <QStringList>

using namespace Fuzz;

namespace {

constexpr std::size_t LongestName = 4; // bytes of the input

void LoadNotes()
{
    Funcoes::Notas[0] = Funcoes::Notas_Mais[0] = u"?"_qs;
    std::copy(Roots().begin(), Roots().end(), Funcoes::Notas.begin() + 1);
    std::copy(FlatRoots().begin(), FlatRoots().end(), Funcoes::Notas_Mais.begin() + 1);
}

void ChangeNames(Input& input)
{
    for (unsigned changes = input.Below(8); changes > 4; --changes) {
        Funcoes::Escala& notes = input.Flag() ? Funcoes::Notas : Funcoes::Notas_Mais;
        QString& name = notes[input.Below(13)];
        name = input.Text(LongestName, SongPieces());
        if (input.Below(16) == 0)
            name = name.repeated(50);
    }
}

struct Outcome
{
    QString text;
    int error = 0;
};

template <typename Call>
Outcome Run(Call call)
{
    Outcome outcome;
    try {
        outcome.text = call();
    } catch (const RuntimeError& failure) {
        outcome.error = failure.Number();
    }
    return outcome;
}

void CompareEngines(Input& input)
{
    LoadNotes();
    ChangeNames(input);
    PlainEngine plain;
    plain.Notas = Funcoes::Notas;
    plain.Notas_Mais = Funcoes::Notas_Mais;
    plain.Tabela_Nota = Funcoes::Tabela_Nota = input.Of({u""_qs, u"1"_qs, u"2"_qs, u"before"_qs});
    const std::int16_t offset = input.Whole();
    const std::int16_t step = input.Whole();
    const bool chords = input.Below(4) != 0;
    const bool lineOnly = input.Below(4) == 0;
    const QString song = input.Text(4096, SongPieces());

    if (lineOnly) {
        Same("kind of line", plain.Linha_Cifra(song), Funcoes::Linha_Cifra(song));
        Same("table after a line", plain.Tabela_Nota, Funcoes::Tabela_Nota);
    }
    const Outcome expected = Run([&] { return plain.Monta_Cifra(song, offset, step, chords); });
    const Outcome actual = Run([&] { return Funcoes::Monta_Cifra(song, offset, step, chords); });
    Same("error", expected.error, actual.error);
    Same("sheet", expected.text, actual.text);
    Same("table", plain.Tabela_Nota, Funcoes::Tabela_Nota);
}

/// @return the lines of a sheet that holds chord lines alone.
QString LinesOf(QString sheet)
{
    static const QString lastHead = u"\\fs34\r\n"_qs;
    sheet.remove(0, sheet.indexOf(lastHead) + lastHead.size());
    sheet.chop(1);
    sheet.remove(u"\\cf1\\b "_qs).remove(u"\\cf0\\b0"_qs).remove(u"\\par "_qs);
    // The line that Monta_Cifra adds at the end.
    Holds("the last line is empty", sheet.endsWith(u"\r\n\r\n"));
    sheet.chop(4);
    return sheet;
}

QString InSharps(QString song)
{
    for (std::size_t i = 0; i < Roots().size(); ++i)
        song.replace(FlatRoots()[i], Roots()[i]);
    return song;
}

/// Any chords in either spelling come back as the same pitches, spelled as before or in sharps.
void ThereAndBack(Input& input)
{
    LoadNotes();
    const auto offset = static_cast<std::int16_t>(static_cast<int>(input.Below(25)) - 12);
    QString song = u"C"_qs;
    for (int chords = 0; chords < 200 && !input.AtEnd(); ++chords) {
        const auto& roots = input.Flag() ? Roots() : FlatRoots();
        song += input.Of({u" "_qs, u"   "_qs, u" / "_qs, u"\r\n"_qs});
        song += roots[input.Below(12)];
        song += Endings()[input.Below(8)];
    }
    const QString away = LinesOf(Funcoes::Monta_Cifra(song, offset, 0, true));
    const auto back = static_cast<std::int16_t>(-offset);
    const QString home = LinesOf(Funcoes::Monta_Cifra(away, back, 0, true));
    Same("there and back", InSharps(home), InSharps(song));
    Same("an octave", LinesOf(Funcoes::Monta_Cifra(song, 12, 0, true)), song);
    Same("no step", LinesOf(Funcoes::Monta_Cifra(song, 0, 0, true)), song);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    if (input.Below(5) == 4)
        ThereAndBack(input);
    else
        CompareEngines(input);
    return 0;
}
