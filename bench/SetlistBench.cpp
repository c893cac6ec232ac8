// The setlist panel: from the menu entry to the painted panel, and from a letter in its filter to
// the painted offer.

#include "Benches.h"
#include "controls/ListBox.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"

#include <QAction>

namespace {

constexpr int Rounds = 25;

Nanoseconds Repainted(MainForm& form)
{
    PaintCounter::Settle();
    return Timed([&] { form.repaint(); });
}

} // namespace

void BenchSetlist(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    // The worst that the panel can be asked for: every song is on offer.
    catalogue.Run(u"UPDATE MUSICA SET CATEGORIA = 1;"
                  "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT ID, 1 FROM MUSICA WHERE ID"
                  " NOT IN (SELECT ID_MUSICA FROM TEMA_MUSICA)"_qs);
    MainForm form(catalogue);
    auto& search = form.Find<QAction>("mnuPesquisa");
    auto& setlists = form.Find<QAction>("mnuLista");
    auto& filter = form.Find<QLineEdit>("txtFiltro");
    auto& offer = form.Find<ListBox>("lstMusicasLista");
    setlists.trigger();
    if (offer.ListCount() != scale.songs)
        qFatal("%d songs are on offer", offer.ListCount());
    PaintCounter painted(*offer.viewport());
    const auto times = Interleaved(
        scale.Rounds(Rounds), {[&] {
                                   filter.clear();
                                   search.trigger();
                                   return painted.UntilPainted([&] { setlists.trigger(); });
                               },
                               [&] {
                                   filter.clear();
                                   return painted.UntilPainted([&] { filter.setText(u"a"_qs); });
                               },
                               [&] { return Repainted(form); }});
    table.Add(u"setlist panel opened, %1 on offer"_qs.arg(scale.Songs()), times[0],
              u"repaint of the form"_qs, times[2]);
    table.Add(u"a letter in its filter, of %1"_qs.arg(scale.Songs()), times[1],
              u"repaint of the form"_qs, times[2]);
}
