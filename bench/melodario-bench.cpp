// Runs the benchmarks and prints their table: melodario-bench [OPTION...] [NAME...]

#include "Benches.h"
#include "controls/Appearance.h"
#include "harness/Rounds.h"

#include <QApplication>
#include <QLocale>
#include <QTextStream>

#include <array>

namespace {

struct Bench
{
    const char16_t* name;
    void (*run)(const Scale&, ResultTable&);
};

constexpr std::array<Bench, 13> Benches{{
    {u"fill", BenchFill},
    {u"search", BenchSearch},
    {u"typing", BenchTyping},
    {u"suggestions", BenchSuggestions},
    {u"chords", BenchChords},
    {u"viewer", BenchViewer},
    {u"scroll", BenchScroll},
    {u"songlist", BenchSongList},
    {u"setlist", BenchSetlist},
    {u"export", BenchExport},
    {u"import", BenchImport},
    {u"start", BenchStart},
    {u"verify", BenchVerify},
}};

Scale ShortScale()
{
    Scale scale;
    scale.isShort = true;
    scale.songs = 300;
    scale.longSheetLines = 300;
    return scale;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    Appearance::Apply(application);
    QApplication::setQuitOnLastWindowClosed(false);

    QStringList names = QApplication::arguments().mid(1);
    if (names.value(0) == u"--import-alone") {
        ImportAlone(names.value(1));
        return 0;
    }
    Scale scale = names.removeAll(u"--short"_qs) > 0 ? ShortScale() : Scale();
    if (names.removeAll(u"--100000"_qs) > 0)
        scale.songs = 100000;
    scale.withNaiveSearch = names.removeAll(u"--without-naive"_qs) == 0;

    ReadProcessorTime = names.removeAll(u"--processor-time"_qs) > 0;

    QTextStream out(stdout);
    QTextStream progress(stderr);
    ResultTable table;
    for (const Bench& bench : Benches) {
        const QString name = QString::fromUtf16(bench.name);
        if (!names.isEmpty() && !names.contains(name))
            continue;
        progress << name << Qt::endl;
        bench.run(scale, table);
    }
    if (table.IsEmpty()) {
        out << "Names: fill search typing suggestions chords viewer scroll songlist setlist "
               "export import start verify\n";
        return 1;
    }
    out << table.ToText();
    return 0;
}
