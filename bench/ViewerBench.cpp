// The viewer: from the sharp button to the painted sheet.

#include "Benches.h"
#include "UsualNotes.h"
#include "controls/RichTextBox.h"
#include "harness/Painted.h"
#include "harness/Sheet.h"
#include "naive/LineInsertion.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractButton>
#include <QPointer>
#include <QTest>

namespace {

constexpr int Rounds = 25;

void MeasureSheet(int lines, double repaints, double naiveTimes, const Scale& scale,
                  const TestCatalogue& catalogue, ResultTable& table)
{
    TestSong song;
    song.text2 = Sheet(lines); // the version that a viewer shows first
    const QPointer<frmVisualizar> viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(catalogue.AddSong(song));
    viewer->Show();
    if (!QTest::qWaitForWindowExposed(viewer))
        qFatal("the viewer is not shown");
    auto* box = viewer->findChild<RichTextBox*>(u"RichTextBox_2"_qs);
    auto* sharp = viewer->findChild<QAbstractButton*>(u"cmdSobe"_qs);
    if (!box || !sharp)
        qFatal("the viewer lacks its box or its button");
    PaintCounter painted(*box->viewport());

    QTextEdit plainBox;
    plainBox.resize(box->size());
    plainBox.setFont(box->font());
    plainBox.show();
    if (!QTest::qWaitForWindowExposed(&plainBox))
        qFatal("the plain box is not shown");
    PaintCounter plainPainted(*plainBox.viewport());
    LineInsertion naive({Funcoes::Notas, Funcoes::Notas_Mais, QString()});
    std::int16_t shift = 0;

    const auto times = Interleaved(scale.Rounds(Rounds),
                                   {[&] { return painted.UntilPainted([&] { sharp->click(); }); },
                                    [&] { return painted.Bare(*box->viewport()); },
                                    [&] {
                                        shift = static_cast<std::int16_t>(shift % 12 + 1);
                                        return plainPainted.UntilPainted(
                                            [&] { naive.Show(plainBox, song.text2, shift); });
                                    }});
    const QString work = u"sharp to repaint, %1 lines"_qs.arg(lines);
    table.Add(work, times[0], u"repaint"_qs, times[1],
              repaints > 0 ? Aim{Aim::AtMost, repaints} : Aim{});
    table.Add(work, times[0], u"line by line"_qs, times[2], {Aim::AtLeast, naiveTimes});
    delete viewer;
}

} // namespace

void BenchViewer(const Scale& scale, ResultTable& table)
{
    const TestCatalogue catalogue;
    Funcoes::Conexao.Open(catalogue.ConnectionString());
    Funcoes::Conexao.CursorLocation = Connection::UseClient;
    LoadUsualNotes();
    MeasureSheet(scale.sheetLines, 4, 1, scale, catalogue, table);
    MeasureSheet(scale.longSheetLines, 0, 14, scale, catalogue, table);
    Funcoes::Conexao.Close();
}
