// The list of the main form: from the search's tick to the painted list, and the fill alone.

#include "Benches.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"
#include "harness/Memory.h"
#include "main/Linhas_Musicas.h"
#include "main/SQL_Pesquisa.h"
#include "naive/NaiveSearch.h"

#include <QHeaderView>
#include <QTreeWidget>

namespace {

constexpr int Rounds = 25;
constexpr int NaiveRounds = 3;
constexpr int OnceRounds = 5;

struct Search
{
    const char* box;
    const char16_t* column; ///< as the table calls it
    const char16_t* hits;
    const char16_t* text;
};

constexpr std::array<Search, 9> Searches{{
    {"txtTitulo", u"title", u"no", u"zzqx"},
    {"txtTitulo", u"title", u"some", u"luz"},
    {"txtTitulo", u"title", u"all", u"_"},
    {"txtReferencia", u"reference", u"no", u"zzqx"},
    {"txtReferencia", u"reference", u"some", u"luz"},
    {"txtReferencia", u"reference", u"all", u"_"},
    {"txtLetra", u"lyrics", u"no", u"zzqx"},
    {"txtLetra", u"lyrics", u"some", u"luzpaz"},
    {"txtLetra", u"lyrics", u"all", u"a"},
}};

QString Statement(const Search& search)
{
    Pedido_Pesquisa asked;
    const QString text = QString::fromUtf16(search.text);
    const QLatin1StringView box(search.box);
    (box == QLatin1StringView("txtTitulo")       ? asked.titulo
     : box == QLatin1StringView("txtReferencia") ? asked.referencia
                                                 : asked.letra) = text;
    return Monta_SQL_Pesquisa(asked);
}

/// The naive list where the program's own would be: as large, with as many columns.
class NaiveList
{
public:
    explicit NaiveList(const QWidget& like)
    {
        m_list.setColumnCount(3);
        m_list.setRootIsDecorated(false);
        m_list.resize(like.size());
        m_list.setColumnWidth(0, like.width() * 2 / 5);
        m_list.setColumnWidth(1, like.width() * 3 / 10);
        m_list.show();
        if (!QTest::qWaitForWindowExposed(&m_list))
            qFatal("the naive list is not shown");
    }

    QTreeWidget& Widget() { return m_list; }

private:
    QTreeWidget m_list;
};

void MeasureSearch(const Search& search, const Scale& scale, const GeneratedCatalogue& catalogue,
                   const MainForm& form, ResultTable& table)
{
    PaintCounter painted(*form.List().viewport());
    const auto search_ours = [&] {
        form.Write(search.box, QString::fromUtf16(search.text));
        return painted.UntilPainted([&] { form.Tick(); });
    };
    // The repaint is that of a list full of rows, whatever the search finds.
    const auto repaint = [&] {
        form.Write(search.box, QString());
        form.Tick();
        return painted.Bare(form.List());
    };
    const auto close = Interleaved(scale.Rounds(Rounds), {search_ours, repaint});
    form.Write(search.box, QString::fromUtf16(search.text));
    form.Tick();
    const int hits = form.List().ListCount();
    const QString work = u"tick to painted list, %1, %2 hits (%3)"_qs.arg(
        QStringView(search.column), QStringView(search.hits), QString::number(hits));
    table.Add(work, close[0], u"repaint"_qs, close[1], {Aim::AtMost, 3});
    if (!scale.withNaiveSearch)
        return;

    NaiveSearch naive(catalogue.Path());
    NaiveList list(form.List());
    PaintCounter naive_painted(*list.Widget().viewport());
    const QString sql = Statement(search);
    int naive_hits = 0;
    const auto search_naively = [&] {
        return naive_painted.UntilPainted([&] {
            naive_hits = naive.Run(sql, list.Widget());
            list.Widget().viewport()->update();
        });
    };
    const auto far = Interleaved(scale.Rounds(NaiveRounds), {search_ours, search_naively});
    if (naive_hits != hits)
        qFatal("%s: %d rows, the naive search finds %d", qPrintable(sql), hits, naive_hits);

    table.Add(work, far[0], u"naive"_qs, far[1]);
}

void MeasureFill(const Scale& scale, const GeneratedCatalogue& catalogue, const MainForm& form,
                 ResultTable& table)
{
    const QString sql = Monta_SQL_Pesquisa({});
    const QString work = u"%1 rows filled and painted"_qs.arg(scale.songs);
    ListaMusicas& list = form.List();
    PaintCounter painted(*list.viewport());
    const Recordset songs = Funcoes::Conexao.Execute(sql);
    const auto fill = [&] {
        list.Limpa();
        return painted.UntilPainted([&] { list.Preenche_De(Fonte_Musicas(songs)); });
    };
    const auto repaint = [&] { return painted.Bare(form.List()); };
    const auto times = Interleaved(scale.Rounds(Rounds), {fill, repaint});
    table.Add(work, times[0], u"repaint"_qs, times[1], {Aim::AtMost, 1.5});

    list.Limpa();
    PaintCounter::Settle();
    const qint64 before = Memory::Held();
    list.Preenche_De(Fonte_Musicas(Funcoes::Conexao.Execute(sql)));
    PaintCounter::Settle();
    const auto ours = static_cast<double>(Memory::Held() - before);
    NaiveList naive(list);
    NaiveSearch search(catalogue.Path());
    const qint64 empty = Memory::Held();
    search.Run(sql, naive.Widget());
    PaintCounter::Settle();
    const auto theirs = static_cast<double>(Memory::Held() - empty);
    table.AddText(u"memory of the list, a row"_qs, ResultTable::Bytes(ours / scale.songs),
                  u"naive: "_qs + ResultTable::Bytes(theirs / scale.songs), ours / theirs);
}

/// What happens once: the first search in lyrics when none were read ahead, and closing.
void MeasureOnce(const Scale& scale, const GeneratedCatalogue& catalogue, ResultTable& table)
{
    std::vector<Nanoseconds> first;
    std::vector<Nanoseconds> next;
    std::vector<Nanoseconds> saving;
    std::vector<Nanoseconds> closing;
    for (int round = 0; round < scale.Rounds(OnceRounds); ++round) {
        const MainForm form(catalogue);
        PaintCounter painted(*form.List().viewport());
        for (std::vector<Nanoseconds>* times : {&first, &next}) {
            form.Write("txtLetra", u"zzqx"_qs);
            times->push_back(painted.UntilPainted([&] { form.Tick(); }));
        }
        form.Write("txtLetra", QString());
        form.Tick();
        PaintCounter::Settle();
        // Of no song: the next round finds the catalogue as it was.
        saving.push_back(Timed([] {
            Funcoes::Conexao.Execute(u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 00"_qs);
            Funcoes::Conexao.CommitBatch();
        }));
        closing.push_back(Timed([] { Funcoes::Conexao.Close(); }));
        Funcoes::Conexao.Open(catalogue.ConnectionString()); // the form closes it again
    }
    table.Add(u"first search in lyrics, none read ahead"_qs, Median(first), u"the next one"_qs,
              Median(next));
    table.Add(u"links of a song deleted, every song in the list"_qs, Median(saving), u"a search"_qs,
              Median(next));
    table.Add(u"closing, every song in the list"_qs, Median(closing), u"a search"_qs, Median(next));
}

} // namespace

void BenchFill(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    const MainForm form(catalogue);
    // A search in the lyrics has read them all, as idle moments have a second after a start: until
    // then every wait for a paint may hold a slice of that reading.
    form.Write("txtLetra", u"luz"_qs);
    form.Tick();
    form.Write("txtLetra", {});
    form.Tick();
    MeasureFill(scale, catalogue, form, table);
}

void BenchSearch(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    MeasureOnce(scale, catalogue, table);
    const MainForm form(catalogue);
    for (const Search& search : Searches)
        MeasureSearch(search, scale, catalogue, form, table);
}
