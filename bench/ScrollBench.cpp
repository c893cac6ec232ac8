// The viewer scrolling by itself: how many ticks come late, with the machine idle and while
// searches run in the main window.

#include "Benches.h"
#include "controls/RichTextBox.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"
#include "harness/Sheet.h"
#include "viewer/frmVisualizar.h"

#include <QPointer>
#include <QScrollBar>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int Ticks = 200;
constexpr double Tolerance = 0.2; // of a period: what an eye forgives
constexpr double LateAllowed = 0.05;
constexpr int SearchEvery = 250; // ms: somebody types without haste

/// Notes when a sheet moves, which it does with each tick.
class Moves : public QObject
{
public:
    explicit Moves(const RichTextBox& box)
    {
        connect(box.verticalScrollBar(), &QScrollBar::valueChanged, this,
                [this] { m_times.push_back(Clock::now()); });
    }

    void Await(int count)
    {
        m_times.clear();
        while (m_times.size() < static_cast<std::size_t>(count) + 1)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// @return the share of ticks that came later after the one before than period and tolerance
    double Late(double period) const
    {
        int late = 0;
        for (std::size_t i = 1; i < m_times.size(); ++i)
            if (Milliseconds(m_times[i] - m_times[i - 1]).count() > period * (1 + Tolerance))
                ++late;
        return double(late) / double(m_times.size() - 1);
    }

private:
    std::vector<Clock::time_point> m_times;
};

void Measure(frmVisualizar& viewer, int period, const QString& beside, const Scale& scale,
             ResultTable& table)
{
    auto* timer = viewer.findChild<QTimer*>(u"TimerRolagem"_qs);
    auto* box = viewer.findChild<RichTextBox*>(u"RichTextBox_2"_qs);
    if (!timer || !box)
        qFatal("the viewer lacks its timer or its box");
    timer->setProperty("Tag", QString::number(period));
    QTest::keyClick(&viewer, Qt::Key_Home);
    Moves moves(*box);
    viewer.Auto_Rolagem(true);
    moves.Await(2); // from the second tick on the period holds
    moves.Await(scale.isShort ? 5 : Ticks);
    viewer.Auto_Rolagem(false);
    const double late = moves.Late(period);
    table.AddText(u"scrolling every %1 ms, %2: ticks late by a fifth"_qs.arg(period).arg(beside),
                  u"%1 %"_qs.arg(100 * late, 0, 'f', 1), u"all ticks"_qs, late,
                  {Aim::AtMost, LateAllowed});
}

} // namespace

void BenchScroll(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    const MainForm form(catalogue);
    TestSong song;
    song.text2 = Sheet(scale.sheetLines);
    const QPointer<frmVisualizar> viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(catalogue.AddSong(song));
    viewer->Show();
    if (!QTest::qWaitForWindowExposed(viewer))
        qFatal("the viewer is not shown");

    constexpr std::array periods{150, 44, 10};
    for (const int period : periods)
        Measure(*viewer, period, u"idle"_qs, scale, table);

    QTimer typist;
    bool written = false;
    QObject::connect(&typist, &QTimer::timeout, &typist, [&] {
        written = !written;
        form.Find<QLineEdit>("txtLetra").setText(written ? u"luz"_qs : QString());
    });
    typist.start(SearchEvery);
    for (const int period : periods)
        Measure(*viewer, period, u"searching %1"_qs.arg(scale.Songs()), scale, table);
    typist.stop();
    delete viewer;
}
