// Checking a catalogue: its search for look-alike songs against one reading of the same texts.

#include "Benches.h"
#include "harness/Catalogue.h"
#include "harness/Rounds.h"
#include "store/sqlite/Statement.h"
#include "tools/CatalogueCheck.h"
#include "tools/CheckedCatalogue.h"

namespace {

constexpr int Rounds = 5;

/// Reads the titles and texts of all songs. @return their bytes
std::size_t ReadTexts(const CheckedCatalogue& catalogue)
{
    Statement rows(catalogue.Handle(), "SELECT TITULO, MUSICA, MUSICA2 FROM MUSICA NOT INDEXED");
    std::size_t bytes = 0;
    while (rows.Step()) {
        for (int column = 0; column < rows.ColumnCount(); ++column)
            bytes += rows.Text(column).size();
    }
    return bytes;
}

} // namespace

void BenchVerify(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue generated(scale.songs);
    generated.Run(u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA) SELECT upper(TITULO), "
                  "REFERENCIA, MUSICA || 'fim' FROM MUSICA WHERE ID % 100 = 0"_qs);
    const CheckedCatalogue catalogue(generated.Path());
    qsizetype groups = 0;
    std::size_t bytes = 0;
    const auto times = Interleaved(
        scale.Rounds(Rounds),
        {[&] { return Timed([&] { groups = CatalogueCheck::FindLookAlikes(catalogue).count; }); },
         [&] { return Timed([&] { bytes += ReadTexts(catalogue); }); },
         [&] { return Timed([&] { CatalogueCheck::Check(catalogue); }); }});
    if (groups != scale.songs / 100 || bytes == 0)
        qFatal("%lld groups of look-alike songs", static_cast<long long>(groups));
    const QString reading = u"reading the texts"_qs;
    table.Add(u"look-alikes among %1"_qs.arg(scale.Songs()), times[0], reading, times[1]);
    table.Add(u"checking a catalogue of %1"_qs.arg(scale.Songs()), times[2], reading, times[1]);
}
