// The viewer: from a button or key to the painted sheet.

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

/// Every key that changes the sheet, pressed again and again.
void MeasureKeys(int lines, double repaints, const Scale& scale, const TestCatalogue& catalogue,
                 ResultTable& table)
{
    TestSong song;
    song.text = song.text2 = Sheet(lines);
    QList<qint64> songs;
    for (const QString& title : {u"A"_qs, u"B"_qs, u"C"_qs}) {
        song.title = title;
        songs += catalogue.AddSong(song);
    }
    const QPointer<frmVisualizar> viewer = new frmVisualizar;
    viewer->ID_Lista = static_cast<double>(catalogue.AddSetlist(u"Missa"_qs, {}, songs));
    viewer->Show();
    if (!QTest::qWaitForWindowExposed(viewer))
        qFatal("the viewer is not shown");
    auto* first = viewer->findChild<RichTextBox*>(u"RichTextBox_1"_qs);
    auto* second = viewer->findChild<RichTextBox*>(u"RichTextBox_2"_qs);
    if (!first || !second)
        qFatal("the viewer lacks its boxes");
    PaintCounter paintedFirst(*first->viewport());
    PaintCounter painted(*second->viewport());

    constexpr Qt::Key Nothing = Qt::Key_Delete;
    // A key's effect is taken back by another one where pressing on would end it.
    const QList<std::tuple<QString, Qt::Key, Qt::Key>> keys = {
        {u"S"_qs, Qt::Key_S, Nothing},           {u"D"_qs, Qt::Key_D, Nothing},
        {u"R"_qs, Qt::Key_R, Qt::Key_S},         {u"C"_qs, Qt::Key_C, Qt::Key_C},
        {u"+"_qs, Qt::Key_Plus, Qt::Key_Minus},  {u"-"_qs, Qt::Key_Minus, Qt::Key_Plus},
        {u"V"_qs, Qt::Key_V, Qt::Key_V},         {u"P"_qs, Qt::Key_P, Qt::Key_A},
        {u"A"_qs, Qt::Key_A, Qt::Key_P},         {u"Down"_qs, Qt::Key_Down, Qt::Key_Up},
        {u"Up"_qs, Qt::Key_Up, Qt::Key_Down},    {u"End"_qs, Qt::Key_End, Qt::Key_Home},
        {u"Home"_qs, Qt::Key_Home, Qt::Key_End}, {u"Space"_qs, Qt::Key_Space, Qt::Key_Home},
    };
    for (const auto& [name, key, back] : keys) {
        QTest::keyClick(viewer.data(), back); // so that there is something to change
        PaintCounter& seen = key == Qt::Key_V ? paintedFirst : painted;
        const auto press = [&, key = key, back = back] {
            const Nanoseconds time =
                seen.UntilPainted([&] { QTest::keyClick(viewer.data(), key); });
            QTest::keyClick(viewer.data(), back);
            return time;
        };
        // V came from the first version: it goes back to where the measured press starts.
        if (key == Qt::Key_V)
            QTest::keyClick(viewer.data(), back);
        const auto times = Interleaved(scale.Rounds(Rounds),
                                       {press, [&] { return painted.Bare(*second->viewport()); }});
        table.Add(u"key %1 to repaint, %2 lines"_qs.arg(name).arg(lines), times[0], u"repaint"_qs,
                  times[1], {Aim::AtMost, repaints});
    }
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
    MeasureKeys(scale.sheetLines, 3, scale, catalogue, table);
    Funcoes::Conexao.Close();
}
