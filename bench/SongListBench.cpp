// The viewer's song list: opening a viewer on a large category, and opening the list itself.

#include "Benches.h"
#include "controls/ComboBox.h"
#include "controls/RichTextBox.h"
#include "harness/Catalogue.h"
#include "harness/Painted.h"
#include "store/Connection.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractItemView>
#include <QTest>

#include <memory>

namespace {

constexpr int Rounds = 25;
constexpr int FewSongs = 12;

template <typename Control>
Control& Find(const QWidget& viewer, const char* name)
{
    auto* control = viewer.findChild<Control*>(QString::fromLatin1(name));
    if (!control)
        qFatal("the viewer lacks %s", name);
    return *control;
}

/// @return the time from asking for a viewer to its painted sheet
Nanoseconds Opened(qint64 song)
{
    PaintCounter::Settle();
    std::unique_ptr<frmVisualizar> viewer;
    const Nanoseconds time = Timed([&] {
        viewer = std::make_unique<frmVisualizar>();
        viewer->ID_Musica = static_cast<double>(song);
        PaintCounter painted(*Find<RichTextBox>(*viewer, "RichTextBox_2").viewport());
        viewer->Show();
        painted.Await();
    });
    return time;
}

void MeasureOpening(const Scale& scale, qint64 small, qint64 large, ResultTable& table)
{
    const auto times = Interleaved(scale.Rounds(Rounds),
                                   {[&] { return Opened(large); }, [&] { return Opened(small); }});
    table.Add(u"viewer opened on a category of "_qs + scale.Songs(), times[0],
              u"on one of %1"_qs.arg(FewSongs), times[1], {Aim::AtMost, 3});
}

void MeasurePopup(const Scale& scale, qint64 song, ResultTable& table)
{
    const std::unique_ptr<frmVisualizar> viewer(new frmVisualizar);
    viewer->ID_Musica = static_cast<double>(song);
    viewer->Show();
    if (!QTest::qWaitForWindowExposed(viewer.get()))
        qFatal("the viewer is not shown");
    auto& list = Find<ComboBox>(*viewer, "cmbLista");
    QAbstractItemView& popup = *list.view();
    PaintCounter painted(*popup.viewport());
    const auto times = Interleaved(scale.Rounds(Rounds),
                                   {[&] {
                                        list.hidePopup();
                                        return painted.UntilPainted([&] { list.showPopup(); });
                                    },
                                    [&] { return painted.Bare(*popup.window()); },
                                    [&] {
                                        PaintCounter::Settle();
                                        return Timed([&] { viewer->repaint(); });
                                    }});
    const QString work = u"song list of %1 opened"_qs.arg(scale.Songs());
    table.Add(work, times[0], u"repaint of the viewer"_qs, times[2], {Aim::AtMost, 2});
    table.Add(work, times[0], u"repaint of the list"_qs, times[1], {Aim::AtMost, 2});
    list.hidePopup();
}

} // namespace

void BenchSongList(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    catalogue.Run(u"UPDATE MUSICA SET CATEGORIA = 1;"
                  "UPDATE MUSICA SET CATEGORIA = 2 WHERE ID <= %1"_qs.arg(FewSongs));
    Funcoes::Conexao.Open(catalogue.ConnectionString());
    Funcoes::Conexao.CursorLocation = Connection::UseClient;
    const qint64 large = scale.songs / 2;
    MeasureOpening(scale, 1, large, table);
    MeasurePopup(scale, large, table);
    Funcoes::Conexao.Close();
}
