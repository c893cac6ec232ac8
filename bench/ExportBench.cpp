// The export: from the press of the button to the written file, for one file with all songs.

#include "Benches.h"
#include "controls/RecordingDialogs.h"
#include "controls/RecordingFileDialogs.h"
#include "exchange/frmExportar.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"

#include <QFile>
#include <QPushButton>
#include <QSaveFile>
#include <QTemporaryDir>

namespace {

constexpr int Rounds = 7;

QByteArray Content(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("nothing was exported");
    return file.readAll();
}

void WriteWhole(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        qFatal("the bytes cannot be written");
}

QString Marked(int songs)
{
    QString marked;
    for (int id = 1; id <= songs; ++id)
        marked += QString::number(id) % u',';
    return marked;
}

} // namespace

void BenchExport(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    MainForm principal(catalogue);
    RecordingDialogs messages;
    RecordingFileDialogs pickers;
    const QTemporaryDir folder;
    const QString exported = folder.filePath(u"exported.mld"_qs);
    // A search in the lyrics has read them all, as idle moments have a second after a start: what
    // searches prepare is none of the export's work.
    principal.Write("txtLetra", u"luz"_qs);
    principal.Tick();
    frmExportar form(principal, &principal);
    const QString marked = Marked(scale.songs);
    auto* button = form.findChild<QPushButton*>(u"cmdExportar"_qs);

    form.Inicializa(marked);
    const auto exportAll = [&] {
        form.show();
        PaintCounter::Settle();
        pickers.chosen = {exported};
        return Timed([&] { button->click(); });
    };
    exportAll();
    const QByteArray content = Content(exported);
    if (content.count("<musica>") != scale.songs)
        qFatal("songs are missing");
    const auto times = Interleaved(
        scale.Rounds(Rounds),
        {exportAll,
         [&] { return Timed([&] { WriteWhole(folder.filePath(u"same.mld"_qs), content); }); },
         [&] { return Timed([&] { form.Inicializa(marked); }); }});
    table.Add(
        u"export of %1 into one file"_qs.arg(scale.Songs()), times[0],
        u"writing the same %1"_qs.arg(ResultTable::Bytes(static_cast<double>(content.size()))),
        times[1], {Aim::AtMost, 5});
    table.Add(u"export form for %1 filled and looked through"_qs.arg(scale.Songs()), times[2],
              u"writing the same bytes"_qs, times[1]);
}
